// The rules grid: list rows for new suppliers, the grid's order, and what a
// failure leaves.
#include "catalogue/support/shop_fixture.h"

namespace vendrix {
namespace {

using test::kDAngelo;

class GrillaReglas : public test::TiendaConLista {
protected:
    explicit GrillaReglas(bool failing = false) : TiendaConLista(failing) {}
};

const QString kLogAlta = QStringLiteral("Se agrego el proveedor '%1' con grupo generico 'General para la "
                                        "lista' por que se determino que esta en el "
                                        "archivo vdrxdb y no en el la grilla de descuentos y ganancias.");
const QString kLista = QStringLiteral("|General para la lista|Todos los articulos del grupo|||false");

TEST_F(GrillaReglas, EachSupplierGetsItsListRowOnceWithItsLogLine)
{
    llenar();
    EXPECT_EQ(tabla_reglas(), (QStringList{"Acme" + kLista, kDAngelo + kLista, "Otro" + kLista}));
    EXPECT_EQ(nuevos_logs(),
              (QStringList{kLogAlta.arg("Acme"), kLogAlta.arg(kDAngelo), kLogAlta.arg("Otro")}));
    // The next fill adds nothing; a supplier that arrives with a new list gets its row then.
    llenar();
    test::ejecutar_en_archivo(app.ruta(QStringLiteral("Vendrix.vdrxdb")),
                              {QStringLiteral("INSERT INTO xls_proveedores (Proveedor) VALUES ('Nuevo')")});
    const quint64 version = reglas.version();
    llenar();
    EXPECT_EQ(tabla_reglas().mid(3), QStringList{"Nuevo" + kLista});
    EXPECT_EQ(nuevos_logs().mid(3), QStringList{kLogAlta.arg("Nuevo")});
    EXPECT_GT(reglas.version(), version);
    EXPECT_TRUE(app.op.empty());
}

TEST_F(GrillaReglas, RowsComeListFirstThenGroupsWithTheirAllArticlesRowFirst)
{
    regla("Otro", "Varios", "X1 - Varios", "1", "1");
    regla("Acme", "Tuercas", "Todos los articulos del grupo", "2", "2");
    regla("Acme", "Tornillos", "T2 - Tornillo 3/8", "3", "3");
    regla("Acme", "Tornillos", "Todos los articulos del grupo", "4", "4");
    regla("Acme", "General para la lista", "Todos los articulos del grupo", "10+5", "30");
    regla("Acme", "Tornillos", "T1 - Tornillo 1/4", "5", "5");
    regla("Acme", "Tornillos", "T1 - Tornillo 1/4", "6", "6"); // equal rows stay in the order added
    // A supplier that left the price list keeps its rules in the table, out of the grid.
    regla("Viejo", "General para la lista", "Todos los articulos del grupo", "9", "9");
    llenar();
    EXPECT_EQ(grilla(reglas.filas()), (QStringList{
                                          "Acme|General para la lista|Todos los articulos del grupo|10+5|30",
                                          "Acme|Tornillos|Todos los articulos del grupo|4|4",
                                          "Acme|Tornillos|T1 - Tornillo 1/4|5|5",
                                          "Acme|Tornillos|T1 - Tornillo 1/4|6|6",
                                          "Acme|Tornillos|T2 - Tornillo 3/8|3|3",
                                          "Acme|Tuercas|Todos los articulos del grupo|2|2",
                                          "D'Angelo|General para la lista|Todos los articulos del grupo||",
                                          "Otro|Varios|X1 - Varios|1|1",
                                      }));
    EXPECT_EQ(reglas.tabla().regla_ganancia("Acme", "Tornillos", "T1"), QStringLiteral("6"));
    // Only a supplier with no row at all gets its list row.
    EXPECT_EQ(nuevos_logs(), (QStringList{kLogAlta.arg(kDAngelo)}));

    // An edited cell takes effect at once; other columns change nothing.
    reglas.cambiar_formula(0, RuleColumn::Ganancia, QStringLiteral("25"));
    EXPECT_EQ(reglas.tabla().regla_ganancia("Acme", "Otros", "Z"), QStringLiteral("25"));
    const quint64 version = reglas.version();
    reglas.cambiar_formula(0, RuleColumn::Grupo, QStringLiteral("x"));
    reglas.cambiar_formula(99, RuleColumn::Ganancia, QStringLiteral("1"));
    EXPECT_EQ(reglas.version(), version);
}

class GrillaReglasConFallos : public GrillaReglas {
protected:
    GrillaReglasConFallos() : GrillaReglas(true) {}
};

TEST_F(GrillaReglasConFallos, UnreadableRulesKeepTheGridAsItWas)
{
    llenar();
    app.failing_db().fail_matching(QStringLiteral("ORDER BY a.Proveedor"));
    EXPECT_FALSE(reglas.llenar(app.ctx()));
    EXPECT_EQ(reglas.filas().size(), 3u);
    EXPECT_EQ(app.op.lines(),
              (QStringList{"error|Error al intentar cargar las Grillas.|ER GR001: Se produjo un "
                           "error al cargar la información en las Grillas. Cierre Vendrix e "
                           "intente nuevamente."}));
    EXPECT_TRUE(nuevos_logs().last().startsWith(QStringLiteral("ER GR001 - ")));
}

TEST_F(GrillaReglasConFallos, ListRowsThatCantBeWrittenLeaveNothingAndTheRulesAreStillRead)
{
    regla("Acme", "Tornillos", "Todos los articulos del grupo", "20", "40");
    app.failing_db().fail_matching(QStringLiteral("VALUES (?, ?, ?, 'false')"));
    EXPECT_TRUE(reglas.llenar(app.ctx()));
    EXPECT_EQ(tabla_reglas(), (QStringList{"Acme|Tornillos|Todos los articulos del grupo|20|40|true"}));
    EXPECT_EQ(grilla(reglas.filas()), (QStringList{"Acme|Tornillos|Todos los articulos del grupo|20|40"}));
    EXPECT_FALSE(nuevos_logs().join('\n').contains(QStringLiteral("Se agrego el proveedor")));
    EXPECT_EQ(app.op.shown.size(), 1u); // the layer's message about the failed statement
}

} // namespace
} // namespace vendrix

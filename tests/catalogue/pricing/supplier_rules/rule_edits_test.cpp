// Adding, editing and deleting rules from the rules grid.
#include "catalogue/pricing/supplier_rules/rule_edits.h"
#include "catalogue/support/shop_fixture.h"

namespace vendrix {
namespace {

using test::kDAngelo;

class EdicionReglas : public test::TiendaConLista {
protected:
    void SetUp() override
    {
        TiendaConLista::SetUp();
        llenar();
        app.op.clear();
    }

    bool agregar(const QString &proveedor, const QString &grupo, const QString &articulo,
                 const QString &descuento, const QString &ganancia)
    {
        return agregar_regla(app.ctx(), reglas.filas(), {proveedor, grupo, articulo, descuento, ganancia});
    }

    const RuleRow *fila(const QString &grupo, const QString &articulo)
    {
        for (const RuleRow &f : reglas.filas()) {
            if (f.grupo == grupo && f.articulo == articulo)
                return &f;
        }
        return nullptr;
    }
};

const QString kTodos = QStringLiteral("Todos los articulos del grupo");
const QStringList kListas{"Acme|General para la lista|Todos los articulos del grupo|||false",
                          "D'Angelo|General para la lista|Todos los articulos del grupo|||false",
                          "Otro|General para la lista|Todos los articulos del grupo|||false"};
const QString kFormulaMala = QStringLiteral("error|Error en el descuento|Hay un error en la formula del "
                                            "descuento. Por favor corríjala e intente nuevamente");

TEST_F(EdicionReglas, AddingChecksInOrderAndStopsAtTheFirstFault)
{
    const struct {
        const char *grupo, *articulo, *descuento, *ganancia;
        QString mensaje;
    } casos[] = {
        {"Tornillos", "Todos los articulos del grupo", "10+", "abc", kFormulaMala},
        // A wrong margin says the discount's message too.
        {"Tornillos", "Todos los articulos del grupo", "10", "-1000", kFormulaMala},
        {"General para la lista", "Todos los articulos del grupo", "1", "1",
         "error|Error en los datos|Los valores de descuento y ganancia para el proveedor \"Acme\" y el grupo "
         "\"General para la lista\" ya estan definidos. Los porcentajes generales deben informarse "
         "directamente en el cuadro superior."},
        {"Tuercas", " - Tuerca suelta", "1", "1",
         "error|Error en los datos|El artículo  - Tuerca suelta no posse un código y por lo tanto no puede "
         "asignarse un descuento y ganancia a nivel de artículo. Intente a definir la ganancia y el "
         "descuento a nivel de grupo."},
    };
    for (const auto &c : casos) {
        app.op.clear();
        EXPECT_FALSE(agregar("Acme", c.grupo, c.articulo, c.descuento, c.ganancia));
        EXPECT_EQ(app.op.lines(), QStringList{c.mensaje}) << c.articulo;
    }
    EXPECT_EQ(tabla_reglas(), kListas);
}

TEST_F(EdicionReglas, RulesAreStoredAsTypedAndRefusedTwice)
{
    ASSERT_TRUE(
        agregar(kDAngelo, QStringLiteral("Caños"), kTodos, QStringLiteral("10+5"), QStringLiteral("30")));
    EXPECT_TRUE(app.op.empty());
    EXPECT_EQ(tabla_reglas().last(),
              QStringLiteral("D'Angelo|Caños|Todos los articulos del grupo|10+5|30|true"));
    llenar();
    EXPECT_FALSE(
        agregar(kDAngelo, QStringLiteral("Caños"), kTodos, QStringLiteral("1"), QStringLiteral("1")));
    EXPECT_TRUE(app.op.texts().value(0).contains("proveedor \"D'Angelo\" y el grupo \"Caños\" ya estan"));
    // Nothing chosen in the combos is no fault of its own: the row goes in as chosen.
    app.op.clear();
    EXPECT_TRUE(agregar(QStringLiteral(" "), QString(), QString(), QStringLiteral("1"), QStringLiteral("2")));
    EXPECT_TRUE(app.op.empty());
    EXPECT_EQ(tabla_reglas().last(), QStringLiteral(" ||Todos los articulos del grupo|1|2|true"));

    // An article rule comes with a notice about codes.
    app.op.clear();
    ASSERT_TRUE(
        agregar(kDAngelo, QStringLiteral("Caños"), QStringLiteral("C'1 - Caño 1/2' cobre"), QString(), "40"));
    EXPECT_EQ(
        app.op.lines(),
        (QStringList{"inform|Artículo con ganancia y descuento específicos|Usted está por configurar los "
                     "porcentajes de ganancia y descuento a nivel de artículo. Vendrix no puede garantizar "
                     "que en el futuro, el proveedor D'Angelo mantendrá el código C'1 para el artículo C'1 - "
                     "Caño 1/2' cobre en el futuro. Úselo teniendo en cuenta esta salvedad y revise "
                     "semanalmente, en la la solapa \"Novedades\", los \"Cambios de Descripción\" realizados "
                     "po el proveedor."}));
    EXPECT_EQ(tabla_reglas().last(), QStringLiteral("D'Angelo|Caños|C'1 - Caño 1/2' cobre||40|true"));
}

TEST_F(EdicionReglas, EditingAndDeletingTouchTheChosenRowOnly)
{
    regla("Acme", "Tornillos", kTodos, "20", "40");
    regla("Acme", "Tornillos", "T1 - Tornillo 1/4", "5", "50");
    regla(kDAngelo, "Caños", "C'1 - Caño 1/2' cobre", "1", "1");
    llenar();
    app.op.clear();
    EXPECT_FALSE(editar_regla(app.ctx(), *fila("Tornillos", kTodos), RuleColumn::Ganancia, "10++"));
    EXPECT_EQ(app.op.lines(), QStringList{kFormulaMala});
    EXPECT_TRUE(editar_regla(app.ctx(), *fila("General para la lista", kTodos), RuleColumn::Descuento, "3"));
    EXPECT_TRUE(
        editar_regla(app.ctx(), *fila("Caños", "C'1 - Caño 1/2' cobre"), RuleColumn::Descuento, "7+3"));
    EXPECT_EQ(tabla_reglas().last(), QStringLiteral("D'Angelo|Caños|C'1 - Caño 1/2' cobre|7+3|1|true"));

    app.op.clear();
    EXPECT_FALSE(borrar_regla(app.ctx(), nullptr));
    EXPECT_FALSE(borrar_regla(app.ctx(), fila("General para la lista", kTodos)));
    app.op.answer(false);
    EXPECT_FALSE(borrar_regla(app.ctx(), fila("Tornillos", kTodos)));
    EXPECT_EQ(
        app.op.lines(),
        (QStringList{"error|Error al eliminar un dato.|Antes de eliminar, debe seleccionar una fila en el "
                     "cuadro de los proveedores.",
                     "error|Error al eliminar un dato.|El valor 'General para la lista' no puede ser "
                     "eliminado ya que se utiliza para calcular todos los descuentos y ganancias a nivel "
                     "global para la lista seleccionada.",
                     "ask|Borrar configuración del proveedor|¿Está seguro que desea borrar la "
                     "configuración del grupo \"Tornillos\" y el proveedor \"Acme\"?"}));
    EXPECT_EQ(tabla_reglas().size(), 6);
    app.op.answers_in_order({true, true});
    EXPECT_TRUE(borrar_regla(app.ctx(), fila("Tornillos", kTodos)));
    EXPECT_TRUE(borrar_regla(app.ctx(), fila("Caños", "C'1 - Caño 1/2' cobre")));
    EXPECT_EQ(tabla_reglas(),
              (QStringList{"Acme|General para la lista|Todos los articulos del grupo|3||false", kListas[1],
                           kListas[2], "Acme|Tornillos|T1 - Tornillo 1/4|5|50|true"}));
    EXPECT_EQ(
        nuevos_logs().last(),
        QStringLiteral("Configuración - se borro un proveedor/grupo de la grilla de descuento/ganancia"));
}

} // namespace
} // namespace vendrix

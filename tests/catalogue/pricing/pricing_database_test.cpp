// The pricing operations that read the price list and the shop database:
// a small price file made here, and the shop seed brought up to date.
#include "catalogue/pricing/article_record.h"
#include "catalogue/pricing/price_by_id.h"
#include "catalogue/pricing/rules.h"
#include "catalogue/pricing/settings_boxes.h"
#include "core/migrations.h"
#include "support/price_file.h"
#include "support/qt_print.h"
#include "support/test_context.h"

#include <gtest/gtest.h>

namespace vendrix {
namespace {

// Articles: 1 in pesos, 2 reduced rate, 3 in dollars, 4 in dollars at the
// reduced rate, 5 of another supplier, 6 with a price that isn't a number.
const QStringList kArticulos{QStringLiteral(
    "INSERT INTO xls_listas (ID, Proveedor, Grupo, Codigo, Descripcion, Precio, Moneda) VALUES "
    "(1, 'Acme', 'Tornillos', 'T1', 'Tornillo 1/4', '1000', '1'), "
    "(2, 'Acme', 'Tornillos', 'T2', 'Tornillo 3/8', '1000', '101'), "
    "(3, 'Acme', 'Tornillos', 'T3', 'Tornillo 1/2', '10', '2'), "
    "(4, 'Acme', 'Tornillos', 'T4', 'Tornillo 5/8', '10', '102'), "
    "(5, 'Otro', 'Tuercas', 'X1', 'Tuerca', '500', '1'), "
    "(6, 'Acme', 'Arandelas', 'A1', 'Arandela', 's/p', '1')")};

class PreciosEnBase : public ::testing::Test {
protected:
    explicit PreciosEnBase(bool failing = false) : app(failing) {}

    void SetUp() override
    {
        app.copy_seed(QStringLiteral("clientes.install"), QStringLiteral("clientes.vdrx"));
        ASSERT_TRUE(ejecutar_migraciones(app.ctx()).fallidas.isEmpty());
        test::crear_archivo_de_precios(app.ruta(QStringLiteral("Vendrix.vdrxdb")), kArticulos);
        ajuste("iva", "21");
        ajuste("Valor_Dolar", "100");
        regla("Acme", "General para la lista", "Todos los articulos del grupo", "10+5", "30");
        regla("Otro", "General para la lista", "Todos los articulos del grupo", "50", "0");
        app.op.clear();
        app.status.busy_changes.clear();
    }

    void ajuste(const char *clave, const char *valor)
    {
        app.ctx().escribir_parametro(QString::fromUtf8(clave), QString::fromUtf8(valor));
    }

    void regla(const char *proveedor, const char *grupo, const char *articulo, const char *descuento,
               const char *ganancia)
    {
        ASSERT_TRUE(app.db().execNQ(
            QStringLiteral("INSERT INTO vendrix_descuentos (Proveedor, Grupo, Articulo, "
                           "Descuento, Ganancia, borrable) VALUES (?, ?, ?, ?, ?, 'true')"),
            QStringLiteral("cliente"),
            {QString::fromUtf8(proveedor), QString::fromUtf8(grupo), QString::fromUtf8(articulo),
             QString::fromUtf8(descuento), QString::fromUtf8(ganancia)}));
    }

    test::TestApp app;
};

const double kNeto = 1000 * (1 - 14.5 / 100) * (1 + 30.0 / 100);

TEST_F(PreciosEnBase, PriceByIdWithTheArticleOwnRate)
{
    EXPECT_DOUBLE_EQ(calcular_precio_por_id(app.ctx(), 1), 1344.915);
    EXPECT_DOUBLE_EQ(calcular_precio_por_id(app.ctx(), 2), 1.105 * kNeto);
    EXPECT_DOUBLE_EQ(calcular_precio_por_id(app.ctx(), 3), 1344.915);
    EXPECT_DOUBLE_EQ(calcular_precio_por_id(app.ctx(), 4), 1.105 * kNeto);
    EXPECT_DOUBLE_EQ(calcular_precio_por_id(app.ctx(), 5), 500 * 0.5 * 1.21);
    EXPECT_EQ(calcular_precio_por_id(app.ctx(), 6), 0.0);
    EXPECT_EQ(calcular_precio_por_id(app.ctx(), 99), 0.0); // no such article
    EXPECT_TRUE(app.op.empty());

    // Settings are read at each call.
    ajuste("Valor_Dolar", "abc");
    EXPECT_EQ(calcular_precio_por_id(app.ctx(), 3), 0.0);
    ajuste("iva", "10,5");
    EXPECT_DOUBLE_EQ(calcular_precio_por_id(app.ctx(), 1), 1.10 * kNeto);
}

TEST_F(PreciosEnBase, PriceByIdMatchesSingleArticleRulesOnTheDescription)
{
    regla("Acme", "Tornillos", "T1 - Tornillo 1/4", "0", "0");
    EXPECT_DOUBLE_EQ(calcular_precio_por_id(app.ctx(), 1), 1344.915);
    regla("Acme", "Tornillos", "Tornillo 1/4 - por descripción", "50", "50");
    EXPECT_DOUBLE_EQ(calcular_precio_por_id(app.ctx(), 1), 1000 * 0.5 * 1.5 * 1.21);
}

TEST_F(PreciosEnBase, RulesComeInTheGridOrder)
{
    regla("Acme", "Tornillos", "T1 - Tornillo 1/4", "1", "1");
    regla("Acme", "Tornillos", "Todos los articulos del grupo", "2", "2");
    regla("Acme", "", "Todos los articulos del grupo", "3", "3");
    regla("Acme", "arandelas", "Todos los articulos del grupo", "4", "4");
    regla("Acme", "Tornillos", "Todos los articulos del grupo", "5", "5");
    const std::optional<RuleTable> reglas = leer_reglas_proveedor(app.ctx(), QStringLiteral("Acme"));
    ASSERT_TRUE(reglas);
    QStringList orden;
    for (const RuleRow &f : reglas->filas())
        orden << f.grupo + QLatin1Char('/') + f.articulo + QLatin1Char('/') + f.descuento;
    EXPECT_EQ(orden, (QStringList{
                         "General para la lista/Todos los articulos del grupo/10+5",
                         "/Todos los articulos del grupo/3",
                         "arandelas/Todos los articulos del grupo/4",
                         "Tornillos/Todos los articulos del grupo/2",
                         "Tornillos/Todos los articulos del grupo/5",
                         "Tornillos/T1 - Tornillo 1/4/1",
                     }));
    // Of two equal group rows the later one wins.
    EXPECT_EQ(
        reglas->regla_descuento(QStringLiteral("Acme"), QStringLiteral("Tornillos"), QStringLiteral("T9")),
        QStringLiteral("5"));
}

TEST_F(PreciosEnBase, ArticleAndUnits)
{
    const ArticleRead a = leer_articulo(app.ctx(), 2);
    ASSERT_TRUE(a.ok);
    ASSERT_TRUE(a.encontrado);
    EXPECT_EQ(a.articulo.proveedor, QStringLiteral("Acme"));
    EXPECT_EQ(a.articulo.grupo, QStringLiteral("Tornillos"));
    EXPECT_EQ(a.articulo.codigo, QStringLiteral("T2"));
    EXPECT_EQ(a.articulo.descripcion, QStringLiteral("Tornillo 3/8"));
    EXPECT_EQ(a.articulo.precio, QStringLiteral("1000"));
    EXPECT_EQ(a.articulo.moneda, QStringLiteral("101"));
    const ArticleRead ninguno = leer_articulo(app.ctx(), 99);
    EXPECT_TRUE(ninguno.ok);
    EXPECT_FALSE(ninguno.encontrado);

    ASSERT_TRUE(app.db().execNQ(QStringLiteral("INSERT INTO vendrix_unidades_articulo (Proveedor, Codigo, "
                                               "Unidades) VALUES ('Acme', 'T1', 12), ('Acme', 'T2', 0), "
                                               "('Acme', 'T3', 2.5)"),
                                QStringLiteral("cliente")));
    EXPECT_EQ(leer_unidades(app.ctx(), QStringLiteral("Acme"), QStringLiteral("T1")), 12.0);
    EXPECT_EQ(leer_unidades(app.ctx(), QStringLiteral("Acme"), QStringLiteral("T3")), 2.5);
    EXPECT_EQ(leer_unidades(app.ctx(), QStringLiteral("Acme"), QStringLiteral("T2")), std::nullopt);
    EXPECT_EQ(leer_unidades(app.ctx(), QStringLiteral("Acme"), QStringLiteral("T4")), std::nullopt);
    EXPECT_EQ(leer_unidades(app.ctx(), QStringLiteral("acme"), QStringLiteral("T1")), std::nullopt);
}

TEST_F(PreciosEnBase, LeavingTheCardBoxUpdatesTheCardPaymentMethod)
{
    ASSERT_TRUE(salir_recargo_tarjeta(app.ctx(), QStringLiteral("15")));
    const Matrix m = app.db().execQ_matriz(
        QStringLiteral("SELECT Forma_de_Pago, Recargo FROM Vendrix_FormasDePago ORDER BY ID"),
        QStringLiteral("internal"));
    for (int r = 0; r < m.filas(); ++r) {
        const bool tarjeta = m.at(0, r) == QStringLiteral("Tarjeta de Crédito");
        EXPECT_EQ(m.at(1, r).toDouble(), tarjeta ? 15.0 : 0.0) << m.at(0, r).toStdString();
    }
    EXPECT_TRUE(app.log_messages().contains(
        QStringLiteral("se procede a modificar el recargo de la tarjeta a: 15.")));
    EXPECT_TRUE(app.log_messages().contains(QStringLiteral("se modificar el recargo de la tarjeta a: 15.")));

    ASSERT_TRUE(salir_recargo_tarjeta(app.ctx(), QStringLiteral("2,5")));
    EXPECT_EQ(app.db()
                  .execQ1(QStringLiteral("SELECT Recargo FROM Vendrix_FormasDePago WHERE Forma_de_Pago = "
                                         "'Tarjeta de Crédito'"),
                          QStringLiteral("internal"))
                  .toDouble(),
              2.5);
}

class PreciosEnBaseQueFalla : public PreciosEnBase {
protected:
    PreciosEnBaseQueFalla() : PreciosEnBase(true) {}
};

TEST_F(PreciosEnBaseQueFalla, PriceByIdFailsWithItsMessageAndMinusOne)
{
    for (const char *fragmento : {"xls_listas", "vendrix_descuentos"}) {
        SCOPED_TRACE(fragmento);
        app.op.clear();
        app.status.busy_changes.clear();
        app.failing_db().heal();
        app.failing_db().fail_matching(QString::fromUtf8(fragmento));
        EXPECT_EQ(calcular_precio_por_id(app.ctx(), 12), -1.0);
        EXPECT_EQ(app.op.lines(), (QStringList{QStringLiteral(
                                      "error|Error al recalcular precio.|ER PREART001: Se produjo un error "
                                      "al intentar recalcular el precio del artículo con ID=12. Cierre "
                                      "Vendrix e intente nuevamente.")}));
        EXPECT_EQ(app.log_messages().last(),
                  QStringLiteral("ER PREART001 - 1 No se pudo leer el artículo o sus reglas 0 Vendrix."));
        ASSERT_FALSE(app.status.busy_changes.empty());
        EXPECT_FALSE(app.status.busy_changes.back());
        EXPECT_TRUE(app.status.keywords.contains(QStringLiteral("bug_on")));
    }
}

TEST_F(PreciosEnBaseQueFalla, ARefusedCardUpdateLogsNoSuccess)
{
    app.failing_db().fail_matching(QStringLiteral("Vendrix_FormasDePago"));
    EXPECT_FALSE(salir_recargo_tarjeta(app.ctx(), QStringLiteral("15")));
    EXPECT_FALSE(app.log_messages().contains(QStringLiteral("se modificar el recargo de la tarjeta a: 15.")));
    EXPECT_FALSE(app.op.empty()); // the database layer told the operator
}

} // namespace
} // namespace vendrix

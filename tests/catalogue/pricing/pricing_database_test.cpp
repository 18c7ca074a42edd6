// The pricing operations that read the price list and the shop database.
#include "catalogue/pricing/article_record.h"
#include "catalogue/pricing/price_by_id.h"
#include "catalogue/pricing/settings_boxes.h"
#include "catalogue/support/shop_fixture.h"

namespace vendrix {
namespace {

class PreciosEnBase : public test::TiendaConLista {
protected:
    explicit PreciosEnBase(bool failing = false) : TiendaConLista(failing) {}
    double precio(qint64 id) { return calcular_precio_por_id(app.ctx(), id); }
};

TEST_F(PreciosEnBase, PriceByIdWithTheArticleOwnRateAndTheDescriptionAsCode)
{
    regla("Acme", "General para la lista", "Todos los articulos del grupo", "10+5", "30");
    regla("Otro", "General para la lista", "Todos los articulos del grupo", "50", "0");
    const double neto = 1000 * (1 - 14.5 / 100) * (1 + 30.0 / 100);
    EXPECT_DOUBLE_EQ(precio(1), 1344.915);
    EXPECT_DOUBLE_EQ(precio(2), 1.105 * neto); // reduced rate
    EXPECT_DOUBLE_EQ(precio(3), 1344.915);     // dollars
    EXPECT_DOUBLE_EQ(precio(9), 500 * 0.5 * 1.21);
    EXPECT_EQ(precio(99), 0.0); // no such article
    EXPECT_TRUE(app.op.empty());
    // Settings are read at each call.
    ajuste("Valor_Dolar", "abc");
    EXPECT_EQ(precio(3), 0.0);
    ajuste("iva", "10,5");
    EXPECT_DOUBLE_EQ(precio(1), 1.10 * neto);
    // A rule for one article matches its description, never its code; of two
    // equal group rows the later one wins.
    regla("Acme", "Tornillos", "T1 - Tornillo 1/4", "0", "0");
    regla("Acme", "Tornillos", "Tornillo 1/4 - por descripción", "50", "50");
    EXPECT_DOUBLE_EQ(precio(1), 1000 * 0.5 * 1.5 * 1.10);
    regla("Acme", "Tornillos", "Todos los articulos del grupo", "0", "100");
    regla("Acme", "Tornillos", "Todos los articulos del grupo", "0", "50");
    EXPECT_DOUBLE_EQ(precio(2), 1000 * 1.5 * 1.0525); // half the shop's rate
}

TEST_F(PreciosEnBase, UnitsAndTheCardPaymentMethod)
{
    ASSERT_TRUE(app.db().execNQ(QStringLiteral("INSERT INTO vendrix_unidades_articulo (Proveedor, Codigo, "
                                               "Unidades) VALUES ('Acme', 'T2', 0)"),
                                QStringLiteral("cliente")));
    EXPECT_EQ(leer_unidades(app.ctx(), QStringLiteral("Acme"), QStringLiteral("T2")), std::nullopt);
    ASSERT_TRUE(salir_recargo_tarjeta(app.ctx(), QStringLiteral("15")));
    EXPECT_EQ(nuevos_logs(), (QStringList{"se procede a modificar el recargo de la tarjeta a: 15",
                                          "se modificar el recargo de la tarjeta a: 15"}));
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
        EXPECT_EQ(precio(12), -1.0);
        EXPECT_EQ(app.op.lines(),
                  (QStringList{"error|Error al recalcular precio.|ER PREART001: Se produjo un "
                               "error al intentar recalcular el precio del artículo con ID=12. "
                               "Cierre Vendrix e intente nuevamente."}));
        EXPECT_EQ(nuevos_logs().last(), QStringLiteral("ER PREART001 - 1 No se pudo leer el artículo o sus "
                                                       "reglas 0 Vendrix"));
        EXPECT_FALSE(app.status.busy_changes.back());
    }
    // A refused card update logs no success.
    app.failing_db().fail_matching(QStringLiteral("Vendrix_FormasDePago"));
    EXPECT_FALSE(salir_recargo_tarjeta(app.ctx(), QStringLiteral("15")));
    EXPECT_EQ(nuevos_logs().filter(QStringLiteral("recargo de la tarjeta")),
              QStringList{"se procede a modificar el recargo de la tarjeta a: 15"});
}

} // namespace
} // namespace vendrix

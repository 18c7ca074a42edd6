#include "catalogue/pricing/price_by_id.h"

#include "catalogue/pricing/price_settings.h"
#include "catalogue/pricing/rules.h"

#include "support/qt_print.h"

#include <gtest/gtest.h>

namespace vendrix {
namespace {

PriceSettings ajustes(const char *iva, const char *dolar)
{
    return {QString::fromUtf8(iva), QString::fromUtf8(dolar), QStringLiteral("10"), {}};
}

PricedArticle articulo(const char *precio, const char *moneda)
{
    return {1,
            QStringLiteral("Acme"),
            QStringLiteral("Tornillos"),
            QStringLiteral("T1"),
            QStringLiteral("Tornillo 1/4"),
            QString::fromUtf8(precio),
            QString::fromUtf8(moneda)};
}

TEST(PrecioFinal, TheChainWithTheArticleOwnRate)
{
    const RuleTable reglas({
        {QStringLiteral("Acme"), QStringLiteral("General para la lista"),
         QStringLiteral("Todos los articulos del grupo"), QStringLiteral("10+5"), QStringLiteral("30")},
        // Single-article rules match on the description here, never on the code.
        {QStringLiteral("Acme"), QStringLiteral("Tornillos"), QStringLiteral("T1 - Tornillo 1/4"),
         QStringLiteral("50"), QStringLiteral("50")},
    });
    const double neto = 1000 * (1 - 14.5 / 100) * (1 + 30.0 / 100);
    EXPECT_DOUBLE_EQ(precio_final(articulo("1000", "1"), reglas, ajustes("21", "1")), 1344.915);
    EXPECT_DOUBLE_EQ(precio_final(articulo("1000", "101"), reglas, ajustes("21", "1")), 1.105 * neto);
    EXPECT_DOUBLE_EQ(precio_final(articulo("10", "2"), reglas, ajustes("21", "100")), 1344.915);
    EXPECT_DOUBLE_EQ(precio_final(articulo("10", "102"), reglas, ajustes("21", "100")), 1.105 * neto);
    EXPECT_EQ(precio_final(articulo("10", "2"), reglas, ajustes("21", "abc")), 0.0);
    EXPECT_EQ(precio_final(articulo("", "1"), reglas, ajustes("21", "1")), 0.0);

    PricedArticle por_descripcion = articulo("1000", "1");
    por_descripcion.descripcion = QStringLiteral("T1");
    EXPECT_DOUBLE_EQ(precio_final(por_descripcion, reglas, ajustes("21", "1")), 1000 * 0.5 * 1.5 * 1.21);
}

} // namespace
} // namespace vendrix

#include "catalogue/pricing/currency.h"

#include "support/qt_print.h"

#include <gtest/gtest.h>

namespace vendrix {
namespace {

TEST(Moneda, NamesConversionAndRates)
{
    const struct {
        const char *codigo;
        const char *nombre;
        bool dolar;
        double iva; // with the shop's iva of 21
    } casos[] = {
        {"1", "Pesos Argentinos (ARS)", false, 21},
        {"2", "Dolares (U$D)", true, 21},
        {"101", "Pesos Argentinos (ARS)", false, 10.5},
        {"102", "Dolares (U$D)", true, 10.5},
        {"3", "", false, 21},
        {"150", "", false, 10.5},
        {"", "", false, 21},
        {"abc", "", false, 21},
        {"02", "", false, 21},
        {"100", "", false, 10.5},
    };
    for (const auto &c : casos) {
        const QString codigo = QString::fromUtf8(c.codigo);
        EXPECT_EQ(nombre_moneda(codigo), QString::fromUtf8(c.nombre)) << c.codigo;
        EXPECT_EQ(es_moneda_dolar(codigo), c.dolar) << c.codigo;
        EXPECT_EQ(tasa_iva(codigo, u"21"), c.iva) << c.codigo;
    }
}

TEST(Moneda, ShopRateRoundedAsTheRunTimeDoes)
{
    EXPECT_EQ(tasa_iva(u"1", u"10,5"), 10.0); // half to even
    EXPECT_EQ(tasa_iva(u"1", u"11.5"), 12.0);
    EXPECT_EQ(tasa_iva(u"101", u"10,5"), 5.25);
    EXPECT_EQ(tasa_iva(u"101", u"27"), 13.5);
    EXPECT_EQ(tasa_iva(u"1", u""), 0.0);
}

TEST(Moneda, DollarValueThatIsNoNumberCountsAsZero)
{
    EXPECT_EQ(cotizacion_dolar(u"350,5"), 350.5);
    EXPECT_EQ(cotizacion_dolar(u"350.5"), 350.5);
    EXPECT_EQ(cotizacion_dolar(u""), 0.0);
    EXPECT_EQ(cotizacion_dolar(u"abc"), 0.0);
    EXPECT_EQ(cotizacion_dolar(u"12abc"), 0.0);
}

} // namespace
} // namespace vendrix

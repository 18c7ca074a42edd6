#include "catalogue/pricing/currency.h"

#include "support/qt_print.h"

#include <gtest/gtest.h>

namespace vendrix {
namespace {

TEST(Moneda, NamesConversionAndRates)
{
    const struct {
        const char *codigo, *nombre;
        bool dolar;
        const char *iva; // the shop's
        double tasa;
    } casos[] = {
        {"1", "Pesos Argentinos (ARS)", false, "21", 21},
        {"2", "Dolares (U$D)", true, "21", 21},
        {"101", "Pesos Argentinos (ARS)", false, "21", 10.5},
        {"102", "Dolares (U$D)", true, "21", 10.5},
        {"3", "", false, "21", 21},
        {"150", "", false, "21", 10.5},
        {"", "", false, "21", 21},
        {"abc", "", false, "21", 21},
        {"02", "", false, "21", 21},
        {"100", "", false, "21", 10.5},
        {"1", "Pesos Argentinos (ARS)", false, "10,5", 10}, // half to even
        {"1", "Pesos Argentinos (ARS)", false, "11.5", 12},
        {"101", "Pesos Argentinos (ARS)", false, "10,5", 5.25},
        {"1", "Pesos Argentinos (ARS)", false, "", 0},
    };
    for (const auto &c : casos) {
        const QString codigo = QString::fromUtf8(c.codigo);
        EXPECT_EQ(nombre_moneda(codigo), QString::fromUtf8(c.nombre)) << c.codigo;
        EXPECT_EQ(es_moneda_dolar(codigo), c.dolar) << c.codigo;
        EXPECT_EQ(tasa_iva(codigo, QString::fromUtf8(c.iva)), c.tasa) << c.codigo << " " << c.iva;
    }
    // A dollar value that is no number counts as 0.
    EXPECT_EQ(cotizacion_dolar(u"350,5"), 350.5);
    EXPECT_EQ(cotizacion_dolar(u"350.5"), 350.5);
    for (const char16_t *no : {u"", u"abc", u"12abc"})
        EXPECT_EQ(cotizacion_dolar(no), 0.0);
}

} // namespace
} // namespace vendrix

#include "catalogue/pricing/rounding.h"

#include "support/qt_print.h"
#include "support/test_context.h"

#include <gtest/gtest.h>

namespace vendrix {
namespace {

struct Caso {
    double precio;
    const char *decimales, *redondeo, *tipo, *tolerancia, *texto;
};

void comprobar(const Caso &c)
{
    const RoundingSettings a{QString::fromUtf8(c.decimales), QString::fromUtf8(c.redondeo),
                             QString::fromUtf8(c.tipo), QString::fromUtf8(c.tolerancia)};
    EXPECT_EQ(redondear_precio(c.precio, a), QString::fromUtf8(c.texto))
        << c.precio << " decimales=" << c.decimales << " redondeo=" << c.redondeo << " tipo=" << c.tipo
        << " tolerancia=" << c.tolerancia;
}

TEST(RedondearPrecio, ModesStepsAndEdges)
{
    const Caso casos[] = {
        {10.121, "2", "2", "De 5 en 5", "", "10,13"}, // the step only counts at 0 decimals and below
        {10.129, "2", "0", "De 10 en 10", "", "10,12"},
        {13, "0", "0", "De 5 en 5", "", "15"}, // at 0 decimals and below the mode counts no more
        {12, "0", "2", "De 5 en 5", "", "10"},
        {1234, "-1", "2", "De 10 en 10", "", "1230"},
        {1234, "-1", "0", "De 5 en 5", "", "1250"},
        {1234, "-2", "", "De 5 en 5", "", "1000"},
        {30, "-2", "2", "De 10 en 10", "", "30"},      // rounds to 0: the price stays
        {3.14159, "3", "0", "De 5 en 5", "", "3,142"}, // three decimals ignore mode and step
        {10.121, "2", "", "", "", "10,13"},            // a missing mode rounds up
        {10.121, "1", "", "", "", "10,2"},
        {10.16, "1", "0", "", "", "10,1"},
        {10.125, "2", "1", "", "", "10,12"}, // standard: half to even on the double, then the format
        {1344.915, "2", "1", "", "", "1344,92"},
        {-10.121, "2", "2", "", "", "-10,12"},
        {10.2, "0", "2", "", "", "10"},
        {10.7, "0", "0", "", "", "11"},
        {12.5, "0", "1", "De 5 en 5", "", "10"}, // halves go to even multiples of the step
        {17.5, "0", "1", "De 5 en 5", "", "20"},
        {1275, "-1", "1", "De 5 en 5", "", "1300"},
        {10.125, "", "1", "", "", "10,125"}, // any other number of decimals shows three, unrounded
        {10.1235, "x", "1", "", "", "10,124"},
        {0, "2", "1", "", "", "0,00"},
        {1234, "-2", "1", "De 10 en 10", "0,1", "1200"}, // the tolerance is a plain ratio
        {1234, "-2", "1", "De 10 en 10", "0.1", "1200"},
        {1234, "-2", "1", "De 10 en 10", "0,01", "1234"},
        {1234, "-2", "1", "De 10 en 10", "abc", "1200"},
        {10.121, "2", "2", "", "0", "10,12"},
    };
    for (const Caso &c : casos)
        comprobar(c);
}

TEST(RedondearPrecio, ReadsTheFourSettingsAtEachCall)
{
    test::TestApp app;
    // One read of the file takes the first of two equal keys, as a read of one key does.
    app.write_file(QStringLiteral("Config.vdrx"),
                   "[PARAMETROS]\r\nDecimales = -1\r\nredondeo_tipo=De 5 en 5\r\n"
                   "decimales=2\r\n");
    EXPECT_EQ(redondear_precio(app.ctx(), 1234), QStringLiteral("1250"));
    for (const char *linea :
         {"decimales=2", "redondeo=0", "redondeo_tipo=De 5 en 5", "redondeo_tolerancia=0,0001"})
        app.ctx().escribir_parametro(QString::fromUtf8(linea).section(u'=', 0, 0),
                                     QString::fromUtf8(linea).section(u'=', 1));
    EXPECT_EQ(redondear_precio(app.ctx(), 10.129), QStringLiteral("10,13")); // beyond the tolerance
    app.ctx().escribir_parametro(QStringLiteral("decimales"), QStringLiteral("-1"));
    EXPECT_EQ(redondear_precio(app.ctx(), 1234), QStringLiteral("1234"));
    app.ctx().escribir_parametro(QStringLiteral("redondeo_tolerancia"), QString());
    EXPECT_EQ(redondear_precio(app.ctx(), 1234), QStringLiteral("1250"));
}

} // namespace
} // namespace vendrix

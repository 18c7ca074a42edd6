#include "catalogue/pricing/settings_boxes.h"

#include "support/test_context.h"

#include "support/qt_print.h"

#include <gtest/gtest.h>

namespace vendrix {
namespace {

class CajasAjustes : public ::testing::Test {
protected:
    QString leer(const char *clave) { return app.ctx().leer_parametro(QString::fromUtf8(clave)); }
    void poner(const char *clave, const char *valor)
    {
        app.ctx().escribir_parametro(QString::fromUtf8(clave), QString::fromUtf8(valor));
    }

    test::TestApp app;
};

TEST_F(CajasAjustes, BoxesWriteTheirKeyAndAnEmptyBoxBecomesZero)
{
    EXPECT_EQ(cambiar_caja_ajuste(app.ctx(), QStringLiteral("iva"), QStringLiteral("10,5")),
              QStringLiteral("10,5"));
    EXPECT_EQ(leer("iva"), QStringLiteral("10,5"));
    EXPECT_EQ(cambiar_caja_ajuste(app.ctx(), QStringLiteral("Valor_Dolar"), QString()), QStringLiteral("0"));
    EXPECT_EQ(leer("Valor_Dolar"), QStringLiteral("0"));
    EXPECT_EQ(cambiar_caja_ajuste(app.ctx(), QStringLiteral("recargo_tarjeta"), QString()),
              QStringLiteral("0"));
    EXPECT_EQ(leer("recargo_tarjeta"), QStringLiteral("0"));
}

TEST_F(CajasAjustes, CardCaption)
{
    EXPECT_EQ(leyenda_tarjeta(QStringLiteral("10")), QStringLiteral("Pago con tarjeta (+10%)"));
    EXPECT_EQ(leyenda_tarjeta(QStringLiteral("2,5")), QStringLiteral("Pago con tarjeta (+2,5%)"));
    EXPECT_EQ(leyenda_tarjeta(QStringLiteral("0")), QStringLiteral("Pago con tarjeta"));
}

TEST_F(CajasAjustes, SetUpWritesTheMissingRoundingKeys)
{
    const RoundingState e = cargar_combos_redondeo(app.ctx());
    EXPECT_EQ(leer("redondeo"), QStringLiteral("1"));
    EXPECT_EQ(leer("redondeo_tipo"), QStringLiteral("De 10 en 10"));
    EXPECT_EQ(e, (RoundingState{QStringLiteral("Todos"), QStringLiteral("Standard"),
                                 QStringLiteral("De 10 en 10"), true, false, false, false}));

    poner("decimales", "-2");
    poner("redondeo", "0");
    poner("redondeo_tipo", "De 5 en 5");
    const RoundingState puesto = cargar_combos_redondeo(app.ctx());
    EXPECT_EQ(puesto, (RoundingState{QStringLiteral("Centenas"), QStringLiteral("Abajo"),
                                      QStringLiteral("De 5 en 5"), false, true, true, true}));
    EXPECT_EQ(leer("redondeo"), QStringLiteral("0"));
}

TEST_F(CajasAjustes, ComboChoicesMapAndEnable)
{
    const struct {
        const char *digitos;
        const char *decimales;
        bool con_decimales;
    } casos[] = {{"Todos", "3", true},          {"Dos decimales", "2", true}, {"Un decimal", "1", true},
                 {"Sin decimales", "0", false}, {"Decenas", "-1", false},     {"Centenas", "-2", false}};
    for (const auto &c : casos) {
        poner("redondeo", "2");
        poner("redondeo_tipo", "De 5 en 5");
        const RoundingState e = elegir_digitos(app.ctx(), QString::fromUtf8(c.digitos));
        EXPECT_EQ(leer("decimales"), QString::fromUtf8(c.decimales)) << c.digitos;
        EXPECT_EQ(leer("redondeo_tipo"), QStringLiteral("De 10 en 10")) << c.digitos;
        EXPECT_EQ(leer("redondeo"), c.con_decimales ? QStringLiteral("2") : QStringLiteral("1")) << c.digitos;
        EXPECT_EQ(e.digitos, QString::fromUtf8(c.digitos));
        EXPECT_EQ(e.modo_habilitado, c.con_decimales) << c.digitos;
        EXPECT_EQ(e.tipo_habilitado, !c.con_decimales) << c.digitos;
        EXPECT_EQ(e.icono_digitos, c.digitos != std::string("Todos")) << c.digitos;
    }
    EXPECT_EQ(items_digitos_significativos().join(QLatin1Char(',')),
              QStringLiteral("Todos,Dos decimales,Un decimal,Sin decimales,Decenas,Centenas"));
    EXPECT_EQ(items_modo_redondeo().join(QLatin1Char(',')), QStringLiteral("Abajo,Standard,Arriba"));
    EXPECT_EQ(items_tipo_redondeo().join(QLatin1Char(',')), QStringLiteral("De 10 en 10,De 5 en 5"));
}

TEST_F(CajasAjustes, ModeAndStepChoices)
{
    EXPECT_TRUE(elegir_modo(app.ctx(), QStringLiteral("Abajo")).icono_modo);
    EXPECT_EQ(leer("redondeo"), QStringLiteral("0"));
    EXPECT_FALSE(elegir_modo(app.ctx(), QStringLiteral("Standard")).icono_modo);
    EXPECT_EQ(leer("redondeo"), QStringLiteral("1"));
    EXPECT_EQ(elegir_modo(app.ctx(), QStringLiteral("Arriba")).modo, QStringLiteral("Arriba"));
    EXPECT_EQ(leer("redondeo"), QStringLiteral("2"));
    EXPECT_EQ(elegir_tipo(app.ctx(), QStringLiteral("De 5 en 5")).tipo, QStringLiteral("De 5 en 5"));
    EXPECT_EQ(leer("redondeo_tipo"), QStringLiteral("De 5 en 5"));
    // Unknown items change nothing.
    elegir_modo(app.ctx(), QStringLiteral("Raro"));
    elegir_tipo(app.ctx(), QStringLiteral("De 3 en 3"));
    elegir_digitos(app.ctx(), QStringLiteral("Miles"));
    EXPECT_EQ(leer("redondeo"), QStringLiteral("2"));
    EXPECT_EQ(leer("redondeo_tipo"), QStringLiteral("De 5 en 5"));
    EXPECT_EQ(leer("decimales"), QString());
}

} // namespace
} // namespace vendrix

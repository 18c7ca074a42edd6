#include "catalogue/pricing/settings_boxes.h"

#include "support/qt_print.h"
#include "support/test_context.h"

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

TEST_F(CajasAjustes, BoxesCombosAndTheMissingRoundingKeys)
{
    EXPECT_EQ(cambiar_caja_ajuste(app.ctx(), QStringLiteral("recargo_tarjeta"), QString()),
              QStringLiteral("0"));
    EXPECT_EQ(leer("recargo_tarjeta"), QStringLiteral("0"));
    EXPECT_EQ(leyenda_tarjeta(QStringLiteral("0")), QStringLiteral("Pago con tarjeta"));
    EXPECT_EQ(cargar_combos_redondeo(app.ctx()),
              (RoundingState{"Todos", "Standard", "De 10 en 10", true, false, false, false}));
    EXPECT_EQ(leer("redondeo_tipo"), QStringLiteral("De 10 en 10"));
    poner("decimales", "-2");
    poner("redondeo", "0");
    poner("redondeo_tipo", "De 5 en 5");
    EXPECT_EQ(cargar_combos_redondeo(app.ctx()),
              (RoundingState{"Centenas", "Abajo", "De 5 en 5", false, true, true, true}));
    EXPECT_EQ(leer("redondeo"), QStringLiteral("0"));

    const struct {
        const char *digitos, *decimales;
        bool con_decimales;
    } casos[] = {{"Todos", "3", true},          {"Dos decimales", "2", true}, {"Un decimal", "1", true},
                 {"Sin decimales", "0", false}, {"Decenas", "-1", false},     {"Centenas", "-2", false}};
    for (const auto &c : casos) {
        poner("redondeo", "2");
        poner("redondeo_tipo", "De 5 en 5");
        const RoundingState e = elegir_digitos(app.ctx(), QString::fromUtf8(c.digitos));
        EXPECT_EQ(leer("decimales") + leer("redondeo_tipo") + leer("redondeo"),
                  QString::fromUtf8(c.decimales) + "De 10 en 10" + (c.con_decimales ? "2" : "1"))
            << c.digitos;
        EXPECT_EQ(e.tipo_habilitado, !c.con_decimales) << c.digitos;
        EXPECT_EQ(e.icono_digitos, c.digitos != std::string("Todos")) << c.digitos;
    }
    for (const auto &[item, valor] :
         {std::pair{"Abajo", "0"}, {"Standard", "1"}, {"Arriba", "2"}, {"Raro", "2"}}) {
        EXPECT_EQ(elegir_modo(app.ctx(), QString::fromUtf8(item)).icono_modo, valor != std::string("1"));
        EXPECT_EQ(leer("redondeo"), QString::fromUtf8(valor)) << item;
    }
    elegir_tipo(app.ctx(), QStringLiteral("De 5 en 5"));
    elegir_tipo(app.ctx(), QStringLiteral("De 3 en 3"));
    EXPECT_EQ(leer("redondeo_tipo"), QStringLiteral("De 5 en 5"));
    elegir_digitos(app.ctx(), QStringLiteral("Miles"));
    EXPECT_EQ(leer("decimales"), QStringLiteral("-2"));
}

} // namespace
} // namespace vendrix

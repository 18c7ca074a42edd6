#include "simulator_fixture.h"

#include <QRegularExpression>

namespace vendrix::test {
namespace {

const QString kLogin = QStringLiteral("/ws/services/LoginCms");

using LoginTest = SimuladorTest;

// The program's own tests take the ticket and the refused second one; here
// the ticket's life per service.
TEST_F(LoginTest, ATicketHoldsItsServiceForTwelveHours)
{
    EXPECT_EQ(post(kLogin, pedido_login(tienda_)).estado, 200);
    EXPECT_EQ(post(kLogin, pedido_login(tienda_, "ws_sr_padron_a13")).estado, 200);
    reloj_.set(reloj_.now().addSecs(12 * 3600 - 1));
    EXPECT_EQ(post(kLogin, pedido_login(tienda_)).estado, 500);
    reloj_.set(reloj_.now().addSecs(2));
    EXPECT_EQ(post(kLogin, pedido_login(tienda_)).estado, 200);
}

TEST_F(LoginTest, RefusesBadSignaturesAndTimesWithWsaaFaults)
{
    struct Caso {
        const char *nombre;
        const Firmante *firmante;
        int desde_min;
        int hasta_min;
        const char *codigo;
        const char *texto;
    };
    const Caso casos[] = {
        {"otra autoridad", &ajena_, -10, 10, "ns1:cms.cert.untrusted",
         "Certificado no emitido por AC de confianza"},
        {"vencido", &vencida_, -10, 10, "ns1:cms.cert.expired", "Certificado expirado"},
        {"generado en el futuro", &tienda_, 5, 20, "ns1:xml.generationTime.invalid",
         "generationTime posee formato o dato inválido"},
        {"ya expirado", &tienda_, -30, -1, "ns1:xml.expirationTime.expired", "expirationTime expirado"},
        {"mas de un dia", &tienda_, -10, 24 * 60, "ns1:xml.expirationTime.invalid",
         "expirationTime posee formato o dato inválido"},
    };
    for (const Caso &c : casos) {
        const RespuestaPrueba r = post(kLogin, pedido_login(*c.firmante, "wsfe", c.desde_min, c.hasta_min));
        EXPECT_EQ(r.estado, 500) << c.nombre;
        EXPECT_EQ(etiqueta(r.cuerpo, "faultcode"), c.codigo) << c.nombre;
        EXPECT_EQ(etiqueta(r.cuerpo, "faultstring"), c.texto) << c.nombre;
    }
    QString basura = pedido_login(tienda_);
    basura.replace(
        QRegularExpression("<wsaa:in0>.*</wsaa:in0>", QRegularExpression::DotMatchesEverythingOption),
        "<wsaa:in0>\r\nPGxvZ2luVGlja2V0UmVxdWVzdC8+</wsaa:in0>");
    EXPECT_EQ(etiqueta(post(kLogin, basura).cuerpo, "faultcode"), "ns1:cms.bad");
    // None of the refusals spent the shop's ticket.
    EXPECT_EQ(post(kLogin, pedido_login(tienda_)).estado, 200);
}

} // namespace
} // namespace vendrix::test

#include "simulator_fixture.h"

#include <QRegularExpression>

namespace vendrix::test {
namespace {

using simulador::Modo;

const QString kLogin = QStringLiteral("/ws/services/LoginCms");

QString sin_escapes(QString texto)
{
    return texto.replace(QStringLiteral("&lt;"), QStringLiteral("<"))
        .replace(QStringLiteral("&gt;"), QStringLiteral(">"));
}

using LoginTest = SimuladorTest;

TEST_F(LoginTest, IssuesATwelveHourTicketAndRefusesASecondWhileItLives)
{
    const RespuestaPrueba primera = post(kLogin, pedido_login(tienda_));
    ASSERT_EQ(primera.estado, 200) << primera.cuerpo.toStdString();
    const QString ticket = sin_escapes(primera.cuerpo);
    EXPECT_EQ(etiqueta(ticket, "generationTime"), "2025-03-10T10:00:00.000-03:00");
    EXPECT_EQ(etiqueta(ticket, "expirationTime"), "2025-03-10T22:00:00.000-03:00");
    EXPECT_FALSE(QByteArray::fromBase64(etiqueta(ticket, "token").toLatin1()).isEmpty());
    EXPECT_NE(etiqueta(ticket, "sign"), "N/A");
    ASSERT_EQ(simulador_->peticiones().size(), 1);
    EXPECT_EQ(simulador_->peticiones().first().operacion, "loginCms");
    EXPECT_EQ(simulador_->peticiones().first().cabecera("content-type"), "text/xml; charset=utf-8");

    const RespuestaPrueba segunda = post(kLogin, pedido_login(tienda_));
    EXPECT_EQ(segunda.estado, 500);
    EXPECT_EQ(etiqueta(segunda.cuerpo, "faultcode"), "ns1:coe.alreadyAuthenticated");
    EXPECT_EQ(etiqueta(segunda.cuerpo, "faultstring"),
              "El CEE ya posee un TA valido para el acceso al WSN solicitado");
    // Another service is another ticket; the first one's end frees the service.
    EXPECT_EQ(post(kLogin, pedido_login(tienda_, "ws_sr_padron_a13")).estado, 200);
    reloj_.set(reloj_.now().addSecs(12 * 3600 + 1));
    EXPECT_EQ(post(kLogin, pedido_login(tienda_)).estado, 200);
}

TEST_F(LoginTest, RefusesBadSignaturesAndTimesWithWsaaFaults)
{
    struct Caso {
        const char *nombre;
        const CertificadoPem *firmante;
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

TEST_F(LoginTest, ForcedModesGiveTheirFaultsOrSilence)
{
    simulador_->set_modo(Modo::sin_sign);
    const QString sin_sign = sin_escapes(post(kLogin, pedido_login(tienda_)).cuerpo);
    EXPECT_NE(etiqueta(sin_sign, "token"), "N/A");
    EXPECT_EQ(etiqueta(sin_sign, "sign"), "N/A");

    simulador_->set_modo(Modo::ta_duplicado);
    EXPECT_EQ(etiqueta(post(kLogin, pedido_login(tienda_, "ws_sr_padron_a13")).cuerpo, "faultcode"),
              "ns1:coe.alreadyAuthenticated");

    simulador_->set_modo(Modo::sin_respuesta);
    const RespuestaPrueba silencio = post(kLogin, pedido_login(tienda_, "ws_sr_padron_a13"), 300);
    EXPECT_EQ(silencio.estado, 0);
    EXPECT_EQ(simulador_->peticiones().size(), 3);
}

} // namespace
} // namespace vendrix::test

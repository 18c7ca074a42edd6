#include "afip/auth/wsaa_ticket.h"
#include "afip/fake_afip.h"

#include <gtest/gtest.h>

namespace vendrix {
namespace {

const QString kBueno = test::respuesta_wsaa("G1|2026-11-24T10:30:00.0-03:00|T1|S1");

class WsaaTicketTest : public ::testing::Test, public test::AfipFixture {
protected:
    QString param(const char *k) { return app.ctx().leer_parametro(QLatin1String(k)); }
    void vence(const QString &texto) { app.ctx().escribir_parametro("FE_expirationTime", texto); }
};

TEST_F(WsaaTicketTest, AStoredTicketLaterThanTheClockIsReusedEvenWithOneSecondLeft)
{
    for (const char *fin : {"2026-11-23T10:30:01.000-03:00", "2026-11-23T22:00:00.0-03:00"}) {
        vence(QLatin1String(fin));
        EXPECT_TRUE(obtener_TRA(s)) << fin;
    }
    EXPECT_TRUE(http.peticiones.empty());
    EXPECT_EQ(param("FE_cert_fcha_vto"), "Nov 23  2027");
    EXPECT_EQ(param("FE_cert_vence_en_30"), "True");
}

TEST_F(WsaaTicketTest, AnExpiredTicketIsRequestedSignedAndStored)
{
    vence("2026-11-23T10:30:00.000-03:00");
    fin_certificado = app.clock.now().addDays(10);
    http.respuestas = {kBueno};
    ASSERT_TRUE(obtener_TRA(s));

    ASSERT_EQ(http.peticiones.size(), 1u);
    const PeticionHttp &p = http.peticiones[0];
    EXPECT_EQ(p.url, "https://127.0.0.1:8443/ws/services/LoginCms");
    EXPECT_EQ(p.cabeceras, (QList<std::pair<QByteArray, QByteArray>>{
                               {"Content-Type", "text/xml; charset=utf-8"}, {"SOAPAction", "LoginCms"}}));
    const QByteArray b64 = der.toBase64();
    const QByteArray lineas = b64.left(64) + '\n' + b64.mid(64, 64) + '\n' + b64.mid(128) + '\n';
    EXPECT_EQ(p.cuerpo, "<soapenv:Envelope xmlns:soapenv=\"http://schemas.xmlsoap.org/soap/envelope/\" "
                        "xmlns:wsaa=\"http://wsaa.view.sua.dvadac.desein.afip.gov\"><soapenv:Header/>"
                        "<soapenv:Body><wsaa:loginCms><wsaa:in0>\r\n" +
                            lineas + "</wsaa:in0></wsaa:loginCms></soapenv:Body></soapenv:Envelope>");
    EXPECT_EQ(app.read_file("wsaa.out") + app.read_file("wsaa.out64"), der + lineas);
    const QByteArray pedido = app.read_file("wsaa.xml");
    for (const char *parte : {"<uniqueId>1</uniqueId>", "<generationTime>2026-11-23T10:20:00.000-03:00<",
                              "<expirationTime>2026-11-23T10:40:00.000-03:00<", "<service>wsfe</service>"})
        EXPECT_TRUE(pedido.contains(parte)) << parte;
    EXPECT_EQ(QStringList({param("FE_generationTime"), param("FE_expirationTime"), param("FE_token"),
                           param("FE_sign"), param("FE_cert_vence_en_30")}),
              QStringList({"G1", "2026-11-24T10:30:00.0-03:00", "T1", "S1", "False"}));
    EXPECT_TRUE(app.op.empty());
}

// The refusals and the silences are tried against the simulator.
TEST_F(WsaaTicketTest, AGoodSecondAttemptIsASuccess)
{
    vence("");
    http.respuestas = {"<html>502</html>", kBueno};
    EXPECT_TRUE(obtener_TRA(s));
    EXPECT_EQ(http.peticiones.size(), 2u);
    EXPECT_TRUE(app.op.empty());
}

TEST_F(WsaaTicketTest, AnUnreadableKeyStopsBeforeAnyRequest)
{
    der.clear();
    EXPECT_FALSE(obtener_TRA(s));
    EXPECT_TRUE(http.peticiones.empty());
    EXPECT_EQ(app.op.lines(), QStringList{"error|Error WSAA|No se pudo leer la llave 'cert.key'."});
}

TEST_F(WsaaTicketTest, TheRegisterTicketHasItsOwnFilesKeysHeadersAndOneAttempt)
{
    http.respuestas = {kBueno};
    EXPECT_TRUE(obtener_TRA_persona(s));
    ASSERT_EQ(http.peticiones.size(), 1u);
    EXPECT_EQ(http.peticiones[0].cabeceras, (QList<std::pair<QByteArray, QByteArray>>{
                                                {"Content-Type", "text/xml"},
                                                {"SOAPAction", "LoginCms"},
                                                {"CharSet", "utf-8"},
                                                {"User-Agent", "Apache-HttpClient/4.1.1 (java 1.5)"}}));
    EXPECT_TRUE(app.read_file("wsaa_persona.xml").contains("<service>ws_sr_padron_a13</service>"));
    EXPECT_EQ(param("FE_PERSONA_token") + param("FE_token") + param("FE_cert_fcha_vto"), "T1");
    app.ctx().escribir_parametro("FE_PERSONA_expirationTime", "");
    EXPECT_FALSE(obtener_TRA_persona(s));
    EXPECT_EQ(http.peticiones.size(), 2u);
}

} // namespace
} // namespace vendrix

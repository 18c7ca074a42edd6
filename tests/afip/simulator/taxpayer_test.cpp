#include "simulator_fixture.h"

#include "afip/simulator/taxpayer_service.h"

namespace vendrix::test {
namespace {

QString get_persona(const QString &token, const QString &sign, const QString &cuit)
{
    return QStringLiteral(
               "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\r\n<soapenv:Envelope "
               "xmlns:soapenv=\"http://schemas.xmlsoap.org/soap/envelope/\" "
               "xmlns:a13=\"http://a13.soap.ws.server.puc.sr/\">\r\n     <soapenv:Header/>\r\n"
               "    <soapenv:Body>\r\n     <a13:getPersona>\r\n     <token>%1</token>\r\n"
               "     <sign>%2</sign>\r\n     <cuitRepresentada>20123456786</cuitRepresentada>\r\n"
               "     <idPersona>%3</idPersona>\r\n     </a13:getPersona>\r\n     </soapenv:Body>\r\n"
               "</soapenv:Envelope>")
        .arg(token, sign, cuit);
}

using PadronTest = SimuladorTest;

TEST_F(PadronTest, AnswersThePersonTheCompanyAndTheUnknown)
{
    const auto [token, sign] = ticket("ws_sr_padron_a13");
    // The homologation address carries "?WSDL"; the service is the same.
    const QString ruta = QStringLiteral("/sr-padron/webservices/personaServiceA13?WSDL");

    const QString persona = post(ruta, get_persona(token, sign, simulador::kCuitPersona)).cuerpo;
    EXPECT_EQ(persona.count("<domicilio>"), 2);
    EXPECT_EQ(persona.section("<direccion>", -1).section("</direccion>", 0, 0), "SAN MARTIN 456");
    EXPECT_EQ(persona.section("<descripcionProvincia>", -1).section("</descripcionProvincia>", 0, 0),
              "CORDOBA");
    EXPECT_EQ(etiqueta(persona, "nombre"), "MARIA LAURA");
    EXPECT_EQ(etiqueta(persona, "apellido"), "GOMEZ");

    const QString empresa = post(ruta, get_persona(token, sign, simulador::kCuitEmpresa)).cuerpo;
    EXPECT_EQ(etiqueta(empresa, "razonSocial"), "EL ALERCE &amp; HIJOS S.R.L.");
    EXPECT_EQ(etiqueta(empresa, "nombre"), "N/A");
    EXPECT_EQ(etiqueta(empresa, "direccion"), "BV OROÑO 1500");

    const RespuestaPrueba nadie = post(ruta, get_persona(token, sign, simulador::kCuitDesconocido));
    EXPECT_EQ(nadie.estado, 500);
    EXPECT_EQ(etiqueta(nadie.cuerpo, "faultstring"), "No existe persona con ese Id");

    // The invoices' ticket doesn't open the register.
    const auto [token_fe, sign_fe] = ticket("wsfe");
    EXPECT_EQ(post(ruta, get_persona(token_fe, sign_fe, simulador::kCuitPersona)).estado, 500);
}

} // namespace
} // namespace vendrix::test

#include "afip/fake_afip.h"
#include "afip/lookup/taxpayer_lookup.h"
#include "sales/carritos.h"
#include "sales/checkout/checkout.h"

#include <gtest/gtest.h>

namespace vendrix {
namespace {

// A register answer: each person is its name elements and addresses.
QString persona(const QString &nombre, const QStringList &domicilios)
{
    QString r = QStringLiteral("<?xml version=\"1.0\"?><soap:Envelope xmlns:soap=\"x\"><soap:Body>"
                               "<ns2:getPersonaResponse xmlns:ns2=\"y\"><personaReturn><persona>") +
                nombre;
    for (const QString &d : domicilios) {
        const QStringList partes = d.split(QLatin1Char('|'));
        r += QStringLiteral(
                 "<domicilio><direccion>%1</direccion><descripcionProvincia>%2</descripcionProvincia>"
                 "</domicilio>")
                 .arg(partes[0], partes[1]);
    }
    return r +
           QStringLiteral("</persona></personaReturn></ns2:getPersonaResponse></soap:Body></soap:Envelope>");
}

class TaxpayerLookupTest : public ::testing::Test, public test::AfipFixture {
protected:
    void SetUp() override
    {
        app.copy_seed("clientes.install", "clientes.vdrx");
        checkout = std::make_unique<Checkout>(app.ctx(), carritos, 1);
        checkout->set_texto(&VistaCheckout::Text_cuit, "20-12345678-6");
        checkout->set_texto(&VistaCheckout::Text_rz, "Viejo");
        app.ctx().escribir_parametro("IF_CUIT", "30-71234567-1");
        app.ctx().escribir_parametro("FE_PERSONA_expirationTime", "2026-11-24T10:00:00.0-03:00");
        app.ctx().escribir_parametro("FE_PERSONA_token", "TK");
        app.op.clear();
        app.status.keywords.clear();
    }
    // Asks with one register answer and the operator's reply; the box's text.
    QString consultar(const QString &respuesta, bool si)
    {
        http.responder(respuesta);
        app.op.answer(si);
        recuperar_datos_CUIT(s, *checkout);
        return app.op.shown.empty() ? QString() : app.op.shown[0].text;
    }

    Carritos carritos;
    std::unique_ptr<Checkout> checkout;
};

TEST_F(TaxpayerLookupTest, YesFillsTheFieldsFromTheLastAddress)
{
    const QString pregunta =
        consultar(persona("<nombre>JUAN CARLOS</nombre><apellido>P&amp;EREZ</apellido>",
                          {"ALEM 1|SANTA FE", "BV. O&apos;HIGGINS 20|C&amp;Oacute;RDOBA"}),
                  true);
    EXPECT_EQ(pregunta,
              "Se encontraron los siguentes datos en AFIP asociados al CUIT '20-12345678-6':\r\n\r\n"
              "    Razón Social: JUAN CARLOS P&EREZ\r\n"
              "    Dirección: BV. O'HIGGINS 20\r\n"
              "    Localidad: CÓRDOBA\r\n\r\n"
              "¿Desea sobreescrivir los datos de Vendrix Con los de la AFIP?");
    const VistaCheckout &v = checkout->vista();
    EXPECT_EQ(
        QStringList({v.Text_rz, v.Text_dom, v.Text_loc, v.Combo_iva}),
        QStringList({"Juan Carlos P&erez", "Bv. O'higgins 20", "Córdoba", "I - IVA RESPONSABLE INSCRIPTO"}));
    EXPECT_EQ(
        app.op.shown.back().text,
        "Se recuperaron los datos de la AFIP. Controle que la condición del IVA del cliente sea correcta.");

    const PeticionHttp &p = http.peticiones.back();
    EXPECT_EQ(p.url, "https://127.0.0.1:8443/sr-padron/webservices/personaServiceA13?WSDL");
    for (const char *parte : {"<token>TK</token>", "<cuitRepresentada>30712345671</cuitRepresentada>",
                              "<idPersona>20123456786</idPersona>"})
        EXPECT_TRUE(p.cuerpo.contains(parte)) << parte;
    EXPECT_EQ(app.status.keywords, QStringList({"ocupado_on", "ocupado_off"}));
}

TEST_F(TaxpayerLookupTest, NoLeavesTheFieldsAndACompanyGoesByItsName)
{
    EXPECT_TRUE(consultar(persona("<razonSocial>ACME SA</razonSocial>", {"MITRE 1|JUJUY"}), false)
                    .contains("    Razón Social: ACME SA\r\n"));
    EXPECT_EQ(checkout->vista().Text_rz, "Viejo");
    EXPECT_EQ(checkout->vista().Combo_iva, kConsumidorFinal);
    EXPECT_TRUE(app.log_messages().contains(
        "Se encontraron datos en AFIP asociados al CUIT '20-12345678-6' y el usuario los ignoró."));
}

TEST_F(TaxpayerLookupTest, NothingFoundShowsAfipsWordsAndTheInputIsCheckedFirst)
{
    http.responder(
        "<soap:Envelope xmlns:soap=\"s\"><soap:Body><soap:Fault><faultstring>No existe persona con ese "
        "Id</faultstring></soap:Fault></soap:Body></soap:Envelope>");
    recuperar_datos_CUIT(s, *checkout);
    http.responder("x");
    app.ctx().escribir_parametro("FE_PERSONA_expirationTime", "2026-11-23T10:00:00.0-03:00");
    recuperar_datos_CUIT(s, *checkout); // the register's ticket fails: only its box
    checkout->set_texto(&VistaCheckout::Text_cuit, "");
    recuperar_datos_CUIT(s, *checkout);
    checkout->cambiar_tipo_doc("DNI");
    recuperar_datos_CUIT(s, *checkout);
    checkout->cambiar_tipo_doc("CUIT");
    checkout->set_texto(&VistaCheckout::Text_cuit, "20-12345678-6");
    app.ctx().escribir_parametro("FE_PERSONA_expirationTime", "2026-11-24T10:00:00.0-03:00");
    recuperar_datos_CUIT(s, *checkout); // no answer
    EXPECT_EQ(
        app.op.lines(),
        QStringList({"warn|No se encontraron datos|No se encontraron datos en AFIP asociados al CUIT "
                     "'20-12345678-6'.\r\nNo existe persona con ese Id",
                     "error|Error WSAA|" + app.op.shown[1].text,
                     "error|Error en los datos ingresados.|El campo 'Número de Documento' esta vacío.",
                     "error|Error en los datos ingresados.|Esta funcionalidad está solo disponible para "
                     "tipo de documento CUIT.",
                     "error|Error al intentar recuperar datos de AFIP.|ER RC001: Se produjo un error al "
                     "Intentar recuperar la información de los clientes de los servicios de la AFIP."}));
    EXPECT_EQ(app.status.keywords.count("ocupado_off"), 5);
}

} // namespace
} // namespace vendrix

#include "afip/fake_afip.h"
#include "afip/lookup/taxpayer_lookup.h"
#include "sales/carritos.h"
#include "sales/checkout/checkout.h"

#include <gtest/gtest.h>

namespace vendrix {
namespace {

// A register answer with the person's elements in it.
QString persona(const QString &elementos)
{
    return "<?xml version=\"1.0\"?><soap:Envelope xmlns:soap=\"x\"><soap:Body><persona>" + elementos +
           "</persona></soap:Body></soap:Envelope>";
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
    const VistaCheckout &v() const { return checkout->vista(); }

    Carritos carritos;
    std::unique_ptr<Checkout> checkout;
};

TEST_F(TaxpayerLookupTest, YesFillsTheFieldsFromTheLastAddress)
{
    http.respuestas = {
        persona("<nombre>JUAN CARLOS</nombre><apellido>P&amp;EREZ</apellido>"
                "<domicilio><direccion>ALEM 1</direccion><descripcionProvincia>SANTA FE"
                "</descripcionProvincia></domicilio><domicilio><direccion>BV. O&apos;HIGGINS 20"
                "</direccion><descripcionProvincia>C&amp;Oacute;RDOBA</descripcionProvincia>"
                "</domicilio>")};
    app.op.answer(true);
    recuperar_datos_CUIT(s, *checkout);
    EXPECT_EQ(
        app.op.texts(),
        QStringList({"Se encontraron los siguentes datos en AFIP asociados al CUIT '20-12345678-6':\r\n\r\n"
                     "    Razón Social: JUAN CARLOS P&EREZ\r\n    Dirección: BV. O'HIGGINS 20\r\n"
                     "    Localidad: CÓRDOBA\r\n\r\n¿Desea sobreescrivir los datos de Vendrix Con los de la "
                     "AFIP?",
                     "Se recuperaron los datos de la AFIP. Controle que la condición del IVA del cliente "
                     "sea correcta."}));
    EXPECT_EQ(
        QStringList({v().Text_rz, v().Text_dom, v().Text_loc, v().Combo_iva}),
        QStringList({"Juan Carlos P&erez", "Bv. O'higgins 20", "Córdoba", "I - IVA RESPONSABLE INSCRIPTO"}));
    const PeticionHttp &p = http.peticiones.back();
    EXPECT_EQ(p.url, "https://127.0.0.1:8443/sr-padron/webservices/personaServiceA13?WSDL");
    for (const char *parte :
         {"<token>TK</token>", "<cuitRepresentada>30712345671<", "<idPersona>20123456786<"})
        EXPECT_TRUE(p.cuerpo.contains(parte)) << parte;
    EXPECT_EQ(app.status.keywords, QStringList({"ocupado_on", "ocupado_off"}));
}

TEST_F(TaxpayerLookupTest, NothingFoundShowsAfipsWordsAndTheInputIsCheckedFirst)
{
    http.respuestas = {
        "<soap:Envelope xmlns:soap=\"s\"><soap:Body><soap:Fault><faultstring>No existe persona "
        "con ese Id</faultstring></soap:Fault></soap:Body></soap:Envelope>"};
    recuperar_datos_CUIT(s, *checkout);
    recuperar_datos_CUIT(s, *checkout); // no answer
    checkout->set_texto(&VistaCheckout::Text_cuit, "");
    recuperar_datos_CUIT(s, *checkout);
    checkout->cambiar_tipo_doc("DNI");
    recuperar_datos_CUIT(s, *checkout);
    EXPECT_EQ(
        app.op.lines(),
        QStringList({"warn|No se encontraron datos|No se encontraron datos en AFIP asociados al CUIT "
                     "'20-12345678-6'.\r\nNo existe persona con ese Id",
                     "error|Error al intentar recuperar datos de AFIP.|ER RC001: Se produjo un error al "
                     "Intentar recuperar la información de los clientes de los servicios de la AFIP.",
                     "error|Error en los datos ingresados.|El campo 'Número de Documento' esta vacío.",
                     "error|Error en los datos ingresados.|Esta funcionalidad está solo disponible para "
                     "tipo de documento CUIT."}));
    EXPECT_EQ(app.status.keywords.count("ocupado_off"), 4);
}

} // namespace
} // namespace vendrix

#include "afip/qr/qr_payload.h"
#include "sales/delivery/completion.h"
#include "support/test_context.h"

#include <gtest/gtest.h>

namespace vendrix {
namespace {

class CompletadoTest : public ::testing::Test {
protected:
    Completado cargado(const QString &email, const QString &telefono, const QString &tipo = kTipoAfip)
    {
        Completado c(app.ctx(), {tipo, "76123456789012", email, telefono, "Efectivo", "texto"});
        c.cargar();
        return c;
    }
    test::TestApp app;
};

TEST_F(CompletadoTest, LoadShowsTheCaeAndTurnsOnTheSendingsWithData)
{
    app.ctx().escribir_parametro("FE_cert_vence_en_30", "FALSE");
    const struct {
        const char *email, *telefono;
        bool mail, whatsapp;
    } casos[] = {{"ana@example.com", "1145678901", true, true},
                 {"", "1145678901", false, true},
                 {"ana@example.com", "", true, false},
                 {"", "", false, false}};
    for (const auto &caso : casos) {
        SCOPED_TRACE(std::string(caso.email) + "/" + caso.telefono);
        const Completado c = cargado(caso.email, caso.telefono);
        const VistaCompletado &v = c.vista();
        EXPECT_EQ(v.Text_email, caso.email);
        EXPECT_EQ(v.Text_telefono, caso.telefono);
        EXPECT_EQ(v.Command_mail_habilitado, caso.mail);
        EXPECT_EQ(v.Command_whatsapp_habilitado, caso.whatsapp);
        EXPECT_EQ(v.Label_CAE, "CAE: 76123456789012");
        EXPECT_EQ(v.Label_text, "Factura generada en AFIP con CAE 76123456789012");
        EXPECT_TRUE(v.Frame_AFIP_visible && v.Frame_text_visible);
        EXPECT_FALSE(v.Label_certificado_visible);
        EXPECT_TRUE(v.qr.startsWith(kPaginaQrAfip));
    }
    EXPECT_EQ(app.log_messages().mid(0, 3),
              QStringList({"Inicializo el formulario FrmFacturar_Completado.",
                           "cargo los datos del cliente 'AFIP'. con teléfono '1145678901' y email "
                           "'ana@example.com'.",
                           "Inicializado el formulario FrmFacturar_Completado."}));
}

TEST_F(CompletadoTest, ACertificateAboutToExpireIsWarnedWithItsDate)
{
    app.ctx().escribir_parametro("FE_cert_vence_en_30", "TRUE");
    app.ctx().escribir_parametro("FE_cert_fcha_vto", "10/12/2026");
    const Completado c = cargado("", "");
    EXPECT_TRUE(c.vista().Label_certificado_visible);
    EXPECT_EQ(
        c.vista().Label_certificado,
        "Atención, el certificado AFIP vence en menos de 30 días (Ultimo vencimiento 10/12/2026). Despues de "
        "esta fecha no podrá utilizar la facturación electrónica. Contactese con su contador para generar un "
        "nuevo certificado.");
    EXPECT_TRUE(app.log_messages().contains("ATENCION: El certificado esta por vencer."));
}

TEST_F(CompletadoTest, AnotherKindLeavesTheAfipFrameAndTheMailOut)
{
    const Completado c = cargado("ana@example.com", "11", "OTRO");
    EXPECT_EQ(c.vista().Label_text, "Factura generada en AFIP");
    EXPECT_FALSE(c.vista().Frame_AFIP_visible);
    EXPECT_FALSE(c.vista().Command_mail_habilitado);
}

TEST_F(CompletadoTest, LeavingAFieldPointsOutWhatCantBeSent)
{
    const struct {
        const char *email, *telefono, *mensaje;
    } casos[] = {
        {"ana", "", "warn|Vendrix|El contenido del campo 'Email' no parece ser válido."},
        {"ana@x", "", ""},
        {"", "", ""},
        {"", "11-4567", "warn|Vendrix|Ingrese solo números en el campo del Teléfono"},
        {"", "+541145", "warn|Vendrix|Ingrese solo números en el campo del Teléfono"},
        {"", "1145678901", ""},
    };
    for (const auto &caso : casos) {
        SCOPED_TRACE(std::string(caso.email) + "/" + caso.telefono);
        app.op.clear();
        Completado c = cargado("", "");
        c.cambiar_email(caso.email);
        c.cambiar_telefono(caso.telefono);
        c.salir_email();
        c.salir_telefono();
        EXPECT_EQ(app.op.lines().join(""), caso.mensaje);
        EXPECT_EQ(c.vista().Command_mail_habilitado, *caso.email != 0);
        EXPECT_EQ(c.vista().Command_whatsapp_habilitado, *caso.telefono != 0);
    }
}

TEST_F(CompletadoTest, WhatsappNumbersGetTheCountryCodeOnce)
{
    const std::pair<const char *, const char *> casos[] = {
        {"5491145678901", "+5491145678901"}, {"1145678901", "+541145678901"}, {"054", "+54054"}};
    for (const auto &[numero, esperado] : casos)
        EXPECT_EQ(numero_whatsapp(numero), esperado) << numero;

    Completado c = cargado("ana@example.com", "1145678901");
    c.whatsapp();
    EXPECT_TRUE(c.pedido().whatsapp);
    EXPECT_FALSE(c.pedido().mail || c.pedido().facsimil);
    EXPECT_EQ(c.pedido().telefono, "+541145678901");
}

TEST_F(CompletadoTest, TheMailTakesTheAddressAsLeftInTheField)
{
    Completado c = cargado("ana@example.com", "");
    c.cambiar_email("luis@example.com");
    c.mail();
    EXPECT_TRUE(c.pedido().mail);
    EXPECT_FALSE(c.pedido().whatsapp || c.pedido().facsimil);
    EXPECT_EQ(c.pedido().email, "luis@example.com");
}

TEST_F(CompletadoTest, ClosingAsksAndNoKeepsTheScreen)
{
    Completado c = cargado("", "");
    app.op.answers_in_order({false, true});
    EXPECT_FALSE(c.confirmar_cierre());
    EXPECT_TRUE(c.confirmar_cierre());
    EXPECT_EQ(app.op.lines().first(), "ask|Cerrar ventana|La factura generada no será impresa ni enviada al "
                                      "cliente en este momento - Está de acuerdo?");
}

} // namespace
} // namespace vendrix

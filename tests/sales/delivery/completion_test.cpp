#include "core/migrations.h"
#include "sales/delivery/completion.h"
#include "support/test_context.h"

#include <gtest/gtest.h>

namespace vendrix {
namespace {

TEST(Completado, LoadShowsTheCaeTheWarningAndTheSendingsThatHaveData)
{
    test::TestApp app;
    app.copy_seed("clientes.install", "clientes.vdrx");
    ejecutar_migraciones(app.ctx());
    app.ctx().escribir_parametro("FE_cert_vence_en_30", "FALSE");
    Completado sin_aviso(app.ctx(), {kTipoAfip, "7612", "ana@example.com", "", "", ""});
    sin_aviso.cargar();
    EXPECT_TRUE(sin_aviso.vista().Command_mail_habilitado && !sin_aviso.vista().Command_whatsapp_habilitado &&
                !sin_aviso.vista().Label_certificado_visible);

    app.ctx().escribir_parametro("FE_cert_vence_en_30", "TRUE");
    app.ctx().escribir_parametro("FE_cert_fcha_vto", "10/12/2026");
    Completado c(app.ctx(), {kTipoAfip, "76123456789012", "", "1145", "Efectivo", ""});
    c.cargar();
    EXPECT_TRUE(!c.vista().Command_mail_habilitado && c.vista().Command_whatsapp_habilitado);
    EXPECT_EQ(c.vista().Label_CAE, "CAE: 76123456789012");
    EXPECT_TRUE(c.vista().Label_certificado_visible);
    EXPECT_EQ(
        c.vista().Label_certificado,
        "Atención, el certificado AFIP vence en menos de 30 días (Ultimo vencimiento 10/12/2026). Despues de "
        "esta fecha no podrá utilizar la facturación electrónica. Contactese con su contador para generar "
        "un nuevo certificado.");
    EXPECT_EQ(
        app.log_messages().mid(
            app.log_messages().indexOf("Inicializado el formulario FrmFacturar_Completado.") + 1),
        QStringList(
            {"Inicializo el formulario FrmFacturar_Completado.",
             "cargo los datos del cliente 'AFIP'. con teléfono '1145' y email ''.",
             "armar_QR_AFIP - Arranco a armar el QR.",
             "armar_QR_AFIP - Recupero los datos de la factura encabezado asociada al CAE: 76123456789012.",
             "ATENCION: El certificado esta por vencer.",
             "Inicializado el formulario FrmFacturar_Completado."}));
}

TEST(Completado, LeavingAFieldPointsOutWhatCantBeSentAndWhatsappGetsTheCountryCode)
{
    test::TestApp app;
    const struct {
        const char *email, *telefono, *mensaje, *numero;
    } casos[] = {
        {"ana", "", "El contenido del campo 'Email' no parece ser válido.", "+54"},
        {"", "11-45", "Ingrese solo números en el campo del Teléfono", "+5411-45"},
        {"", "+541145", "Ingrese solo números en el campo del Teléfono", "+54+541145"},
        {"ana@x", "5491145", "", "+5491145"},
    };
    for (const auto &caso : casos) {
        app.op.clear();
        Completado c(app.ctx(), {kTipoAfip, "1", "", "", "", ""});
        c.cambiar_email(caso.email);
        c.cambiar_telefono(caso.telefono);
        c.salir_email();
        c.salir_telefono();
        EXPECT_EQ(app.op.texts().join(""), caso.mensaje);
        EXPECT_EQ(c.vista().Command_mail_habilitado, *caso.email != 0);
        EXPECT_EQ(c.vista().Command_whatsapp_habilitado, *caso.telefono != 0);
        c.whatsapp();
        EXPECT_EQ(c.pedido().telefono, caso.numero);
    }
}

} // namespace
} // namespace vendrix

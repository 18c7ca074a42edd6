#include "sales/delivery/completion.h"

#include "afip/qr/qr_payload.h"
#include "core/context.h"
#include "core/text_helpers.h"
#include "sales/carrito.h"
#include "sales/recording/recording_log.h"

#include <utility>

namespace vendrix {

Completado::Completado(Context &ctx, DatosCompletado datos) : ctx_(ctx), datos_(std::move(datos))
{
}

void Completado::cargar()
{
    log_registro(ctx_, QStringLiteral("Inicializo el formulario FrmFacturar_Completado."));
    log_registro(ctx_, QStringLiteral("cargo los datos del cliente '") + datos_.tipo +
                           QStringLiteral("'. con teléfono '") + datos_.telefono +
                           QStringLiteral("' y email '") + datos_.email + QStringLiteral("'."));
    vista_.Text_email = datos_.email;
    vista_.Text_telefono = datos_.telefono;
    vista_.qr = url_QR_AFIP(ctx_, datos_.cae);
    vista_.Label_CAE = QStringLiteral("CAE: ") + datos_.cae;

    vista_.Label_certificado_visible =
        ctx_.leer_parametro(QStringLiteral("FE_cert_vence_en_30")) != QLatin1String("FALSE");
    if (vista_.Label_certificado_visible) {
        vista_.Label_certificado =
            QStringLiteral(
                "Atención, el certificado AFIP vence en menos de 30 días (Ultimo vencimiento %VTO%). "
                "Despues de esta fecha no podrá utilizar la facturación electrónica. Contactese con su "
                "contador para generar un nuevo certificado.")
                .replace(QLatin1String("%VTO%"), ctx_.leer_parametro(QStringLiteral("FE_cert_fcha_vto")));
        log_registro(ctx_, QStringLiteral("ATENCION: El certificado esta por vencer."));
    }

    vista_.Frame_text_visible = true;
    if (datos_.tipo == kTipoAfip) {
        vista_.Frame_AFIP_visible = true;
        vista_.Label_text = QStringLiteral("Factura generada en AFIP con CAE ") + datos_.cae;
        vista_.Command_mail_habilitado = !vista_.Text_email.isEmpty();
    } else {
        vista_.Frame_AFIP_visible = false;
        vista_.Label_text = QStringLiteral("Factura generada en AFIP");
        vista_.Command_mail_habilitado = false;
    }
    vista_.Command_whatsapp_habilitado = !vista_.Text_telefono.isEmpty();
    log_registro(ctx_, QStringLiteral("Inicializado el formulario FrmFacturar_Completado."));
}

void Completado::cambiar_email(const QString &texto)
{
    vista_.Text_email = texto;
    vista_.Command_mail_habilitado = !texto.isEmpty();
}

void Completado::cambiar_telefono(const QString &texto)
{
    vista_.Text_telefono = texto;
    vista_.Command_whatsapp_habilitado = !texto.isEmpty();
}

void Completado::salir_email()
{
    if (!vista_.Text_email.isEmpty() && !vista_.Text_email.contains(QLatin1Char('@')))
        ctx_.op().warn(kTituloPrograma,
                       QStringLiteral("El contenido del campo 'Email' no parece ser válido."));
}

void Completado::salir_telefono()
{
    if (!vista_.Text_telefono.isEmpty() && !solo_digitos(vista_.Text_telefono))
        ctx_.op().warn(kTituloPrograma, QStringLiteral("Ingrese solo números en el campo del Teléfono"));
}

void Completado::aceptar()
{
    pedido_ = {false, false, false, vista_.Text_email, vista_.Text_telefono};
}

void Completado::facsimil()
{
    pedido_ = {true, false, false, vista_.Text_email, vista_.Text_telefono};
}

void Completado::mail()
{
    pedido_ = {false, true, false, vista_.Text_email, vista_.Text_telefono};
}

void Completado::whatsapp()
{
    vista_.Text_telefono = numero_whatsapp(vista_.Text_telefono);
    pedido_ = {false, false, true, vista_.Text_email, vista_.Text_telefono};
}

bool Completado::confirmar_cierre()
{
    const bool cerrar = ctx_.op().ask(
        QStringLiteral("Cerrar ventana"),
        QStringLiteral(
            "La factura generada no será impresa ni enviada al cliente en este momento - Está de acuerdo?"));
    if (cerrar)
        aceptar();
    return cerrar;
}

QString numero_whatsapp(const QString &telefono)
{
    return (telefono.startsWith(QLatin1String("54")) ? QStringLiteral("+") : QStringLiteral("+54")) +
           telefono;
}

} // namespace vendrix

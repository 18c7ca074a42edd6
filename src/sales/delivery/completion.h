#pragma once

#include <QString>

namespace vendrix {

class Context;

// The kind of document of an authorised electronic sale.
inline const QString kTipoAfip = QStringLiteral("AFIP");

// What the sale hands to the completion screen.
struct DatosCompletado {
    QString tipo; // "AFIP" for an electronic sale
    QString cae;
    QString email;
    QString telefono;
    QString forma_de_pago;
    QString texto; // the result, in words
};

// What the screen shows once loaded and after each field is left.
struct VistaCompletado {
    QString Text_email;
    QString Text_telefono;
    QString qr; // the text the QR holds
    QString Label_CAE;
    QString Label_certificado;
    bool Label_certificado_visible = false;
    QString Label_text;
    bool Frame_text_visible = true;
    bool Frame_AFIP_visible = false;
    bool Command_mail_habilitado = false;
    bool Command_whatsapp_habilitado = false;
};

// What the operator asked for, and the address and number as left in the
// fields. No flag: close, nothing more.
struct PedidoEntrega {
    bool facsimil = false;
    bool mail = false;
    bool whatsapp = false;
    QString email;
    QString telefono;
};

// The completion screen without its widgets: it tells the operator the
// result of an authorised invoice and takes what is to be done with it.
class Completado {
public:
    Completado(Context &ctx, DatosCompletado datos);

    // Fills the view: the fields, the QR, the CAE, the certificate's warning
    // when it expires within 30 days, the labels and which sending is on.
    void cargar();

    const VistaCompletado &vista() const { return vista_; }
    const DatosCompletado &datos() const { return datos_; }
    const PedidoEntrega &pedido() const { return pedido_; }

    // A field's text as it is typed: its sending is on while it isn't empty.
    void cambiar_email(const QString &texto);
    void cambiar_telefono(const QString &texto);
    // Leaving a field: a text that can't be an address or a number is
    // pointed out to the operator.
    void salir_email();
    void salir_telefono();

    // The four buttons, each with the fields as they stand.
    void aceptar();
    void facsimil();
    void mail();
    void whatsapp();

    // The operator closing the screen: true when they confirm it.
    bool confirmar_cierre();

private:
    Context &ctx_;
    DatosCompletado datos_;
    VistaCompletado vista_;
    PedidoEntrega pedido_;
};

// The number as the messaging service takes it: "+" in front of a number
// that starts with the country's 54, "+54" in front of any other.
QString numero_whatsapp(const QString &telefono);

} // namespace vendrix

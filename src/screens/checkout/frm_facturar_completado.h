#pragma once

#include "sales/delivery/completion.h"

#include <QDialog>

class QFrame;
class QLabel;
class QLineEdit;
class QPushButton;

namespace vendrix::screens {

// `FrmFacturar_Completado`, "Resumen del documento": the modal screen that
// tells the operator an electronic invoice was authorised, with its QR and
// CAE, and takes what is to be done with it. A thin skin over `Completado`.
class FrmFacturarCompletado : public QDialog {
    Q_OBJECT

public:
    FrmFacturarCompletado(Context &ctx, DatosCompletado datos, QWidget *parent = nullptr);

    // What the operator asked for, once the screen is closed.
    const PedidoEntrega &pedido() const { return logica_.pedido(); }

    // Escape and the window's own close ask first; the buttons don't.
    void reject() override;

protected:
    void closeEvent(QCloseEvent *event) override;

private:
    void crear_controles();
    void mostrar();
    // A button's action: the logic takes it and the screen closes.
    void terminar(void (Completado::*accion)());

    Completado logica_;
    QFrame *Frame_text_;
    QFrame *Frame_AFIP_;
    QLabel *Label_text_;
    QLabel *Label_resultado_;
    QLabel *Image1_;
    QLabel *Label_CAE_;
    QLabel *Label_certificado_;
    QLineEdit *Text_email_;
    QLineEdit *Text_telefono_;
    QPushButton *Command_aceptar_;
    QPushButton *Command_facsimil_;
    QPushButton *Command_mail_;
    QPushButton *Command_whatsapp_;
};

} // namespace vendrix::screens

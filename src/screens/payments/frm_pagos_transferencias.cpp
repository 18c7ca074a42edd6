#include "screens/payments/frm_pagos_transferencias.h"

#include "core/context.h"
#include "screens/controles_dialogo.h"
#include "screens/payments/payment_dialogs.h"

#include <QComboBox>
#include <QDateEdit>
#include <QEvent>
#include <QFocusEvent>
#include <QFormLayout>
#include <QGroupBox>
#include <QLineEdit>
#include <QPushButton>

namespace vendrix::screens {

FrmPagosTransferencias::FrmPagosTransferencias(Context &ctx, const QString &modo, qint64 id, QWidget *parent)
    : QDialog(parent), form_(ctx, modo, id),
      Frame_transferencia_(control<QGroupBox>(this, "Frame_transferencia")),
      DTPicker_fecha_(control<QDateEdit>(this, "DTPicker_fecha")),
      Combo_origen_mdp_(control<QComboBox>(this, "Combo_origen_mdp")),
      Combo_destino_mdp_(control<QComboBox>(this, "Combo_destino_mdp")),
      Text_Total_transferencia_(caja_numero(this, QStringLiteral("Text_Total_transferencia"))),
      Text_Notas_(control<QLineEdit>(this, "Text_Notas")),
      Command_Agregar_(boton_de_dialogo(this, QStringLiteral("Command_Agregar"), QString())),
      Command_cancelar_(boton_de_dialogo(this, QStringLiteral("Command_cancelar"), QString()))
{
    const VistaTransferencia v = form_.cargar();
    setWindowTitle(v.titulo);
    Frame_transferencia_->setTitle(v.marco);
    Command_Agregar_->setText(v.boton);
    Command_cancelar_->setText(v.cancelar);
    DTPicker_fecha_->setCalendarPopup(true);
    DTPicker_fecha_->setDisplayFormat(QStringLiteral("dd/MM/yyyy"));
    DTPicker_fecha_->setDate(ctx.reloj().now().date());
    for (QComboBox *combo : {Combo_origen_mdp_, Combo_destino_mdp_}) {
        combo->addItems(v.medios);
        combo->setCurrentIndex(-1);
    }
    if (!v.origen.isEmpty())
        Combo_origen_mdp_->setCurrentText(v.origen);
    if (!v.destino.isEmpty())
        Combo_destino_mdp_->setCurrentText(v.destino);
    Text_Total_transferencia_->setText(v.total);
    Text_Notas_->setText(v.notas);

    auto *campos = new QFormLayout(Frame_transferencia_);
    campos->addRow(QStringLiteral("Fecha"), DTPicker_fecha_);
    campos->addRow(QStringLiteral("Origen"), Combo_origen_mdp_);
    campos->addRow(QStringLiteral("Destino"), Combo_destino_mdp_);
    campos->addRow(QStringLiteral("Total"), Text_Total_transferencia_);
    campos->addRow(QStringLiteral("Notas"), Text_Notas_);
    auto *form = new QFormLayout;
    form->addRow(Frame_transferencia_);
    disponer_dialogo(this, form, Command_Agregar_, Command_cancelar_);

    // Choosing the other combo's method is refused at once.
    const auto cambio = [this] {
        form_.medios_distintos(Combo_origen_mdp_->currentText(), Combo_destino_mdp_->currentText());
    };
    connect(Combo_origen_mdp_, &QComboBox::activated, this, cambio);
    connect(Combo_destino_mdp_, &QComboBox::activated, this, cambio);
    connect(Command_Agregar_, &QPushButton::clicked, this, &FrmPagosTransferencias::guardar);
    Text_Total_transferencia_->installEventFilter(this);
}

void FrmPagosTransferencias::guardar()
{
    if (form_.guardar(DTPicker_fecha_->date(), Combo_origen_mdp_->currentText(),
                      Combo_destino_mdp_->currentText(), Text_Total_transferencia_->text(),
                      Text_Notas_->text()))
        accept();
}

bool FrmPagosTransferencias::eventFilter(QObject *watched, QEvent *event)
{
    // Leaving the total for another control of the form; a message box
    // taking the focus for a moment isn't leaving.
    if (watched == Text_Total_transferencia_ && event->type() == QEvent::FocusOut) {
        const Qt::FocusReason motivo = static_cast<QFocusEvent *>(event)->reason();
        if (motivo != Qt::ActiveWindowFocusReason && motivo != Qt::PopupFocusReason &&
            focusWidget() != Command_cancelar_)
            form_.salir_total(Text_Total_transferencia_->text());
    }
    return QDialog::eventFilter(watched, event);
}

void abrir_frm_transferencias(Context &ctx, QWidget *parent, const QString &modo, qint64 id)
{
    FrmPagosTransferencias dialogo(ctx, modo, id, parent);
    dialogo.exec();
}

} // namespace vendrix::screens

#include "screens/payments/frm_pagos_anteriores.h"

#include "core/numeric.h"
#include "screens/controles_dialogo.h"
#include "widgets/lynx_grid.h"

#include <QGroupBox>
#include <QHBoxLayout>
#include <QPushButton>
#include <QVBoxLayout>

namespace vendrix::screens {

FrmPagosAnteriores::FrmPagosAnteriores(Context &ctx, qint64 id_deuda, QWidget *parent)
    : QDialog(parent), historial_(ctx, id_deuda),
      Frame_historial_(control<QGroupBox>(this, "Frame_historial")),
      LynxGrid_historial_Pagos_(control<widgets::LynxGrid>(Frame_historial_, "LynxGrid_historial_Pagos")),
      Command_eliminar_(
          boton_de_dialogo(this, QStringLiteral("Command_eliminar"), QStringLiteral("&Eliminar Pago")))
{
    setObjectName(QStringLiteral("FrmPagos_anteriores"));
    setWindowTitle(QStringLiteral("Historial de Pagos"));
    setModal(true);
    const QStringList columnas = PaymentHistory::columnas();
    static constexpr int kAnchos[] = {700, 1200, 1800, 1300, 2000, 3000};
    for (int c = 0; c < columnas.size(); ++c)
        LynxGrid_historial_Pagos_->AddColumn(columnas.at(c), kAnchos[c]);
    LynxGrid_historial_Pagos_->setColAlignment(3, Qt::AlignRight | Qt::AlignVCenter);

    auto *marco = new QVBoxLayout(Frame_historial_);
    marco->addWidget(LynxGrid_historial_Pagos_);
    auto *pie = new QHBoxLayout;
    pie->addStretch();
    pie->addWidget(Command_eliminar_);
    QPushButton *cerrar = boton_de_dialogo(this, QStringLiteral("Command_cerrar"), QStringLiteral("&Cerrar"));
    pie->addWidget(cerrar);
    cerrar->setDefault(true); // Enter closes; it never deletes
    auto *todo = new QVBoxLayout(this);
    todo->addWidget(Frame_historial_);
    todo->addLayout(pie);
    resize(760, 360);

    connect(Command_eliminar_, &QPushButton::clicked, this, &FrmPagosAnteriores::eliminar);
    connect(cerrar, &QPushButton::clicked, this, &QDialog::accept);
    cargar();
}

void FrmPagosAnteriores::cargar()
{
    widgets::LynxGrid &g = *LynxGrid_historial_Pagos_;
    g.Clear();
    for (const QStringList &fila : historial_.filas())
        g.AddItem(fila.join(QLatin1Char('\t')));
    if (g.Rows() > 0)
        g.setRow(0);
    Frame_historial_->setTitle(historial_.titulo());
    Command_eliminar_->setEnabled(g.Rows() > 0);
}

void FrmPagosAnteriores::eliminar()
{
    const int fila = LynxGrid_historial_Pagos_->Row();
    if (fila < 0)
        return;
    const QString id = LynxGrid_historial_Pagos_->CellText(fila, 0);
    if (!es_numerico(id))
        return;
    if (historial_.eliminar(id.toLongLong()))
        cargar();
}

} // namespace vendrix::screens

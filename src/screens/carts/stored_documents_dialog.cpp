#include "screens/carts/stored_documents_dialog.h"

#include "core/context.h"
#include "sales/stored_carts/documentos_guardados.h"
#include "screens/controles_dialogo.h"
#include "widgets/lynx_grid.h"

#include <QHBoxLayout>
#include <QPushButton>
#include <QVBoxLayout>

namespace vendrix::screens {

namespace {

enum Columna : int { kId, kFecha, kNombre, kReferencia, kTipo, kTotal };

const QString kTitulo = QStringLiteral("Búsqueda de Carritos");

} // namespace

StoredDocumentsDialog::StoredDocumentsDialog(Context &ctx, QWidget *parent)
    : QDialog(parent), ctx_(ctx), grilla_(new widgets::LynxGrid(this))
{
    setObjectName(QStringLiteral("FrmBuscarFacturas"));
    setWindowTitle(QStringLiteral("Búsqueda de Facturas"));
    resize(760, 420);

    grilla_->setObjectName(QStringLiteral("DataGridViewFacturas"));
    grilla_->setOperator(&ctx_.op());
    for (const auto &[titulo, ancho] : {std::pair{"IDFactura", 900},
                                        {"Fecha", 1300},
                                        {"Razón Social", 3000},
                                        {"Referencia", 1800},
                                        {"Tipo", 1500},
                                        {"Total con IVA", 1500}})
        grilla_->AddColumn(QString::fromUtf8(titulo), ancho);
    grilla_->setColAlignment(kTotal, Qt::AlignRight | Qt::AlignVCenter);

    QPushButton *cargar =
        boton_de_dialogo(this, QStringLiteral("Command_ponerenelcarrito"), QStringLiteral("Cargar Carrito"));
    QPushButton *volver = boton_de_dialogo(this, QStringLiteral("Command2"), QStringLiteral("Volver"));
    cargar->setDefault(true);
    auto *botones = new QHBoxLayout;
    botones->addStretch();
    botones->addWidget(cargar);
    botones->addWidget(volver);
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(grilla_, 1);
    layout->addLayout(botones);

    connect(cargar, &QPushButton::clicked, this, &StoredDocumentsDialog::cargar);
    connect(grilla_, &widgets::LynxGrid::DblClick, this, &StoredDocumentsDialog::cargar);
    connect(volver, &QPushButton::clicked, this, &QDialog::reject);
    llenar();
}

void StoredDocumentsDialog::llenar()
{
    const auto documentos = documentos_guardados(ctx_);
    if (!documentos)
        return;
    grilla_->setRedraw(false);
    for (const DocumentoGuardado &d : *documentos) {
        const int row = grilla_->AddItem(QString());
        for (const auto &[col, texto] : {std::pair{kId, d.id},
                                         {kFecha, d.fecha},
                                         {kNombre, d.nombre},
                                         {kReferencia, d.referencia},
                                         {kTipo, d.tipo},
                                         {kTotal, d.total}})
            grilla_->setCellText(row, col, texto);
    }
    grilla_->setRedraw(true);
}

void StoredDocumentsDialog::cargar()
{
    const int row = grilla_->Row();
    if (row < 0 || row >= grilla_->Rows()) {
        ctx_.op().warn(kTitulo, QStringLiteral("Por favor seleccione un resultado de la grilla."));
        return;
    }
    if (const QString aviso = aviso_al_cargar(grilla_->CellText(row, kTipo)); !aviso.isEmpty())
        ctx_.op().inform(kTitulo, aviso);
    documento_ = grilla_->CellText(row, kId);
    accept();
}

} // namespace vendrix::screens

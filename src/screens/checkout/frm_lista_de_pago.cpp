#include "screens/checkout/frm_lista_de_pago.h"

#include "core/context.h"
#include "widgets/lynx_grid.h"

#include <QFormLayout>
#include <QHBoxLayout>
#include <QPushButton>
#include <QStyle>
#include <QVBoxLayout>

namespace vendrix::screens {

FrmListaDePago::FrmListaDePago(Context &ctx, const QStringList &columnas, const std::vector<int> &anchos,
                               QWidget *parent)
    : QDialog(parent), ctx_(ctx), form_(new QFormLayout), grilla_(new widgets::LynxGrid(this)),
      salvar_(new QPushButton(QStringLiteral("&Salvar"), this))
{
    grilla_->setObjectName(QStringLiteral("DataGridViewFdP"));
    grilla_->setOperator(&ctx_.op());
    for (int c = 0; c < columnas.size(); ++c) {
        widgets::ColumnSpec spec;
        spec.heading = columnas[c];
        spec.width = anchos.at(static_cast<size_t>(c));
        spec.locked = true;
        grilla_->AddColumn(spec);
    }
    salvar_->setObjectName(QStringLiteral("Command_clipro_salvar"));

    auto *pie = new QHBoxLayout;
    pie->addStretch(1);
    pie->addWidget(salvar_);
    auto *layout = new QVBoxLayout(this);
    layout->addLayout(form_);
    layout->addLayout(pie);
    layout->addWidget(grilla_, 1);
    resize(760, 480);

    connect(grilla_, &widgets::LynxGrid::Click, this, &FrmListaDePago::click);
    connect(salvar_, &QPushButton::clicked, this, &FrmListaDePago::salvar_y_recargar);
}

void FrmListaDePago::Inicializar_DataGridViewFdP()
{
    std::optional<std::vector<FilaDePago>> filas = cargar();
    grilla_->setRedraw(false);
    grilla_->Clear();
    filas_ = filas ? std::move(*filas) : std::vector<FilaDePago>{};
    const QIcon borrar = style()->standardIcon(QStyle::SP_TrashIcon);
    const int eliminar = grilla_->Cols() - 1;
    for (const FilaDePago &f : filas_) {
        const int row =
            grilla_->AddItem((QStringList{QString::number(f.id), texto_solo_lectura(f.solo_lectura)} +
                              f.celdas + QStringList{QStringLiteral(" ")})
                                 .join(QLatin1Char('\t')));
        if (!f.solo_lectura)
            grilla_->setCellImage(row, eliminar, borrar);
    }
    grilla_->setRedraw(true);
}

const FilaDePago *FrmListaDePago::fila(int row) const
{
    return row >= 0 && row < static_cast<int>(filas_.size()) ? &filas_[static_cast<size_t>(row)] : nullptr;
}

// A click on the last column deletes the row, when the shop added it.
void FrmListaDePago::click()
{
    const FilaDePago *f = fila(grilla_->Row());
    if (f && grilla_->Col() == grilla_->Cols() - 1 && eliminar(*f))
        Inicializar_DataGridViewFdP();
}

void FrmListaDePago::salvar_y_recargar()
{
    const std::optional<qint64> id = salvar();
    if (!id)
        return;
    vaciar_Controles();
    Inicializar_DataGridViewFdP();
    for (int row = 0; row < grilla_->Rows(); ++row)
        if (fila(row)->id == *id)
            grilla_->setRow(row);
}

} // namespace vendrix::screens

#include "screens/checkout/frm_medios_de_pago.h"

#include "backoffice/payment/payment_methods.h"
#include "core/context.h"
#include "screens/controles_dialogo.h"
#include "widgets/lynx_grid.h"

#include <QComboBox>
#include <QFormLayout>
#include <QLineEdit>
#include <QTableView>

namespace vendrix::screens {

namespace {

QComboBox *combo_de_tipos(QWidget *parent, const char *nombre)
{
    auto *c = new QComboBox(parent);
    c->setObjectName(QString::fromLatin1(nombre));
    c->addItems(tipos_de_medio());
    c->setCurrentText(QStringLiteral("Cobro y Pago"));
    return c;
}

} // namespace

FrmMediosDePago::FrmMediosDePago(Context &ctx, QWidget *parent)
    : FrmListaDePago(ctx, columnas_medios_de_pago(), {0, 0, 2400, 3000, 1100, 1100, 1500, 900}, parent),
      Text_mediodepago_(control<QLineEdit>(this, "Text_mediodepago")),
      Text_descripcion_(control<QLineEdit>(this, "Text_descripcion")),
      Text_cuotas_(control<QLineEdit>(this, "Text_cuotas")),
      Text_recargo_(control<QLineEdit>(this, "Text_recargo")),
      Combo_tipo_de_medio_(combo_de_tipos(this, "Combo_tipo_de_medio")),
      Combo_tipo_medio_edit_(combo_de_tipos(grilla()->view()->viewport(), "Combo_tipo_medio_edit"))
{
    ctx_.escribir_log(QStringLiteral("Inicializando el formulario de alta de Medios de Pago y Cobro"),
                      QStringLiteral("I"));
    setObjectName(QStringLiteral("frmMediosDePago"));
    setWindowTitle(QStringLiteral("Medios de Pago y Cobro"));
    form_->addRow(QStringLiteral("&Nombre"), Text_mediodepago_);
    form_->addRow(QStringLiteral("&Descripción"), Text_descripcion_);
    form_->addRow(QStringLiteral("Cant. &Cuotas"), Text_cuotas_);
    form_->addRow(QStringLiteral("% &Recargo"), Text_recargo_);
    form_->addRow(QStringLiteral("&Tipo"), Combo_tipo_de_medio_);
    Combo_tipo_medio_edit_->hide();

    widgets::LynxGrid *g = grilla();
    for (ColumnaMedio c : {ColumnaMedio::Cuotas, ColumnaMedio::Recargo, ColumnaMedio::Tipo})
        g->setColLocked(static_cast<int>(c), false);
    g->setAllowEdit(true);
    g->setBeforeEditHandler([this](int row, int col, bool &cancel) { antes_de_editar(row, col, cancel); });
    g->setAfterEditHandler([this](int row, int col, QString &valor, bool &cancel) {
        despues_de_editar(row, col, valor, cancel);
    });
    connect(g, &widgets::LynxGrid::RowColChanged, Combo_tipo_medio_edit_, &QWidget::hide);
    connect(Combo_tipo_medio_edit_, &QComboBox::textActivated, this, &FrmMediosDePago::tipo_elegido);

    // The checks of each box as the operator leaves it.
    connect(Text_mediodepago_, &QLineEdit::editingFinished, this,
            [this] { validar_nombre_medio(ctx_, Text_mediodepago_->text()); });
    connect(Text_cuotas_, &QLineEdit::editingFinished, this,
            [this] { Text_cuotas_->setText(validar_cuotas(ctx_, Text_cuotas_->text())); });
    connect(Text_recargo_, &QLineEdit::editingFinished, this,
            [this] { Text_recargo_->setText(validar_recargo(ctx_, Text_recargo_->text())); });

    vaciar_Controles();
    Inicializar_DataGridViewFdP();
    ctx_.escribir_log(
        QStringLiteral("Inicializado el formulario de alta de Medios de Pago y Cobro correctamente"),
        QStringLiteral("I"));
}

void FrmMediosDePago::vaciar_Controles()
{
    Text_mediodepago_->clear();
    Text_descripcion_->clear();
    Text_cuotas_->setText(QStringLiteral("1"));
    Text_recargo_->setText(QStringLiteral("0"));
    Combo_tipo_de_medio_->setCurrentText(QStringLiteral("Cobro y Pago"));
}

std::optional<std::vector<FilaDePago>> FrmMediosDePago::cargar()
{
    Combo_tipo_medio_edit_->hide();
    return cargar_medios_de_pago(ctx_);
}

std::optional<qint64> FrmMediosDePago::salvar()
{
    return salvar_medio(ctx_, {Text_mediodepago_->text(), Text_descripcion_->text(), Text_cuotas_->text(),
                               Text_recargo_->text(), Combo_tipo_de_medio_->currentText()});
}

bool FrmMediosDePago::eliminar(const FilaDePago &fila)
{
    return eliminar_medio(ctx_, fila);
}

void FrmMediosDePago::antes_de_editar(int row, int col, bool &cancel)
{
    const FilaDePago *f = fila(row);
    cancel = !f || f->solo_lectura || static_cast<ColumnaMedio>(col) == ColumnaMedio::Tipo;
    if (!f || f->solo_lectura || static_cast<ColumnaMedio>(col) != ColumnaMedio::Tipo)
        return;
    // The kind is chosen from the combo laid over the cell. The grid is never
    // sorted, so its row numbers are those of the view.
    QTableView *vista = grilla()->view();
    fila_tipo_ = row;
    Combo_tipo_medio_edit_->setGeometry(vista->visualRect(vista->model()->index(row, col)));
    Combo_tipo_medio_edit_->setCurrentText(grilla()->CellText(row, col));
    Combo_tipo_medio_edit_->show();
    Combo_tipo_medio_edit_->setFocus();
}

void FrmMediosDePago::despues_de_editar(int row, int col, QString &valor, bool &cancel)
{
    const FilaDePago *f = fila(row);
    const std::optional<QString> guardado =
        f ? editar_medio(ctx_, *f, static_cast<ColumnaMedio>(col), valor) : std::nullopt;
    cancel = !guardado;
    if (guardado)
        valor = *guardado;
}

void FrmMediosDePago::tipo_elegido(const QString &tipo)
{
    Combo_tipo_medio_edit_->hide();
    const int col = static_cast<int>(ColumnaMedio::Tipo);
    QString valor = tipo;
    bool cancel = false;
    despues_de_editar(fila_tipo_, col, valor, cancel);
    if (!cancel)
        grilla()->setCellText(fila_tipo_, col, valor);
}

} // namespace vendrix::screens

#include "screens/customers/customers_tab.h"

#include "backoffice/customers/customer_kinds.h"
#include "core/context.h"
#include "screens/controles_dialogo.h"
#include "screens/customers/add_customer_dialog.h"
#include "screens/lists/search_completion.h"
#include "widgets/autocomplete_box.h"
#include "widgets/lynx_grid.h"

#include <QComboBox>
#include <QFocusEvent>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QPushButton>
#include <QTableView>
#include <QTimer>
#include <QVBoxLayout>

namespace vendrix::screens {

namespace {

// Widths of the grid's columns in twips, before they fit their contents.
constexpr int kAnchos[] = {700, 700, 3200, 1400, 1800, 3200, 3200, 2200};

// The column the found records are sorted by: the name.
constexpr int kColumnaNombre = 2;

} // namespace

CustomersTab::CustomersTab(Context &ctx, QWidget *parent)
    : QWidget(parent), ctx_(ctx), book_(ctx), Combo_clienteoproveedor_(new QComboBox(this)),
      Text_clienteproveedorbuscar_(new QLineEdit(this)),
      Command_buscarClipro_(boton_de_dialogo(this, "Command_buscarClipro", QStringLiteral("&Buscar"))),
      Command_addClipro_(boton_de_dialogo(this, "Command_addClipro", QStringLiteral("&Agregar"))),
      LynxGrid_clipro_(new widgets::LynxGrid(this)), Text_tipocliente_(new QLineEdit(this)), cajas_(this),
      Command_clipro_salvar_(boton_de_dialogo(this, "Command_clipro_salvar", QStringLiteral("&Salvar"))),
      Command_clipro_borrar_(boton_de_dialogo(this, "Command_clipro_borrar", QStringLiteral("B&orrar")))
{
    Combo_clienteoproveedor_->setObjectName(QStringLiteral("Combo_clienteoproveedor"));
    Text_clienteproveedorbuscar_->setObjectName(QStringLiteral("Text_clienteproveedorbuscar"));
    LynxGrid_clipro_->setObjectName(QStringLiteral("LynxGrid_clipro"));
    LynxGrid_clipro_->setOperator(&ctx_.op());
    Text_tipocliente_->setObjectName(QStringLiteral("Text_tipocliente"));
    Text_tipocliente_->setReadOnly(true);

    auto *busqueda = new QHBoxLayout;
    busqueda->addWidget(Combo_clienteoproveedor_);
    busqueda->addWidget(Text_clienteproveedorbuscar_, 1);
    busqueda->addWidget(Command_buscarClipro_);
    busqueda->addWidget(Command_addClipro_);
    auto *form = new QFormLayout;
    cajas_.disponer(form, Text_tipocliente_);
    auto *botones = new QHBoxLayout;
    botones->addStretch(1);
    botones->addWidget(Command_clipro_salvar_);
    botones->addWidget(Command_clipro_borrar_);
    auto *detalle = new QVBoxLayout;
    detalle->addLayout(form);
    detalle->addLayout(botones);
    detalle->addStretch(1);
    auto *cuerpo = new QHBoxLayout;
    cuerpo->addWidget(LynxGrid_clipro_, 3);
    cuerpo->addLayout(detalle, 2);
    auto *layout = new QVBoxLayout(this);
    layout->addLayout(busqueda);
    layout->addLayout(cuerpo, 1);
    iniciar_grilla_clipro();

    connect(Command_buscarClipro_, &QPushButton::clicked, this, &CustomersTab::buscar_clipro);
    connect(Text_clienteproveedorbuscar_, &QLineEdit::returnPressed, this, &CustomersTab::buscar_clipro);
    auto *completado = new widgets::AutoCompleteBox(nullptr, this);
    completado->AutoCompleteTextbox(Text_clienteproveedorbuscar_);
    completado->setAntesDeTecla([this](widgets::AutoComplete &c) { completar_nombres(c); });
    connect(Command_addClipro_, &QPushButton::clicked, this, &CustomersTab::agregar_clipro);
    connect(Command_clipro_salvar_, &QPushButton::clicked, this, &CustomersTab::salvar_clipro);
    connect(Command_clipro_borrar_, &QPushButton::clicked, this, &CustomersTab::borrar_clipro);
    connect(LynxGrid_clipro_, &widgets::LynxGrid::SelectionChanged, this, [this] {
        if (!ocupado_)
            mostrar_clipro();
    });
    // Any edit of the detail is something to save.
    const auto cambio = [this] {
        if (!ocupado_) {
            book_.habilitar_salvar_clipro();
            mostrar_botones();
        }
    };
    for (QWidget *w : cajas_.editables()) {
        if (auto *caja = qobject_cast<QLineEdit *>(w))
            connect(caja, &QLineEdit::textChanged, this, cambio);
        else if (auto *lista = qobject_cast<QComboBox *>(w))
            connect(lista, &QComboBox::currentTextChanged, this, cambio);
    }
    connect(cajas_.Combo_tipoivaCliente, &QComboBox::activated, this, [this] {
        book_.elegir_condicion_iva(cajas_.Combo_tipoivaCliente->currentText());
        ocupado_ = true;
        cajas_.Combo_tipodocCliente->setCurrentText(book_.vista().ficha.tipo_doc);
        ocupado_ = false;
        cajas_.Combo_tipodocCliente->setEnabled(book_.vista().tipo_doc_habilitado);
        mostrar_botones();
    });
    cajas_.TextBox_doccliente->installEventFilter(this);
    cajas_.TextBox_descuentoCliente->installEventFilter(this);
}

void CustomersTab::iniciar_tab_clipro()
{
    ocupado_ = true;
    Combo_clienteoproveedor_->clear();
    Combo_clienteoproveedor_->addItems(tipos_de_registro());
    Combo_clienteoproveedor_->setCurrentIndex(0);
    ocupado_ = false;
    book_.iniciar_tab_clipro();
    mostrar_vista();
}

void CustomersTab::iniciar_grilla_clipro()
{
    const QStringList columnas = columnas_clipro();
    for (int c = 0; c < columnas.size(); ++c)
        LynxGrid_clipro_->AddColumn(columnas.at(c), kAnchos[c]);
    LynxGrid_clipro_->setAllowColumnSort(true);
}

// The names of the records, read at the first key after each search.
void CustomersTab::completar_nombres(widgets::AutoComplete &completion)
{
    if (!aplicar_ajustes_completado(completion, ctx_.config()) || nombres_al_dia_)
        return;
    completion.Cleartems();
    completion.AddItems(book_.nombres_clipro());
    nombres_al_dia_ = true;
}

void CustomersTab::buscar_clipro()
{
    nombres_al_dia_ = false;
    widgets::LynxGrid &g = *LynxGrid_clipro_;
    ocupado_ = true;
    g.setRedraw(false);
    g.Clear();
    const auto filas =
        book_.buscar_clipro(Combo_clienteoproveedor_->currentText(), Text_clienteproveedorbuscar_->text());
    if (filas)
        for (const QString &linea : *filas)
            g.AddItem(linea);
    g.setRedraw(true);
    if (g.Rows() > 0) {
        g.view()->resizeColumnsToContents();
        g.Sort(kColumnaNombre);
        g.setRow(0);
    }
    ocupado_ = false;
    mostrar_vista();
    if (g.Rows() > 0)
        mostrar_clipro();
}

void CustomersTab::mostrar_clipro()
{
    const int fila = LynxGrid_clipro_->Row();
    if (fila < 0 || !LynxGrid_clipro_->RowSelected(fila))
        return;
    if (book_.mostrar_clipro(fila, LynxGrid_clipro_->CellText(fila, 0)))
        mostrar_vista();
}

QString CustomersTab::id_seleccionado() const
{
    const int fila = LynxGrid_clipro_->Row();
    return fila >= 0 ? LynxGrid_clipro_->CellText(fila, 0) : QString();
}

void CustomersTab::salvar_clipro()
{
    if (book_.salvar_clipro(id_seleccionado(), cajas_.leer(Text_tipocliente_->text())))
        mostrar_botones();
}

void CustomersTab::borrar_clipro()
{
    const int fila = LynxGrid_clipro_->Row();
    if (!book_.borrar_clipro(id_seleccionado(), cajas_.leer(Text_tipocliente_->text())))
        return;
    // The next row takes the selection without being shown: the detail
    // stays empty until the operator picks one.
    ocupado_ = true;
    LynxGrid_clipro_->RemoveItem(fila);
    ocupado_ = false;
    mostrar_vista();
}

void CustomersTab::agregar_clipro()
{
    AddCustomerDialog dialogo(ctx_, Combo_clienteoproveedor_->currentText(), window());
    dialogo.exec();
}

void CustomersTab::mostrar_vista()
{
    const VistaClipro &v = book_.vista();
    ocupado_ = true;
    Text_tipocliente_->setText(v.ficha.tipo);
    cajas_.mostrar(v.ficha);
    cajas_.habilitar_descuento(v.descuento_habilitado);
    ocupado_ = false;
    mostrar_botones();
}

void CustomersTab::mostrar_botones()
{
    Command_clipro_salvar_->setEnabled(book_.vista().salvar);
    Command_clipro_borrar_->setEnabled(book_.vista().borrar);
}

bool CustomersTab::eventFilter(QObject *watched, QEvent *event)
{
    // Leaving a box for another control; a message box or a menu taking the
    // focus for a moment isn't leaving.
    if (event->type() == QEvent::FocusOut) {
        const Qt::FocusReason motivo = static_cast<QFocusEvent *>(event)->reason();
        if (motivo == Qt::ActiveWindowFocusReason || motivo == Qt::PopupFocusReason)
            return QWidget::eventFilter(watched, event);
        if (watched == cajas_.TextBox_doccliente) {
            QLineEdit *caja = cajas_.TextBox_doccliente;
            const QString texto =
                book_.salir_doccliente(cajas_.Combo_tipodocCliente->currentText(), caja->text());
            if (texto != caja->text())
                caja->setText(texto);
        } else if (watched == cajas_.TextBox_descuentoCliente &&
                   !CustomerBook::descuento_aceptable(cajas_.TextBox_descuentoCliente->text())) {
            QTimer::singleShot(0, cajas_.TextBox_descuentoCliente,
                               [this] { cajas_.TextBox_descuentoCliente->setFocus(); });
        }
    }
    return QWidget::eventFilter(watched, event);
}

} // namespace vendrix::screens

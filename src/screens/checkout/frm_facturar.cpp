#include "screens/checkout/frm_facturar.h"

#include "afip/auth/afip_services.h"
#include "afip/lookup/taxpayer_lookup.h"
#include "afip/transport/qt_http_client.h"
#include "core/context.h"
#include "core/numeric.h"
#include "core/validators.h"
#include "sales/carritos.h"
#include "sales/delivery/delivery.h"
#include "sales/recording/sale_recording.h"
#include "screens/checkout/frm_facturar_completado.h"
#include "screens/controles_dialogo.h"
#include "screens/main_window/filtro_teclas.h"
#include "widgets/lynx_grid.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace vendrix::screens {

namespace {

// The customers' grid: captions and widths in twips, all with format "#".
constexpr struct {
    const char *titulo;
    int ancho;
} kColumnasClientes[kColumnasCliente] = {
    {"Razón Social", 2500}, {"CUIT", 1500},    {"Domicilio", 2000}, {"Localidad", 1500}, {"Descuento", 1000},
    {"Tipo", 1000},         {"Tipo_DOC", 800}, {"mail", 1500},      {"telefono", 1200},
};

template <typename W> W *con_nombre(W *w, const char *nombre)
{
    w->setObjectName(QString::fromLatin1(nombre));
    return w;
}

QCheckBox *casilla(QWidget *parent, const char *nombre, const QString &texto)
{
    return con_nombre(new QCheckBox(texto, parent), nombre);
}

} // namespace

FrmFacturar::FrmFacturar(Context &ctx, Carritos &carritos, int carrito_origen, QWidget *parent)
    : QDialog(parent), ctx_(ctx), logica_(ctx, carritos, carrito_origen)
{
    setObjectName(QStringLiteral("frmFacturar"));
    setWindowTitle(QStringLiteral("Facturar"));
    crear_controles();
    mostrar();
    // Most sales are to a final consumer paying cash: the operator starts
    // on the payment method, or searches a customer with a Shift-Tab.
    Combo_FdP_->setFocus();
}

QLineEdit *FrmFacturar::caja(const char *nombre, QString VistaCheckout::*campo)
{
    auto *box = con_nombre(new QLineEdit(this), nombre);
    connect(box, &QLineEdit::textEdited, this,
            [this, campo](const QString &t) { logica_.set_texto(campo, t); });
    return box;
}

void FrmFacturar::crear_controles()
{
    // Made in the order of the groups, which is the tab order.
    QWidget *cliente = grupo_cliente();
    QWidget *pago = grupo_forma_de_pago();
    auto *notas = new QGroupBox(QStringLiteral("Notas"), this);
    Text_Notas_ = con_nombre(new QPlainTextEdit(notas), "Text_Notas");
    Text_Notas_->setTabChangesFocus(true);
    Text_Notas_->setMaximumHeight(70);
    (new QVBoxLayout(notas))->addWidget(Text_Notas_);
    connect(Text_Notas_, &QPlainTextEdit::textChanged, this,
            [this] { logica_.set_texto(&VistaCheckout::Text_Notas, Text_Notas_->toPlainText()); });
    QWidget *totales = grupo_totales();

    Command_imprimir_ = boton_de_dialogo(this, "Command_imprimir", QString());
    Command_registrar_pedido_ =
        boton_de_dialogo(this, "Command_registrar_pedido", QStringLiteral("Guardar Carrito"));
    Command_nota_credito_ =
        boton_de_dialogo(this, "Command_nota_credito", QStringLiteral("Registrar Crédito"));
    Command2_ = boton_de_dialogo(this, "Command2", QStringLiteral("Volver"));
    // Enter records the sale; Escape goes back, as "Volver" does.
    Command_imprimir_->setDefault(true);
    QFont grande = Command_imprimir_->font();
    grande.setBold(true);
    Command_imprimir_->setFont(grande);
    Command_imprimir_->setMinimumHeight(40);

    auto *acciones = new QHBoxLayout;
    acciones->addWidget(Command2_);
    acciones->addStretch();
    acciones->addWidget(Command_nota_credito_);
    acciones->addWidget(Command_registrar_pedido_);
    acciones->addWidget(Command_imprimir_);

    auto *derecha = new QVBoxLayout;
    derecha->addWidget(pago);
    derecha->addWidget(notas);
    derecha->addWidget(totales);
    derecha->addStretch();
    auto *columnas = new QHBoxLayout;
    columnas->addWidget(cliente, 3);
    columnas->addLayout(derecha, 2);
    auto *layout = new QVBoxLayout(this);
    layout->addLayout(columnas, 1);
    layout->addLayout(acciones);
    resize(1100, 620);

    connect(Command_imprimir_, &QPushButton::clicked, this, [this] {
        // Enter from a box that checks its text on leaving checks it first.
        if (focusWidget() == Text_dh_)
            logica_.salir_descuento();
        else if (focusWidget() == Text_cuit_)
            logica_.salir_cuit();
        accion(logica_.imprimir());
    });
    connect(Command_registrar_pedido_, &QPushButton::clicked, this,
            [this] { accion(logica_.registrar_pedido()); });
    connect(Command2_, &QPushButton::clicked, this, &QDialog::reject);
}

QWidget *FrmFacturar::grupo_cliente()
{
    auto *grupo = new QGroupBox(QStringLiteral("Datos del Cliente"), this);
    Text_buscar_ = con_nombre(new QLineEdit(grupo), "Text_buscar");
    Text_buscar_->installEventFilter(this);
    DataGridViewClientes_ = con_nombre(new widgets::LynxGrid(grupo), "DataGridViewClientes");
    DataGridViewClientes_->setOperator(&ctx_.op());
    for (const auto &c : kColumnasClientes)
        DataGridViewClientes_->AddColumn(widgets::ColumnSpec{
            .heading = QString::fromUtf8(c.titulo), .width = c.ancho, .format = QStringLiteral("#")});
    DataGridViewClientes_->setMinimumHeight(140);

    Combo_iva_ = con_nombre(new QComboBox(grupo), "Combo_iva");
    Combo_iva_->addItems(condiciones_iva());
    Combo_tipo_doc_ = con_nombre(new QComboBox(grupo), "Combo_tipo_doc");
    Combo_tipo_doc_->addItems(tipos_documento());
    Text_cuit_ = caja("Text_cuit", &VistaCheckout::Text_cuit);
    Text_cuit_->installEventFilter(this);
    Text_rz_ = caja("Text_rz", &VistaCheckout::Text_rz);
    Text_dom_ = caja("Text_dom", &VistaCheckout::Text_dom);
    Text_loc_ = caja("Text_loc", &VistaCheckout::Text_loc);
    Text_dh_ = caja("Text_dh", &VistaCheckout::Text_dh);
    Text_dh_->installEventFilter(this);
    instalar_filtro_numero(Text_dh_, QStringLiteral("real"));
    Text_email_ = caja("Text_email", &VistaCheckout::Text_email);
    Text_email_->installEventFilter(this);
    Text_telefono_ = caja("Text_telefono", &VistaCheckout::Text_telefono);
    Command_agregarrs_ = boton_de_dialogo(grupo, "Command_agregarrs", QStringLiteral("Agregar Cliente"));
    Command_recuperar_datos_CUIT_ =
        boton_de_dialogo(grupo, "Command_recuperar_datos_CUIT", QStringLiteral("AFIP"));

    auto *documento = new QHBoxLayout;
    documento->addWidget(Combo_tipo_doc_);
    documento->addWidget(Text_cuit_, 1);
    documento->addWidget(Command_recuperar_datos_CUIT_);
    auto *form = new QFormLayout;
    form->addRow(QStringLiteral("Condición IVA"), Combo_iva_);
    form->addRow(QStringLiteral("Tipo y número de doc"), documento);
    form->addRow(QStringLiteral("Nombre o Razón Social"), Text_rz_);
    form->addRow(QStringLiteral("Domicilio"), Text_dom_);
    form->addRow(QStringLiteral("Loc. -  Provincia"), Text_loc_);
    form->addRow(QStringLiteral("Descuento Habitual (%)"), Text_dh_);
    form->addRow(QStringLiteral("Email"), Text_email_);
    form->addRow(QStringLiteral("Teléfono"), Text_telefono_);
    auto *layout = new QVBoxLayout(grupo);
    auto *busqueda = new QFormLayout;
    busqueda->addRow(QStringLiteral("Búsqueda"), Text_buscar_);
    layout->addLayout(busqueda);
    layout->addWidget(DataGridViewClientes_, 1);
    layout->addLayout(form);
    layout->addWidget(Command_agregarrs_, 0, Qt::AlignRight);

    connect(DataGridViewClientes_, &widgets::LynxGrid::Click, this, [this] {
        logica_.elegir_cliente(DataGridViewClientes_->Row());
        mostrar();
    });
    connect(Combo_iva_, &QComboBox::activated, this, [this] {
        logica_.cambiar_iva(Combo_iva_->currentText());
        mostrar();
    });
    connect(Combo_tipo_doc_, &QComboBox::activated, this, [this] {
        logica_.cambiar_tipo_doc(Combo_tipo_doc_->currentText());
        mostrar();
    });
    connect(Command_agregarrs_, &QPushButton::clicked, this, [this] { logica_.agregar_cliente(); });
    connect(Command_recuperar_datos_CUIT_, &QPushButton::clicked, this, [this] {
        ClienteHttpQt http(ctx_);
        ServiciosAfip servicios{ctx_, http};
        recuperar_datos_CUIT(servicios, logica_);
        mostrar();
    });
    return grupo;
}

QWidget *FrmFacturar::grupo_forma_de_pago()
{
    auto *grupo = new QGroupBox(QStringLiteral("Forma de pago"), this);
    Combo_FdP_ = con_nombre(new QComboBox(grupo), "Combo_FdP");
    Combo_FdP_->addItems(logica_.vista().formas_de_pago);
    Check_CC_ = casilla(grupo, "Check_CC", QStringLiteral("en Cuenta Corriente"));
    auto *layout = new QHBoxLayout(grupo);
    layout->addWidget(Combo_FdP_, 1);
    layout->addWidget(Check_CC_);
    connect(Combo_FdP_, &QComboBox::activated, this, [this] {
        logica_.cambiar_forma_de_pago(Combo_FdP_->currentText());
        mostrar();
    });
    connect(Check_CC_, &QCheckBox::clicked, this, [this](bool on) {
        logica_.cambiar_CC(on);
        mostrar();
    });
    return grupo;
}

QWidget *FrmFacturar::grupo_totales()
{
    auto *grupo = new QGroupBox(QStringLiteral("Totales"), this);
    Check_Imprimir_ = casilla(grupo, "Check_Imprimir", QStringLiteral("Imprimir factura"));
    Check_NDV_ = casilla(grupo, "Check_NDV", QStringLiteral("Imprimir nota de venta"));
    Check_resumido_ = casilla(grupo, "Check_resumido", QStringLiteral("Factura con detalle"));
    Text_referenciaExterna_ = caja("Text_referenciaExterna", &VistaCheckout::Text_referenciaExterna);
    Label_articulos_ = con_nombre(new QLabel(grupo), "Label_articulos");
    Label_total_ = con_nombre(new QLabel(grupo), "Label_total");
    // The figure the customer pays, readable across the counter.
    QFont grande = Label_total_->font();
    grande.setPointSize(26);
    grande.setBold(true);
    Label_total_->setFont(grande);
    Label_total_->setAlignment(Qt::AlignRight | Qt::AlignVCenter);

    auto *form = new QFormLayout(grupo);
    form->addRow(Check_Imprimir_);
    form->addRow(Check_NDV_);
    form->addRow(Check_resumido_);
    form->addRow(QStringLiteral("Número de referencia:"), Text_referenciaExterna_);
    form->addRow(QStringLiteral("Artículos:"), Label_articulos_);
    form->addRow(QStringLiteral("Total a pagar:"), Label_total_);

    connect(Check_Imprimir_, &QCheckBox::clicked, this, [this](bool on) {
        logica_.cambiar_imprimir(on);
        mostrar();
    });
    connect(Check_NDV_, &QCheckBox::clicked, this, [this](bool on) { logica_.cambiar_NDV(on); });
    connect(Check_resumido_, &QCheckBox::clicked, this, [this](bool on) {
        logica_.cambiar_resumido(on);
        mostrar();
    });
    return grupo;
}

bool FrmFacturar::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == Text_buscar_ && event->type() == QEvent::KeyPress) {
        const auto *key = static_cast<QKeyEvent *>(event);
        int codigo = 0;
        if (key->key() == Qt::Key_Backspace)
            codigo = tecla::kBorrar;
        else if (key->key() == Qt::Key_Return || key->key() == Qt::Key_Enter)
            codigo = tecla::kEnter;
        else if (!key->text().isEmpty() && key->text().at(0).isPrint())
            codigo = key->text().at(0).unicode();
        if (codigo != 0 && logica_.tecla_buscar(Text_buscar_->text(), codigo)) {
            mostrar_clientes();
            mostrar();
        }
        // Enter searches here; it doesn't record the sale.
        return codigo == tecla::kEnter;
    }
    if (event->type() == QEvent::FocusOut) {
        if (watched == Text_dh_)
            logica_.salir_descuento();
        else if (watched == Text_cuit_)
            logica_.salir_cuit();
        else if (watched == Text_email_)
            logica_.salir_email();
        if (watched == Text_dh_ || watched == Text_cuit_ || watched == Text_email_)
            mostrar();
    }
    return QDialog::eventFilter(watched, event);
}

void FrmFacturar::mostrar_clientes()
{
    DataGridViewClientes_->setRedraw(false);
    DataGridViewClientes_->Clear();
    for (const QStringList &fila : logica_.vista().clientes)
        DataGridViewClientes_->AddItem(fila.join(QLatin1Char('\t')));
    DataGridViewClientes_->setRedraw(true);
}

void FrmFacturar::mostrar()
{
    const VistaCheckout &v = logica_.vista();
    Combo_iva_->setCurrentText(v.Combo_iva);
    Combo_tipo_doc_->setCurrentText(v.Combo_tipo_doc);
    Combo_tipo_doc_->setEnabled(v.Combo_tipo_doc_habilitado);
    const std::pair<QLineEdit *, const QString *> cajas[] = {
        {Text_cuit_, &v.Text_cuit},
        {Text_rz_, &v.Text_rz},
        {Text_dom_, &v.Text_dom},
        {Text_loc_, &v.Text_loc},
        {Text_dh_, &v.Text_dh},
        {Text_email_, &v.Text_email},
        {Text_telefono_, &v.Text_telefono},
        {Text_referenciaExterna_, &v.Text_referenciaExterna},
    };
    // Only a changed box is rewritten, so the cursor stays where it is.
    for (const auto &[box, texto] : cajas)
        if (box->text() != *texto)
            box->setText(*texto);
    if (Text_Notas_->toPlainText() != v.Text_Notas)
        Text_Notas_->setPlainText(v.Text_Notas);
    Command_recuperar_datos_CUIT_->setVisible(v.Command_recuperar_datos_CUIT_visible);
    Combo_FdP_->setCurrentText(v.Combo_FdP);
    Check_CC_->setChecked(v.Check_CC);
    Check_Imprimir_->setChecked(v.Check_Imprimir);
    Check_Imprimir_->setVisible(v.Check_Imprimir_visible);
    Check_NDV_->setChecked(v.Check_NDV);
    Check_NDV_->setVisible(v.Check_NDV_visible);
    Check_resumido_->setChecked(v.Check_resumido);
    Check_resumido_->setVisible(v.Check_resumido_visible);
    Label_articulos_->setText(v.Label_articulos);
    // Always with its cents, as money is read at the counter.
    Label_total_->setText(QStringLiteral("$ ") + formatear(valor_texto(v.Label_total), u"#0.00"));
    Command_imprimir_->setText(v.Command_imprimir);
    Command_imprimir_->setEnabled(v.Command_imprimir_habilitado);
    Command_nota_credito_->setVisible(v.Command_nota_credito_visible);
    Command_registrar_pedido_->setVisible(v.Command_registrar_pedido_visible);
}

void FrmFacturar::accion(PasoVenta paso)
{
    mostrar();
    if (paso == PasoVenta::ninguno)
        return;
    Q_EMIT registrar_venta(paso);
    if (paso != PasoVenta::guardar_carrito)
        logica_.fin_de_accion();
    mostrar();
}

namespace {

// What follows a sale on the screen. The dialog can't hide while it runs
// modally (hiding ends it), so it is only out of reach while the device works.
class SeguimientoPantalla final : public SeguimientoVenta {
public:
    SeguimientoPantalla(QDialog &dialogo, ServiciosEntrega &entrega) : dialogo_(dialogo), entrega_(entrega) {}
    void ocultar_formulario() override { dialogo_.setEnabled(false); }
    void mostrar_formulario() override { dialogo_.setEnabled(true); }

    // The completion screen, then what the operator asked on it.
    void factura_electronica(const Checkout &checkout, const DocumentoVenta &doc, qint64 id_factura) override
    {
        Context &ctx = entrega_.ctx;
        const VistaCheckout &v = checkout.vista();
        const QString cae = doc.cabecera.cae;
        DatosCompletado datos{kTipoAfip,
                              cae,
                              v.Text_email,
                              v.Text_telefono,
                              doc.cabecera.forma_de_pago,
                              QStringLiteral("La AFIP guardo la venta correctamente con el número de CAE '") +
                                  cae + QLatin1Char('.')};
        // The operator works on the screen: the rest of the program is
        // out of reach only because it is modal.
        ctx.estado().marcar_ocupado(false);
        FrmFacturarCompletado pantalla(ctx, std::move(datos), &dialogo_);
        pantalla.exec();
        ctx.estado().marcar_ocupado(true);
        // A sale that couldn't be stored has no copy to make; the operator
        // was told, and its data are in the log.
        if (id_factura == 0)
            return;
        entregar_factura(entrega_, pantalla.pedido(), id_factura, opciones_facsimil_venta(ctx, checkout, doc),
                         v.Text_rz);
    }

private:
    QDialog &dialogo_;
    ServiciosEntrega &entrega_;
};

} // namespace

void facturar_carrito(Context &ctx, Carritos &carritos, int numero, FiscalFront &front,
                      Escritorio &escritorio, ClienteHttp &http, QWidget *parent)
{
    if (!carrito_para_facturar(ctx, carritos.carrito(numero)))
        return;
    FrmFacturar dialogo(ctx, carritos, numero, parent);
    ServiciosEntrega entrega{ctx, escritorio, http};
    SeguimientoPantalla seguimiento(dialogo, entrega);
    QObject::connect(&dialogo, &FrmFacturar::registrar_venta, &dialogo, [&](PasoVenta paso) {
        if (imprimir_y_guardar(ctx, front, dialogo.logica(), carritos, opciones_de(paso), seguimiento))
            dialogo.accept();
    });
    dialogo.exec();
}

} // namespace vendrix::screens

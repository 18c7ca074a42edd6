#include "screens/carts/frm_agregar_articulo.h"

#include <QCheckBox>
#include <QEvent>
#include <QFormLayout>
#include <QLineEdit>
#include <QPushButton>

namespace vendrix::screens {

FrmAgregarArticulo::FrmAgregarArticulo(Context &ctx, Carritos &carritos, int carrito_origen,
                                       const ArticuloParaCarrito &articulo, QWidget *parent)
    : QDialog(parent), logica_(ctx, carritos, carrito_origen, articulo), articulo_(this)
{
    setObjectName(QStringLiteral("frmAgregarArticulo"));
    setWindowTitle(QStringLiteral("Agregar Artículo"));
    crear_controles();
    mostrar();
    // The operator types the quantity over the "1" and presses Enter.
    cant_agregar_->setFocus();
    cant_agregar_->selectAll();
}

void FrmAgregarArticulo::crear_controles()
{
    cant_agregar_ = caja_numero(this, QStringLiteral("cant_agregar"));
    ud_cant_agregar_ = new UpDown(cant_agregar_, this);
    ud_cant_agregar_->setObjectName(QStringLiteral("ud_cant_agregar"));
    total_por_articulos_ = caja_de_lectura(this, QStringLiteral("total_por_articulos"));
    Check_guardar_ = new QCheckBox(QStringLiteral("Guardar"), this);
    Check_guardar_->setObjectName(QStringLiteral("Check_guardar"));
    Text_nombre_Carrito_ = new QLineEdit(this);
    Text_nombre_Carrito_->setObjectName(QStringLiteral("Text_nombre_Carrito"));
    Text_nombre_Carrito_->installEventFilter(this);
    Command1_ = boton_de_dialogo(this, QStringLiteral("Command1"), QStringLiteral("Agregar al carrito"));
    Command2_ = boton_de_dialogo(this, QStringLiteral("Command2"), QStringLiteral("Cancelar"));

    auto *form = new QFormLayout;
    articulo_.filas_del_articulo(form);
    form->addRow(QStringLiteral("Cantidad a agregar:"), con_flechas(cant_agregar_, ud_cant_agregar_));
    articulo_.filas_de_unidades(form, Check_guardar_);
    form->addRow(QStringLiteral("Total:"), total_por_articulos_);
    form->addRow(QStringLiteral("Nombre del carrito"), Text_nombre_Carrito_);
    disponer_dialogo(this, form, Command1_, Command2_);

    const auto cantidad = [this](const QString &text) {
        logica_.set_cant_agregar(text);
        mostrar_figuras();
    };
    const auto unidades = [this](const QString &text) {
        logica_.set_cant_unidades(text);
        mostrar_figuras();
    };
    connect(cant_agregar_, &QLineEdit::textEdited, this, cantidad);
    connect(ud_cant_agregar_, &UpDown::cambiado, this, cantidad);
    connect(articulo_.cant_unidades, &QLineEdit::textEdited, this, unidades);
    connect(articulo_.ud_cant_unidades, &UpDown::cambiado, this, unidades);
    connect(Check_guardar_, &QCheckBox::toggled, this, [this](bool on) { logica_.set_guardar(on); });
    connect(Command1_, &QPushButton::clicked, this, &FrmAgregarArticulo::agregar);
}

void FrmAgregarArticulo::mostrar_figuras()
{
    const VistaAgregarArticulo &v = logica_.vista();
    articulo_.mostrar(v);
    if (cant_agregar_->text() != v.cant_agregar)
        cant_agregar_->setText(v.cant_agregar);
    total_por_articulos_->setText(v.total_por_articulos);
    total_por_articulos_->setToolTip(v.total_por_articulos_tooltip);
}

void FrmAgregarArticulo::mostrar()
{
    mostrar_figuras();
    const VistaAgregarArticulo &v = logica_.vista();
    Check_guardar_->setChecked(v.Check_guardar);
    Check_guardar_->setEnabled(v.Check_guardar_habilitado);
    Text_nombre_Carrito_->setText(v.Text_nombre_Carrito);
    Text_nombre_Carrito_->setEnabled(v.Text_nombre_Carrito_habilitado);
}

bool FrmAgregarArticulo::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == Text_nombre_Carrito_ && event->type() == QEvent::FocusOut) {
        logica_.set_nombre_carrito(Text_nombre_Carrito_->text());
        if (logica_.salir_nombre_carrito())
            Q_EMIT carrito_renombrado(logica_.carrito_origen(), Text_nombre_Carrito_->text());
    }
    return QDialog::eventFilter(watched, event);
}

void FrmAgregarArticulo::agregar()
{
    logica_.set_guardar(Check_guardar_->isChecked());
    resultado_ = logica_.agregar();
    if (resultado_.agregado)
        accept();
}

} // namespace vendrix::screens

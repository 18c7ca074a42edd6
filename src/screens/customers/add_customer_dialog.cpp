#include "screens/customers/add_customer_dialog.h"

#include "backoffice/customers/customer_kinds.h"
#include "screens/controles_dialogo.h"

#include <QComboBox>
#include <QFocusEvent>
#include <QFormLayout>
#include <QLineEdit>
#include <QPushButton>

namespace vendrix::screens {

AddCustomerDialog::AddCustomerDialog(Context &ctx, const QString &tipo, QWidget *parent)
    : QDialog(parent), form_(ctx, tipo), Combo_tipo_cliente_(new QComboBox(this)), cajas_(this),
      Command_clipro_salvar_(
          boton_de_dialogo(this, QStringLiteral("Command_clipro_salvar"), QStringLiteral("&Salvar")))
{
    setObjectName(QStringLiteral("FrmAgregarCliente"));
    setWindowTitle(QStringLiteral("Agregar Cliente / Proveedor"));
    setModal(true);
    Combo_tipo_cliente_->setObjectName(QStringLiteral("Combo_tipo_cliente"));
    Combo_tipo_cliente_->addItems(tipos_de_registro());
    const FichaClipro &inicial = form_.inicial();
    Combo_tipo_cliente_->setCurrentText(inicial.tipo);
    cajas_.mostrar(inicial);
    cajas_.habilitar_descuento(form_.descuento_habilitado());

    auto *form = new QFormLayout;
    cajas_.disponer(form, Combo_tipo_cliente_);
    disponer_dialogo(this, form, Command_clipro_salvar_,
                     boton_de_dialogo(this, QStringLiteral("Command_cancelar"), QStringLiteral("&Cancelar")));

    connect(Combo_tipo_cliente_, &QComboBox::activated, this, [this] {
        const QString descuento =
            form_.elegir_tipo(Combo_tipo_cliente_->currentText(), cajas_.TextBox_descuentoCliente->text());
        cajas_.habilitar_descuento(form_.descuento_habilitado());
        cajas_.TextBox_descuentoCliente->setText(descuento);
    });
    connect(cajas_.Combo_tipodocCliente, &QComboBox::currentTextChanged, this,
            &AddCustomerDialog::salir_documento);
    connect(Command_clipro_salvar_, &QPushButton::clicked, this, &AddCustomerDialog::salvar);
    for (QWidget *caja : {static_cast<QWidget *>(cajas_.Text_razonsocialcliente),
                          static_cast<QWidget *>(cajas_.TextBox_doccliente),
                          static_cast<QWidget *>(cajas_.TextBox_descuentoCliente),
                          static_cast<QWidget *>(cajas_.TextBox_emailCliente)})
        caja->installEventFilter(this);
}

void AddCustomerDialog::salir_documento()
{
    QLineEdit *caja = cajas_.TextBox_doccliente;
    const QString texto = form_.salir_documento(cajas_.Combo_tipodocCliente->currentText(), caja->text());
    if (texto != caja->text())
        caja->setText(texto);
}

void AddCustomerDialog::salvar()
{
    if (form_.salvar(cajas_.leer(Combo_tipo_cliente_->currentText())))
        accept();
}

bool AddCustomerDialog::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::FocusOut) {
        // A message box or a menu taking the focus for a moment isn't leaving.
        const Qt::FocusReason motivo = static_cast<QFocusEvent *>(event)->reason();
        if (motivo == Qt::ActiveWindowFocusReason || motivo == Qt::PopupFocusReason)
            return QDialog::eventFilter(watched, event);
        if (watched == cajas_.Text_razonsocialcliente)
            form_.salir_razon_social(cajas_.Text_razonsocialcliente->text());
        else if (watched == cajas_.TextBox_doccliente)
            salir_documento();
        else if (watched == cajas_.TextBox_descuentoCliente)
            form_.salir_descuento(cajas_.TextBox_descuentoCliente->text());
        else if (watched == cajas_.TextBox_emailCliente)
            form_.salir_email(cajas_.TextBox_emailCliente->text());
    }
    return QDialog::eventFilter(watched, event);
}

} // namespace vendrix::screens

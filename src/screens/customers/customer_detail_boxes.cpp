#include "screens/customers/customer_detail_boxes.h"
#include "screens/controles_dialogo.h"

#include "backoffice/customers/customer_kinds.h"

#include <QComboBox>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>

namespace vendrix::screens {

namespace {

QComboBox *combo(QWidget *parent, const char *nombre, const QStringList &items)
{
    auto *c = new QComboBox(parent);
    c->setObjectName(QString::fromLatin1(nombre));
    c->addItems(items);
    return c;
}

} // namespace

CustomerDetailBoxes::CustomerDetailBoxes(QWidget *parent)
    : Text_razonsocialcliente(control<QLineEdit>(parent, "Text_razonsocialcliente")),
      Combo_tipodocCliente(
          combo(parent, "Combo_tipodocCliente", {QStringLiteral("CUIT"), QStringLiteral("DNI")})),
      TextBox_doccliente(control<QLineEdit>(parent, "TextBox_doccliente")),
      Combo_tipoivaCliente(combo(parent, "Combo_tipoivaCliente", condiciones_iva_clipro())),
      TextBox_domicilioCliente(control<QLineEdit>(parent, "TextBox_domicilioCliente")),
      TextBox_localidadCliente(control<QLineEdit>(parent, "TextBox_localidadCliente")),
      Label_descuento(new QLabel(QStringLiteral("Descuento %"), parent)),
      TextBox_descuentoCliente(control<QLineEdit>(parent, "TextBox_descuentoCliente")),
      TextBox_emailCliente(control<QLineEdit>(parent, "TextBox_emailCliente")),
      TextBox_telefono(control<QLineEdit>(parent, "TextBox_telefono"))
{
    Label_descuento->setObjectName(QStringLiteral("articulo_label_31"));
    Label_descuento->setBuddy(TextBox_descuentoCliente);
}

void CustomerDetailBoxes::disponer(QFormLayout *form, QWidget *tipo) const
{
    form->addRow(QStringLiteral("Tipo"), tipo);
    form->addRow(QStringLiteral("Razón Social"), Text_razonsocialcliente);
    form->addRow(QStringLiteral("Tipo Documento"), Combo_tipodocCliente);
    form->addRow(QStringLiteral("Número de Documento"), TextBox_doccliente);
    form->addRow(QStringLiteral("Condición frente al IVA"), Combo_tipoivaCliente);
    form->addRow(QStringLiteral("Domicilio"), TextBox_domicilioCliente);
    form->addRow(QStringLiteral("Localidad"), TextBox_localidadCliente);
    form->addRow(Label_descuento, TextBox_descuentoCliente);
    form->addRow(QStringLiteral("Email"), TextBox_emailCliente);
    form->addRow(QStringLiteral("Teléfono"), TextBox_telefono);
}

FichaClipro CustomerDetailBoxes::leer(const QString &tipo) const
{
    return {tipo,
            Text_razonsocialcliente->text(),
            Combo_tipodocCliente->currentText(),
            TextBox_doccliente->text(),
            Combo_tipoivaCliente->currentText(),
            TextBox_domicilioCliente->text(),
            TextBox_localidadCliente->text(),
            TextBox_descuentoCliente->text(),
            TextBox_emailCliente->text(),
            TextBox_telefono->text()};
}

void CustomerDetailBoxes::mostrar(const FichaClipro &f) const
{
    Text_razonsocialcliente->setText(f.razon_social);
    Combo_tipodocCliente->setCurrentText(f.tipo_doc);
    TextBox_doccliente->setText(f.documento);
    // A condition of no list (or none) leaves the combo without a choice.
    Combo_tipoivaCliente->setCurrentIndex(Combo_tipoivaCliente->findText(f.condicion_iva));
    TextBox_domicilioCliente->setText(f.domicilio);
    TextBox_localidadCliente->setText(f.localidad);
    TextBox_descuentoCliente->setText(f.descuento);
    TextBox_emailCliente->setText(f.email);
    TextBox_telefono->setText(f.telefono);
}

void CustomerDetailBoxes::habilitar_descuento(bool on) const
{
    TextBox_descuentoCliente->setEnabled(on);
    Label_descuento->setEnabled(on);
    if (!on)
        TextBox_descuentoCliente->clear();
}

QList<QWidget *> CustomerDetailBoxes::editables() const
{
    return {Text_razonsocialcliente,  Combo_tipodocCliente,     TextBox_doccliente,
            Combo_tipoivaCliente,     TextBox_domicilioCliente, TextBox_localidadCliente,
            TextBox_descuentoCliente, TextBox_emailCliente,     TextBox_telefono};
}

} // namespace vendrix::screens

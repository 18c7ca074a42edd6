#pragma once

#include "backoffice/customers/customer_book.h"

#include <QList>

class QComboBox;
class QFormLayout;
class QLabel;
class QLineEdit;
class QWidget;

namespace vendrix::screens {

// The boxes of one customer or supplier, shared by the tab's detail and the
// add form, under the names both screens give them.
struct CustomerDetailBoxes {
    explicit CustomerDetailBoxes(QWidget *parent);

    // The rows of the boxes, the kind's row (the tab's read-only box or the
    // form's combo) first.
    void disponer(QFormLayout *form, QWidget *tipo) const;
    // The boxes' texts; `tipo` is the kind as its own control holds it.
    FichaClipro leer(const QString &tipo) const;
    // Shows the texts of a record, the kind excepted.
    void mostrar(const FichaClipro &ficha) const;
    // The discount box and its label on, or off and empty.
    void habilitar_descuento(bool on) const;
    // Every box whose edit counts as a change of the record.
    QList<QWidget *> editables() const;

    QLineEdit *Text_razonsocialcliente;
    QComboBox *Combo_tipodocCliente;
    QLineEdit *TextBox_doccliente;
    QComboBox *Combo_tipoivaCliente;
    QLineEdit *TextBox_domicilioCliente;
    QLineEdit *TextBox_localidadCliente;
    QLabel *Label_descuento; // element 31 of the captions `articulo_label`
    QLineEdit *TextBox_descuentoCliente;
    QLineEdit *TextBox_emailCliente;
    QLineEdit *TextBox_telefono;
};

} // namespace vendrix::screens

#pragma once

#include "backoffice/customers/customer_book.h"

namespace vendrix {

class Context;

// `FrmAgregarCliente` without its widgets: a new customer or supplier, with
// the checks made as the operator leaves each box. Those checks only warn;
// saving refuses an empty name or document only.
class NewCustomerForm {
public:
    // The form starts on the kind the tab is searching.
    NewCustomerForm(Context &ctx, const QString &tipo_inicial);

    // The boxes' starting texts: all empty but the kind, "CUIT", the final
    // consumer and a discount of "0" (none for a supplier of goods).
    const FichaClipro &inicial() const { return inicial_; }
    bool descuento_habilitado() const { return descuento_habilitado_; }

    // A click on `Combo_tipo_cliente`: a supplier of goods has no discount
    // box. The text the discount box takes.
    QString elegir_tipo(const QString &tipo, const QString &descuento);

    // Leaving `Text_razonsocialcliente`: a warning when a record whose name
    // holds this one has a document.
    void salir_razon_social(const QString &nombre);
    // Leaving `TextBox_doccliente` or changing `Combo_tipodocCliente`: the
    // document's check, then a warning when it is already stored with that
    // type. The text the box keeps, "" when the check failed.
    QString salir_documento(const QString &tipo_doc, const QString &documento);
    // Leaving `TextBox_descuentoCliente`: a number from 0 to 100, or a
    // warning. An empty box passes; it is saved as 0.
    void salir_descuento(const QString &descuento);
    // Leaving `TextBox_emailCliente`: a text without "@" gets a warning.
    void salir_email(const QString &email);

    // `Command_clipro_salvar`: stores the record and tells so. False when
    // nothing was stored: the form stays open.
    bool salvar(const FichaClipro &ficha);

private:
    void avisar(const QString &texto);

    Context &ctx_;
    FichaClipro inicial_;
    bool descuento_habilitado_ = true;
};

} // namespace vendrix

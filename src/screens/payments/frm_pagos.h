#pragma once

#include "backoffice/ledger/payment_form.h"

#include <QDialog>
#include <QString>

#include <functional>
#include <map>

class QLineEdit;
class QPushButton;

namespace vendrix {
class Context;
}

namespace vendrix::screens {

// `FrmPagos`: the widgets over `PaymentForm`. Every control is made from
// the form's frame list under its own name; after each operation the
// widgets take the form's state again. A field whose check refuses its
// value keeps the focus, and saving waits until it is put right.
class FrmPagos : public QDialog {
    Q_OBJECT

public:
    FrmPagos(Context &ctx, const PaymentForm::Apertura &apertura, QWidget *parent = nullptr);

    const PaymentForm &formulario() const { return form_; }

private:
    void construir();
    void conectar();
    // The widgets from the state, and the state from what the operator typed.
    void mostrar();
    void leer();
    // Leaving `caja`: runs `regla` unless the operator is cancelling.
    void salir(QWidget *caja, const std::function<bool()> &regla);
    void elegido(const char *combo, const std::function<bool(const QString &)> &regla);
    void agregar();
    void ver_historial();

    Context &ctx_;
    PaymentForm form_;
    std::map<QString, QWidget *> widgets_;
    QPushButton *Command_Agregar_ = nullptr;
    QPushButton *Command_cancelar_ = nullptr;
    // The field whose value was refused last, and its check: saving runs
    // it again and goes on only once it passes.
    QWidget *rechazado_ = nullptr;
    std::function<bool()> regla_rechazada_;
    bool en_regla_ = false;
};

} // namespace vendrix::screens

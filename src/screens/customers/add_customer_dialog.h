#pragma once

#include "backoffice/customers/new_customer_form.h"
#include "screens/customers/customer_detail_boxes.h"

#include <QDialog>

class QComboBox;
class QPushButton;

namespace vendrix {
class Context;
}

namespace vendrix::screens {

// `FrmAgregarCliente`: a new customer or supplier. Each box is checked as
// the operator leaves it, with warnings only; saving stores the record and
// closes the form.
class AddCustomerDialog : public QDialog {
    Q_OBJECT

public:
    AddCustomerDialog(Context &ctx, const QString &tipo, QWidget *parent = nullptr);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void salvar();
    void salir_documento();

    NewCustomerForm form_;
    QComboBox *Combo_tipo_cliente_;
    CustomerDetailBoxes cajas_;
    QPushButton *Command_clipro_salvar_;
};

} // namespace vendrix::screens

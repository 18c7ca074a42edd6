#pragma once

#include "backoffice/ledger/payment_history.h"

#include <QDialog>

class QGroupBox;
class QPushButton;

namespace vendrix {
class Context;
}
namespace vendrix::widgets {
class LynxGrid;
}

namespace vendrix::screens {

// `FrmPagos_anteriores`: the payments of one expense or invoice, with the
// deletion of the selected one.
class FrmPagosAnteriores : public QDialog {
    Q_OBJECT

public:
    FrmPagosAnteriores(Context &ctx, qint64 id_deuda, QWidget *parent = nullptr);

    // Whether a payment was deleted: the opener works out the debt again.
    bool hubo_cambios() const { return historial_.hubo_cambios(); }

private:
    void cargar();
    void eliminar();

    PaymentHistory historial_;
    QGroupBox *Frame_historial_;
    widgets::LynxGrid *LynxGrid_historial_Pagos_;
    QPushButton *Command_eliminar_;
};

} // namespace vendrix::screens

#pragma once

// `FrmPagos_anteriores` without its widgets: the payments made against one
// expense or invoice, newest first, and the deletion of one of them.

#include <QString>
#include <QStringList>

#include <vector>

namespace vendrix {

class Context;

class PaymentHistory {
public:
    PaymentHistory(Context &ctx, qint64 id_deuda);

    // The columns of `LynxGrid_historial_Pagos`, in order.
    static QStringList columnas();

    // One row a payment: ID, date as dd/mm/yyyy, method, the amount paid
    // (positive, decimal comma), destination, notes. Newest first.
    std::vector<QStringList> filas();
    // The frame's title: the supplier, what was paid and the newest date;
    // "" with no payments.
    QString titulo();

    // Asks, then deletes the payment and takes the debt's due date back to
    // the newest remaining payment's. True when it was deleted.
    bool eliminar(qint64 id_pago);
    // Whether anything was deleted: the opener then works out the debt again.
    bool hubo_cambios() const { return cambios_; }

private:
    Context &ctx_;
    qint64 id_deuda_;
    bool cambios_ = false;
};

} // namespace vendrix

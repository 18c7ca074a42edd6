// Stands in for the payment form until it joins this branch; it opens
// nothing.
#include "screens/payments/payment_dialogs.h"

namespace vendrix::screens {

void abrir_frm_pagos(Context &, QWidget *, const QString &, qint64)
{
}

} // namespace vendrix::screens

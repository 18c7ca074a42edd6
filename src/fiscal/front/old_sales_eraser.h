#pragma once

class QDate;

namespace vendrix {

class Context;

// Deletes the stored sales up to a day (those at its midnight and before)
// with their lines, after asking the operator. Both deletes are one
// transaction: a failure leaves the sales as they were. The fiscal
// printer's own memory is not touched. False when the operator said no or
// the deletion failed.
bool borrar_ventas_anteriores(Context &ctx, const QDate &fecha);

} // namespace vendrix

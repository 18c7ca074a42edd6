#pragma once

// The ledger's forms, as the "Pagos" tab opens them: each is modal and
// returns when the operator closes it.

#include <QString>

class QWidget;

namespace vendrix {
class Context;
}

namespace vendrix::screens {

// `FrmPagos` in one of its modes ("AGREGAR_GASTO", "AGREGAR_FACTURA",
// "AGREGAR_PAGO", "MODIFICAR_GASTO", "MODIFICAR_FACTURA") on the row `id`
// (-1 when adding).
void abrir_frm_pagos(Context &ctx, QWidget *parent, const QString &modo, qint64 id);

// `FrmPagosTransferencias` in its mode ("AGREGAR_TRANSFERENCIA" or
// "MODIFICAR_TRANSFERENCIA") on the row `id` (-1 when adding).
void abrir_frm_transferencias(Context &ctx, QWidget *parent, const QString &modo, qint64 id);

} // namespace vendrix::screens

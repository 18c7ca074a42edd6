#pragma once

// The "Pagos" tab without its widgets: which actions a selected row allows,
// the form an edit opens, the deletion of a row with its payments and the
// mail of the marked rows.

#include <QString>
#include <QStringList>

#include <vector>

namespace vendrix {

class Context;

// The actions of `Pagos_Acciones` whose state follows the selection.
struct AccionesPagos {
    bool eliminar = false;     // 3
    bool editar = false;       // 6
    bool agregar_pago = false; // 8
};

// On selection change: with a row, edit and delete, and a payment unless
// the row reads "Si"; with none, all three off.
AccionesPagos acciones_por_seleccion(bool hay_fila, const QString &pagada);

// After filling (`seleccionar_fila_pagos`): logs the row and tells whether
// edit and delete go on, which needs a numeric first cell.
bool seleccionar_fila_pagos(Context &ctx, int fila, const QString &id);

// The form's mode for editing a row of the kind in its third cell: ""
// for a transfer, which is never edited from the list.
QString modo_edicion(const QString &movimiento);

// Asks and deletes the row `id` (its first cell) with its payments; a
// transfer takes its mirror row too. True when something was deleted and
// the list should be searched again.
bool eliminar_pago(Context &ctx, const QString &id);

// The question `eliminar_pago` asks for a row of the kind with payments
// summing `suma` as stored (negative; "" or "0" for none).
QString pregunta_eliminar(const QString &tipo, const QString &suma);

// The body of a mail with the rows (each the grid's nine cells), URL-ready.
QString texto_mail_pagos(Context &ctx, const std::vector<QStringList> &filas);

// Action 2: the mailto address for the marked rows, or "" (after its
// message) with none marked.
QString enviar_pagos_por_mail(Context &ctx, const std::vector<QStringList> &marcadas);

} // namespace vendrix

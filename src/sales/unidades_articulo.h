#pragma once

#include <QString>

#include <optional>

namespace vendrix {

class Context;

// The units one list price covers, as the shop remembers them per supplier
// and code in `vendrix_unidades_articulo`. A row exists only for a number
// other than 1.

// The stored number as the screen shows it (the screen's comma), nullopt
// when the article has no row.
std::optional<QString> leer_unidades_guardadas(Context &ctx, const QString &proveedor, const QString &codigo);

// Brings the row in line with the number the operator chose: a new number
// other than 1 is inserted, a changed one updated, 1 deletes the row; each
// write is logged with the article's description. `habia_fila` says whether
// the row existed when the dialog opened. True when a statement ran.
bool guardar_unidades_articulo(Context &ctx, const QString &proveedor, const QString &codigo, bool habia_fila,
                               double unidades, const QString &descripcion);

} // namespace vendrix

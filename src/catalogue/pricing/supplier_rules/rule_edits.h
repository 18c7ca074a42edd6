#pragma once

#include "catalogue/pricing/supplier_rules/rule_store.h"

#include <vector>

namespace vendrix {

class Context;

// The edits of the rules grid. Each checks what it is given, shows its
// message through the operator when something is wrong, writes to
// `vendrix_descuentos` and tells whether it did; the caller then refills the
// grid and the combos (or, for a cell, keeps the new value).

// `Command_agregar_provedor`: a new rule from the combos and the two formula
// boxes. In order: both formulas must be valid (a wrong margin shows the
// discount's message too); the supplier, group and article must not be in
// the grid already; an article must have a code; a rule for a single article
// comes with a notice that codes may change.
bool agregar_regla(Context &ctx, const std::vector<RuleRow> &grilla, const RuleRow &nueva);

// The edit of a `Descuento` or `Ganancia` cell: a formula that isn't valid
// shows the same message as when adding and isn't stored. A list or group row changes only
// itself, never the article rows of its group.
bool editar_regla(Context &ctx, const RuleRow &fila, RuleColumn columna, const QString &valor);

// `Command_borrar_provedor`: `fila` is the selected row, or null. The list
// row can't be deleted; the others after a question. Deleting a group row
// keeps the rules of its articles.
bool borrar_regla(Context &ctx, const RuleRow *fila);

} // namespace vendrix

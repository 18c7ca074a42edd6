#pragma once

#include <QString>
#include <QStringList>

namespace vendrix {

class Context;

// The contents of the combos under the rules grid, read from the price list
// at each call. A failed query gives what could be read (the layer has
// logged it).

// `Combo_proveedor`: the suppliers of the price list, by name.
QStringList proveedores_combo(Context &ctx);

// `cargar_grupos_proveedor`: "General para la lista" (the list level), then
// the supplier's groups by name.
QStringList cargar_grupos_proveedor(Context &ctx, const QString &proveedor);

// `cargar_articulos_grupo`: "Todos los articulos del grupo", then each
// article of the group as code + " - " + description, by that text, leaving
// out the articles that already have a rule row.
QStringList cargar_articulos_grupo(Context &ctx, const QString &proveedor, const QString &grupo);

// The code of an item of `Combo_articulo`: the text before its first " - ",
// trimmed; "" for an article listed without a code.
QString codigo_de_item(const QString &item);

} // namespace vendrix

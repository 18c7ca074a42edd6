#pragma once

#include <QString>

namespace vendrix {

class Context;
struct PricedArticle;
struct ArticleDetail;
struct ArticleMarks;

// All the marks of an article in one query of the shop database:
// favourite, price control (controlled and witness), pending and placed
// orders, the units its list price covers and the shop's comment. Marks
// kept by code are left at 0 for an article without a code. A failed query
// gives no marks (the layer has logged it).
ArticleMarks leer_marcas(Context &ctx, const PricedArticle &articulo);

// `Command_testigo(0)`: with "Eliminar de favoritos" removes the favourite
// mark; with "Agregar a favoritos" adds it, unless the code is repeated in
// the supplier's list ("Error al asignar favoritos"). The panel's caption and
// image follow. True when the mark changed.
bool alternar_favorito(Context &ctx, ArticleDetail &detalle);

// `guardar_comentario_articulo`: refused while the administrator's lock is
// on; after a question, stores the shop's comment for the supplier and code,
// or deletes it when the text is empty, and logs it. The panel's comment box
// and image follow. True when stored.
bool guardar_comentario_articulo(Context &ctx, ArticleDetail &detalle, const QString &comentario);

} // namespace vendrix

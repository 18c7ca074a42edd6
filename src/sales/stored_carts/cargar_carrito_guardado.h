#pragma once

#include <QString>

namespace vendrix {

class Carrito;
class Context;

// Fills a cart from a document of the shop database (a saved cart or a
// sale), replacing its lines without asking. Prices come back without the
// document's habitual discount and, for a card sale, without today's card
// surcharge, rounded to the shop's `decimales`. Each line is linked to the
// price list again by supplier and code: found, it takes the article's id;
// gone, it becomes a line typed by hand ("0"); typed by hand, it stays so
// ("X"). Any document but a "Factura" marks the cart with its reference
// number, so that its sale replaces it. False when the database failed or
// the figures couldn't be worked out: the operator has been told, and the
// lines loaded so far stay.
bool cargar_carrito_guardado(Context &ctx, Carrito &carrito, const QString &documento_id);

} // namespace vendrix

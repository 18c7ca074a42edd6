#pragma once

#include <QtGlobal>

namespace vendrix {

class Carrito;
class Context;

// The final sale price of an article of the price list by its id, as the
// carts re-price their lines: list price in pesos, the supplier's discount,
// the shop's margin and the article's own IVA rate. -1 when it couldn't be
// worked out (the operator has been told).
double precio_final_por_id(Context &ctx, qint64 id);

// The cart's re-price button: an empty cart is refused with a message;
// otherwise the operator confirms and the cart is re-priced while the
// program shows itself busy. False when nothing ran.
bool confirmar_recalcular_carrito(Context &ctx, Carrito &carrito);

// Re-prices every line from the current price list, in order. Lines typed by
// hand, no longer in the list, with a repeated code or priced 0 keep their
// price and say why; changes under 0.01 % are only logged; rises are taken
// at once and falls only if the operator agrees. Ends with a message that
// counts the updated lines, and gives that count. A database failure stops
// the run with its message (the lines done stay) and gives -1, as does an
// empty cart.
int recalcular_carrito(Context &ctx, Carrito &carrito);

} // namespace vendrix

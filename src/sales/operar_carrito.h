#pragma once

#include "sales/carrito.h"

#include <QString>

namespace vendrix {

class Context;

// What the cart's buttons do: "agregar" a blank line for the operator to
// type over, "borrar" the selected line, "vaciar" the whole cart.
enum class VerboCarrito { agregar, borrar, vaciar };

// Runs one verb on a cart. `fila_seleccionada` is the selected row for
// "borrar" (-1 for none); `preguntar` makes "vaciar" ask first (a finished
// sale empties its cart without asking). True when the cart changed.
bool operar_carrito(Context &ctx, Carrito &carrito, VerboCarrito verbo, bool preguntar,
                    int fila_seleccionada = -1);

// Rewrites every amount as quantity times unit price, unrounded, and the
// total box as the total rounded to two places in the plain number form.
void actualizar_total_carrito(Carrito &carrito);

// The line that an article being added joins, or -1 for a new line. Only
// the first line with the same description, id and group (exact text) is
// looked at. With a price above 0, its unit price must be the price rounded
// for display: then it says the quantity rises; when it differs it says a
// new line is added and gives -1. A price of 0 or less matches without a
// word. `reservado` is kept for the callers that pass it.
int buscar_articulo_en_carrito(Context &ctx, const Carrito &carrito, const QString &descripcion,
                               const QString &id, const QString &reservado, const QString &grupo,
                               double precio);

// The test of an edited cell: quantity and unit price must be numbers;
// every other column passes.
bool es_columna_numerica(const QString &value, int col);

// Only the quantity and the unit price take typing.
bool es_columna_editable(int col);

// Commits an edit of a cell: a non-numeric value is refused with a message
// and the old value stays (false); otherwise the cell takes it and the
// amounts and the total are worked out again.
bool editar_celda_carrito(Context &ctx, Carrito &carrito, int fila, int col, const QString &value);

// True when a cart of two or more lines mixes IVA rates (col 4).
bool carrito_con_ivas_distintos(const Carrito &carrito);

} // namespace vendrix

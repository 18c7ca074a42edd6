#pragma once

#include <QString>

namespace vendrix {

class Context;
struct PriceSettings;
struct ArticleDetail;
struct PricePanel;

// The four list-price boxes of the panel take one price: a price typed for
// an article the list has at 0, or its former price.
void poner_precio_lista(PricePanel &panel, const QString &precio);

// For an article the list has at price 0: looks for the supplier's former
// price of the same code in `xls_listas_viejos` (dollars turned into pesos,
// rounded for the screen) and, whenever there is one, even of 0, asks,
// titled "Artículo sin precio", whether to sell at it. On "Sí" the four list-price boxes take it and the
// result is true; the caller works the panel out again.
bool ofrecer_precio_anterior(Context &ctx, ArticleDetail &detalle, const PriceSettings &ajustes);

} // namespace vendrix

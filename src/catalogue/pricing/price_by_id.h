#pragma once

#include "catalogue/pricing/article_record.h"

namespace vendrix {

class Context;
class RuleTable;
struct PriceSettings;

// The price with IVA of an article of the list, as the carts re-price their
// lines: the list price (dollars turned into pesos), the supplier's discount
// and the shop's margin of the rules, and the article's own IVA rate (full or
// reduced). The rules are looked up with the description in the place of the
// code, so single-article rules match only when their code text equals the
// description. Neither the customer's discount nor the units apply here.
double precio_final(const PricedArticle &articulo, const RuleTable &reglas, const PriceSettings &ajustes);

// The same for the article `id` of the price database, with the shop's rules
// and settings as they stand now. An id with no article prices as 0. When the
// database fails: the message "Error al recalcular precio.", the log line
// "ER PREART001 - ...", the busy state off, and -1.
double calcular_precio_por_id(Context &ctx, qint64 id);

} // namespace vendrix

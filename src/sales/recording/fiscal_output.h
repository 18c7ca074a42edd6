#pragma once

#include "sales/carrito.h"
#include "sales/recording/sale_document.h"

#include <QString>

namespace vendrix {

class Checkout;
class Context;
class FiscalFront;

// What a line prints as its description, by setting `IF_desc_art`: the
// description, or the group, the supplier's code and the description
// combined; a blank one falls back to the description, then to "Art. S/D".
QString descripcion_para_dispositivo(const LineaCarrito &linea, const QString &modo);

// The cart the checkout shows, emitted through the fiscal front: connect,
// open for the buyer, one element a line (or one "Varios" element for a
// summarised ticket), close with the card payment, the authorisation in
// electronic mode, disconnect. Each call is made only while the ones before
// it succeeded. True when the document was emitted; `autorizacion` then
// holds what AFIP handed back.
bool emitir_comprobante(Context &ctx, FiscalFront &front, Checkout &checkout, const FactoresPrecio &factores,
                        bool es_credito, Autorizacion &autorizacion);

} // namespace vendrix

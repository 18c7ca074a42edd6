#pragma once

#include "afip/facsimile/facsimile.h"
#include "online/connectivity.h"
#include "sales/carrito.h"
#include "sales/delivery/completion.h"

#include <QString>

#include <functional>
#include <vector>

namespace vendrix {

class Checkout;
class ClienteHttp;
class Context;
class Escritorio;
struct DocumentoVenta;

// What the delivery of an invoice reaches outside itself: the desktop, the
// HTTP client for the vendor's service, the network probe and the maker of
// the facsimile. The program takes the defaults; tests put their own in.
struct ServiciosEntrega {
    using Facsimilador =
        std::function<Facsimil(Context &, Escritorio &, qint64 id_factura, const OpcionesFacsimil &)>;

    Context &ctx;
    Escritorio &escritorio;
    ClienteHttp &http;
    std::function<bool()> hay_internet = vendrix::hay_internet;
    Facsimilador facsimil = imprimir_facsimil_FE;
};

// The cart's lines as the facsimile lists them: the description the device
// would print (by setting `IF_desc_art`), the unit price with IVA and with
// the sale's surcharge and discount `factor`.
std::vector<LineaFacsimil> lineas_facsimil(const QString &modo_descripcion, const Carrito &carrito,
                                           double factor);

// The facsimile of a sale just recorded from `checkout` as `doc`: the cart's
// lines, one "Varios" line for a ticket without detail, the document kind
// of the sale.
OpcionesFacsimil opciones_facsimil_venta(Context &ctx, const Checkout &checkout, const DocumentoVenta &doc);

// Carries out what the operator asked on the completion screen for the
// stored invoice `id_factura`: the facsimile shown; or saved without being
// shown, and then sent by mail or by message to `cliente`. With a vendor's
// service (setting `servicio_url`) the file is uploaded and its link sent;
// without one the mail opens with the file attached, the message without
// it, and the operator is told where the file is.
void entregar_factura(ServiciosEntrega &servicios, const PedidoEntrega &pedido, qint64 id_factura,
                      OpcionesFacsimil opciones, const QString &cliente);

} // namespace vendrix

#pragma once

#include "sales/checkout/checkout.h"
#include "sales/recording/sale_document.h"

namespace vendrix {

class Carritos;
class Context;
class FiscalFront;

// How a sale is recorded, by the checkout's action.
struct OpcionesVenta {
    bool guardar = true;
    bool imprimir = false;
    bool es_credito = false;
    bool es_carrito = false;
};
OpcionesVenta opciones_de(PasoVenta paso);

// What follows a recorded sale on the screens. The recording calls these at
// their moments; a screen overrides what it has.
class SeguimientoVenta {
public:
    virtual ~SeguimientoVenta() = default;

    // While the device works the checkout is out of the operator's way.
    virtual void ocultar_formulario() {}
    virtual void mostrar_formulario() {}
    // An electronic invoice authorised by AFIP and stored as `id_factura`
    // (0 when it couldn't be stored): the completion screen with the CAE,
    // then the facsimile and its sending.
    virtual void factura_electronica(const Checkout &, const DocumentoVenta &, qint64 /*id_factura*/) {}
    // The print of the sale note of the stored sale; false when the operator
    // cancelled it, and while there is no print.
    virtual bool imprimir_nota_de_venta(const Checkout &, const DocumentoVenta &) { return false; }
};

// Turns the cart the checkout shows into a document, in this order: the
// fiscal output (when `imprimir`), the document in the shop database, the
// follow-ups, the emptying of the cart. A document the device or AFIP
// refused is not stored, and the cart stays. A stored cart is replaced by
// its sale, and a cart saved again may overwrite its former copy.
//
// True when the checkout is done and closes; false when it stays open with
// everything as it was, for the operator to try again.
bool imprimir_y_guardar(Context &ctx, FiscalFront &front, Checkout &checkout, Carritos &carritos,
                        const OpcionesVenta &opciones, SeguimientoVenta &seguimiento);

} // namespace vendrix

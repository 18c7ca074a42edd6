#pragma once

#include "sales/carritos.h"

namespace vendrix {

class Context;

// Keeps a copy of each open cart in the shop database, so that the carts
// left open when the program closes or dies come back at the next start.
// After every change of a cart its copy is replaced whole in one
// transaction: a failure leaves the previous copy as it was. An empty
// cart (emptied, or sold) has no copy.
class CartStore {
public:
    static constexpr const char *kTabla = "vendrix_carritos_abiertos";

    explicit CartStore(Context &ctx) : ctx_(ctx) {}
    // Stops listening: the carts outlive the store.
    ~CartStore();
    CartStore(const CartStore &) = delete;
    CartStore &operator=(const CartStore &) = delete;

    // Fills the carts from their copies, as the start does with empty carts,
    // and logs each one brought back. A cart's name comes back into the
    // settings if they lost it. The number of carts restored; none while
    // the database has no table for the copies (not updated yet).
    int restaurar(Carritos &carritos);
    // From now on each change of a cart replaces its copy.
    void escuchar(Carritos &carritos);

    // Replaces a cart's copy by its lines, name and captions, or removes it
    // when the cart is empty. False when the database failed.
    bool guardar(const Carrito &carrito);

private:
    bool hay_tabla();
    bool reemplazar_copia(const Carrito &carrito, const QString &nombre);

    Context &ctx_;
    Carritos *carritos_ = nullptr;
};

} // namespace vendrix

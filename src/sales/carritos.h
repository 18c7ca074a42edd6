#pragma once

#include "sales/carrito.h"

#include <QString>

#include <array>
#include <optional>

namespace vendrix {

class Context;

// The four parallel carts of the main window, numbered 1 to 4.
class Carritos {
public:
    static constexpr int kCantidad = 4;

    Carritos() : carritos_{Carrito(1), Carrito(2), Carrito(3), Carrito(4)} {}

    static bool es_numero(int numero) { return numero >= 1 && numero <= kCantidad; }
    // Numbers out of range give cart 1.
    Carrito &carrito(int numero) { return carritos_[indice(numero)]; }
    const Carrito &carrito(int numero) const { return carritos_[indice(numero)]; }

    // Every cart tells `aviso` of its changes; an empty function stops it.
    void set_aviso_cambio(const Carrito::AvisoCambio &aviso)
    {
        for (Carrito &c : carritos_)
            c.set_aviso_cambio(aviso);
    }

private:
    static size_t indice(int numero) { return es_numero(numero) ? static_cast<size_t>(numero - 1) : 0; }

    std::array<Carrito, kCantidad> carritos_;
};

// The name of cart `numero`: setting `nombre_carrito_N`, "Carrito N" while
// the setting is empty.
QString nombre_carrito(const Context &ctx, int numero);
// The caption of the buttons that add the selected article to a cart.
QString texto_boton_agregar(const QString &nombre);

// Renames a cart, as leaving the name box of the add-article dialog does:
// stores the name and logs it. A cart that holds lines can't be renamed:
// false, nothing written.
bool renombrar_carrito(Context &ctx, const Carrito &carrito, const QString &nombre);

// Setting `carritos`: "1" shows four carts, anything else one.
bool cuatro_carritos(const Context &ctx);
// The settings check box: writes "1" or "0" and logs the change.
void cambiar_cantidad_carritos(Context &ctx, bool cuatro);

// The tab of the cart strip a function key selects: F1 the first cart, F5
// the price list, F2 to F4 carts 2 to 4 only while four carts are shown.
// nullopt for any other key (the price list handles the rest).
std::optional<int> pestana_por_tecla(int key, bool cuatro);

} // namespace vendrix

#pragma once

#include "sales/carritos.h"
#include "sales/cart_store.h"

#include <QTabWidget>

#include <array>

namespace vendrix {
class Context;
struct ArticuloParaCarrito;
} // namespace vendrix

namespace vendrix::screens {

class CarritoTab;

// The strip of the main window: tab 0 holds the price list the caller gives,
// tabs 1 to 4 the carts. Shows one cart or four by setting `carritos`, names
// the tabs after the carts, and is where articles of the list reach a cart.
class TabChangos : public QTabWidget {
    Q_OBJECT

public:
    TabChangos(Context &ctx, QWidget *lista, QWidget *parent = nullptr);

    Carritos &carritos() { return carritos_; }
    // The page of cart 1 to 4.
    CarritoTab *pagina(int numero) const;

    // Shows tabs 2 to 4 only with four carts; their lines stay either way.
    void aplicar_carritos();
    // The settings check box `Check_carritos`: stores the choice, logs it
    // and applies it at once.
    void cambiar_cantidad_carritos(bool cuatro);
    // The tab captions from the cart names.
    void mostrar_nombres();

    // F1 to F5 of the main window (which previews its keys): true when the
    // key selected a tab. F2 to F4 do nothing with one cart.
    bool tecla_funcion(int key);

    // `Command_add_carritoN` with a list row selected: the add-article
    // dialog for cart N, then cart N's tab whatever the dialog's outcome.
    void agregar_desde_lista(int numero, const ArticuloParaCarrito &articulo);
    // A double click on a list row: while four carts are shown, adds the
    // article to the cart on show, or while the list is on show to the cart
    // last shown (the first at start), one unit at the panel's figures. The
    // list stays in front. False when nothing was added.
    bool agregar_con_doble_clic(const ArticuloParaCarrito &articulo);
    // The search's single result, or a scanned code: with
    // `busqueda_agregar_automaticamente` on and four carts shown, adds the
    // article to the first cart at the panel's figures and shows that cart.
    // False when the setting says no.
    bool agregar_automaticamente(const ArticuloParaCarrito &articulo);

Q_SIGNALS:
    // Cart N has a new name: the add buttons read "Agregar a " and it.
    void nombre_carrito_cambiado(int numero, const QString &nombre);
    // One or four carts: the add buttons follow.
    void cantidad_carritos_cambiada(bool cuatro);
    // The units memory changed: the price panel is to be loaded again.
    void recargar_panel();
    // A cart's checkout button.
    void facturar_pedido(int numero);

private:
    // Adds without a dialog; with `mostrar_pagina` the cart's tab comes to
    // the front.
    bool agregar_sin_dialogo(int numero, const ArticuloParaCarrito &articulo, bool mostrar_pagina);

    Context &ctx_;
    Carritos carritos_;
    // After the carts: it stops listening to them before they go.
    CartStore copias_;
    std::array<CarritoTab *, Carritos::kCantidad> paginas_{};
    int ultimo_carrito_ = 1; // the cart last on show
};

} // namespace vendrix::screens

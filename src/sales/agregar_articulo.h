#pragma once

#include "sales/articulo_carrito.h"

#include <QString>

namespace vendrix {

class Carritos;
class Context;

// What the add-article dialog shows besides the article.
struct VistaAgregarArticulo : VistaArticulo {
    QString cant_agregar = QStringLiteral("1");
    QString total_por_articulos;
    QString total_por_articulos_tooltip;
    bool Check_guardar = false;
    bool Check_guardar_habilitado = true;
    QString Text_nombre_Carrito;
    bool Text_nombre_Carrito_habilitado = true;
};

// The outcome of the add button.
struct ResultadoAgregar {
    bool agregado = false;       // false: refused, the dialog stays open
    bool recargar_panel = false; // the units memory changed: load the article's panel again
    int fila = -1;               // the cart line that took the article
};

// The add-article dialog without its screen: it opens on the article selected
// in the price list for cart `carrito_origen` (1 to 4), works out the unit
// price and the total as the operator types, and adds to the cart: to the
// line of the same article at the same price, or as a new line.
class AgregarArticulo {
public:
    // Opening: reads the units remembered for the article, warns of an empty
    // dollar rate, works out the figures.
    AgregarArticulo(Context &ctx, Carritos &carritos, int carrito_origen, ArticuloParaCarrito articulo);

    const VistaAgregarArticulo &vista() const { return vista_; }
    const ArticuloParaCarrito &articulo() const { return articulo_; }
    int carrito_origen() const { return carrito_origen_; }

    // The boxes; each change works the figures out again, and a box that is
    // empty or not a number goes back to "1".
    void set_cant_agregar(const QString &text);
    void set_cant_unidades(const QString &text);
    void set_guardar(bool on) { vista_.Check_guardar = on; }
    void set_nombre_carrito(const QString &text) { vista_.Text_nombre_Carrito = text; }

    // Leaving the name box: the cart takes the name while it is empty. True
    // when it was renamed.
    bool salir_nombre_carrito();

    // The add button.
    ResultadoAgregar agregar();

private:
    void cargar_dolar();
    void calcular_figuras();
    int agregar_linea_nueva();
    void sumar_a_linea(int fila);

    Context &ctx_;
    Carritos &carritos_;
    int carrito_origen_;
    ArticuloParaCarrito articulo_;
    VistaAgregarArticulo vista_;
};

// Adds an article to a cart with the panel's figures and no dialog: one
// unit, the units per price remembered for it, the memory left as it is.
// For the search's automatic add, a scanned code and a double click on the
// list.
ResultadoAgregar agregar_con_figuras_del_panel(Context &ctx, Carritos &carritos, int carrito,
                                               const ArticuloParaCarrito &articulo);

// The search's single result (or a scanned code) goes to the first cart,
// when the shop asked for it (`busqueda_agregar_automaticamente` 1) and
// works with four carts; the add is logged. Nothing happens otherwise.
ResultadoAgregar agregar_automaticamente(Context &ctx, Carritos &carritos,
                                         const ArticuloParaCarrito &articulo);

} // namespace vendrix

#pragma once

#include "sales/articulo_carrito.h"

#include <QString>

namespace vendrix {

class Context;

// The outcome of the save button.
struct ResultadoUdeM {
    bool guardado = false;       // false: refused, the dialog stays open
    bool recargar_panel = false; // load the article's panel again
};

// The units dialog without its screen: how many units one list price of the
// article covers, remembered per supplier and code.
class AgregarUdeM {
public:
    AgregarUdeM(Context &ctx, ArticuloParaCarrito articulo);

    const VistaArticulo &vista() const { return vista_; }
    const ArticuloParaCarrito &articulo() const { return articulo_; }

    // A box that isn't a number goes back to "1"; above 0 the unit price is
    // worked out again.
    void set_cant_unidades(const QString &text);

    // The save button: a number of 0 or less is refused; otherwise the
    // shop's memory is brought in line (inserted, updated or deleted).
    ResultadoUdeM guardar();

private:
    void calcular_por_unidad();

    Context &ctx_;
    ArticuloParaCarrito articulo_;
    VistaArticulo vista_;
};

} // namespace vendrix

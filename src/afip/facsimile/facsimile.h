#pragma once

#include <QString>

#include <optional>
#include <vector>

namespace vendrix {

class Context;
class Escritorio;

// One line of the item table as the sale's cart shows it: the description
// already chosen by the setting of descriptions, the unit price with IVA.
struct LineaFacsimil {
    double cantidad = 0;
    QString descripcion;
    double precio = 0;
    double iva = 0;
};

struct OpcionesFacsimil {
    // The lines of the cart, when the call comes straight from a sale;
    // without them the stored lines are read.
    std::optional<std::vector<LineaFacsimil>> lineas_carrito;
    bool desde_carrito_extra = false;
    bool agrupado = false;
    bool resumido = false;    // one line "Varios"
    double descuento_pct = 0; // a percent off every unit price
    QString tipo_doc_defecto; // for a stored sale without `tipo_doc`; fills %COMP_T_DOC%
    QString id_doc_origen;    // fills %ID_DOC_ORIG%
    bool mostrar = true;      // opened with the desktop's handler, or only saved
};

// The files of a facsimile: the page under `Facturas/` and the PDF beside
// it. Both empty when it could not be made; the operator was told why.
struct Facsimil {
    QString html;
    QString pdf;
    bool ok() const { return !html.isEmpty(); }
};

// The customer's copy of the stored electronic sale `id_factura`, made from
// the shop's `factura.html`.
Facsimil imprimir_facsimil_FE(Context &ctx, Escritorio &escritorio, qint64 id_factura,
                              const OpcionesFacsimil &opciones);

} // namespace vendrix

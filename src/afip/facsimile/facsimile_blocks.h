#pragma once

#include "afip/facsimile/facsimile.h"

#include <QString>

#include <vector>

namespace vendrix {

// The HTML pieces the program puts into the shop's template. `angosto` is
// the narrow ticket form (setting `IF_COMANDERA` "Si"), else the wide page.

// The block of discriminated IVA of a factura A, with the marks of its six
// figures still to fill.
QString bloque_iva_discriminado(bool angosto);

// The IVA the lines hold: a line at 21 percent counts at 21, any other rate
// at 10.5 (only on this page).
struct IvaFacsimil {
    double iva21 = 0;
    double iva105 = 0;
    double total() const { return iva21 + iva105; }
};
IvaFacsimil iva_de_lineas(const std::vector<LineaFacsimil> &lineas, double factor);

// The heading row of the item table: four columns on the wide page, the
// detail and the amount on the narrow one.
QString encabezado_articulos(bool angosto);

// The rows of the item table. A factura A shows its unit prices without
// IVA; the others as they are, with the rate after the description. Every
// price takes the discount `factor`. Descriptions go as HTML entities.
QString filas_articulos(const std::vector<LineaFacsimil> &lineas, const QString &letra, double factor,
                        bool angosto);
// The one row of a summarised copy: "1 x <total>", "Varios".
QString fila_resumida(double total, bool angosto);

// The row of a factura A issued by a Monotributo shop: its IVA credit only
// counts for the small taxpayers' regime.
QString fila_leyenda_monotributo();

// The consumer's transparency block of letters other than A: the wide form
// turns the template's receipt line into the IVA contained; the narrow one
// adds a paragraph before the CAE.
void poner_transparencia_fiscal(QString &html, bool angosto, const QString &iva_contenido);

} // namespace vendrix

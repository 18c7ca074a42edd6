#pragma once

// What changed in a supplier's list between two builds: the rows of
// `xls_Novedades` and of `xls_listas_viejos`.
//
// An article of the former list is the same article in the new one when it
// has the same code and that code stands once in each list. Articles with no
// code, or whose code repeats in either list, are matched by code and
// description together, in the order of the lists; so such an article whose
// description changed reads as one that left and one that came in.

#include "catalogue/pricelist/price_file_format.h"

#include <vector>

namespace vendrix {

// One row of `xls_Novedades`. `anterior` and `nueva` point into the two lists
// compared; an `alta` has no former article, a `baja` no new one.
struct ListChange {
    QString proveedor;
    QString codigo;
    bool alta = false;
    bool baja = false;
    bool cambiotexto = false;  // Grupo, Descripcion, Marca or UnidaddeMedida differ
    bool cambioprecio = false; // the price's value or the currency differ
    QString fecha_anterior;
    QString fecha_nueva;
    const ListArticle *anterior = nullptr;
    const ListArticle *nueva = nullptr;
};

struct ListComparison {
    std::vector<ListChange> novedades; // changes and altas in the new list's order, then bajas
    std::vector<OldArticle> viejos;
};

// Compares a supplier's former list with its new one. `viejos_anteriores`
// are the former file's `xls_listas_viejos` rows of this supplier.
//
// Each article of the new list that reads zero and has a code gets its last
// known price: the former list's one when it was not zero, else the former
// file's old price for that code, if any; one row per code.
ListComparison comparar_listas(const SupplierList &anterior, const SupplierList &nueva,
                                  const std::vector<OldArticle> &viejos_anteriores);

} // namespace vendrix

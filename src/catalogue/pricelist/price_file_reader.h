#pragma once

// Reading a price database file back: what one build hands to the next.

#include "catalogue/pricelist/price_file_format.h"

#include <vector>

namespace vendrix {

// What a price database carries from one build to the next. Each supplier's
// list takes its `fecha` from its first article's `FechaLista`, and its
// `ult_actualizacion` and `codigo_interno` from `xls_proveedores`.
struct PriceFileContent {
    std::vector<SupplierList> listas; // in the order of the file's IDs
    std::vector<OldArticle> viejos;
    std::vector<ListReport> reportes;
    std::vector<ListTip> tips;
};

// Reads a `.vdrxdb` file. False, with the reason in `error`, when the file
// can't be opened, lacks `xls_listas`, or comes from a newer format than this
// program knows.
bool leer_contenido_lista(const QString &ruta, PriceFileContent &contenido, QString &error);

} // namespace vendrix

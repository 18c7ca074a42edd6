#pragma once

// Reading a price database file back: what one build hands to the next.

#include "catalogue/lista_formato.h"

#include <vector>

namespace vendrix {

// What a price database carries from one build to the next. Each supplier's
// list takes its `fecha` from its first article's `FechaLista`, and its
// `ult_actualizacion` and `codigo_interno` from `xls_proveedores`.
struct ContenidoLista {
    std::vector<ListaProveedor> listas; // in the order of the file's IDs
    std::vector<ArticuloViejo> viejos;
    std::vector<ReporteLista> reportes;
    std::vector<TipLista> tips;
};

// Reads a `.vdrxdb` file. False, with the reason in `error`, when the file
// can't be opened, lacks `xls_listas`, or comes from a newer format than this
// program knows.
bool leer_contenido_lista(const QString &ruta, ContenidoLista &contenido, QString &error);

} // namespace vendrix

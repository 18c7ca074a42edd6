#pragma once

// The catalogue search as one statement over the whole list, evaluated here
// row by row, to hold the indexed search to:
//   the favourites (a mark 'F' of the same supplier and a code that isn't
//   empty) that match, [with comments: and those with a comment 'U' holding
//   the whole text], UNION TOP <limit> of the articles that match [with
//   comments: TOP <limit> of that UNION TOP <limit> of those with such a
//   comment], ORDER BY favorito DESC, ID.
// An article matches when its text holds, for every term, the term or one of
// its spelling variants, every character standing for itself. Its text is
// supplier, group, observations, description, brand and code, each followed
// by a blank, then, with spelling and comments on, its first comment. Text
// compares ignore case and never equal NULL.

#include "catalogue/search/list_search.h"

#include <optional>
#include <vector>

namespace vendrix::test {

using Texto = std::optional<QString>; // a column that may be NULL

struct DatosBusqueda {
    struct Articulo {
        qint64 id = 0;
        Texto proveedor, grupo, observaciones, descripcion, marca, codigo, moneda, precio;
        // Worked out once on loading: the marks of its supplier and code, the
        // orders of its description and group, its comments, its text.
        int favoritas = 0, centinelas = 0, testigos = 0, pendientes = 0, pedidos = 0;
        std::vector<Texto> comentarios;
        QString pajar;
    };
    std::vector<Articulo> articulos; // by ID
};

// Reads the list and the shop's marks and orders straight from the files.
DatosBusqueda leer_datos_busqueda(const QString &precios, const QString &tienda);

QueryResult busqueda_referencia(const DatosBusqueda &datos, const QString &texto_trabajo,
                                const SearchOptions &opciones, int limite);

} // namespace vendrix::test

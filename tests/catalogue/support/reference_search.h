#pragma once

// The catalogue search as the earlier program ran it: one statement over the
// whole list, evaluated here row by row, to hold the indexed search to.
//
// The statement, in the earlier engine's dialect:
//   SELECT <row>, 1 AS favorito ... FROM xls_listas l JOIN testigo atest ON
//     (l.proveedor = atest.proveedor AND l.codigo <> '' AND l.codigo = atest.codigo AND atest.tipo = 'F')
//     WHERE <where>
//   [UNION the same joined also to the comments ate: ate.tipo = 'U' AND ate.descripcion LIKE '%<text>%'
//     AND ate.codigo = l.codigo AND ate.proveedor = l.proveedor]
//   UNION SELECT TOP <limit> <row>, (count of 'F' marks) AS favorito FROM xls_listas l WHERE <where>
//     [with comments: TOP <limit> of that UNION TOP <limit> of the articles joined to a matching comment]
//   ORDER BY favorito DESC, l.ID
// where <where> is, per term, (haystack LIKE '%term%' [OR ... per spelling variant]), and the haystack
// l.Proveedor & ' ' & l.Grupo & ' ' & l.observaciones & ' ' & l.Descripcion & ' ' & l.Marca & ' ' &
// l.codigo & ' ' & <extra>, <extra> being '' or, with spelling and comments on, the article's comment.
// Text compares ignore case (Ñ/ñ too) and never equal NULL; `&` reads NULL as "". LIKE: `%` any run,
// `_` one character, `[...]` one of the group, `[]` nothing.

#include "catalogue/search/list_search.h"

#include <QString>

#include <optional>
#include <vector>

namespace vendrix::test {

using Texto = std::optional<QString>; // a column that may be NULL

struct DatosBusqueda {
    struct Articulo {
        qint64 id = 0;
        Texto proveedor, grupo, observaciones, descripcion, marca, codigo, moneda, precio;
        // The joins that don't depend on the search, worked out once on loading.
        int favoritas = 0, centinelas = 0, testigos = 0; // marks of its supplier and code (not empty)
        int pendientes = 0, pedidos = 0;                 // orders of its description and group
        QString comentario;                              // the subquery: the first comment row
        std::vector<Texto> comentarios;                  // every comment row, for the join
        QString pajar;                                   // the haystack without its last part
    };
    struct Marca {
        Texto tipo, proveedor, codigo, descripcion;
    };
    struct Pedido {
        Texto descripcion, grupo, estado;
    };
    std::vector<Articulo> articulos; // by ID
    std::vector<Marca> marcas;       // by ID
    std::vector<Pedido> pedidos;
};

// Reads the list and the shop's marks and orders straight from the files.
DatosBusqueda leer_datos_busqueda(const QString &precios, const QString &tienda);

QueryResult busqueda_referencia(const DatosBusqueda &datos, const QString &texto_trabajo,
                                      const SearchOptions &opciones, int limite);

} // namespace vendrix::test

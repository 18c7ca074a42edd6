#include "catalogue/search/search_suggestions.h"

namespace vendrix {

// One scan of the list gives its distinct suppliers, groups and brands,
// compared exactly, which is cheaper; the union then merges them without
// regard to case.
QString consulta_sugerencias()
{
    return QStringLiteral("WITH pgm AS MATERIALIZED (SELECT DISTINCT Proveedor COLLATE BINARY AS p, "
                          "Grupo COLLATE BINARY AS g, Marca COLLATE BINARY AS m FROM xls_listas) "
                          "SELECT p COLLATE NOCASE FROM pgm WHERE p <> '' "
                          "UNION SELECT g FROM pgm WHERE g <> '' "
                          "UNION SELECT m FROM pgm WHERE m <> '' ORDER BY 1");
}

} // namespace vendrix

#include "catalogue/search/search_suggestions.h"

namespace vendrix {

// The suppliers come seek by seek along the index by supplier and code;
// groups and brands have no index and share one scan, whose distinct pairs
// are compared exactly, which is cheaper; the union then merges without
// regard to case.
QString consulta_sugerencias()
{
    return QStringLiteral("WITH RECURSIVE p(x) AS (SELECT min(Proveedor) FROM xls_listas "
                          "UNION ALL SELECT (SELECT min(Proveedor) FROM xls_listas WHERE Proveedor > x) "
                          "FROM p WHERE x IS NOT NULL), "
                          "gm AS MATERIALIZED (SELECT DISTINCT Grupo COLLATE BINARY AS g, "
                          "Marca COLLATE BINARY AS m FROM xls_listas) "
                          "SELECT x COLLATE NOCASE FROM p WHERE x <> '' "
                          "UNION SELECT g FROM gm WHERE g <> '' "
                          "UNION SELECT m FROM gm WHERE m <> '' ORDER BY 1");
}

} // namespace vendrix

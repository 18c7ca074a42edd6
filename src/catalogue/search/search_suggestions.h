#pragma once

#include <QString>

namespace vendrix {

// The query of the search box's completion items on the price database:
// every supplier, group and brand of the list once regardless of case,
// sorted.
QString consulta_sugerencias();

} // namespace vendrix

#pragma once

#include "widgets/grid_store.h"

#include <vector>

namespace vendrix::widgets {

// The row order (storage indices by position, as GridStore::order) that
// sorts the rows by the cells of `col` according to the column's type.
// Equal cells keep their relative order. A custom column asks `custom` for
// every comparison; without it the order stays as it is.
std::vector<int> sorted_order(const GridStore &store, int col, bool ascending,
                              const CustomSortHandler &custom);

} // namespace vendrix::widgets

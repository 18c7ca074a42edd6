#include "widgets/grid_sort.h"

#include "widgets/cell_reading.h"

#include <QCollator>

#include <algorithm>
#include <limits>
#include <numeric>

namespace vendrix::widgets {

namespace {

// Sorts positions by a key read once per row; ties go by position.
template <typename Key, typename Read> std::vector<int> sort_by_key(int rows, bool ascending, Read read)
{
    std::vector<std::pair<Key, int>> keyed;
    keyed.reserve(size_t(rows));
    for (int pos = 0; pos < rows; ++pos)
        keyed.emplace_back(read(pos), pos);
    std::sort(keyed.begin(), keyed.end(), [ascending](const auto &a, const auto &b) {
        if (a.first < b.first)
            return ascending;
        if (b.first < a.first)
            return !ascending;
        return a.second < b.second;
    });
    std::vector<int> positions;
    positions.reserve(keyed.size());
    for (const auto &k : keyed)
        positions.push_back(k.second);
    return positions;
}

// The owner compares: a quicksort on the middle element that stays within
// bounds whatever answers the owner gives.
void quicksort(std::vector<int> &positions, int low, int high, const std::function<bool(int, int)> &swap)
{
    while (low < high) {
        std::swap(positions[size_t(low)], positions[size_t((low + high) / 2)]);
        const int pivot = positions[size_t(low)];
        int last = low;
        for (int i = low + 1; i <= high; ++i) {
            if (swap(pivot, positions[size_t(i)]))
                std::swap(positions[size_t(++last)], positions[size_t(i)]);
        }
        std::swap(positions[size_t(low)], positions[size_t(last)]);
        // Recurse into the smaller side, loop on the larger: the depth stays logarithmic.
        if (last - low < high - last) {
            quicksort(positions, low, last - 1, swap);
            low = last + 1;
        } else {
            quicksort(positions, last + 1, high, swap);
            high = last - 1;
        }
    }
}

} // namespace

std::vector<int> sorted_order(const GridStore &store, int col, bool ascending,
                              const CustomSortHandler &custom)
{
    const int rows = store.row_count();
    std::vector<int> positions;
    switch (store.column(col).spec.type) {
    case ColumnType::Number:
        positions =
            sort_by_key<double>(rows, ascending, [&](int pos) { return cell_number(store.cell(pos, col)); });
        break;
    case ColumnType::Date:
        // Cells that aren't dates go before every date.
        positions = sort_by_key<qint64>(rows, ascending, [&](int pos) {
            const std::optional<QDateTime> when = cell_date(store.cell(pos, col));
            return when ? when->toMSecsSinceEpoch() : std::numeric_limits<qint64>::min();
        });
        break;
    case ColumnType::Text: {
        // Spanish collation ignoring case, as the operator reads a list: "ñ"
        // after "n", "Á" with "a". Keys are made once per row, which keeps
        // the sort of a full price list well under a second.
        QCollator collator(QLocale(QLocale::Spanish, QLocale::Argentina));
        collator.setCaseSensitivity(Qt::CaseInsensitive);
        positions = sort_by_key<QCollatorSortKey>(
            rows, ascending, [&](int pos) { return collator.sortKey(store.cell(pos, col).toString()); });
        break;
    }
    case ColumnType::Custom:
        positions.resize(size_t(rows));
        std::iota(positions.begin(), positions.end(), 0);
        if (custom) {
            // The pivot is value1; the row belongs before the pivot when the
            // owner says the pivot, placed first, must swap with it.
            quicksort(positions, 0, rows - 1, [&](int pivot, int other) {
                bool swap = false;
                custom(ascending, col, store.cell(pivot, col).toString(), store.cell(other, col).toString(),
                       swap);
                return swap;
            });
        }
        break;
    }
    std::vector<int> order;
    order.reserve(positions.size());
    for (int pos : positions)
        order.push_back(store.order()[size_t(pos)]);
    return order;
}

} // namespace vendrix::widgets

#include "widgets/grid_store.h"

#include "widgets/cell_reading.h"

#include <algorithm>

namespace vendrix::widgets {

void GridStore::add_column(const ColumnSpec &spec)
{
    columns_.push_back(GridColumn{spec, {}});
    changed();
}

void GridStore::clear_columns()
{
    columns_.clear();
    changed();
}

void GridStore::reserve(int rows)
{
    rows_.reserve(size_t(rows));
    order_.reserve(size_t(rows));
}

int GridStore::add_row(const QString &tab_joined)
{
    GridRow row;
    row.line = tab_joined;
    const int pos = row_count();
    order_.push_back(int(rows_.size()));
    rows_.push_back(std::move(row));
    if (!all_shown_ && !shown_stale_)
        shown_.push_back(pos);
    changed();
    return pos;
}

void GridStore::remove_row(int pos)
{
    if (!has_row(pos))
        return;
    const int index = order_[size_t(pos)];
    if (rows_[size_t(index)].selected)
        --selected_count_;
    rows_.erase(rows_.begin() + index);
    order_.erase(order_.begin() + pos);
    for (int &i : order_) {
        if (i > index)
            --i;
    }
    if (!all_shown_)
        visibility_changed();
    changed();
}

void GridStore::clear_rows()
{
    rows_.clear();
    order_.clear();
    shown_.clear();
    all_shown_ = true;
    shown_stale_ = false;
    selected_count_ = 0;
    changed();
}

namespace {

// Where a cell lies in its row's line; begin is -1 past the row's cells.
struct Span {
    qsizetype begin = -1;
    qsizetype end = -1;
};

// Ends of the cells as the tabs of the line mark them.
std::vector<int> ends_by_tabs(const QString &line)
{
    std::vector<int> ends;
    for (qsizetype tab = line.indexOf(u'\t'); tab >= 0; tab = line.indexOf(u'\t', tab + 1))
        ends.push_back(int(tab));
    ends.push_back(int(line.size()));
    return ends;
}

Span cell_span(const GridRow &row, int col)
{
    if (col < 0)
        return {};
    if (row.style && !row.style->cell_ends.empty()) {
        const std::vector<int> &ends = row.style->cell_ends;
        if (size_t(col) >= ends.size())
            return {};
        return {col == 0 ? 0 : ends[size_t(col) - 1] + 1, ends[size_t(col)]};
    }
    qsizetype begin = 0;
    for (int c = 0; c < col; ++c) {
        const qsizetype tab = row.line.indexOf(u'\t', begin);
        if (tab < 0)
            return {};
        begin = tab + 1;
    }
    const qsizetype end = row.line.indexOf(u'\t', begin);
    return {begin, end < 0 ? row.line.size() : end};
}

} // namespace

QStringView GridStore::cell(int pos, int col) const
{
    const GridRow &r = row(pos);
    const Span span = cell_span(r, col);
    return span.begin < 0 ? QStringView() : QStringView(r.line).mid(span.begin, span.end - span.begin);
}

void GridStore::set_cell(int pos, int col, const QString &text)
{
    GridRow &r = row(pos);
    if (text.contains(u'\t') && (!r.style || r.style->cell_ends.empty()))
        style(pos).cell_ends = ends_by_tabs(r.line);
    std::vector<int> *ends = r.style && !r.style->cell_ends.empty() ? &r.style->cell_ends : nullptr;
    // Missing cells are added empty, each after its tab.
    while (cell_span(r, col).begin < 0) {
        r.line += u'\t';
        if (ends)
            ends->push_back(int(r.line.size()));
    }
    const Span span = cell_span(r, col);
    r.line.replace(span.begin, span.end - span.begin, text);
    if (ends) {
        const int delta = int(text.size() - (span.end - span.begin));
        for (size_t c = size_t(col); c < ends->size(); ++c)
            (*ends)[c] += delta;
    }
    changed();
}

RowStyle &GridStore::style(int pos)
{
    std::unique_ptr<RowStyle> &style = row(pos).style;
    if (!style)
        style = std::make_unique<RowStyle>();
    return *style;
}

CellStyle &GridStore::cell_style(int pos, int col)
{
    std::vector<CellStyle> &cells = style(pos).cells;
    if (cells.size() <= size_t(col))
        cells.resize(size_t(col) + 1);
    return cells[size_t(col)];
}

const CellStyle *GridStore::find_cell_style(int pos, int col) const
{
    const RowStyle *style = find_style(pos);
    if (!style || col < 0 || size_t(col) >= style->cells.size())
        return nullptr;
    return &style->cells[size_t(col)];
}

void GridStore::set_order(std::vector<int> order)
{
    order_ = std::move(order);
    if (!all_shown_)
        visibility_changed();
}

int GridStore::shown_count() const
{
    refresh_shown();
    return all_shown_ ? row_count() : int(shown_.size());
}

int GridStore::position_of_shown(int shown) const
{
    refresh_shown();
    return all_shown_ ? shown : shown_[size_t(shown)];
}

int GridStore::shown_of_position(int pos) const
{
    if (!has_row(pos))
        return -1;
    refresh_shown();
    if (all_shown_)
        return pos;
    const auto it = std::lower_bound(shown_.begin(), shown_.end(), pos);
    return it != shown_.end() && *it == pos ? int(it - shown_.begin()) : -1;
}

void GridStore::set_row_visible(int pos, bool visible)
{
    if (row(pos).visible == visible)
        return;
    row(pos).visible = visible;
    visibility_changed();
    changed();
}

void GridStore::filter(int col, const QString &text)
{
    for (int pos = 0; pos < row_count(); ++pos)
        row(pos).filtered_out = !cell(pos, col).contains(text, Qt::CaseInsensitive);
    visibility_changed();
    changed();
}

void GridStore::clear_filter()
{
    for (GridRow &r : rows_)
        r.filtered_out = false;
    visibility_changed();
    changed();
}

void GridStore::set_selected(int pos, bool selected)
{
    GridRow &r = row(pos);
    if (r.selected == selected)
        return;
    r.selected = selected;
    selected_count_ += selected ? 1 : -1;
}

void GridStore::clear_selection()
{
    if (selected_count_ == 0)
        return;
    for (GridRow &r : rows_)
        r.selected = false;
    selected_count_ = 0;
}

double GridStore::total(int col) const
{
    if (!has_column(col))
        return 0.0;
    if (totals_.size() < columns_.size())
        totals_.resize(columns_.size());
    std::optional<double> &sum = totals_[size_t(col)];
    if (!sum) {
        double s = 0.0;
        for (int i = 0; i < shown_count(); ++i)
            s += cell_number(cell(position_of_shown(i), col));
        sum = s;
    }
    return *sum;
}

void GridStore::refresh_shown() const
{
    if (!shown_stale_)
        return;
    shown_stale_ = false;
    shown_.clear();
    all_shown_ = std::all_of(rows_.begin(), rows_.end(), [](const GridRow &r) { return r.shown(); });
    if (all_shown_)
        return;
    for (int pos = 0; pos < row_count(); ++pos) {
        if (row(pos).shown())
            shown_.push_back(pos);
    }
}

} // namespace vendrix::widgets

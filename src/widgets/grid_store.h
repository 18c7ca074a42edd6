#pragma once

#include "widgets/grid_types.h"

#include <QStringView>

#include <optional>
#include <vector>

namespace vendrix::widgets {

// The grid's data, apart from any screen: the columns, the rows with their
// cells, and the order in which the rows are shown. Callers number rows by
// their place in that order ("position"); sorting rewrites the order only,
// so cell data never moves. Rows hidden by RowVisible or by a filter keep
// their position and their data; the "shown" rows are the others, in order,
// and are what a view displays.
class GridStore {
public:
    // Columns, by number.
    int column_count() const { return int(columns_.size()); }
    const GridColumn &column(int col) const { return columns_[size_t(col)]; }
    GridColumn &column(int col) { return columns_[size_t(col)]; }
    bool has_column(int col) const { return col >= 0 && col < column_count(); }
    void add_column(const ColumnSpec &spec);
    void clear_columns();

    // Rows, by position.
    int row_count() const { return int(order_.size()); }
    bool has_row(int pos) const { return pos >= 0 && pos < row_count(); }
    void reserve(int rows);
    // Adds a row at the end from cells joined by tabs; returns its position.
    int add_row(const QString &tab_joined);
    void remove_row(int pos);
    void clear_rows();

    const GridRow &row(int pos) const { return rows_[size_t(order_[size_t(pos)])]; }
    GridRow &row(int pos) { return rows_[size_t(order_[size_t(pos)])]; }
    // The text of a cell; empty past the cells the row was given.
    QStringView cell(int pos, int col) const;
    void set_cell(int pos, int col, const QString &text);

    // Style records, made on first use by the setters.
    RowStyle &style(int pos);
    CellStyle &cell_style(int pos, int col);
    const RowStyle *find_style(int pos) const { return row(pos).style.get(); }
    const CellStyle *find_cell_style(int pos, int col) const;

    // The order of the rows: storage indices by position.
    const std::vector<int> &order() const { return order_; }
    void set_order(std::vector<int> order);

    // Shown rows: the n-th shown row and back.
    int shown_count() const;
    int position_of_shown(int shown) const;
    // -1 when the row is hidden.
    int shown_of_position(int pos) const;
    void set_row_visible(int pos, bool visible);
    // Keeps shown the rows whose cell of `col` contains `text`, ignoring case.
    void filter(int col, const QString &text);
    void clear_filter();

    // Selection flags live in the rows; the count is kept alongside.
    int selected_count() const { return selected_count_; }
    void set_selected(int pos, bool selected);
    void clear_selection();

    // Sum of a column over the shown rows, each cell read by cell_number.
    double total(int col) const;

private:
    // Visibility changes only mark the shown list; it is rebuilt on its next
    // read, so hiding many rows in a loop costs one pass.
    void visibility_changed() { shown_stale_ = true; }
    void refresh_shown() const;
    void changed() { totals_.clear(); }

    std::vector<GridColumn> columns_;
    std::vector<GridRow> rows_;      // storage: never reordered
    std::vector<int> order_;         // position -> storage index
    mutable std::vector<int> shown_; // shown index -> position, when some row is hidden
    mutable bool all_shown_ = true;
    mutable bool shown_stale_ = false;
    int selected_count_ = 0;
    mutable std::vector<std::optional<double>> totals_; // by column, until the next change
};

} // namespace vendrix::widgets

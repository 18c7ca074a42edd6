#pragma once

#include <QColor>
#include <QIcon>
#include <QString>

#include <functional>
#include <memory>
#include <vector>

namespace vendrix::widgets {

// How a column sorts: text ignoring case, numbers by value, dates by date,
// or through the owner's comparison.
enum class ColumnType { Text, Number, Date, Custom };

// A column as the screens declare it. Widths are in twips (1/1440 inch), the
// unit in which every screen layout of the program is written; 15 twips make
// a pixel on a 96 dpi screen. A width of 0 hides the column from the operator.
// Every member has a default, so that callers may name only what differs:
// grid.AddColumn({.heading = "Importe", .type = ColumnType::Number, .summed = true}).
struct ColumnSpec {
    QString heading{};
    int width = 1000;
    Qt::Alignment alignment = Qt::AlignLeft | Qt::AlignVCenter;
    ColumnType type = ColumnType::Text;
    QString format{};       // display format, see LynxGrid::setCellFormatter
    QString input_filter{}; // "<", ">" or the characters the in-cell editor accepts
    bool visible = true;
    bool summed = false; // shown summed in the totals line
    bool locked = false; // never edited in place
    // 1-based place on screen; 0 or beyond the last column means at the end.
    int position = 0;
};

struct GridColumn {
    ColumnSpec spec;
    QString tag;
};

// What a cell carries besides its text. Most cells have none of it, so it
// lives outside the row's text and is made only when a caller sets it.
struct CellStyle {
    QString tag;
    QColor back;
    QColor fore;
    QIcon image;
    bool bold = false;
};

struct RowStyle {
    QString tag;
    qint64 data = 0;
    QColor back;
    QColor fore;
    std::vector<CellStyle> cells; // by column number, grown on demand
    // Where each cell ends in the row's line, kept only once a cell's text
    // holds a tab itself, so that tabs no longer tell the cells apart.
    std::vector<int> cell_ends;
};

// One row: its cells joined by tabs in one string, as AddItem receives them.
// That is one allocation a row instead of one a cell; a 300 000-row price
// list takes about 110 MB (bench_lynxgrid measures it).
struct GridRow {
    QString line;
    std::unique_ptr<RowStyle> style;
    bool selected = false;
    bool visible = true;       // RowVisible
    bool filtered_out = false; // hidden by FilterOn

    bool shown() const { return visible && !filtered_out; }
};

// The owner's answers during an edit or a custom sort. Arguments passed by
// reference are the ones the owner may change.
using EditKeyPressHandler = std::function<void(int col, int &key)>;
using BeforeEditHandler = std::function<void(int row, int col, bool &cancel)>;
using AfterEditHandler = std::function<void(int row, int col, QString &new_value, bool &cancel)>;
// Sets `swap` when value1, now before value2, belongs after it.
using CustomSortHandler =
    std::function<void(bool ascending, int col, const QString &value1, const QString &value2, bool &swap)>;
// The text a cell shows for its text and its column's format.
using CellFormatter = std::function<QString(const QString &text, const QString &format)>;

} // namespace vendrix::widgets

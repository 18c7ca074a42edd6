#pragma once

#include "widgets/grid_types.h"

#include <QWidget>

#include <functional>

class QSettings;
class QTableView;
class QModelIndex;

namespace vendrix {
class Operator;
}

namespace vendrix::widgets {

class LynxGridModel;
class GridEditDelegate;
class GridView;
class TotalsBar;

// The list control of every screen: rows of text cells under column
// headings, with per-cell and per-row colours, a totals line, sorting by
// column type, filters, in-place edit with per-column key filters, export
// to a spreadsheet file and a remembered column layout.
//
// Rows and columns are numbered from 0. A row's number is its place in the
// grid's current order (sorting renumbers the rows, never moves cell data);
// rows hidden by RowVisible or FilterOn keep their number and their cells.
// Members keep the names the screens use: a property P reads with P(...)
// and is set with setP(..., value). Bad row or column numbers read as
// empty and are ignored when set.
//
// It paints only the rows on screen; a load of many rows goes between
// setRedraw(false) and setRedraw(true), which hold back all painting and
// tell the view once.
class LynxGrid : public QWidget {
    Q_OBJECT

public:
    explicit LynxGrid(QWidget *parent = nullptr);
    ~LynxGrid() override;

    // What the grid needs from outside: where its messages go (ExportGrid),
    // the folder exports are written to (the user's desktop unless set), the
    // way a finished export is opened (the desktop's default program unless
    // set), and how a cell shows its column's format (dates by default).
    void setOperator(Operator *op) { operator_ = op; }
    void setDesktopFolder(const QString &folder) { desktop_ = folder; }
    QString desktopFolder() const;
    void setFileOpener(std::function<void(const QString &path)> opener) { opener_ = std::move(opener); }
    void setCellFormatter(CellFormatter formatter);

    // The view inside, for what the members below don't cover.
    QTableView *view() const;

    // Building.
    int AddColumn(const ColumnSpec &spec);
    int AddColumn(const QString &heading, int width = 1000);
    // A row from cells joined by tabs; a shorter text leaves the rest empty.
    // Returns the new row's number.
    int AddItem(const QString &tab_joined);
    void RemoveItem(int row);
    // Removes the rows; the columns and the totals captions stay.
    void Clear();
    // Removes rows, columns and totals captions.
    void ClearAll();
    bool Redraw() const { return redraw_; }
    void setRedraw(bool on);

    int Rows() const;
    int ItemCount() const { return Rows(); }
    int Cols() const;

    // Cells.
    QString CellText(int row, int col) const;
    void setCellText(int row, int col, const QString &text);
    QString CellTag(int row, int col) const;
    void setCellTag(int row, int col, const QString &tag);
    QColor CellBackColor(int row, int col) const;
    void setCellBackColor(int row, int col, const QColor &color);
    QColor CellForeColor(int row, int col) const;
    void setCellForeColor(int row, int col, const QColor &color);
    QIcon CellImage(int row, int col) const;
    void setCellImage(int row, int col, const QIcon &image);
    bool CellFontBold(int row, int col) const;
    void setCellFontBold(int row, int col, bool bold);

    // Rows.
    QColor RowBackColor(int row) const;
    void setRowBackColor(int row, const QColor &color);
    QColor RowForeColor(int row) const;
    void setRowForeColor(int row, const QColor &color);
    QString RowTag(int row) const;
    void setRowTag(int row, const QString &tag);
    qint64 RowData(int row) const;
    void setRowData(int row, qint64 data);
    bool RowSelected(int row) const;
    void setRowSelected(int row, bool selected);
    bool RowVisible(int row) const;
    void setRowVisible(int row, bool visible);

    // Current cell and selection. Row() is -1 when no row is current. With
    // MultiSelect off the selection follows the current row.
    int Row() const { return row_; }
    void setRow(int row);
    int Col() const { return col_; }
    void setCol(int col);
    bool MultiSelect() const { return multi_select_; }
    void setMultiSelect(bool on);
    int SelectedCount() const;
    void SelectedClearAll();

    // Columns.
    QString ColHeading(int col) const;
    void setColHeading(int col, const QString &heading);
    int ColWidth(int col) const; // twips
    void setColWidth(int col, int twips);
    Qt::Alignment ColAlignment(int col) const;
    void setColAlignment(int col, Qt::Alignment alignment);
    ColumnType ColType(int col) const;
    void setColType(int col, ColumnType type);
    QString ColFormat(int col) const;
    void setColFormat(int col, const QString &format);
    QString ColInputFilter(int col) const;
    void setColInputFilter(int col, const QString &filter);
    bool ColVisible(int col) const;
    void setColVisible(int col, bool visible);
    bool ColLocked(int col) const;
    void setColLocked(int col, bool locked);
    QString ColTag(int col) const;
    void setColTag(int col, const QString &tag);
    bool ColSummed(int col) const;
    void setColSummed(int col, bool summed);

    // The column layout in the user's settings: the caller's store (its
    // application) and section. "Count" holds the number of columns, "P" + n
    // the place on screen of column n, "W" + n its width in twips. A layout
    // saved for another number of columns is not loaded.
    void ColOrderSave(QSettings &store, const QString &section) const;
    void ColOrderLoad(QSettings &store, const QString &section);
    void ColWidthsSave(QSettings &store, const QString &section) const;
    void ColWidthsLoad(QSettings &store, const QString &section);

    // The totals line under the rows: each column shows its caption, and a
    // summed column its total after it.
    bool TotalsLineShow() const { return totals_line_; }
    void setTotalsLineShow(bool on);
    // The sum of a column over the rows not hidden, each cell read as a
    // number ("," or "." as the decimal separator, "" as 0); 0 without rows.
    double TotalsCol(int col) const;
    QString TotalsLineCaption(int index) const;
    void setTotalsLineCaption(int index, const QString &caption);

    // Sort and search.
    void Sort(int col, bool ascending = true);
    void setCustomSortHandler(CustomSortHandler handler) { custom_sort_ = std::move(handler); }
    // Header clicks sort (ascending first, then the other way).
    bool AllowColumnSort() const { return allow_column_sort_; }
    void setAllowColumnSort(bool on) { allow_column_sort_ = on; }
    // The first row from `start_row` whose cell of `col` equals the text (or
    // contains it, with `partial`), ignoring case; -1 when none.
    int FindItem(const QString &text, int col = 0, int start_row = 0, bool partial = false) const;
    // Hides the rows whose cell of `col` doesn't contain the text, ignoring
    // case; FilterOff shows them again.
    void FilterOn(int col, const QString &text);
    void FilterOff();

    // In-place edit: double click, F2 or typing on a cell of a column that
    // isn't locked. Keys go through the column's input filter, then the
    // EditKeyPress handler; BeforeEdit may refuse the edit, AfterEdit may
    // change the new value or cancel it (the cell keeps its old text).
    bool AllowEdit() const { return allow_edit_; }
    void setAllowEdit(bool on);
    bool EditPending() const;
    // Opens the editor on a cell; false when the edit is refused.
    bool ForceCellEdit(int row, int col);
    // Commits the open editor, if any.
    void CommitEdit();
    void setEditKeyPressHandler(EditKeyPressHandler handler) { edit_key_press_ = std::move(handler); }
    void setBeforeEditHandler(BeforeEditHandler handler) { before_edit_ = std::move(handler); }
    void setAfterEditHandler(AfterEditHandler handler) { after_edit_ = std::move(handler); }

    // Writes the shown rows and columns, headings first, to `name` (".csv"
    // added when missing) in the desktop folder, replacing a file of that
    // name, then offers to open it. False when nothing was written.
    bool ExportGrid(const QString &name);

Q_SIGNALS:
    void Click();
    void DblClick();
    void KeyDown(int key, Qt::KeyboardModifiers shift);
    void RowColChanged();
    void SelectionChanged();
    void ColumnClick(int col);
    void SortComplete();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;
    void changeEvent(QEvent *event) override;

private:
    friend class GridEditDelegate;

    template <typename T> T cell_field(int row, int col, T CellStyle::*field) const;
    template <typename T> void set_cell_field(int row, int col, T CellStyle::*field, const T &value);
    template <typename T> T row_field(int row, T RowStyle::*field) const;
    template <typename T> void set_row_field(int row, T RowStyle::*field, const T &value);
    template <typename T> T column_field(int col, T ColumnSpec::*field) const;
    template <typename T> bool set_column_field(int col, T ColumnSpec::*field, const T &value);
    QString totals_text(int col) const;

    bool has_row(int row) const;
    bool has_col(int col) const;
    int twips_to_pixels(int twips) const;
    int pixels_to_twips(int pixels) const;
    void apply_column_layout(int col);
    void apply_all_column_layouts();
    void fit_row_height();
    void cells_changed(int row);
    void rows_changed();
    void show_current();
    void current_changed(const QModelIndex &current);
    void pressed(const QModelIndex &index);
    void select_only(int row);
    void header_clicked(int col);
    void section_resized(int col, int new_size);

    // Edit steps, called by the delegate.
    bool begin_edit(int row, int col);
    int filter_edit_key(int col, int key);
    void end_edit(int row, int col, const QString &new_value);

    LynxGridModel *model_;
    GridView *view_;
    GridEditDelegate *delegate_;
    TotalsBar *totals_bar_;

    Operator *operator_ = nullptr;
    QString desktop_;
    std::function<void(const QString &)> opener_;
    CustomSortHandler custom_sort_;
    EditKeyPressHandler edit_key_press_;
    BeforeEditHandler before_edit_;
    AfterEditHandler after_edit_;

    QStringList captions_;
    int row_ = -1;
    int col_ = 0;
    int anchor_ = -1; // where a shift-click range starts
    int sorted_col_ = -1;
    bool sorted_ascending_ = true;
    bool redraw_ = true;
    bool multi_select_ = false;
    bool totals_line_ = false;
    bool allow_edit_ = false;
    bool allow_column_sort_ = false;
    bool syncing_ = false; // the grid itself is moving the view's current cell
};

} // namespace vendrix::widgets

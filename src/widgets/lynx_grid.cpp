#include "widgets/lynx_grid.h"

#include "widgets/cell_reading.h"
#include "widgets/grid_edit_delegate.h"
#include "widgets/grid_sort.h"
#include "widgets/grid_view.h"
#include "widgets/lynx_grid_model.h"
#include "widgets/totals_bar.h"

#include <QEvent>
#include <QGuiApplication>
#include <QHeaderView>
#include <QKeyEvent>
#include <QScrollBar>
#include <QTableView>
#include <QVBoxLayout>

#include <algorithm>

namespace vendrix::widgets {

LynxGrid::LynxGrid(QWidget *parent)
    : QWidget(parent), model_(new LynxGridModel(this)), view_(new GridView(this)),
      delegate_(new GridEditDelegate(*this, this))
{
    totals_bar_ = new TotalsBar(
        *view_, [this](int col) { return totals_text(col); }, this);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(view_);
    layout->addWidget(totals_bar_);
    totals_bar_->hide();

    model_->set_formatter(format_date_cell);
    model_->set_selection_palette(palette());
    view_->setModel(model_);
    view_->setItemDelegate(delegate_);
    // Selection lives in the rows (RowSelected) and is painted by the model.
    view_->setSelectionMode(QAbstractItemView::NoSelection);
    view_->setEditTriggers(QAbstractItemView::NoEditTriggers);
    view_->setWordWrap(false);
    view_->setCornerButtonEnabled(false);
    view_->verticalHeader()->hide();
    view_->verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    QHeaderView *header = view_->horizontalHeader();
    header->setSectionsMovable(true);
    header->setHighlightSections(false);
    fit_row_height();
    view_->installEventFilter(this);

    connect(view_->selectionModel(), &QItemSelectionModel::currentChanged, this,
            [this](const QModelIndex &current) { current_changed(current); });
    connect(view_, &QAbstractItemView::pressed, this, [this](const QModelIndex &index) { pressed(index); });
    connect(view_, &QAbstractItemView::clicked, this, [this] { Q_EMIT Click(); });
    connect(view_, &QAbstractItemView::doubleClicked, this, [this] { Q_EMIT DblClick(); });
    connect(header, &QHeaderView::sectionClicked, this, [this](int col) { header_clicked(col); });
    connect(header, &QHeaderView::sectionResized, this,
            [this](int col, int, int new_size) { section_resized(col, new_size); });
    const auto repaint_totals = [this] { totals_bar_->update(); };
    connect(header, &QHeaderView::sectionResized, totals_bar_, repaint_totals);
    connect(header, &QHeaderView::sectionMoved, totals_bar_, repaint_totals);
    connect(view_->horizontalScrollBar(), &QScrollBar::valueChanged, totals_bar_, repaint_totals);
    connect(model_, &QAbstractItemModel::dataChanged, totals_bar_, repaint_totals);
    connect(model_, &QAbstractItemModel::modelReset, totals_bar_, repaint_totals);
    connect(model_, &QAbstractItemModel::rowsInserted, totals_bar_, repaint_totals);
    connect(model_, &QAbstractItemModel::rowsRemoved, totals_bar_, repaint_totals);
}

LynxGrid::~LynxGrid() = default;

QTableView *LynxGrid::view() const
{
    return view_;
}

void LynxGrid::setCellFormatter(CellFormatter formatter)
{
    model_->set_formatter(std::move(formatter));
    model_->all_cells_changed();
}

bool LynxGrid::has_row(int row) const
{
    return model_->store().has_row(row);
}

bool LynxGrid::has_col(int col) const
{
    return model_->store().has_column(col);
}

// ---- Building -------------------------------------------------------------

int LynxGrid::AddItem(const QString &tab_joined)
{
    return model_->append_row(tab_joined);
}

void LynxGrid::RemoveItem(int row)
{
    if (!has_row(row))
        return;
    const bool was_selected = RowSelected(row);
    const bool was_current = row == row_;
    model_->remove_row(row);
    anchor_ = -1;
    if (row_ > row)
        --row_;
    else if (was_current)
        row_ = std::min(row, Rows() - 1);
    if (was_current && row_ >= 0 && !multi_select_)
        select_only(row_);
    show_current();
    if (was_selected)
        Q_EMIT SelectionChanged();
    if (was_current)
        Q_EMIT RowColChanged();
}

void LynxGrid::Clear()
{
    model_->store().clear_rows();
    model_->reset_all();
    row_ = -1;
    anchor_ = -1;
    sorted_col_ = -1;
}

void LynxGrid::ClearAll()
{
    Clear();
    model_->store().clear_columns();
    model_->reset_all();
    captions_.clear();
    col_ = 0;
    totals_bar_->update();
}

void LynxGrid::setRedraw(bool on)
{
    if (on == redraw_)
        return;
    redraw_ = on;
    if (!on) {
        model_->hold(true);
        setUpdatesEnabled(false);
        return;
    }
    model_->hold(false);
    apply_all_column_layouts();
    show_current();
    setUpdatesEnabled(true);
    totals_bar_->update();
}

int LynxGrid::Rows() const
{
    return model_->store().row_count();
}

int LynxGrid::Cols() const
{
    return model_->store().column_count();
}

// ---- Cells ----------------------------------------------------------------

QString LynxGrid::CellText(int row, int col) const
{
    return has_row(row) ? model_->store().cell(row, col).toString() : QString();
}

void LynxGrid::setCellText(int row, int col, const QString &text)
{
    if (!has_row(row) || !has_col(col))
        return;
    model_->store().set_cell(row, col, text);
    cells_changed(row);
}

template <typename T> T LynxGrid::cell_field(int row, int col, T CellStyle::*field) const
{
    const CellStyle *style = has_row(row) ? model_->store().find_cell_style(row, col) : nullptr;
    return style ? style->*field : T();
}

template <typename T> void LynxGrid::set_cell_field(int row, int col, T CellStyle::*field, const T &value)
{
    if (!has_row(row) || !has_col(col))
        return;
    model_->store().cell_style(row, col).*field = value;
    cells_changed(row);
}

QString LynxGrid::CellTag(int row, int col) const
{
    return cell_field(row, col, &CellStyle::tag);
}
void LynxGrid::setCellTag(int row, int col, const QString &tag)
{
    set_cell_field(row, col, &CellStyle::tag, tag);
}
QColor LynxGrid::CellBackColor(int row, int col) const
{
    return cell_field(row, col, &CellStyle::back);
}
void LynxGrid::setCellBackColor(int row, int col, const QColor &color)
{
    set_cell_field(row, col, &CellStyle::back, color);
}
QColor LynxGrid::CellForeColor(int row, int col) const
{
    return cell_field(row, col, &CellStyle::fore);
}
void LynxGrid::setCellForeColor(int row, int col, const QColor &color)
{
    set_cell_field(row, col, &CellStyle::fore, color);
}
QIcon LynxGrid::CellImage(int row, int col) const
{
    return cell_field(row, col, &CellStyle::image);
}
void LynxGrid::setCellImage(int row, int col, const QIcon &image)
{
    set_cell_field(row, col, &CellStyle::image, image);
}
bool LynxGrid::CellFontBold(int row, int col) const
{
    return cell_field(row, col, &CellStyle::bold);
}
void LynxGrid::setCellFontBold(int row, int col, bool bold)
{
    set_cell_field(row, col, &CellStyle::bold, bold);
}

void LynxGrid::cells_changed(int row)
{
    model_->cells_changed(row);
}

// ---- Rows -----------------------------------------------------------------

template <typename T> T LynxGrid::row_field(int row, T RowStyle::*field) const
{
    const RowStyle *style = has_row(row) ? model_->store().find_style(row) : nullptr;
    return style ? style->*field : T();
}

template <typename T> void LynxGrid::set_row_field(int row, T RowStyle::*field, const T &value)
{
    if (!has_row(row))
        return;
    model_->store().style(row).*field = value;
    cells_changed(row);
}

QColor LynxGrid::RowBackColor(int row) const
{
    return row_field(row, &RowStyle::back);
}
void LynxGrid::setRowBackColor(int row, const QColor &color)
{
    set_row_field(row, &RowStyle::back, color);
}
QColor LynxGrid::RowForeColor(int row) const
{
    return row_field(row, &RowStyle::fore);
}
void LynxGrid::setRowForeColor(int row, const QColor &color)
{
    set_row_field(row, &RowStyle::fore, color);
}
QString LynxGrid::RowTag(int row) const
{
    return row_field(row, &RowStyle::tag);
}
void LynxGrid::setRowTag(int row, const QString &tag)
{
    set_row_field(row, &RowStyle::tag, tag);
}
qint64 LynxGrid::RowData(int row) const
{
    return row_field(row, &RowStyle::data);
}
void LynxGrid::setRowData(int row, qint64 data)
{
    set_row_field(row, &RowStyle::data, data);
}

bool LynxGrid::RowSelected(int row) const
{
    return has_row(row) && model_->store().row(row).selected;
}

void LynxGrid::setRowSelected(int row, bool selected)
{
    if (!has_row(row) || RowSelected(row) == selected)
        return;
    model_->store().set_selected(row, selected);
    cells_changed(row);
    Q_EMIT SelectionChanged();
}

bool LynxGrid::RowVisible(int row) const
{
    return has_row(row) && model_->store().row(row).visible;
}

void LynxGrid::setRowVisible(int row, bool visible)
{
    if (!has_row(row) || RowVisible(row) == visible)
        return;
    model_->store().set_row_visible(row, visible);
    rows_changed();
}

void LynxGrid::rows_changed()
{
    model_->reset_all();
    show_current();
}

// ---- Current cell and selection -------------------------------------------

void LynxGrid::setRow(int row)
{
    if (row != -1 && !has_row(row))
        return;
    const bool moved = row != row_;
    row_ = row;
    if (row >= 0 && !multi_select_)
        select_only(row);
    if (row >= 0)
        anchor_ = row;
    show_current();
    if (moved)
        Q_EMIT RowColChanged();
}

void LynxGrid::setCol(int col)
{
    if (!has_col(col) || col == col_)
        return;
    col_ = col;
    show_current();
    Q_EMIT RowColChanged();
}

void LynxGrid::setMultiSelect(bool on)
{
    multi_select_ = on;
}

int LynxGrid::SelectedCount() const
{
    return model_->store().selected_count();
}

void LynxGrid::SelectedClearAll()
{
    if (SelectedCount() == 0)
        return;
    model_->store().clear_selection();
    model_->all_cells_changed();
    Q_EMIT SelectionChanged();
}

void LynxGrid::select_only(int row)
{
    GridStore &store = model_->store();
    if (store.selected_count() == 1 && store.row(row).selected)
        return;
    store.clear_selection();
    store.set_selected(row, true);
    model_->all_cells_changed();
    Q_EMIT SelectionChanged();
}

// Puts the view's current cell on Row/Col, without echoing it back.
void LynxGrid::show_current()
{
    if (model_->held())
        return;
    const int shown = row_ >= 0 ? model_->model_row(row_) : -1;
    if (shown < 0 || Cols() == 0)
        return;
    const QModelIndex index = model_->index(shown, std::clamp(col_, 0, Cols() - 1));
    syncing_ = true;
    view_->selectionModel()->setCurrentIndex(index, QItemSelectionModel::NoUpdate);
    view_->scrollTo(index);
    syncing_ = false;
}

// The operator moved the current cell, by keyboard or mouse. Shift extends
// the selection from the anchor; Ctrl leaves it to the click (pressed).
void LynxGrid::current_changed(const QModelIndex &current)
{
    if (syncing_ || !current.isValid())
        return;
    const int row = model_->position(current);
    const bool moved = row != row_ || current.column() != col_;
    row_ = row;
    col_ = current.column();
    const Qt::KeyboardModifiers mods = QGuiApplication::keyboardModifiers();
    if (!multi_select_ || !(mods & (Qt::ShiftModifier | Qt::ControlModifier))) {
        select_only(row);
        anchor_ = row;
    } else if ((mods & Qt::ShiftModifier) && anchor_ >= 0) {
        GridStore &store = model_->store();
        store.clear_selection();
        for (int r = std::min(anchor_, row); r <= std::max(anchor_, row); ++r)
            store.set_selected(r, store.row(r).shown());
        model_->all_cells_changed();
        Q_EMIT SelectionChanged();
    }
    if (moved)
        Q_EMIT RowColChanged();
}

void LynxGrid::pressed(const QModelIndex &index)
{
    if (!index.isValid() || !multi_select_)
        return;
    const int row = model_->position(index);
    if (QGuiApplication::keyboardModifiers() & Qt::ControlModifier) {
        anchor_ = row;
        setRowSelected(row, !RowSelected(row));
    } else if (!(QGuiApplication::keyboardModifiers() & Qt::ShiftModifier)) {
        select_only(row);
        anchor_ = row;
    }
}

// ---- Sort, search, filter -------------------------------------------------

void LynxGrid::Sort(int col, bool ascending)
{
    if (!has_col(col))
        return;
    GridStore &store = model_->store();
    const int current = row_ >= 0 ? store.order()[size_t(row_)] : -1;
    store.set_order(sorted_order(store, col, ascending, custom_sort_));
    if (current >= 0) {
        const auto it = std::find(store.order().begin(), store.order().end(), current);
        row_ = int(it - store.order().begin());
    }
    anchor_ = row_;
    sorted_col_ = col;
    sorted_ascending_ = ascending;
    rows_changed();
    Q_EMIT SortComplete();
}

void LynxGrid::header_clicked(int col)
{
    Q_EMIT ColumnClick(col);
    if (allow_column_sort_)
        Sort(col, !(sorted_col_ == col && sorted_ascending_));
}

int LynxGrid::FindItem(const QString &text, int col, int start_row, bool partial) const
{
    const GridStore &store = model_->store();
    for (int row = std::max(start_row, 0); row < store.row_count(); ++row) {
        const QStringView cell = store.cell(row, col);
        if (partial ? cell.contains(text, Qt::CaseInsensitive) : cell.compare(text, Qt::CaseInsensitive) == 0)
            return row;
    }
    return -1;
}

void LynxGrid::FilterOn(int col, const QString &text)
{
    if (!has_col(col))
        return;
    model_->store().filter(col, text);
    rows_changed();
}

void LynxGrid::FilterOff()
{
    model_->store().clear_filter();
    rows_changed();
}

// ---- Events ---------------------------------------------------------------

bool LynxGrid::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == view_ && event->type() == QEvent::KeyPress) {
        const auto *key = static_cast<QKeyEvent *>(event);
        Q_EMIT KeyDown(key->key(), key->modifiers());
    }
    return QWidget::eventFilter(watched, event);
}

void LynxGrid::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::FontChange)
        fit_row_height();
    if (event->type() == QEvent::PaletteChange)
        model_->set_selection_palette(palette());
    QWidget::changeEvent(event);
}

void LynxGrid::fit_row_height()
{
    constexpr int kRowPadding = 6;
    view_->verticalHeader()->setDefaultSectionSize(fontMetrics().height() + kRowPadding);
}

} // namespace vendrix::widgets

#include "widgets/lynx_grid_model.h"

#include <QFont>

namespace vendrix::widgets {

int LynxGridModel::rowCount(const QModelIndex &parent) const
{
    if (parent.isValid())
        return 0;
    return held_ ? held_rows_ : store_.shown_count();
}

int LynxGridModel::columnCount(const QModelIndex &parent) const
{
    if (parent.isValid())
        return 0;
    return held_ ? held_cols_ : store_.column_count();
}

// While held the view may still ask about rows it knew before the hold.
bool LynxGridModel::fits(const QModelIndex &index) const
{
    return index.isValid() && index.row() < store_.shown_count() && store_.has_column(index.column());
}

QVariant LynxGridModel::data(const QModelIndex &index, int role) const
{
    if (!fits(index))
        return {};
    const int pos = position(index);
    const int col = index.column();
    const GridRow &row = store_.row(pos);
    const CellStyle *cell = store_.find_cell_style(pos, col);
    const RowStyle *style = row.style.get();
    switch (role) {
    case Qt::DisplayRole: {
        const QString text = store_.cell(pos, col).toString();
        const QString &format = store_.column(col).spec.format;
        return format.isEmpty() || !formatter_ ? text : formatter_(text, format);
    }
    case Qt::EditRole:
        return store_.cell(pos, col).toString();
    case Qt::TextAlignmentRole:
        return int(store_.column(col).spec.alignment);
    case Qt::BackgroundRole:
        if (row.selected)
            return palette_.brush(QPalette::Highlight);
        if (cell && cell->back.isValid())
            return cell->back;
        if (style && style->back.isValid())
            return style->back;
        return {};
    case Qt::ForegroundRole:
        if (row.selected)
            return palette_.brush(QPalette::HighlightedText);
        if (cell && cell->fore.isValid())
            return cell->fore;
        if (style && style->fore.isValid())
            return style->fore;
        return {};
    case Qt::FontRole:
        if (cell && cell->bold) {
            QFont bold;
            bold.setBold(true);
            return bold;
        }
        return {};
    case Qt::DecorationRole:
        if (cell && !cell->image.isNull())
            return cell->image;
        return {};
    default:
        return {};
    }
}

QVariant LynxGridModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || !store_.has_column(section))
        return {};
    if (role == Qt::DisplayRole)
        return store_.column(section).spec.heading;
    if (role == Qt::TextAlignmentRole)
        return int(store_.column(section).spec.alignment);
    return {};
}

Qt::ItemFlags LynxGridModel::flags(const QModelIndex &index) const
{
    if (!fits(index))
        return Qt::NoItemFlags;
    Qt::ItemFlags flags = Qt::ItemIsEnabled | Qt::ItemIsSelectable;
    if (editable_ && !store_.column(index.column()).spec.locked)
        flags |= Qt::ItemIsEditable;
    return flags;
}

void LynxGridModel::hold(bool held)
{
    if (held == held_)
        return;
    if (held) {
        held_rows_ = store_.shown_count();
        held_cols_ = store_.column_count();
        held_ = true;
        stale_ = false;
        return;
    }
    held_ = false;
    if (stale_) {
        stale_ = false;
        beginResetModel();
        endResetModel();
    }
}

int LynxGridModel::append_row(const QString &tab_joined)
{
    if (held_) {
        stale_ = true;
        return store_.add_row(tab_joined);
    }
    // A new row is shown, after the rows shown so far.
    const int row = store_.shown_count();
    beginInsertRows({}, row, row);
    const int pos = store_.add_row(tab_joined);
    endInsertRows();
    return pos;
}

void LynxGridModel::remove_row(int pos)
{
    const int row = model_row(pos);
    if (held_ || row < 0) {
        stale_ = stale_ || held_;
        store_.remove_row(pos);
        return;
    }
    beginRemoveRows({}, row, row);
    store_.remove_row(pos);
    endRemoveRows();
}

void LynxGridModel::append_column(const ColumnSpec &spec)
{
    if (held_) {
        stale_ = true;
        store_.add_column(spec);
        return;
    }
    const int col = store_.column_count();
    beginInsertColumns({}, col, col);
    store_.add_column(spec);
    endInsertColumns();
}

void LynxGridModel::cells_changed(int pos)
{
    if (held_) {
        stale_ = true;
        return;
    }
    const int row = model_row(pos);
    if (row >= 0 && store_.column_count() > 0)
        Q_EMIT dataChanged(index(row, 0), index(row, store_.column_count() - 1));
}

void LynxGridModel::all_cells_changed()
{
    if (held_) {
        stale_ = true;
        return;
    }
    if (rowCount() > 0 && columnCount() > 0)
        Q_EMIT dataChanged(index(0, 0), index(rowCount() - 1, columnCount() - 1));
}

void LynxGridModel::column_changed(int col)
{
    if (!held_)
        Q_EMIT headerDataChanged(Qt::Horizontal, col, col);
    all_cells_changed();
}

void LynxGridModel::reset_all()
{
    if (held_) {
        stale_ = true;
        return;
    }
    beginResetModel();
    endResetModel();
}

} // namespace vendrix::widgets

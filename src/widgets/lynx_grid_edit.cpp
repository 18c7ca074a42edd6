// In-place edit of grid cells: when it may start, how keys are filtered,
// and how the new text is taken.
#include "widgets/lynx_grid.h"

#include "widgets/cell_reading.h"
#include "widgets/grid_edit_delegate.h"
#include "widgets/grid_view.h"
#include "widgets/lynx_grid_model.h"

#include <QTableView>

namespace vendrix::widgets {

void LynxGrid::setAllowEdit(bool on)
{
    allow_edit_ = on;
    model_->set_editable(on);
    view_->setEditTriggers(on ? QAbstractItemView::DoubleClicked | QAbstractItemView::EditKeyPressed |
                                    QAbstractItemView::AnyKeyPressed
                              : QAbstractItemView::NoEditTriggers);
}

bool LynxGrid::EditPending() const
{
    return delegate_->editing();
}

bool LynxGrid::ForceCellEdit(int row, int col)
{
    const int shown = has_row(row) && has_col(col) ? model_->model_row(row) : -1;
    if (!allow_edit_ || shown < 0 || model_->held())
        return false;
    setRow(row);
    setCol(col);
    // The view reports success even when the delegate refused the editor.
    return view_->try_edit(model_->index(shown, col)) && delegate_->editing();
}

void LynxGrid::CommitEdit()
{
    delegate_->commit();
}

bool LynxGrid::begin_edit(int row, int col)
{
    if (!allow_edit_ || ColLocked(col))
        return false;
    bool cancel = false;
    if (before_edit_)
        before_edit_(row, col, cancel);
    return !cancel;
}

int LynxGrid::filter_edit_key(int col, int key)
{
    int filtered = filter_key(ColInputFilter(col), key);
    if (edit_key_press_)
        edit_key_press_(col, filtered);
    return filtered;
}

void LynxGrid::end_edit(int row, int col, const QString &new_value)
{
    if (!has_row(row))
        return;
    QString value = new_value;
    bool cancel = false;
    if (after_edit_)
        after_edit_(row, col, value, cancel);
    if (!cancel)
        setCellText(row, col, value);
}

} // namespace vendrix::widgets

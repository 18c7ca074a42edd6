#pragma once

#include "support/qt_print.h"
#include "widgets/lynx_grid.h"

#include <QLineEdit>
#include <QStringList>
#include <QTableView>

#include <initializer_list>
#include <memory>

namespace vendrix::test {

// A grid with text columns of the given headings and rows of tab-joined cells.
inline std::unique_ptr<widgets::LynxGrid> make_grid(const QStringList &headings,
                                                    std::initializer_list<const char *> rows = {})
{
    auto grid = std::make_unique<widgets::LynxGrid>();
    for (const QString &heading : headings)
        grid->AddColumn(heading);
    for (const char *row : rows)
        grid->AddItem(QString::fromUtf8(row));
    return grid;
}

// The cells of one column, row by row.
inline QStringList column_texts(const widgets::LynxGrid &grid, int col)
{
    QStringList texts;
    for (int row = 0; row < grid.Rows(); ++row)
        texts << grid.CellText(row, col);
    return texts;
}

// The texts the view shows in one column, filtered and hidden rows left out.
inline QString shown_texts(const widgets::LynxGrid &grid, int col)
{
    QStringList texts;
    for (int row = 0; row < grid.view()->model()->rowCount(); ++row)
        texts << grid.view()->model()->index(row, col).data().toString();
    return texts.join('|');
}

// The open editor of a grid: closed ones linger hidden in the view until
// deleted.
inline QLineEdit *open_editor(const widgets::LynxGrid &grid)
{
    for (QLineEdit *editor : grid.view()->viewport()->findChildren<QLineEdit *>()) {
        if (!editor->isHidden())
            return editor;
    }
    return nullptr;
}

} // namespace vendrix::test

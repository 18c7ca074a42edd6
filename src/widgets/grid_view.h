#pragma once

#include <QTableView>

namespace vendrix::widgets {

// The table view inside a grid; it only lets the grid open an editor and
// hear whether it was refused, without the view's warning for a refusal.
class GridView final : public QTableView {
    Q_OBJECT

public:
    using QTableView::QTableView;

    bool try_edit(const QModelIndex &index) { return edit(index, AllEditTriggers, nullptr); }
};

} // namespace vendrix::widgets

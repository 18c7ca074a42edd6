#pragma once

#include <QWidget>

#include <functional>

class QTableView;

namespace vendrix::widgets {

// The totals line under a grid's rows: one text per column, drawn under
// that column's header section so it follows resizing, moving and
// horizontal scrolling.
class TotalsBar final : public QWidget {
    Q_OBJECT

public:
    using TextOf = std::function<QString(int col)>;

    TotalsBar(QTableView &view, TextOf text_of, QWidget *parent);

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    QTableView &view_;
    TextOf text_of_;
};

} // namespace vendrix::widgets

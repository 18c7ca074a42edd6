#include "widgets/totals_bar.h"

#include <QHeaderView>
#include <QPainter>
#include <QTableView>

namespace vendrix::widgets {

namespace {
constexpr int kPadding = 4;
}

TotalsBar::TotalsBar(QTableView &view, TextOf text_of, QWidget *parent)
    : QWidget(parent), view_(view), text_of_(std::move(text_of))
{
    QFont bold = font();
    bold.setBold(true);
    setFont(bold);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
}

QSize TotalsBar::sizeHint() const
{
    return {QWidget::sizeHint().width(), fontMetrics().height() + 2 * kPadding};
}

void TotalsBar::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.fillRect(rect(), palette().button());
    painter.setPen(palette().color(QPalette::Mid));
    painter.drawLine(rect().topLeft(), rect().topRight());
    painter.setPen(palette().color(QPalette::ButtonText));
    const QHeaderView *header = view_.horizontalHeader();
    // The bar sits right under the view: columns start where its viewport does.
    const int left = view_.geometry().x() + view_.viewport()->geometry().x();
    const int visible_width = view_.viewport()->width();
    for (int col = 0; col < header->count(); ++col) {
        if (header->isSectionHidden(col))
            continue;
        const int x = header->sectionViewportPosition(col);
        const int width = header->sectionSize(col);
        if (x + width < 0 || x > visible_width)
            continue;
        const QString text = text_of_(col);
        if (text.isEmpty())
            continue;
        const QRect cell(left + x + kPadding, 0, width - 2 * kPadding, height());
        const auto alignment = view_.model()->headerData(col, Qt::Horizontal, Qt::TextAlignmentRole);
        const Qt::Alignment horizontal =
            alignment.isValid() ? Qt::Alignment(alignment.toInt()) & Qt::AlignHorizontal_Mask : Qt::AlignLeft;
        painter.drawText(cell, int(horizontal | Qt::AlignVCenter),
                         fontMetrics().elidedText(text, Qt::ElideRight, cell.width()));
    }
}

} // namespace vendrix::widgets

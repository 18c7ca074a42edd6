#pragma once

#include <QPointer>
#include <QStyledItemDelegate>

namespace vendrix::widgets {

class LynxGrid;

// The in-place editor of a grid: a line edit whose keys pass through the
// column's input filter and the owner's EditKeyPress handler, opened only
// when the owner's BeforeEdit allows it, and whose text goes back through
// AfterEdit.
class GridEditDelegate final : public QStyledItemDelegate {
    Q_OBJECT

public:
    GridEditDelegate(LynxGrid &grid, QObject *parent) : QStyledItemDelegate(parent), grid_(grid) {}

    QWidget *createEditor(QWidget *parent, const QStyleOptionViewItem &option,
                          const QModelIndex &index) const override;
    void setEditorData(QWidget *editor, const QModelIndex &index) const override;
    void setModelData(QWidget *editor, QAbstractItemModel *model, const QModelIndex &index) const override;
    void destroyEditor(QWidget *editor, const QModelIndex &index) const override;

    bool editing() const { return !editor_.isNull(); }
    // Writes the open editor's text back and closes it.
    void commit();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    LynxGrid &grid_;
    mutable QPointer<QWidget> editor_;
    mutable int editor_col_ = -1;
};

} // namespace vendrix::widgets

#include "widgets/grid_edit_delegate.h"

#include "widgets/lynx_grid.h"
#include "widgets/lynx_grid_model.h"

#include <QKeyEvent>
#include <QLineEdit>
#include <QTableView>

namespace vendrix::widgets {

namespace {

// The first character a key event types, 0 for keys that type nothing.
int typed_code(const QKeyEvent &key)
{
    const QString text = key.text();
    return text.isEmpty() ? 0 : text.at(0).unicode();
}

} // namespace

QWidget *GridEditDelegate::createEditor(QWidget *parent, const QStyleOptionViewItem &option,
                                        const QModelIndex &index) const
{
    const auto *model = static_cast<const LynxGridModel *>(index.model());
    if (!grid_.begin_edit(model->position(index), index.column()))
        return nullptr;
    QWidget *editor = QStyledItemDelegate::createEditor(parent, option, index);
    editor_ = editor;
    editor_col_ = index.column();
    return editor;
}

void GridEditDelegate::setEditorData(QWidget *editor, const QModelIndex &index) const
{
    if (auto *line = qobject_cast<QLineEdit *>(editor))
        line->setText(index.data(Qt::EditRole).toString());
    else
        QStyledItemDelegate::setEditorData(editor, index);
}

void GridEditDelegate::setModelData(QWidget *editor, QAbstractItemModel *model,
                                    const QModelIndex &index) const
{
    auto *line = qobject_cast<QLineEdit *>(editor);
    if (!line)
        return;
    grid_.end_edit(static_cast<LynxGridModel *>(model)->position(index), index.column(), line->text());
}

void GridEditDelegate::destroyEditor(QWidget *editor, const QModelIndex &index) const
{
    if (editor == editor_)
        editor_ = nullptr;
    QStyledItemDelegate::destroyEditor(editor, index);
}

void GridEditDelegate::commit()
{
    if (!editor_)
        return;
    QWidget *editor = editor_;
    Q_EMIT commitData(editor);
    Q_EMIT closeEditor(editor, QAbstractItemDelegate::NoHint);
    editor_ = nullptr;
}

// Printable keys go through the filter and the owner; Enter, Escape, Tab
// and the like are left to the base delegate, which commits or cancels.
bool GridEditDelegate::eventFilter(QObject *watched, QEvent *event)
{
    auto *line = qobject_cast<QLineEdit *>(watched);
    if (line && event->type() == QEvent::KeyPress) {
        const auto *key_event = static_cast<QKeyEvent *>(event);
        const int typed = typed_code(*key_event);
        constexpr int kFirstPrintable = 32;
        constexpr int kBackspace = 8;
        constexpr int kDelete = 127;
        if ((typed >= kFirstPrintable && typed != kDelete) || typed == kBackspace) {
            const int key = grid_.filter_edit_key(editor_col_, typed);
            if (key == 0)
                return true;
            if (key != typed) {
                line->insert(QString(QChar(key)));
                return true;
            }
            return false;
        }
    }
    return QStyledItemDelegate::eventFilter(watched, event);
}

} // namespace vendrix::widgets

#include "widgets/autocomplete_box.h"

#include "core/operator.h"

#include <QApplication>
#include <QFocusEvent>
#include <QKeyEvent>
#include <QLineEdit>
#include <QListView>
#include <QStringListModel>
#include <QTimer>

#include <algorithm>

namespace vendrix::widgets {

namespace {

// Lines of the drop-down on screen at once; more scroll.
constexpr int kLineasVisibles = 8;

} // namespace

AutoCompleteBox::AutoCompleteBox(Operator *op, QObject *parent) : QObject(parent), op_(op)
{
}

AutoCompleteBox::~AutoCompleteBox()
{
    delete lista_.data();
}

void AutoCompleteBox::AutoCompleteTextbox(QLineEdit *box)
{
    box_ = box;
    caja_ = box;
    box_->installEventFilter(this);
    if (lista_)
        return;
    // A popup window owned by the box: it lies over whatever is under the
    // box and goes with it.
    lista_ = new QListView(box_);
    lista_->setObjectName(QStringLiteral("lstDropDownAutoC1"));
    lista_->setWindowFlags(Qt::Popup);
    lista_->setFocusPolicy(Qt::NoFocus);
    lista_->setFocusProxy(box_);
    lista_->setEditTriggers(QAbstractItemView::NoEditTriggers);
    lista_->setSelectionMode(QAbstractItemView::SingleSelection);
    lista_->setUniformItemSizes(true);
    lista_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    modelo_ = new QStringListModel(lista_);
    lista_->setModel(modelo_);
    lista_->installEventFilter(this);
    lista_objeto_ = lista_.data();
    connect(lista_, &QListView::clicked, this, [this](const QModelIndex &index) {
        logica_.ClickItem(index.row());
        aplicar();
        mostrar_lista();
        box_->setFocus();
    });
}

void AutoCompleteBox::ShowList()
{
    if (!box_)
        return;
    recordar();
    logica_.ShowList();
    mostrar_lista();
}

bool AutoCompleteBox::eventFilter(QObject *watched, QEvent *event)
{
    // A widget being destroyed still sends events, but is no longer of its
    // own class: they are compared by address and left alone, and the
    // guarded pointers are not read before that.
    if (watched == caja_) {
        if (!qobject_cast<QLineEdit *>(watched))
            return false;
        if (event->type() == QEvent::KeyPress)
            return tecla_del_cuadro(*static_cast<QKeyEvent *>(event));
        if (event->type() == QEvent::FocusOut)
            perder_foco(static_cast<QFocusEvent *>(event)->reason());
        return false;
    }
    if (watched == lista_objeto_ && qobject_cast<QListView *>(watched)) {
        switch (event->type()) {
        case QEvent::KeyPress:
        case QEvent::KeyRelease:
            // The open list holds the keyboard: the keys belong to the box.
            if (box_)
                QCoreApplication::sendEvent(box_, event);
            return true;
        case QEvent::Hide:
            // Closed by Qt too, by a click outside it.
            logica_.HideList();
            break;
        default:
            break;
        }
    }
    return false;
}

bool AutoCompleteBox::tecla_del_cuadro(QKeyEvent &key)
{
    const Qt::KeyboardModifiers mandos = key.modifiers() & ~(Qt::ShiftModifier | Qt::KeypadModifier);
    switch (key.key()) {
    case Qt::Key_Backspace:
        if (mandos != Qt::NoModifier)
            return false;
        recordar();
        logica_.Backspace();
        aplicar();
        mostrar_lista();
        return true;
    case Qt::Key_Up:
    case Qt::Key_Down:
        if (!logica_.MoveInList(key.key() == Qt::Key_Up ? -1 : 1))
            return false;
        aplicar();
        mostrar_lista();
        return true;
    case Qt::Key_Escape:
        if (!logica_.ListVisible())
            return false;
        logica_.HideList();
        mostrar_lista();
        return true;
    case Qt::Key_Return:
    case Qt::Key_Enter:
        logica_.HideList();
        mostrar_lista();
        return false;
    default:
        break;
    }
    const QString text = key.text();
    if (text.size() != 1 || text.at(0).unicode() < 32 || text.at(0).unicode() == 127 ||
        mandos != Qt::NoModifier)
        return false;
    if (antes_de_tecla_)
        antes_de_tecla_(logica_);
    recordar();
    const bool tomada = logica_.KeyPress(text.at(0));
    if (tomada)
        aplicar();
    mostrar_lista();
    return tomada;
}

void AutoCompleteBox::perder_foco(int reason)
{
    // The list opening takes the focus for a moment: that is not leaving.
    if (reason == Qt::PopupFocusReason || validando_)
        return;
    logica_.HideList();
    mostrar_lista();
    if (reason == Qt::ActiveWindowFocusReason)
        return;
    recordar();
    const std::optional<QString> rechazo = logica_.Validate();
    if (!rechazo)
        return;
    validando_ = true;
    if (op_)
        op_->inform(QStringLiteral("Vendrix"), *rechazo);
    validando_ = false;
    QTimer::singleShot(0, box_, [box = box_] {
        if (box)
            box->setFocus();
    });
}

void AutoCompleteBox::aplicar()
{
    box_->setText(logica_.Text());
    if (logica_.SelLength() > 0)
        box_->setSelection(logica_.SelStart() + logica_.SelLength(), -logica_.SelLength());
    else
        box_->setCursorPosition(logica_.SelStart());
}

void AutoCompleteBox::recordar()
{
    const int inicio = box_->hasSelectedText() ? box_->selectionStart() : box_->cursorPosition();
    logica_.Change(box_->text(), inicio, static_cast<int>(box_->selectedText().size()));
}

void AutoCompleteBox::mostrar_lista()
{
    if (!lista_)
        return;
    if (!logica_.ListVisible() || !box_ || !box_->isVisible()) {
        if (lista_->isVisible())
            lista_->hide();
        return;
    }
    modelo_->setStringList(logica_.ListRows());
    // A line is as high as the sample of tall and deep letters in the box's
    // font, or as the view draws it if that is more.
    const int linea = std::max(QFontMetrics(box_->font()).boundingRect(QStringLiteral("atpPjkKyX")).height(),
                               lista_->sizeHintForRow(0));
    const int lineas = std::min(static_cast<int>(logica_.ListRows().size()), kLineasVisibles);
    lista_->setGeometry(QRect(box_->mapToGlobal(QPoint(0, box_->height())),
                              QSize(box_->width(), lineas * linea + 2 * lista_->frameWidth())));
    if (logica_.ListRow() >= 0) {
        const QModelIndex actual = modelo_->index(logica_.ListRow());
        lista_->setCurrentIndex(actual);
        lista_->scrollTo(actual);
    } else {
        lista_->clearSelection();
        lista_->scrollToTop();
    }
    if (!lista_->isVisible())
        lista_->show();
}

AutoCompleteBox *autocompletar(QLineEdit *box, const QStringList &items, bool lista, Operator *op)
{
    auto *completion = new AutoCompleteBox(op, box);
    completion->logica().setUseDropDownList(lista);
    completion->logica().AddItems(items);
    completion->AutoCompleteTextbox(box);
    return completion;
}

} // namespace vendrix::widgets

#include "screens/main_window/qt_operator.h"

#include <QApplication>
#include <QMessageBox>
#include <QPushButton>

namespace vendrix {

namespace {

// The message shows over the window in front, with the wait cursor lifted
// while the operator reads it. A window frozen by a long task would freeze
// its boxes too, so they go on their own then.
int mostrar(QWidget *parent, QMessageBox::Icon icon, const QString &title, const QString &text, bool question)
{
    QMessageBox box(icon, title, text, QMessageBox::NoButton,
                    parent && parent->isEnabled() ? parent : nullptr);
    QPushButton *yes = nullptr;
    if (question) {
        yes = box.addButton(QStringLiteral("Sí"), QMessageBox::YesRole);
        box.setDefaultButton(box.addButton(QStringLiteral("No"), QMessageBox::NoRole));
    } else {
        box.setDefaultButton(box.addButton(QStringLiteral("Aceptar"), QMessageBox::AcceptRole));
    }
    const bool waiting = QApplication::overrideCursor() != nullptr;
    if (waiting)
        QApplication::setOverrideCursor(Qt::ArrowCursor);
    box.exec();
    if (waiting)
        QApplication::restoreOverrideCursor();
    return yes && box.clickedButton() == yes ? 1 : 0;
}

} // namespace

void QtOperator::inform(const QString &title, const QString &text)
{
    mostrar(parent_, QMessageBox::Information, title, text, false);
}

void QtOperator::warn(const QString &title, const QString &text)
{
    mostrar(parent_, QMessageBox::Warning, title, text, false);
}

void QtOperator::error(const QString &title, const QString &text)
{
    mostrar(parent_, QMessageBox::Critical, title, text, false);
}

bool QtOperator::ask(const QString &title, const QString &text)
{
    return mostrar(parent_, QMessageBox::Question, title, text, true) == 1;
}

} // namespace vendrix

#pragma once

#include "core/operator.h"

#include <QPointer>
#include <QWidget>

namespace vendrix {

// The operator of the desktop program: message boxes over the window in
// front, with Spanish buttons, "Sí" and "No" for questions.
class QtOperator final : public Operator {
public:
    // The window the boxes belong to: none during the start-up, the main
    // window afterwards.
    void set_parent(QWidget *parent) { parent_ = parent; }

    void inform(const QString &title, const QString &text) override;
    void warn(const QString &title, const QString &text) override;
    void error(const QString &title, const QString &text) override;
    bool ask(const QString &title, const QString &text) override;

private:
    QPointer<QWidget> parent_;
};

} // namespace vendrix

#pragma once

// What the screen tests share: widgets by name, typing, the next dialog.
#include "support/grid_fixture.h"

#include <QAbstractButton>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTableView>
#include <QTest>
#include <QTimer>

#include <gtest/gtest.h>

#include <functional>

namespace vendrix::test {

// A child of a window by its object name.
template <typename T = QLineEdit> T *hijo(const QObject &padre, const char *nombre)
{
    return padre.findChild<T *>(QString::fromUtf8(nombre));
}

// Replaces a box's text as typed: the focus, all selected, then the keys.
inline void escribir(QLineEdit *box, const QString &teclas)
{
    box->setFocus();
    box->selectAll();
    QTest::keyClicks(box, teclas);
}

// Runs `paso` on the modal dialog once it is on screen.
template <typename D = QDialog> void en_el_dialogo(std::function<void(D &)> paso)
{
    QTimer::singleShot(0, [paso] {
        auto *dialogo = qobject_cast<D *>(QApplication::activeModalWidget());
        ASSERT_NE(dialogo, nullptr);
        paso(*dialogo);
    });
}

// Runs `paso` on the first modal dialog of type D to show, however many
// event loops turn before it does (a network wait runs one of its own).
template <typename D> void cuando_aparezca(std::function<void(D &)> paso)
{
    auto *espera = new QTimer;
    QObject::connect(espera, &QTimer::timeout, [espera, paso] {
        if (auto *dialogo = qobject_cast<D *>(QApplication::activeModalWidget()))
            espera->stop(), espera->deleteLater(), paso(*dialogo);
    });
    espera->start(10);
}

} // namespace vendrix::test

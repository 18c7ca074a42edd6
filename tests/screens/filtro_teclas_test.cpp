// The key filter of the input boxes as the boxes see it: which code a key
// press becomes, and a refused Enter still acting as Enter.
#include "screens/main_window/filtro_teclas.h"

#include <QKeyEvent>
#include <QLineEdit>
#include <QSignalSpy>
#include <QTest>

#include <gtest/gtest.h>

namespace vendrix {
namespace {

TEST(FiltroTeclas, FormulaBoxesRefuseTheControlKeysTheyDontList)
{
    struct Caso {
        Qt::Key tecla;
        Qt::KeyboardModifiers mods;
        const char *texto;
        const char *kind; // "real" is a number box
        int codigo;
    };
    const Caso casos[] = {
        {Qt::Key_Return, Qt::NoModifier, "\r", "descuento", 0},
        {Qt::Key_Enter, Qt::KeypadModifier, "\r", "ganancia", 0},
        {Qt::Key_Escape, Qt::NoModifier, "\x1b", "reales", 0},
        {Qt::Key_Backspace, Qt::NoModifier, "\b", "enteros", 8},
        {Qt::Key_Tab, Qt::NoModifier, "\t", "descuento", -1},
        {Qt::Key_Delete, Qt::NoModifier, "\x7f", "descuento", -1},
        {Qt::Key_A, Qt::ControlModifier, "\x01", "descuento", -1},
        {Qt::Key_A, Qt::NoModifier, "a", "descuento", 0},
        {Qt::Key_Period, Qt::KeypadModifier, ".", "ganancia", ','},
        {Qt::Key_Return, Qt::NoModifier, "\r", "real", -1},
        {Qt::Key_Period, Qt::KeypadModifier, ".", "real", ','},
    };
    for (const Caso &c : casos) {
        const QKeyEvent key(QEvent::KeyPress, c.tecla, c.mods, QString::fromLatin1(c.texto));
        const QString kind = QString::fromLatin1(c.kind);
        EXPECT_EQ(codigo_filtrado(QString(), key, kind, kind != QLatin1String("real")), c.codigo)
            << c.kind << " " << c.tecla;
    }

    // Enter beeps and still reaches the box, so whatever the box or its
    // window do with Enter goes on.
    QLineEdit box;
    instalar_filtro_formula(&box, QStringLiteral("ganancia"));
    QSignalSpy enter(&box, &QLineEdit::returnPressed);
    QTest::keyClicks(&box, QStringLiteral("1a+2"));
    QTest::keyClick(&box, Qt::Key_Return);
    EXPECT_EQ(box.text(), QStringLiteral("1+2"));
    EXPECT_EQ(enter.count(), 1);
}

} // namespace
} // namespace vendrix

#include "screens/frm_splash.h"
#include "screens/qt_operator.h"

#include "support/qt_print.h"

#include <QApplication>
#include <QLabel>
#include <QMessageBox>
#include <QProgressBar>
#include <QPushButton>
#include <QTimer>

#include <gtest/gtest.h>

namespace vendrix::test {
namespace {

QString texto(const FrmSplash &splash, const char *name)
{
    return splash.findChild<QLabel *>(QString::fromLatin1(name))->text();
}

TEST(FrmSplash, EachStepShiftsTheCaptionsAndMovesTheBar)
{
    FrmSplash splash;
    splash.mostrar(4, QStringLiteral("Versión: 1.0.0"));
    EXPECT_EQ(texto(splash, "lblVersion"), QStringLiteral("Versión: 1.0.0"));
    EXPECT_FALSE(splash.findChild<QLabel *>(QStringLiteral("Picture1_4"))->isHidden());
    EXPECT_TRUE(splash.findChild<QLabel *>(QStringLiteral("Picture1_0"))->isHidden());

    auto *bar = splash.findChild<QProgressBar *>(QStringLiteral("splash_pb"));
    splash.avanzar();
    splash.update_bar(QStringLiteral("Uno"));
    splash.update_bar(QStringLiteral("Dos"));
    splash.update_bar(QStringLiteral("Tres"));
    EXPECT_EQ(texto(splash, "text_pb"), QStringLiteral("Tres..."));
    EXPECT_EQ(texto(splash, "text_pbm1"), QStringLiteral("Dos..."));
    EXPECT_EQ(texto(splash, "text_pbm2"), QStringLiteral("Uno..."));
    EXPECT_EQ(bar->value(), 36); // 100/11 rounded, four times

    for (int i = 0; i < 8; ++i)
        splash.update_bar(QStringLiteral("Más"));
    EXPECT_EQ(bar->value(), 100); // twelve steps would pass the end
}

// Answers the message box that opens next with the button of that caption,
// and tells which buttons it had.
void pulsar_luego(const QString &caption, QString *seen)
{
    QTimer::singleShot(0, [caption, seen] {
        auto *box = qobject_cast<QMessageBox *>(QApplication::activeModalWidget());
        ASSERT_NE(box, nullptr);
        QStringList captions;
        for (QAbstractButton *button : box->buttons())
            captions << button->text();
        *seen = captions.join(QLatin1Char('|'));
        for (QAbstractButton *button : box->buttons()) {
            if (button->text() == caption)
                button->click();
        }
    });
}

TEST(QtOperator, QuestionsHaveSpanishButtons)
{
    QtOperator op;
    QString seen;
    pulsar_luego(QStringLiteral("Sí"), &seen);
    EXPECT_TRUE(op.ask(QStringLiteral("Título"), QStringLiteral("¿Seguro?")));
    EXPECT_EQ(seen, QStringLiteral("Sí|No"));
    pulsar_luego(QStringLiteral("No"), &seen);
    EXPECT_FALSE(op.ask(QStringLiteral("Título"), QStringLiteral("¿Seguro?")));
    pulsar_luego(QStringLiteral("Aceptar"), &seen);
    op.inform(QStringLiteral("Título"), QStringLiteral("Listo."));
    EXPECT_EQ(seen, QStringLiteral("Aceptar"));
}

} // namespace
} // namespace vendrix::test

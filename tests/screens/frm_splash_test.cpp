#include "screens/main_window/frm_splash.h"
#include "screens/main_window/qt_operator.h"
#include "screens/pantalla.h"

#include "support/qt_print.h"

#include <QMessageBox>
#include <QProgressBar>

namespace vendrix::test {
namespace {

TEST(FrmSplash, EachStepShiftsTheCaptionsAndMovesTheBar)
{
    FrmSplash splash;
    splash.mostrar(4, QStringLiteral("Versión: 1.0.0"));
    auto texto = [&](const char *name) {
        return splash.findChild<QLabel *>(QString::fromLatin1(name))->text();
    };
    EXPECT_EQ(texto("lblVersion"), QStringLiteral("Versión: 1.0.0"));
    EXPECT_FALSE(splash.findChild<QLabel *>(QStringLiteral("Picture1_4"))->isHidden());

    auto *bar = splash.findChild<QProgressBar *>(QStringLiteral("splash_pb"));
    splash.avanzar();
    for (const char *paso : {"Uno", "Dos", "Tres"})
        splash.update_bar(QString::fromLatin1(paso));
    EXPECT_EQ(QStringList({texto("text_pb"), texto("text_pbm1"), texto("text_pbm2")}),
              QStringList({"Tres...", "Dos...", "Uno..."}));
    EXPECT_EQ(bar->value(), 36); // 100/11 rounded, four times
    for (int i = 0; i < 8; ++i)
        splash.update_bar(QStringLiteral("Más"));
    EXPECT_EQ(bar->value(), 100); // twelve steps would pass the end
}

TEST(QtOperator, QuestionsHaveSpanishButtons)
{
    QtOperator op;
    QStringList vistos;
    // Answers the next message box with the button of that caption, and
    // notes which buttons it had.
    auto pulsar_luego = [&vistos](const QString &caption) {
        en_el_dialogo<QMessageBox>([caption, &vistos](QMessageBox &box) {
            QStringList captions;
            for (QAbstractButton *button : box.buttons())
                captions << button->text();
            vistos << captions.join(QLatin1Char('|'));
            box.buttons().at(captions.indexOf(caption))->click();
        });
    };
    pulsar_luego(QStringLiteral("Sí"));
    EXPECT_TRUE(op.ask(QStringLiteral("Título"), QStringLiteral("¿Seguro?")));
    pulsar_luego(QStringLiteral("No"));
    EXPECT_FALSE(op.ask(QStringLiteral("Título"), QStringLiteral("¿Seguro?")));
    pulsar_luego(QStringLiteral("Aceptar"));
    op.inform(QStringLiteral("Título"), QStringLiteral("Listo."));
    EXPECT_EQ(vistos, QStringList({"Sí|No", "Sí|No", "Aceptar"}));
}

} // namespace
} // namespace vendrix::test

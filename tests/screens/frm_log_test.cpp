#include "screens/frm_log.h"

#include "support/qt_print.h"
#include "support/test_context.h"
#include "widgets/lynx_grid.h"

#include <QCheckBox>
#include <QGroupBox>
#include <QPlainTextEdit>
#include <QPushButton>

#include <gtest/gtest.h>

namespace vendrix::test {
namespace {

QStringList fila(const widgets::LynxGrid &grid, int row)
{
    return {grid.CellText(row, 0), grid.CellText(row, 1), grid.CellText(row, 2)};
}

struct Visor {
    Visor()
    {
        app.ctx().escribir_log(QStringLiteral("Precio de 1,50 guardado"), QStringLiteral("I"));
        app.ctx().escribir_log(QStringLiteral("ER EXECNQ - 1 falla"), QStringLiteral("E"));
        app.ctx().escribir_log(QStringLiteral("<a><b>1</b>  <c/></a>"), QStringLiteral("X"));
        app.ctx().escribir_log(QStringLiteral("Se borro el pedido"), QStringLiteral("A"));
        viewer = std::make_unique<FrmLog>(app.ctx());
    }

    widgets::LynxGrid &grid() { return *viewer->grilla(); }
    template <typename T> T *child(const QString &name) { return viewer->findChild<T *>(name); }

    TestApp app;
    std::unique_ptr<FrmLog> viewer;
};

TEST(FrmLog, ShowsTheLinesWithTheirCommasBack)
{
    Visor v;
    ASSERT_TRUE(v.app.read_file(QStringLiteral("vendrix.log")).contains("Precio de 1;;50 guardado"));

    ASSERT_EQ(v.grid().Cols(), 3);
    EXPECT_EQ(QStringList({v.grid().ColHeading(0), v.grid().ColHeading(1), v.grid().ColHeading(2)}),
              QStringList({"Fecha", "Tipo", "Log"}));
    ASSERT_EQ(v.grid().Rows(), 4);
    EXPECT_EQ(fila(v.grid(), 0), QStringList({"23/11/2026 10:30:00", "INFO", "Precio de 1,50 guardado."}));
    EXPECT_EQ(v.grid().CellText(1, 1), QStringLiteral("ERROR"));
    EXPECT_EQ(v.grid().RowForeColor(1), QColor(Qt::red));
    EXPECT_EQ(v.grid().RowForeColor(3), QColor(Qt::blue));
    const qint64 size = v.app.read_file(QStringLiteral("vendrix.log")).size();
    EXPECT_EQ(v.child<QGroupBox>(QStringLiteral("Frame_log"))->title(),
              QStringLiteral("Log (%1 Bytes)").arg(size));
}

TEST(FrmLog, LevelBoxesFilterTheRows)
{
    Visor v;
    v.child<QCheckBox>(QStringLiteral("Check_filtro_0"))->setChecked(false); // INF
    v.child<QCheckBox>(QStringLiteral("Check_filtro_5"))->setChecked(false); // XML
    EXPECT_EQ(v.grid().Rows(), 2);
    EXPECT_EQ(v.grid().CellText(0, 1), QStringLiteral("ERROR"));
    EXPECT_EQ(v.grid().CellText(1, 1), QStringLiteral("ACTION"));
    v.child<QCheckBox>(QStringLiteral("Check_filtro_0"))->setChecked(true);
    EXPECT_EQ(v.grid().Rows(), 3);
}

TEST(FrmLog, TheDetailBoxLaysXmlOutOneTagALine)
{
    Visor v;
    auto *detail = v.child<QPlainTextEdit>(QStringLiteral("log_detail"));
    v.grid().setRow(2);
    EXPECT_EQ(detail->toPlainText().remove(QLatin1Char('\r')), QStringLiteral("<a>\n<b>1</b>\n<c/>\n</a>."));
    v.grid().setRow(0);
    EXPECT_EQ(detail->toPlainText(), QStringLiteral("Precio de 1,50 guardado."));
}

TEST(FrmLog, ClearingEmptiesTheLogAndTurnsTheErrorIndicatorOff)
{
    Visor v;
    v.child<QPushButton>(QStringLiteral("Command_borrar"))->click();

    EXPECT_EQ(v.app.log_messages(), QStringList{"Configuración - Se Borro el log a pedido del usuario."});
    ASSERT_EQ(v.grid().Rows(), 1);
    EXPECT_EQ(v.grid().CellText(0, 1), QStringLiteral("ACTION"));
    EXPECT_EQ(v.app.status.keywords.last(), QStringLiteral("bug_off"));

    // Refresh reads lines written since.
    v.app.ctx().escribir_log(QStringLiteral("otra línea"), QStringLiteral("I"));
    v.child<QPushButton>(QStringLiteral("Command_refresh"))->click();
    EXPECT_EQ(v.grid().Rows(), 2);
}

TEST(FrmLog, WithoutALogFileTheGridIsEmpty)
{
    TestApp app;
    FrmLog viewer(app.ctx());
    EXPECT_EQ(viewer.grilla()->Rows(), 0);
    EXPECT_EQ(viewer.findChild<QGroupBox *>(QStringLiteral("Frame_log"))->title(),
              QStringLiteral("Log (0 Bytes)"));
}

} // namespace
} // namespace vendrix::test

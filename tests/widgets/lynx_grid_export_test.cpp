#include "support/grid_fixture.h"
#include "support/scripted_operator.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace vendrix::widgets;
using vendrix::test::make_grid;
using vendrix::test::ScriptedOperator;

namespace {

struct ExportFixture : ::testing::Test {
    void SetUp() override
    {
        grid = make_grid({"Código", "Artículo", "Precio"});
        grid->setOperator(&op);
        grid->setDesktopFolder(desktop.path());
        grid->setFileOpener([this](const QString &path) { opened << path; });
    }

    QString csv() const { return QDir(desktop.path()).filePath("listas.csv"); }
    QByteArray written() const
    {
        QFile f(csv());
        return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray("<missing>");
    }

    QTemporaryDir desktop;
    ScriptedOperator op;
    QStringList opened;
    std::unique_ptr<LynxGrid> grid;
};

const QString kQuestion =
    "ask|LynxGrid.Export|File listas.csv was saved to your desktop.\r\nDo you want to open it?";

} // namespace

TEST_F(ExportFixture, WritesShownRowsAndColumnsQuotingCommasQuotesAndBreaks)
{
    grid->AddItem("A-1\tTornillo 3/8, zincado\t10,50");
    grid->AddItem("B-2\tCaño 1\" \"reforzado\"\t7");
    grid->AddItem("C-3\tVarios\nrenglones\t1\r2");
    grid->AddItem("D-4\tOculto\t0");
    grid->setRowVisible(3, false);
    op.answer(false);
    ASSERT_TRUE(grid->ExportGrid("listas"));
    EXPECT_EQ(written(), QByteArray("\xEF\xBB\xBF"
                                    "Código,Artículo,Precio\r\n"
                                    "A-1,\"Tornillo 3/8, zincado\",\"10,50\"\r\n"
                                    "B-2,\"Caño 1\"\" \"\"reforzado\"\"\",7\r\n"
                                    "C-3,\"Varios\nrenglones\",\"1\r2\"\r\n"));
    EXPECT_EQ(op.lines(), QStringList({kQuestion}));
    EXPECT_TRUE(opened.isEmpty());
}

TEST_F(ExportFixture, LeavesOutHiddenColumnsKeepsScreenOrderAndReplacesTheFile)
{
    grid->AddItem("A-1\tTornillo\t10");
    grid->setColVisible(0, false);
    grid->AddColumn({.heading = "Primero", .position = 1});
    grid->setCellText(0, 3, "p");
    QFile old(csv());
    ASSERT_TRUE(old.open(QIODevice::WriteOnly));
    old.write("contenido viejo que es bastante más largo que el nuevo\r\n\r\n\r\n\r\n");
    old.close();
    op.answer(true);
    ASSERT_TRUE(grid->ExportGrid("listas.csv"));
    EXPECT_EQ(written(), QByteArray("\xEF\xBB\xBF"
                                    "Primero,Artículo,Precio\r\n"
                                    "p,Tornillo,10\r\n"));
    EXPECT_EQ(opened, QStringList({csv()}));
}

TEST_F(ExportFixture, AnEmptyGridOrAnUnwritableFolderWritesNothing)
{
    EXPECT_FALSE(grid->ExportGrid("listas"));
    EXPECT_FALSE(QFile::exists(csv()));
    grid->AddItem("A-1\tTornillo\t10");
    grid->setDesktopFolder(QDir(desktop.path()).filePath("no-existe"));
    EXPECT_FALSE(grid->ExportGrid("listas"));
    // The error's number, then the system's description.
    ASSERT_EQ(op.shown.size(), 2u);
    EXPECT_EQ(op.lines()[0], "inform|LynxGrid.Export|No grid rows to export.");
    EXPECT_TRUE(op.lines()[1].startsWith("error|LynxGrid.Export|Error# 75\r\n"))
        << op.lines()[1].toStdString();
    EXPECT_GT(op.shown[1].text.size(), QString("Error# 75\r\n").size());
}

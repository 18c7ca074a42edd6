#include "support/grid_fixture.h"

#include <QSignalSpy>
#include <QTableView>
#include <QTest>

#include <gtest/gtest.h>

using namespace vendrix::widgets;
using vendrix::test::column_texts;
using vendrix::test::make_grid;
using vendrix::test::shown_texts;

TEST(LynxGridRows, AddSetClearAndClearAll)
{
    auto grid =
        make_grid({"Cant.", "Artículo", "Precio"}, {"2\tTornillo 3/8\t10,50", "1", "\t\tsolo precio"});
    // One cell changes alone, and may hold a tab; no such cell reads and writes nothing.
    grid->setCellText(0, 1, "dos largo");
    grid->setCellText(1, 2, "a\tb");
    grid->setCellText(0, 5, "fuera");
    EXPECT_EQ(column_texts(*grid, 0) + column_texts(*grid, 1) + column_texts(*grid, 2),
              QStringList({"2", "1", "", "dos largo", "", "", "10,50", "a\tb", "solo precio"}));
    EXPECT_EQ(grid->CellText(0, 5) + grid->CellText(9, 0), "");
    grid->setTotalsLineCaption(0, "Carrito guardado: 261123-103000");
    grid->Clear();
    EXPECT_EQ(QString::number(grid->Rows()) + grid->ColHeading(2) + grid->TotalsLineCaption(0),
              "0PrecioCarrito guardado: 261123-103000");
    grid->AddItem("5\t6");
    grid->ClearAll();
    EXPECT_TRUE(grid->Rows() + grid->Cols() + grid->view()->model()->columnCount() == 0 &&
                grid->TotalsLineCaption(0).isEmpty());
}

TEST(LynxGridRows, RemovingTheCurrentRowMovesToTheNextAndKeepsStylesWithTheirRows)
{
    auto grid = make_grid({"A"}, {"a", "b", "c"});
    grid->RemoveItem(-1); // out of range: nothing happens
    grid->RemoveItem(3);
    grid->setRowTag(2, "tercera");
    grid->setCellBackColor(2, 0, Qt::red);
    grid->setRow(1);
    grid->RemoveItem(1);
    EXPECT_EQ(column_texts(*grid, 0), QStringList({"a", "c"}));
    EXPECT_EQ(grid->view()->model()->rowCount(), 2);
    EXPECT_TRUE(grid->Row() == 1 && grid->RowSelected(1) && grid->RowTag(1) == "tercera");
    EXPECT_EQ(grid->CellBackColor(1, 0), QColor(Qt::red));
    grid->RemoveItem(1);
    EXPECT_EQ(grid->Row(), 0);
    grid->RemoveItem(0);
    EXPECT_EQ(grid->Row(), -1);
}

TEST(LynxGridRows, FilteredOutAndHiddenRowsLeaveTheViewButStillReadBack)
{
    auto grid = make_grid({"Proveedor", "Artículo"},
                          {"ACME\tTornillo", "Bulonera\tTuerca", "acme sa\tArandela", "Otro\tClavo"});
    grid->FilterOn(0, "ACME");
    EXPECT_EQ(grid->Rows(), 4);
    EXPECT_EQ(grid->CellText(1, 1) + " " + shown_texts(*grid, 1), "Tuerca Tornillo|Arandela");
    grid->FilterOff();
    EXPECT_EQ(grid->view()->model()->rowCount(), 4);
    // Hidden rows leave the view too, and keep their number.
    grid = make_grid({"A"}, {"a", "b", "c"});
    grid->setRowVisible(0, false);
    grid->AddItem("d");
    EXPECT_FALSE(grid->RowVisible(0));
    EXPECT_EQ(shown_texts(*grid, 0), "b|c|d");
    grid->setRowVisible(0, true);
    EXPECT_EQ(shown_texts(*grid, 0), "a|b|c|d");
}

TEST(LynxGridRows, FindItemAndRedrawOff)
{
    auto grid = make_grid({"A", "B"}, {"x\tTornillo", "y\ttuerca", "z\tTUERCA 8"});
    // Whole or part of the text, ignoring case.
    EXPECT_EQ(grid->FindItem("TUERCA", 1), 1);
    EXPECT_EQ(grid->FindItem("tuerca", 1, 2), -1);
    EXPECT_EQ(grid->FindItem("tuerca", 1, 2, true), 2);
    EXPECT_EQ(grid->FindItem("w", 0), -1);
    // With redraw off the view waits, and is reset once.
    QSignalSpy resets(grid->view()->model(), &QAbstractItemModel::modelReset);
    grid->setRedraw(false);
    for (int i = 0; i < 1000; ++i)
        grid->AddItem(QString::number(i) + "\tx");
    EXPECT_EQ(grid->view()->model()->rowCount(), 3);
    grid->setRedraw(true);
    EXPECT_EQ(resets.count(), 1);
    EXPECT_EQ(grid->view()->model()->rowCount(), 1003);
}

TEST(LynxGridSelection, SingleFollowsTheCurrentRowAndMultiKeepsEachRowsFlag)
{
    auto grid = make_grid({"A"}, {"a", "b", "c"});
    QSignalSpy moved(grid.get(), &LynxGrid::RowColChanged);
    EXPECT_EQ(grid->Row(), -1);
    grid->setRow(2);
    grid->setRow(0);
    grid->setRow(7); // no such row: ignored
    EXPECT_TRUE(grid->Row() == 0 && grid->SelectedCount() == 1 && grid->RowSelected(0));
    EXPECT_EQ(moved.count(), 2);
    EXPECT_EQ(grid->view()->currentIndex().row(), 0);
    // With multi-select each row keeps its own flag.
    grid = make_grid({"A"}, {"a", "b", "c", "d"});
    grid->setMultiSelect(true);
    QSignalSpy changed(grid.get(), &LynxGrid::SelectionChanged);
    grid->setRowSelected(1, true);
    grid->setRowSelected(3, true);
    grid->setRow(0);
    EXPECT_EQ(grid->SelectedCount(), 2);
    grid->RemoveItem(1);
    EXPECT_TRUE(grid->SelectedCount() == 1 && grid->RowSelected(2));
    grid->SelectedClearAll();
    EXPECT_EQ(grid->SelectedCount(), 0);
    EXPECT_EQ(changed.count(), 4);
}

TEST(LynxGridStyle, ColoursFontsAndDateFormatsReachTheView)
{
    auto grid = make_grid({"A", "B"}, {"1\tx", "2\ty"});
    grid->setRowBackColor(0, QColor(0xC0, 0xFF, 0xC0));
    grid->setCellForeColor(1, 1, Qt::blue);
    grid->setCellFontBold(1, 0, true);
    const QAbstractItemModel *model = grid->view()->model();
    EXPECT_EQ(model->index(0, 1).data(Qt::BackgroundRole).value<QColor>(), QColor(0xC0, 0xFF, 0xC0));
    EXPECT_EQ(model->index(1, 1).data(Qt::ForegroundRole).value<QColor>(), QColor(Qt::blue));
    EXPECT_TRUE(model->index(1, 0).data(Qt::FontRole).value<QFont>().bold());
    // A selected row shows the selection colour over its own.
    grid->setRow(0);
    EXPECT_EQ(model->index(0, 1).data(Qt::BackgroundRole).value<QBrush>().color(),
              grid->palette().color(QPalette::Highlight));
    // A larger font makes taller rows.
    const int before = grid->view()->rowHeight(0);
    QFont large = grid->font();
    large.setPointSizeF(large.pointSizeF() * 2);
    grid->setFont(large);
    EXPECT_GT(grid->view()->rowHeight(0), before);
    // Date columns show their format while CellText keeps the stored text.
    grid->AddColumn({.heading = "Fecha", .type = ColumnType::Date, .format = "dd/mm/yyyy"});
    grid->AddItem("\t\t2026-11-23 10:30:00");
    EXPECT_EQ(shown_texts(*grid, 2) + " " + grid->CellText(2, 2), "||23/11/2026 2026-11-23 10:30:00");
    grid->setCellFormatter([](const QString &text, const QString &format) { return format + ":" + text; });
    EXPECT_EQ(shown_texts(*grid, 2), "dd/mm/yyyy:|dd/mm/yyyy:|dd/mm/yyyy:2026-11-23 10:30:00");
}

TEST(LynxGridEvents, KeysOnTheViewAreReportedAsKeyDown)
{
    auto grid = make_grid({"A"}, {"a", "b"});
    QSignalSpy keys(grid.get(), &LynxGrid::KeyDown);
    QTest::keyClick(grid->view(), Qt::Key_Delete, Qt::ShiftModifier);
    // Shift goes down first, as on a keyboard.
    ASSERT_EQ(keys.count(), 2);
    EXPECT_TRUE(keys.at(0).at(0).toInt() == Qt::Key_Shift && keys.at(1).at(0).toInt() == Qt::Key_Delete);
    EXPECT_EQ(keys.at(1).at(1).value<Qt::KeyboardModifiers>(), Qt::ShiftModifier);
}

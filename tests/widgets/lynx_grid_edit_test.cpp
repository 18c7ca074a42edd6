#include "support/grid_fixture.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QTableView>
#include <QTest>

#include <gtest/gtest.h>

using namespace vendrix::widgets;
using vendrix::test::open_editor;

namespace {

// A shown cart-like grid: quantity with the number filter, a code column
// that upper-cases, and a locked description.
std::unique_ptr<LynxGrid> edit_grid()
{
    auto grid = std::make_unique<LynxGrid>();
    grid->AddColumn({.heading = "Cant.", .input_filter = "1234567890.-,"});
    grid->AddColumn({.heading = "Código", .input_filter = ">"});
    grid->AddColumn({.heading = "Artículo", .locked = true});
    grid->AddItem("1\tab-1\tTornillo");
    grid->setAllowEdit(true);
    grid->resize(500, 200);
    grid->show();
    return grid;
}

// Opens the cell, clears it, types the characters and presses Enter.
void type_into(LynxGrid &grid, int row, int col, const QString &keys)
{
    ASSERT_TRUE(grid.ForceCellEdit(row, col));
    QLineEdit *editor = open_editor(grid);
    ASSERT_NE(editor, nullptr);
    editor->clear();
    for (const QChar c : keys) {
        // Key events as a keyboard sends them, accents included.
        QKeyEvent press(QEvent::KeyPress, Qt::Key_unknown, Qt::NoModifier, QString(c));
        QCoreApplication::sendEvent(editor, &press);
    }
    QTest::keyClick(editor, Qt::Key_Return);
    // The delegate commits on Enter through a queued call.
    QCoreApplication::processEvents();
}

} // namespace

// Filters, the owner's key and after-edit handlers, and the refusals, on one grid.
TEST(LynxGridEdit, FiltersHandlersAndRefusals)
{
    auto grid = edit_grid();
    type_into(*grid, 0, 1, "xy-9ñ");
    EXPECT_EQ(grid->CellText(0, 1), "XY-9Ñ");
    std::vector<int> seen;
    grid->setEditKeyPressHandler([&](int col, int &key) {
        EXPECT_EQ(col, 0);
        seen.push_back(key);
        key = key == '.' ? ',' : key == '-' ? 0 : key;
    });
    type_into(*grid, 0, 0, "1.5-a");
    EXPECT_EQ(grid->CellText(0, 0), "1,5");
    // The letter reached the owner already dropped by the filter.
    EXPECT_EQ(seen, std::vector<int>({'1', '.', '5', '-', 0}));
    EXPECT_FALSE(grid->EditPending());

    grid->setAfterEditHandler([](int row, int col, QString &value, bool &cancel) {
        EXPECT_TRUE(row == 0 && col == 0);
        cancel = value == "0";
        value = value + ",00";
    });
    type_into(*grid, 0, 0, "0");
    EXPECT_EQ(grid->CellText(0, 0), "1,5");
    type_into(*grid, 0, 0, "3");
    EXPECT_EQ(grid->CellText(0, 0), "3,00");

    grid->setBeforeEditHandler([](int, int col, bool &cancel) { cancel = col == 1; });
    EXPECT_FALSE(grid->ForceCellEdit(0, 1));
    EXPECT_TRUE(grid->ForceCellEdit(0, 0));
    open_editor(*grid)->setText("7");
    grid->CommitEdit();
    EXPECT_EQ(grid->CellText(0, 0), "7,00");
}

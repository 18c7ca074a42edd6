#include "support/grid_fixture.h"

#include <QSignalSpy>

#include <gtest/gtest.h>

using namespace vendrix::widgets;
using vendrix::test::column_texts;
using vendrix::test::make_grid;

namespace {

std::unique_ptr<LynxGrid> typed_grid(ColumnType type, const QStringList &cells)
{
    auto grid = make_grid({"Clave"});
    grid->AddColumn({.heading = "Valor", .type = type});
    for (int n = 0; n < cells.size(); ++n)
        grid->AddItem(QString::number(n) + "\t" + cells[n]);
    return grid;
}

} // namespace

// Numbers by value, texts ignoring case in Spanish order (ties keep their
// order), dates by date with non-dates first.
TEST(LynxGridSort, EachColumnTypeSortsByItsOwnValue)
{
    const std::tuple<ColumnType, const char *, bool, const char *> cases[] = {
        {ColumnType::Number, "10|9|-1,5||100|2.25|abc", true, "-1,5||abc|2.25|9|10|100"},
        {ColumnType::Number, "10|9|-1,5||100|2.25|abc", false, "100|10|9|2.25||abc|-1,5"},
        {ColumnType::Text, "tuerca|Arandela|BULON|bulon|oring|arandela chica|Ñandú|Tornillo|nudo|Ácido", true,
         "Ácido|Arandela|arandela chica|BULON|bulon|nudo|Ñandú|oring|Tornillo|tuerca"},
        {ColumnType::Date, "02/01/2026|2025-12-31|sin fecha|01/02/2026|2026-01-02 09:00", true,
         "sin fecha|2025-12-31|02/01/2026|2026-01-02 09:00|01/02/2026"},
    };
    for (const auto &[type, cells, ascending, sorted] : cases) {
        auto grid = typed_grid(type, QString::fromUtf8(cells).split('|'));
        grid->Sort(1, ascending);
        EXPECT_EQ(column_texts(*grid, 1).join('|'), QString::fromUtf8(sorted));
    }
}

TEST(LynxGridSort, CustomColumnsAskTheOwner)
{
    // The owner sorts by text length.
    auto grid = typed_grid(ColumnType::Custom, {"ccc", "a", "dddd", "bb", "eeeee", "f"});
    int asked = 0;
    grid->setCustomSortHandler(
        [&](bool ascending, int col, const QString &v1, const QString &v2, bool &swap) {
            EXPECT_EQ(col, 1);
            ++asked;
            swap = ascending ? v1.size() > v2.size() : v1.size() < v2.size();
        });
    grid->Sort(1, false);
    EXPECT_EQ(column_texts(*grid, 1).mid(0, 4), QStringList({"eeeee", "dddd", "ccc", "bb"}));
    EXPECT_GT(asked, 0);
}

TEST(LynxGridSort, MovesNoCellDataAndTheCurrentRowFollowsItsRecord)
{
    auto grid = typed_grid(ColumnType::Number, {"30", "10", "20"});
    grid->setRowTag(0, "treinta");
    grid->setRow(0);
    QSignalSpy done(grid.get(), &LynxGrid::SortComplete);
    grid->Sort(1, true);
    EXPECT_EQ(column_texts(*grid, 0), QStringList({"1", "2", "0"}));
    EXPECT_TRUE(grid->Row() == 2 && grid->RowSelected(2) && grid->RowTag(2) == "treinta");
    EXPECT_EQ(done.count(), 1);
}

TEST(LynxGridTotals, SumsCommaAndPointDecimalsAndCountsEmptyAsZero)
{
    auto grid = make_grid({"Cant.", "Importe"}, {"1\t1,5", "2\t2.5", "3\t", "1\t10 (oferta)"});
    grid->setColSummed(1, true);
    EXPECT_DOUBLE_EQ(grid->TotalsCol(1), 14.0);
    // The total follows the changes of the cells.
    grid->setCellText(2, 1, "0,75");
    EXPECT_DOUBLE_EQ(grid->TotalsCol(1), 14.75);
    grid->RemoveItem(0);
    EXPECT_DOUBLE_EQ(grid->TotalsCol(1), 13.25);
    // Rows hidden by a filter don't count.
    grid->FilterOn(0, "2");
    EXPECT_DOUBLE_EQ(grid->TotalsCol(1), 2.5);
    grid->FilterOff();
    grid->Clear();
    EXPECT_DOUBLE_EQ(grid->TotalsCol(1), 0.0);
    EXPECT_DOUBLE_EQ(grid->TotalsCol(5), 0.0);
}

#include "widgets/cell_reading.h"

#include <gtest/gtest.h>

using namespace vendrix::widgets;

TEST(CellNumber, ReadsTheLeadingNumberWithCommaOrPoint)
{
    const struct {
        const char *text;
        double value;
    } cases[] = {
        {"", 0.0},   {"1,5", 1.5},    {"2.5", 2.5},       {"  12", 12.0},    {"-3,25", -3.25},
        {"+4", 4.0}, {"10 kg", 10.0}, {"1.234,5", 1.234}, {"$ 10", 0.0},     {"abc", 0.0},
        {",5", 0.5}, {"7.", 7.0},     {"-", 0.0},         {"0012,50", 12.5}, {"1e3", 1.0},
    };
    for (const auto &c : cases)
        EXPECT_DOUBLE_EQ(cell_number(QString::fromUtf8(c.text)), c.value) << c.text;
}

TEST(CellDate, ReadsDayMonthYearAndIsoWithOptionalTime)
{
    const struct {
        const char *text;
        const char *iso; // "" when not a date
    } cases[] = {{"23/11/2026", "2026-11-23T00:00:00Z"},
                 {"3/2/2026", "2026-02-03T00:00:00Z"},
                 {"2026-11-23", "2026-11-23T00:00:00Z"},
                 {"2026-11-23 10:30:15", "2026-11-23T10:30:15Z"},
                 {"2026-11-23T10:30:15", "2026-11-23T10:30:15Z"},
                 {"23/11/2026 08:05", "2026-11-23T08:05:00Z"},
                 {"31/02/2026", ""},
                 {"mañana", ""},
                 {"", ""},
                 {"23/11/2026 25:00", ""}};
    for (const auto &c : cases) {
        const auto when = cell_date(QString::fromUtf8(c.text));
        EXPECT_EQ(when ? when->toString(Qt::ISODate) : QString(), QString::fromUtf8(c.iso)) << c.text;
    }
}

// Dropping letters from a number column and raising "ñ" are read in the editor's test;
// backspace and 46 (the point) always pass.
TEST(FilterKey, AppliesCaseFiltersAndAllowedLists)
{
    const struct {
        QString filter;
        char key;
        int expected;
    } cases[] = {{"1234567890.-,", ' ', 0},
                 {"1234567890.-,", 8, 8},
                 {"1234567890", '.', '.'},
                 {"<", 'A', 'a'},
                 {"<", '1', '1'},
                 {">", 'Z', 'Z'},
                 {"", 'x', 'x'},
                 {"1234567890./-", '/', '/'}};
    for (const auto &c : cases)
        EXPECT_EQ(filter_key(c.filter, c.key), c.expected) << c.filter.toStdString() << " / " << int(c.key);
}

// The column's pattern shows a stored date; anything else shows as stored.
TEST(FormatDateCell, ShowsDatesInTheColumnPatternAndLeavesTheRest)
{
    EXPECT_EQ(format_date_cell("2026-11-23 10:30:00", "dd/mm/yyyy hh:mm") + " " +
                  format_date_cell("2026-11-23 10:30:00", "yyyy-mm-dd hh:nn:ss") + " " +
                  format_date_cell("sin fecha", "dd/mm/yyyy") + " " + format_date_cell("12,5", "#.##"),
              "23/11/2026 10:30 2026-11-23 10:30:00 sin fecha 12,5");
}

#include "core/holiday_logo.h"

#include "support/qt_print.h"

#include <gtest/gtest.h>

namespace vendrix {
namespace {

TEST(HolidayLogo, EasterByTheGregorianComputus)
{
    const struct {
        int year;
        QDate pascua;
    } casos[] = {{2024, {2024, 3, 31}}, {2025, {2025, 4, 20}}, {1818, {1818, 3, 22}}, {2285, {2285, 3, 22}},
                 {2038, {2038, 4, 25}}, {1000, {1000, 3, 30}}, {9999, {9999, 3, 28}}};
    for (const auto &c : casos)
        EXPECT_EQ(calcular_pascua(c.year), c.pascua) << c.year;
    EXPECT_FALSE(calcular_pascua(999).has_value());
    EXPECT_FALSE(calcular_pascua(10000).has_value());
}

TEST(HolidayLogo, AHolidayShowsLessThanAWeekBeforeAndAfter)
{
    const struct {
        QDate today;
        int logo;
    } casos[] = {
        {{2026, 9, 19}, kLogoPrimavera}, // two days before 21 September
        {{2026, 9, 26}, kLogoPrimavera}, // five days after
        {{2026, 9, 27}, kLogoNormal},    // six days after: a week counting both days
        {{2026, 9, 14}, kLogoNormal},    // seven days before, eleven after 3 September
        {{2026, 9, 8}, kLogoMaestro},
        {{2026, 9, 9}, kLogoNormal},
        {{2026, 4, 5}, kLogoPascua},
        {{2026, 3, 31}, kLogoPascua},
        {{2026, 3, 30}, kLogoNormal},
        {{2038, 4, 30}, kLogoPascua},
        {{2026, 5, 20}, kLogoPatrio},
        {{2026, 7, 14}, kLogoPatrio},
        {{2026, 7, 15}, kLogoNormal},
        {{2026, 12, 25}, kLogoNavidad},
        {{2026, 12, 26}, kLogoNormal},
        {{2027, 1, 1}, kLogoNormal}, // 20 December of the year before doesn't count
    };
    for (const auto &c : casos)
        EXPECT_EQ(elegir_logo(c.today), c.logo) << c.today.toString(Qt::ISODate).toStdString();
}

} // namespace
} // namespace vendrix

#include "core/holiday_logo.h"

#include "support/qt_print.h"

#include <gtest/gtest.h>

namespace vendrix {
namespace {

TEST(HolidayLogo, EasterByTheGregorianComputus)
{
    struct Caso {
        int year;
        QDate pascua;
    };
    const Caso casos[] = {
        {2024, QDate(2024, 3, 31)}, {2025, QDate(2025, 4, 20)}, {2026, QDate(2026, 4, 5)},
        {1818, QDate(1818, 3, 22)}, {2285, QDate(2285, 3, 22)}, {2038, QDate(2038, 4, 25)},
        {1000, QDate(1000, 3, 30)}, {9999, QDate(9999, 3, 28)},
    };
    for (const Caso &c : casos) {
        ASSERT_TRUE(calcular_pascua(c.year).has_value()) << c.year;
        EXPECT_EQ(*calcular_pascua(c.year), c.pascua) << c.year;
    }
    EXPECT_FALSE(calcular_pascua(999).has_value());
    EXPECT_FALSE(calcular_pascua(10000).has_value());
}

TEST(HolidayLogo, AHolidayShowsLessThanAWeekBeforeAndAfter)
{
    struct Caso {
        QDate today;
        int logo;
    };
    const Caso casos[] = {
        {QDate(2026, 9, 19), kLogoPrimavera}, // two days before 21 September
        {QDate(2026, 9, 26), kLogoPrimavera}, // five days after
        {QDate(2026, 9, 27), kLogoNormal},    // six days after: a week counting both days
        {QDate(2026, 9, 14), kLogoNormal},    // seven days before, eleven after 3 September
        {QDate(2026, 9, 8), kLogoMaestro},
        {QDate(2026, 9, 3), kLogoMaestro},
        {QDate(2026, 9, 9), kLogoNormal},
        {QDate(2026, 4, 5), kLogoPascua},
        {QDate(2026, 3, 31), kLogoPascua},
        {QDate(2026, 3, 30), kLogoNormal},
        {QDate(2038, 4, 30), kLogoPascua}, // the latest Easter
        {QDate(2026, 5, 20), kLogoPatrio},
        {QDate(2026, 7, 14), kLogoPatrio},
        {QDate(2026, 7, 15), kLogoNormal},
        {QDate(2026, 12, 20), kLogoNavidad},
        {QDate(2026, 12, 25), kLogoNavidad},
        {QDate(2026, 12, 26), kLogoNormal},
        {QDate(2026, 11, 23), kLogoNormal},
        {QDate(2027, 1, 1), kLogoNormal}, // 20 December of the year before doesn't count
    };
    for (const Caso &c : casos)
        EXPECT_EQ(elegir_logo(c.today), c.logo) << c.today.toString(Qt::ISODate).toStdString();
}

} // namespace
} // namespace vendrix

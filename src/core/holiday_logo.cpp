#include "core/holiday_logo.h"

#include <cstdlib>

namespace vendrix {

std::optional<QDate> calcular_pascua(int year)
{
    if (year < 1000 || year > 9999)
        return std::nullopt;
    // Anonymous Gregorian algorithm (Meeus/Jones/Butcher): the Paschal full
    // moon from the epact, then the Sunday after it.
    const int a = year % 19;
    const int b = year / 100;
    const int c = year % 100;
    const int d = b / 4;
    const int e = b % 4;
    const int f = (b + 8) / 25;
    const int g = (b - f + 1) / 3;
    const int h = (19 * a + b - d - g + 15) % 30;
    const int i = c / 4;
    const int k = c % 4;
    const int l = (32 + 2 * e + 2 * i - h - k) % 7;
    const int m = (a + 11 * h + 22 * l) / 451;
    const int month = (h + l - 7 * m + 114) / 31;
    const int day = (h + l - 7 * m + 114) % 31 + 1;
    return QDate(year, month, day);
}

IndiceLogo elegir_logo(const QDate &today)
{
    struct Festivo {
        std::optional<QDate> fecha;
        IndiceLogo logo;
    };
    const int year = today.year();
    const Festivo festivos[] = {
        {calcular_pascua(year), kLogoPascua}, {QDate(year, 5, 25), kLogoPatrio},
        {QDate(year, 7, 9), kLogoPatrio},     {QDate(year, 9, 3), kLogoMaestro},
        {QDate(year, 9, 21), kLogoPrimavera}, {QDate(year, 12, 20), kLogoNavidad},
    };
    IndiceLogo logo = kLogoNormal;
    for (const Festivo &festivo : festivos) {
        if (festivo.fecha && std::abs(today.daysTo(*festivo.fecha)) < kDiasLogoFestivo)
            logo = festivo.logo;
    }
    return logo;
}

} // namespace vendrix

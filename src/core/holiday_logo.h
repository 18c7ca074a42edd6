#pragma once

#include <QDate>

#include <optional>

namespace vendrix {

// The logo pictures of the splash and the main window, by index: 0 is the
// ordinary logo, the others mark a holiday near the date.
enum IndiceLogo : int {
    kLogoNormal = 0,
    kLogoNavidad = 1,   // 20 December
    kLogoPascua = 2,    // Easter Sunday
    kLogoPatrio = 3,    // 25 May, 9 July
    kLogoPrimavera = 4, // 21 September
    kLogoMaestro = 5,   // 3 September
    kCantidadLogos = 6,
};

// A holiday image shows within the week of the holiday: while the date and
// the holiday, both days counted, span less than seven days, before or after
// it. So 19 September still shows the 21 September image, and 27 September is
// back to the ordinary logo.
inline constexpr int kDiasLogoFestivo = 6;

// Easter Sunday of a year by the Gregorian computus. Years outside 1000 to
// 9999 have no date.
std::optional<QDate> calcular_pascua(int year);

// The logo for a date: of the holidays of its year, taken in the order
// Easter, 25 May, 9 July, 3 September, 21 September, 20 December, the last
// one near enough decides; none near gives the ordinary logo.
IndiceLogo elegir_logo(const QDate &today);

} // namespace vendrix

#pragma once

#include <QString>
#include <QStringView>

namespace vendrix {

// Numbers as the screens and the price arithmetic see them. Amounts travel as
// text in boxes and grid cells and are parsed on use; money is computed in
// doubles and rounded only by `redondear` (half to even) and `formatear`
// (half up), which reproduce the figures the shops are used to.

// The decimal mark of the screen. The shops are Argentine: a comma, whatever
// the machine's locale. Formulas and SQL use ".".
constexpr QChar kSeparadorDecimal = QLatin1Char(',');
QString separador_decimal();

// Reads the number a text starts with, the way the screens always have:
// blanks are skipped, an optional sign, digits, one decimal mark ("." or ","),
// an optional exponent; the first other character ends the number. "" and
// "abc" read 0, "20000;" reads 20000, "1,5" and "1.5" read 1.5.
double valor_texto(QStringView text);

// True when the whole text is a number: blanks around it, an optional leading
// sign, digits with at most one decimal mark ("." or ","), an optional
// exponent. "" is not a number.
bool es_numerico(QStringView text);

// Rounds half to even at `decimales` places (0 to 15) the way the earlier
// program's run time did: the double is scaled by the power of ten in double
// precision and the scaled double is rounded half to even. So 10.125 gives
// 10.12, 2.5 gives 2, 3.5 gives 4, and 1344.915 (stored just below) gives
// 1344.92 because its scaled double is exactly 134491.5.
double redondear(double value, int decimales);

// The text form of a double: up to 15 significant digits, no trailing zeros,
// the screen's comma, exponents as "1E+15" and "1E-05".
QString texto_numero(double value);

// A numeric format mask such as "####0", "####0.00", "#0.00", "00000" or
// "00000000": the '0's before the point set the least count of integer
// digits, those after it the decimals. The number is rounded half up (away
// from zero) on its 15-digit decimal form and shown with the screen's comma.
QString formatear(double value, QStringView mascara);

// Formulas and SQL take "." as the decimal mark: each "," becomes "." and an
// empty text becomes "0".
QString normalizar_decimal(const QString &text);

} // namespace vendrix

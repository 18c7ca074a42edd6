#pragma once

#include <QString>
#include <QStringView>

#include <optional>

namespace vendrix {

// Evaluates an arithmetic text: decimal numbers (with an optional exponent),
// + - * /, unary signs, parentheses and blanks, in double precision with the
// usual precedence and left-to-right association. Anything else, "++" and
// "--" included, is a syntax error and gives nullopt; a blank text gives 0.
// With `coma_decimal` a "," reads as the decimal point. Division by zero
// gives an infinity or NaN, as in double arithmetic. Allocates nothing for
// texts of ordinary length; nesting deeper than 200 levels is an error.
std::optional<double> evaluar_expresion(QStringView text, bool coma_decimal = false);

// True when the formula can be evaluated (its commas read as points, "" as
// "0") and its value isn't exactly -1000, the value that marks a failure: so
// "-1000" and "2000-3000" are invalid, "" and "-5" are valid.
bool formula_valida(QStringView formula);

// The total percentage of a discount or margin formula, each term applied
// after the previous one: for `ganancia` "10+5" is 15.5; for any other kind
// (`descuento`) "10+5" is 14.5 and "10-5" is 5.5 ("-" is a surcharge).
// An invalid formula gives 0, and so do "", "+" and any formula that starts
// with "-", whose rewritten expression lacks its first term.
double formula_a_porcentaje(QStringView formula, QStringView kind);

// Both answers for one formula box, the formula evaluated once for its test
// and once, rewritten, for its percentage: what the price panel needs.
struct FormulaValue {
    bool valida = true;
    double porcentaje = 0.0;
};
FormulaValue evaluar_formula(QStringView formula, QStringView kind);

} // namespace vendrix

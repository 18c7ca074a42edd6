#pragma once

#include <QString>

namespace vendrix {

// The price cell of the price list: the list's `Precio` read as a number
// and rounded to two decimals half to even, as `Round(value, 2)` did,
// written with the screen's decimal comma ("1234.565" -> "1234,56",
// "10" -> "10").
QString precio_grilla(const QString &precio);

} // namespace vendrix

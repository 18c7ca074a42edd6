#pragma once

#include <QString>
#include <QStringView>

namespace vendrix {

// The currency codes of the price lists (`Moneda` of `xls_listas`): "1" pesos,
// "2" dollars; codes of 100 or more ("101", "102") take the reduced IVA rate.

// "Pesos Argentinos (ARS)" for "1" and "101", "Dolares (U$D)" for "2" and
// "102", "" for any other code.
QString nombre_moneda(QStringView code);

// True for the dollar codes "2" and "102", whose prices are multiplied by
// `Valor_Dolar`.
bool es_moneda_dolar(QStringView code);

// True for a code that reads 100 or more.
bool es_iva_reducido(QStringView code);

// The IVA rate of an article: the shop's `iva` rounded to whole units, or for
// a reduced-rate code half of it rounded to two places (21 gives 21 and 10.5).
double tasa_iva(QStringView code, QStringView iva);

// The pesos per dollar of the setting `Valor_Dolar`; an empty or non-numeric
// setting counts as 0.
double cotizacion_dolar(QStringView valor_dolar);

} // namespace vendrix

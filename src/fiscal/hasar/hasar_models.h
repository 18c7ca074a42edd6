#pragma once

#include <QByteArray>
#include <QString>

namespace vendrix::hasar {

// The name of a model number as the maker numbers its printers:
// "P-615F", ..., "Indeterminado" for a number it doesn't know.
QString nombre_modelo(int numero);

// The model number of the version text a printer reports ("SMH/P-715F -
// Versión 2.01"), 0 when the text names no model this driver knows.
int modelo_de_version(const QByteArray &version);

// The models that have credit notes, a buyer's address and the version
// command; the older ones take fewer fiscal texts in a row.
bool es_segunda_serie(int numero);

} // namespace vendrix::hasar

#pragma once

// Reading the values of a supplier's list file: its character encoding, its
// decimal mark, its prices and currencies.

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <optional>

namespace vendrix {

// Folds a name for matching regardless of case and accents: upper case, and
// the vowels with an accent, grave, circumflex, tilde or diaeresis become
// plain ("Tubería" and "TUBERIA" fold alike). Ñ and Ü are letters of their
// own in Spanish: they are only upper-cased ("caño" folds to "CAÑO",
// "pingüino" to "PINGÜINO"). Suppliers' names, column headings and currency
// words are matched this way.
QString plegar_sin_acentos(const QString &text);

// The text of a file and the encoding it was read in: "UTF-8" (with or without
// a byte order mark), "UTF-16" (with a byte order mark, as spreadsheets save
// "Unicode text"), or "Windows-1252" for anything that is not valid UTF-8.
struct DecodedText {
    QString texto;
    QString codificacion;
};
DecodedText decodificar_lista(const QByteArray &bytes);

// The decimal mark of a file's prices, "," or ".", judged from all of them:
// a mark that stands once with other than three digits behind it, or last
// when both stand, is the decimal mark; a mark that repeats, or stands first,
// separates thousands. When nothing tells (say every price is "1.500"), a
// file separated by ";" is taken to be written the Spanish way (decimal ",")
// and any other the English way.
QChar detectar_decimal(const QStringList &precios, QChar separador);

// A price as written in a list, with the given decimal mark and the other
// mark as thousands separator (groups of three digits), with or without "$"
// and blanks. An empty price reads "0", as a list's empty cell means no
// price. Gives the price's text in the file's form ("1234.5": "." and no
// trailing zeros), or nothing when it can't be read.
std::optional<QString> leer_precio(const QString &crudo, QChar decimal);

// The currency code of a list's `Moneda` cell: the codes "1", "2", "101",
// "102" themselves, "$", "pesos" or "ARS" for "1", "U$S", "USD" or "dólares"
// for "2", and empty for "1". Nothing for anything else.
std::optional<QString> leer_moneda(const QString &crudo);

} // namespace vendrix

#pragma once

#include <QString>
#include <QStringList>
#include <QStringView>

namespace vendrix {

// Small text helpers shared by the screens, the fiscal output and the
// exports.

// The index of `value` in `list` (exact comparison), or -1.
int buscar_en_lista(const QStringList &list, const QString &value);

// False when the text already holds a decimal mark that a new one would
// repeat. Going through the text, "+" and "-" start a new number (true) and
// the decimal mark sets false; the last of these decides. "" is true, so
// "1,5+2" may take another mark.
bool tiene_un_separador(QStringView text);

// True when the text is made of the digits 0 to 9 alone; "" is false.
bool solo_digitos(QStringView text);

// The last `width` characters of the text behind 38 zeros (fixed-width
// fields of fiscal commands).
QString rellenar_ceros(const QString &text, int width);
// The same behind 38 blanks; then each run of five blanks becomes a TAB.
QString rellenar_blancos(const QString &text, int width);

// The text for a query string: letters, digits and ":/.?=_-$(){}~&" stay,
// blanks and "+" become "%20", anything else "%" and its two-digit Windows
// code-page hexadecimal code (so CR LF is "%0D%0A").
QString codificar_url(const QString &text);

// A file size for a caption: "0 Bytes", "512 Bytes", "1,50 KB", "2,00 MB",
// "1,00 GB" (two decimals with the screen's comma from 1024 bytes up).
QString tamano_archivo_texto(qint64 bytes);

} // namespace vendrix

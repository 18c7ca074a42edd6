#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QString>
#include <QStringView>

namespace vendrix::cp1252 {

// The Windows-1252 code page, the "ANSI" page of Spanish Windows, in which the
// settings file of the earlier Windows program is written.
//
// Decoding maps every byte: 0x80-0x9F through the code page's table (its five
// unassigned bytes become the control characters of the same number, so any
// file reads and writes back unchanged), everything else as Latin-1.
QString decodificar(QByteArrayView bytes);

// Encoding is the reverse; a character the code page doesn't have becomes "?".
QByteArray codificar(QStringView text);

} // namespace vendrix::cp1252

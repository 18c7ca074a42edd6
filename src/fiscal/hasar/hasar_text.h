#pragma once

#include <QByteArray>
#include <QString>

namespace vendrix::hasar {

// Keeps the characters from 32 to 127 and stops once `limite` are kept: the
// accented letters of a name are dropped, not replaced.
QString filtrar_texto(const QString &texto, int limite);

// Text as the printer takes it: its own code page for the letters of
// Spanish, "?" for what it can't print. `a_texto` reads it back.
QByteArray a_bytes(const QString &texto);
QString a_texto(const QByteArray &bytes);

// Numbers in the forms of the command fields, with a point: an amount with
// exactly two decimals, a quantity with up to ten, a rate as nn.nn.
QByteArray monto(double valor);
QByteArray cantidad(double valor);

} // namespace vendrix::hasar

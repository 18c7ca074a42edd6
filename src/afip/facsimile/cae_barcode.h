#pragma once

#include <QImage>
#include <QString>

namespace vendrix {

class Operator;

// The number printed under the CAE's barcode: the issuer's CUIT without
// dashes, the voucher class of `letra` and `tipo` in three digits, the point
// of sale in five, the 14-digit CAE, its expiry without "/" and a check
// digit. Each argument is checked in that order; the first that fails is
// told to the operator under "Error al generar la factura" and gives "".
QString numero_barra_CAE(Operator &op, const QString &cuit, const QString &tipo, const QString &punto_venta,
                         const QString &cae, const QString &vencimiento, const QString &letra);

// The check digit of a string of digits: three times the digits at odd
// positions (counted from 1 at the left) plus those at even positions, and
// what that sum lacks to reach a multiple of ten.
int digito_verificador_CAE(const QString &digitos);

// The digits drawn as Interleaved 2 of 5: a start of narrow bar and space
// twice, each pair of digits interleaved (the first as bars, the second as
// spaces, wide three times narrow), a stop of wide bar, narrow space, narrow
// bar, and a quiet zone of ten narrow modules at each side. Null for an
// empty or odd count of digits, or anything but digits.
QImage barras_I2de5(const QString &digitos, int modulo = 2, int alto = 60);

} // namespace vendrix

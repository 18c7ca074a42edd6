#pragma once

#include "core/database.h"

#include <QString>

namespace vendrix {

class Context;

// AFIP's page that checks an invoice from its QR; the base64 of the JSON
// text follows it.
inline constexpr char kPaginaQrAfip[] = "https://www.afip.gob.ar/fe/qr/?p=";

// The JSON text of the QR of the stored sale whose CAE is `cae`: no blanks,
// the keys in AFIP's order, absolute amounts. A CAE that isn't stored gives
// the text with empty values.
QString armar_QR_AFIP(Context &ctx, const QString &cae);
// The same from the sale's row as `leer_comprobante_por_id` or `_por_cae`
// read it; no row gives the text with empty values.
QString armar_QR_AFIP(Context &ctx, const Matrix &comprobante);

// The base64 of the text (RFC 4648, "=" padding, no line breaks), one byte
// per character; a character from 256 on goes as "?".
QString codificar_base64(const QString &texto);

// What the QR holds: the check page followed by the base64 of the JSON.
QString url_QR_AFIP(Context &ctx, const QString &cae);

} // namespace vendrix

#pragma once

#include <QString>

namespace vendrix {

class ClienteHttp;
class Context;

// Posts a SOAP request and returns the answer's text. `xml` must begin
// with "<?xml" within its first 6 characters and hold a SOAP envelope and
// body; otherwise, or with an empty `url` or `xml`, the answer is the
// refusal text, unless `sin_validar`. `destino` and `accion` go nowhere.
// When no answer comes the result begins with "Error: ".
QString enviar_SOAP(Context &ctx, ClienteHttp &http, const QString &destino, const QString &url,
                    const QString &accion, const QString &xml, bool sin_validar = false);

// What stands between <TAG> and </TAG>, matched without regard to case, the
// first occurrence; "N/A" when either is missing.
QString leer_tag(const QString &tag, const QString &texto);

// `texto` with the first `marca` replaced by `valor`, logged.
QString replace_more255(Context &ctx, const QString &texto, const QString &marca, const QString &valor);

} // namespace vendrix

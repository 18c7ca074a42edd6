#pragma once

#include <QByteArray>
#include <QList>
#include <QString>

#include <utility>

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

// Posts `xml` (UTF-8) to `url` with exactly the given headers, for the
// requests that set their own (the ticket request: Content-Type and
// "SOAPAction: LoginCms"), and returns the answer's text, whatever its HTTP
// status; when no answer comes, "Error: <number> - <description>" as
// `enviar_SOAP`. No validation, and it logs nothing: the caller logs.
QString post_soap(ClienteHttp &http, const QString &url, const QString &xml,
                  const QList<std::pair<QByteArray, QByteArray>> &cabeceras);

// What stands between <TAG> and </TAG>, matched without regard to case, the
// first occurrence; "N/A" when either is missing.
QString leer_tag(const QString &tag, const QString &texto);

// `texto` with the first `marca` replaced by `valor`, logged at "I" as
// "replace_more255 - en la posicion '<p>' por largo '<n>'.", p being the
// mark's position counted from 1 (0 when it's missing, and the text is
// returned as it was) and n the length of `valor`.
QString replace_more255(Context &ctx, const QString &texto, const QString &marca, const QString &valor);

} // namespace vendrix

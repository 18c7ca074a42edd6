#pragma once

#include "online/connectivity.h"

#include <QByteArray>
#include <QString>

#include <functional>

namespace vendrix {

class ClienteHttp;
class Context;

// What an upload answers when it didn't work.
inline const QString kErrorSubida = QStringLiteral("ERROR");

// The multipart body of an invoice upload: one part "uploadfile" named
// after the file, boundary "AaB03x", CR LF lines, the file's bytes as they
// are. The header texts go in the Windows code page, as the service reads
// them.
QByteArray cuerpo_subida_factura(const QString &nombre_archivo, const QByteArray &contenido);

// Posts the file at `ruta` to `url` as that body. The server's reply text
// when it answers with status 200; "ERROR" otherwise (no answer, another
// status, a file that can't be read).
QString subir_archivo_http(ClienteHttp &http, const QString &url, const QString &ruta);

// The shop's name as the price list carries it (`CLIENTE`); "" without one.
QString nombre_comercio(Context &ctx);

// Uploads the invoice file `archivo` of the folder `Facturas` to the
// vendor's service (setting `servicio_url`), under the shop's name. The link
// to the stored file, or "ERROR" after telling the operator why: no
// connection, or the service didn't take it. Without a service configured
// nothing is sent.
QString subir_factura(Context &ctx, ClienteHttp &http, const QString &archivo,
                      const std::function<bool()> &conectado = hay_internet);

} // namespace vendrix

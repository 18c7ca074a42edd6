#pragma once

#include <QDateTime>
#include <QString>

#include <optional>

namespace vendrix {

// The end of a certificate's validity, read from its file (PEM or DER).
struct VencimientoCertificado {
    std::optional<QDateTime> fin; // UTC; none when the file couldn't be read
    QString error;                // why, in Spanish, naming the file
};
VencimientoCertificado leer_vencimiento(const QString &ruta_certificado);

// True while the certificate is still valid `segundos` after `ahora`, as
// `openssl x509 -checkend` decides.
bool vigente_dentro_de(const QDateTime &fin, const QDateTime &ahora, qint64 segundos);

// The end date as `openssl x509 -enddate` prints it after "notAfter=",
// e.g. "Jun 15 12:00:00 2026 GMT".
QString texto_not_after(const QDateTime &fin);

} // namespace vendrix

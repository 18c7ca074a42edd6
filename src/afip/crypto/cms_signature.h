#pragma once

#include <QByteArray>
#include <QString>

namespace vendrix {

// The signature WSAA wants of a ticket request: CMS SignedData by the
// shop's certificate and key, the data attached, DER-encoded.
struct FirmaCms {
    QByteArray der; // empty when it couldn't be made
    QString error;  // why, in Spanish, naming the file that couldn't be read
};

// The key must be unencrypted, as AFIP's tools make it.
FirmaCms firmar_cms(const QByteArray &datos, const QString &ruta_certificado, const QString &ruta_llave);

} // namespace vendrix

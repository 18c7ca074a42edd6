#pragma once

#include "afip/crypto/certificate_dates.h"
#include "afip/crypto/cms_signature.h"
#include "online/connectivity.h"

#include <QByteArray>
#include <QString>

#include <functional>

namespace vendrix {

class ClienteHttp;
class Context;

// What the AFIP operations reach outside themselves: the program's
// context, the HTTPS client, the signer and the certificate reader, and the
// network probe. The program takes the defaults; tests put their own in.
struct ServiciosAfip {
    using Firmante = std::function<FirmaCms(const QByteArray &datos, const QString &ruta_certificado,
                                            const QString &ruta_llave)>;
    using LectorVencimiento = std::function<VencimientoCertificado(const QString &ruta_certificado)>;

    Context &ctx;
    ClienteHttp &http;
    Firmante firmar = firmar_cms;
    LectorVencimiento leer_vto = leer_vencimiento;
    std::function<bool()> hay_internet = vendrix::hay_internet;
};

} // namespace vendrix

#include "afip/crypto/cms_signature.h"

#include "afip/crypto/openssl_files.h"

#include <openssl/bio.h>
#include <openssl/cms.h>
#include <openssl/err.h>

namespace vendrix {
namespace {

using openssl::Bio;
using Cms = std::unique_ptr<CMS_ContentInfo, openssl::Liberar<CMS_ContentInfo, CMS_ContentInfo_free>>;

FirmaCms fallo(const QString &texto)
{
    ERR_clear_error();
    return {{}, texto};
}

} // namespace

FirmaCms firmar_cms(const QByteArray &datos, const QString &ruta_certificado, const QString &ruta_llave)
{
    const openssl::Certificado cert = openssl::leer_certificado(ruta_certificado);
    if (!cert)
        return fallo(QStringLiteral("No se pudo leer el certificado '%1'.").arg(ruta_certificado));
    const openssl::Llave llave = openssl::leer_llave(ruta_llave);
    if (!llave)
        return fallo(
            QStringLiteral("No se pudo leer la llave privada '%1'. La llave no debe tener contraseña.")
                .arg(ruta_llave));
    if (X509_check_private_key(cert.get(), llave.get()) != 1)
        return fallo(QStringLiteral("El certificado '%1' no corresponde a la llave '%2'.")
                         .arg(ruta_certificado, ruta_llave));

    // The data travel inside the signature (WSAA reads the ticket request
    // from it), signed byte for byte without the text canonicalization.
    Bio entrada(BIO_new_mem_buf(datos.constData(), static_cast<int>(datos.size())));
    const Cms cms(CMS_sign(cert.get(), llave.get(), nullptr, entrada.get(), CMS_BINARY));
    Bio salida(BIO_new(BIO_s_mem()));
    if (!cms || i2d_CMS_bio(salida.get(), cms.get()) != 1)
        return fallo(QStringLiteral("No se pudo firmar con el certificado '%1'.").arg(ruta_certificado));
    return {openssl::leer_bio(salida.get()), {}};
}

} // namespace vendrix

#include "afip/crypto/openssl_files.h"

#include <QFile>

#include <openssl/bio.h>
#include <openssl/err.h>
#include <openssl/pem.h>

namespace vendrix::openssl {
namespace {

// OpenSSL's default would prompt for a password on the terminal.
int sin_contrasena(char *, int, int, void *)
{
    return -1;
}

// The file's bytes in a memory BIO; null when it can't be read.
Bio abrir(const QString &ruta, QByteArray &bytes)
{
    QFile archivo(ruta);
    if (ruta.isEmpty() || !archivo.open(QIODevice::ReadOnly))
        return nullptr;
    bytes = archivo.readAll();
    return Bio(BIO_new_mem_buf(bytes.constData(), static_cast<int>(bytes.size())));
}

} // namespace

Certificado leer_certificado(const QString &ruta)
{
    QByteArray bytes;
    Bio bio = abrir(ruta, bytes);
    if (!bio)
        return nullptr;
    Certificado cert(PEM_read_bio_X509(bio.get(), nullptr, sin_contrasena, nullptr));
    if (!cert) {
        BIO_reset(bio.get());
        cert.reset(d2i_X509_bio(bio.get(), nullptr));
    }
    ERR_clear_error();
    return cert;
}

Llave leer_llave(const QString &ruta)
{
    QByteArray bytes;
    Bio bio = abrir(ruta, bytes);
    if (!bio)
        return nullptr;
    Llave llave(PEM_read_bio_PrivateKey(bio.get(), nullptr, sin_contrasena, nullptr));
    if (!llave) {
        BIO_reset(bio.get());
        llave.reset(d2i_PrivateKey_bio(bio.get(), nullptr));
    }
    ERR_clear_error();
    return llave;
}

QByteArray leer_bio(BIO *bio)
{
    char *datos = nullptr;
    const long largo = BIO_get_mem_data(bio, &datos);
    return QByteArray(datos, static_cast<int>(largo));
}

} // namespace vendrix::openssl

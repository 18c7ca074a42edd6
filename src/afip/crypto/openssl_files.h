#pragma once

#include <QByteArray>
#include <QString>

#include <openssl/bio.h>
#include <openssl/evp.h>
#include <openssl/x509.h>

#include <memory>

namespace vendrix::openssl {

template <typename T, void (*Free)(T *)> struct Liberar {
    void operator()(T *p) const { Free(p); }
};
using Certificado = std::unique_ptr<X509, Liberar<X509, X509_free>>;
using Llave = std::unique_ptr<EVP_PKEY, Liberar<EVP_PKEY, EVP_PKEY_free>>;
using Bio = std::unique_ptr<BIO, Liberar<BIO, BIO_free_all>>;

// What a memory BIO holds.
QByteArray leer_bio(BIO *bio);

// A certificate from a PEM or DER file; null when the file is missing or
// holds neither.
Certificado leer_certificado(const QString &ruta);

// An unencrypted private key from a PEM or DER file; null otherwise. An
// encrypted key is refused at once rather than asking for its password on
// the terminal.
Llave leer_llave(const QString &ruta);

} // namespace vendrix::openssl

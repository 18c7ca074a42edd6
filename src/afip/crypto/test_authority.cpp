#include "afip/crypto/test_authority.h"

#include "afip/crypto/openssl_files.h"

#include <QHostAddress>

#include <openssl/bio.h>
#include <openssl/evp.h>
#include <openssl/pem.h>
#include <openssl/rand.h>
#include <openssl/x509.h>
#include <openssl/x509v3.h>

#include <memory>
#include <stdexcept>

namespace vendrix {
namespace {

using openssl::Bio;
using openssl::Certificado;
using openssl::leer_bio;
using openssl::Llave;

void exigir(bool ok, const char *paso)
{
    if (!ok)
        throw std::runtime_error(std::string("No se pudo emitir el certificado de prueba: ") + paso);
}

QByteArray pem_de(X509 *cert)
{
    Bio bio(BIO_new(BIO_s_mem()));
    exigir(PEM_write_bio_X509(bio.get(), cert) == 1, "PEM del certificado");
    return leer_bio(bio.get());
}

QByteArray pem_de(EVP_PKEY *llave)
{
    Bio bio(BIO_new(BIO_s_mem()));
    exigir(PEM_write_bio_PrivateKey(bio.get(), llave, nullptr, nullptr, 0, nullptr, nullptr) == 1,
           "PEM de la llave");
    return leer_bio(bio.get());
}

Certificado certificado_de(const QByteArray &pem)
{
    Bio bio(BIO_new_mem_buf(pem.constData(), static_cast<int>(pem.size())));
    Certificado cert(PEM_read_bio_X509(bio.get(), nullptr, nullptr, nullptr));
    exigir(cert != nullptr, "certificado de la autoridad");
    return cert;
}

Llave llave_de(const QByteArray &pem)
{
    Bio bio(BIO_new_mem_buf(pem.constData(), static_cast<int>(pem.size())));
    Llave llave(PEM_read_bio_PrivateKey(bio.get(), nullptr, nullptr, nullptr));
    exigir(llave != nullptr, "llave de la autoridad");
    return llave;
}

void poner_fecha(ASN1_TIME *campo, const QDateTime &cuando)
{
    exigir(ASN1_TIME_set(campo, static_cast<time_t>(cuando.toSecsSinceEpoch())) != nullptr, "fecha");
}

void agregar_extension(X509 *cert, X509 *emisor, int nid, const char *valor)
{
    X509V3_CTX ctx;
    X509V3_set_ctx_nodb(&ctx);
    X509V3_set_ctx(&ctx, emisor, cert, nullptr, nullptr, 0);
    X509_EXTENSION *ext = X509V3_EXT_conf_nid(nullptr, &ctx, nid, valor);
    exigir(ext != nullptr, "extensión");
    X509_add_ext(cert, ext, -1);
    X509_EXTENSION_free(ext);
}

// A new certificate for `nombre` over `llave`, issued by `emisor` (itself
// when null); the caller signs it.
Certificado armar(const QString &nombre, EVP_PKEY *llave, const QDateTime &desde, const QDateTime &hasta,
                  X509 *emisor)
{
    Certificado cert(X509_new());
    exigir(cert != nullptr, "certificado");
    X509_set_version(cert.get(), 2);
    unsigned char serie[8];
    exigir(RAND_bytes(serie, sizeof serie) == 1, "número de serie");
    serie[0] &= 0x7f;
    BIGNUM *bn = BN_bin2bn(serie, sizeof serie, nullptr);
    BN_to_ASN1_INTEGER(bn, X509_get_serialNumber(cert.get()));
    BN_free(bn);
    poner_fecha(X509_getm_notBefore(cert.get()), desde);
    poner_fecha(X509_getm_notAfter(cert.get()), hasta);
    X509_set_pubkey(cert.get(), llave);
    X509_NAME *sujeto = X509_get_subject_name(cert.get());
    const QByteArray cn = nombre.toUtf8();
    X509_NAME_add_entry_by_txt(sujeto, "C", MBSTRING_ASC, reinterpret_cast<const unsigned char *>("AR"), -1,
                               -1, 0);
    X509_NAME_add_entry_by_txt(sujeto, "CN", MBSTRING_UTF8,
                               reinterpret_cast<const unsigned char *>(cn.constData()), -1, -1, 0);
    X509_set_issuer_name(cert.get(), emisor ? X509_get_subject_name(emisor) : sujeto);
    return cert;
}

Llave llave_nueva()
{
    Llave llave(EVP_RSA_gen(2048));
    exigir(llave != nullptr, "llave RSA");
    return llave;
}

} // namespace

AutoridadPrueba AutoridadPrueba::crear(const QString &nombre, const QDateTime &desde)
{
    Llave llave = llave_nueva();
    Certificado cert = armar(nombre, llave.get(), desde, desde.addYears(10), nullptr);
    agregar_extension(cert.get(), cert.get(), NID_basic_constraints, "critical,CA:TRUE");
    agregar_extension(cert.get(), cert.get(), NID_key_usage, "critical,keyCertSign,cRLSign");
    agregar_extension(cert.get(), cert.get(), NID_subject_key_identifier, "hash");
    exigir(X509_sign(cert.get(), llave.get(), EVP_sha256()) > 0, "firma de la autoridad");
    return AutoridadPrueba({pem_de(cert.get()), pem_de(llave.get())});
}

CertificadoPem AutoridadPrueba::emitir(const QString &nombre, const QDateTime &desde, const QDateTime &hasta,
                                       const QStringList &hosts) const
{
    Certificado ca = certificado_de(pem_.certificado);
    Llave ca_llave = llave_de(pem_.llave);
    Llave llave = llave_nueva();
    Certificado cert = armar(nombre, llave.get(), desde, hasta, ca.get());
    agregar_extension(cert.get(), ca.get(), NID_basic_constraints, "critical,CA:FALSE");
    agregar_extension(cert.get(), ca.get(), NID_authority_key_identifier, "keyid:always");
    if (!hosts.isEmpty()) {
        QStringList nombres;
        for (const QString &host : hosts)
            nombres << (QHostAddress(host).isNull() ? QStringLiteral("DNS:") : QStringLiteral("IP:")) + host;
        agregar_extension(cert.get(), ca.get(), NID_subject_alt_name, nombres.join(',').toUtf8().constData());
        agregar_extension(cert.get(), ca.get(), NID_ext_key_usage, "serverAuth");
    }
    exigir(X509_sign(cert.get(), ca_llave.get(), EVP_sha256()) > 0, "firma del certificado");
    return {pem_de(cert.get()), pem_de(llave.get())};
}

} // namespace vendrix

#include "afip/crypto/cms_signature.h"
#include "afip/crypto/test_authority.h"

#include <QFile>
#include <QTemporaryDir>

#include <openssl/bio.h>
#include <openssl/cms.h>
#include <openssl/err.h>
#include <openssl/pem.h>

#include <gtest/gtest.h>

namespace vendrix {
namespace {

const QDateTime kDesde(QDate(2026, 1, 1), QTime(0, 0), Qt::UTC);

class CmsSignatureTest : public ::testing::Test {
protected:
    static void SetUpTestSuite()
    {
        autoridad_ = new AutoridadPrueba(AutoridadPrueba::crear(QStringLiteral("Autoridad"), kDesde));
        comercio_ =
            new CertificadoPem(autoridad_->emitir(QStringLiteral("Comercio"), kDesde, kDesde.addYears(2)));
    }
    static void TearDownTestSuite()
    {
        delete comercio_;
        delete autoridad_;
    }

    QString escribir(const QString &nombre, const QByteArray &bytes) const
    {
        QFile archivo(dir_.filePath(nombre));
        EXPECT_TRUE(archivo.open(QIODevice::WriteOnly));
        archivo.write(bytes);
        return archivo.fileName();
    }

    // The signature read back and verified against the authority; the
    // signed content when it verifies, a null array otherwise.
    static QByteArray verificar(const QByteArray &der)
    {
        BIO *entrada = BIO_new_mem_buf(der.constData(), static_cast<int>(der.size()));
        CMS_ContentInfo *cms = d2i_CMS_bio(entrada, nullptr);
        BIO *pem = BIO_new_mem_buf(autoridad_->pem().certificado.constData(), -1);
        X509 *ca = PEM_read_bio_X509(pem, nullptr, nullptr, nullptr);
        X509_STORE *almacen = X509_STORE_new();
        X509_STORE_add_cert(almacen, ca);
        BIO *contenido = BIO_new(BIO_s_mem());
        QByteArray resultado;
        if (cms && CMS_verify(cms, nullptr, almacen, nullptr, contenido, CMS_BINARY) == 1) {
            char *datos = nullptr;
            const long largo = BIO_get_mem_data(contenido, &datos);
            resultado = QByteArray(datos, static_cast<int>(largo));
        }
        ERR_clear_error();
        BIO_free(contenido);
        X509_STORE_free(almacen);
        X509_free(ca);
        BIO_free(pem);
        CMS_ContentInfo_free(cms);
        BIO_free(entrada);
        return resultado;
    }

    static QByteArray a_der(const QByteArray &pem, bool llave)
    {
        BIO *entrada = BIO_new_mem_buf(pem.constData(), -1);
        BIO *salida = BIO_new(BIO_s_mem());
        if (llave) {
            EVP_PKEY *k = PEM_read_bio_PrivateKey(entrada, nullptr, nullptr, nullptr);
            i2d_PrivateKey_bio(salida, k);
            EVP_PKEY_free(k);
        } else {
            X509 *c = PEM_read_bio_X509(entrada, nullptr, nullptr, nullptr);
            i2d_X509_bio(salida, c);
            X509_free(c);
        }
        char *datos = nullptr;
        const long largo = BIO_get_mem_data(salida, &datos);
        QByteArray der(datos, static_cast<int>(largo));
        BIO_free(salida);
        BIO_free(entrada);
        return der;
    }

    static QByteArray llave_cifrada(const QByteArray &pem)
    {
        BIO *entrada = BIO_new_mem_buf(pem.constData(), -1);
        EVP_PKEY *k = PEM_read_bio_PrivateKey(entrada, nullptr, nullptr, nullptr);
        BIO *salida = BIO_new(BIO_s_mem());
        char clave[] = "secreta";
        PEM_write_bio_PKCS8PrivateKey(salida, k, EVP_aes_256_cbc(), clave, 7, nullptr, nullptr);
        char *datos = nullptr;
        const long largo = BIO_get_mem_data(salida, &datos);
        QByteArray cifrada(datos, static_cast<int>(largo));
        BIO_free(salida);
        EVP_PKEY_free(k);
        BIO_free(entrada);
        return cifrada;
    }

    QTemporaryDir dir_;
    static inline AutoridadPrueba *autoridad_ = nullptr;
    static inline CertificadoPem *comercio_ = nullptr;
};

TEST_F(CmsSignatureTest, TheSignatureVerifiesAgainstTheAuthorityAndCarriesTheDataByteForByte)
{
    // Line ends and a trailing blank must survive: WSAA parses the signed bytes.
    const QByteArray datos("\r\n<loginTicketRequest>\r\n  <uniqueId>1</uniqueId>\n</loginTicketRequest> ");
    const struct {
        const char *caso;
        QString certificado;
        QString llave;
    } casos[] = {
        {"PEM", escribir("c.pem", comercio_->certificado), escribir("k.pem", comercio_->llave)},
        {"DER", escribir("c.der", a_der(comercio_->certificado, false)),
         escribir("k.der", a_der(comercio_->llave, true))},
    };
    for (const auto &c : casos) {
        const FirmaCms firma = firmar_cms(datos, c.certificado, c.llave);
        EXPECT_EQ(firma.error, QString()) << c.caso;
        EXPECT_EQ(verificar(firma.der), datos) << c.caso;
    }
}

TEST_F(CmsSignatureTest, FilesThatCantSignGiveASpanishErrorNamingThem)
{
    const QString cert = escribir("c.pem", comercio_->certificado);
    const QString llave = escribir("k.pem", comercio_->llave);
    const CertificadoPem otro = autoridad_->emitir(QStringLiteral("Otro"), kDesde, kDesde.addYears(1));
    const QString otra_llave = escribir("otra.key", otro.llave);
    const QString cifrada = escribir("cifrada.key", llave_cifrada(comercio_->llave));
    const QString basura = escribir("basura.crt", "no es un certificado");
    const QString falta = dir_.filePath("no existe.crt");
    const struct {
        QString certificado;
        QString llave;
        QString error;
    } casos[] = {
        {falta, llave, QStringLiteral("No se pudo leer el certificado '%1'.").arg(falta)},
        {basura, llave, QStringLiteral("No se pudo leer el certificado '%1'.").arg(basura)},
        {cert, falta,
         QStringLiteral("No se pudo leer la llave privada '%1'. La llave no debe tener contraseña.")
             .arg(falta)},
        {cert, cifrada,
         QStringLiteral("No se pudo leer la llave privada '%1'. La llave no debe tener contraseña.")
             .arg(cifrada)},
        {cert, otra_llave,
         QStringLiteral("El certificado '%1' no corresponde a la llave '%2'.").arg(cert, otra_llave)},
    };
    for (const auto &c : casos) {
        const FirmaCms firma = firmar_cms("datos", c.certificado, c.llave);
        EXPECT_EQ(firma.error, c.error);
        EXPECT_TRUE(firma.der.isEmpty()) << firma.error.toStdString();
    }
}

} // namespace
} // namespace vendrix

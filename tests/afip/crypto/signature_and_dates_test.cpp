#include "afip/crypto/certificate_dates.h"
#include "afip/crypto/cms_signature.h"
#include "afip/crypto/test_authority.h"
#include "support/test_context.h"

#include <QSslKey>

#include <openssl/cms.h>

#include <gtest/gtest.h>

namespace vendrix {
namespace {

QDateTime utc(int y, int m, int d, int h = 12)
{
    return QDateTime(QDate(y, m, d), QTime(h, 0), Qt::UTC);
}

// The signed bytes when the DER signature verifies against the authority's PEM file.
QByteArray contenido_verificado(const QByteArray &der, const QString &autoridad)
{
    BIO *entrada = BIO_new_mem_buf(der.constData(), static_cast<int>(der.size())),
        *salida = BIO_new(BIO_s_mem());
    CMS_ContentInfo *cms = d2i_CMS_bio(entrada, nullptr);
    X509_STORE *confiables = X509_STORE_new();
    X509_STORE_load_file(confiables, autoridad.toLocal8Bit().constData());
    char *datos = nullptr;
    const bool ok = cms && CMS_verify(cms, nullptr, confiables, nullptr, salida, CMS_BINARY) == 1;
    const long largo = BIO_get_mem_data(salida, &datos);
    const QByteArray contenido = ok ? QByteArray(datos, static_cast<int>(largo)) : QByteArray();
    X509_STORE_free(confiables);
    CMS_ContentInfo_free(cms);
    BIO_free(salida);
    BIO_free(entrada);
    return contenido;
}

TEST(CmsSignatureTest, VerifiesAgainstTheAuthorityWithTheBytesInsideOrNamesTheFileItCantUse)
{
    test::TestApp app;
    const AutoridadPrueba autoridad = AutoridadPrueba::crear(QStringLiteral("Autoridad"), utc(2026, 1, 1));
    const CertificadoPem pem = autoridad.emitir(QStringLiteral("Comercio"), utc(2026, 1, 1), utc(2028, 1, 1));
    app.write_file(QStringLiteral("ca.pem"), autoridad.pem().certificado);
    app.write_file(QStringLiteral("c.crt"), pem.certificado);
    app.write_file(QStringLiteral("c.key"), pem.llave);
    app.write_file(QStringLiteral("otra.key"), autoridad.pem().llave);
    app.write_file(QStringLiteral("cifrada.key"), QSslKey(pem.llave, QSsl::Rsa).toPem("secreta"));
    const QString cert = app.ruta(QStringLiteral("c.crt")), otra = app.ruta(QStringLiteral("otra.key"));
    const QString cifrada = app.ruta(QStringLiteral("cifrada.key"));
    // A lone LF and a trailing blank must survive: WSAA parses the signed bytes.
    const QByteArray datos("\r\n<loginTicketRequest>\n</loginTicketRequest> ");

    const FirmaCms firma = firmar_cms(datos, cert, app.ruta(QStringLiteral("c.key")));
    EXPECT_EQ(contenido_verificado(firma.der, app.ruta(QStringLiteral("ca.pem"))), datos)
        << firma.error.toStdString();
    const std::pair<QString, QString> casos[] = {
        {cifrada, QStringLiteral("No se pudo leer la llave privada '%1'. La llave no debe tener contraseña.")
                      .arg(cifrada)},
        {otra, QStringLiteral("El certificado '%1' no corresponde a la llave '%2'.").arg(cert, otra)},
    };
    for (const auto &[llave, error] : casos) {
        EXPECT_EQ(firmar_cms(datos, cert, llave).error, error);
        EXPECT_TRUE(firmar_cms(datos, cert, llave).der.isEmpty());
    }
}

TEST(CertificateDatesTest, TheEndIsReadAndPrintedAsOpensslDoesAndItsLastSecondCountsAsExpired)
{
    test::TestApp app;
    const AutoridadPrueba autoridad = AutoridadPrueba::crear(QStringLiteral("Autoridad"), utc(2025, 1, 1));
    // A one-digit day is padded with a blank; from 2050 on the file holds another form of time.
    const std::pair<QDateTime, QString> casos[] = {
        {utc(2026, 6, 5), QStringLiteral("Jun  5 12:00:00 2026 GMT")},
        {utc(2051, 12, 15, 23), QStringLiteral("Dec 15 23:00:00 2051 GMT")}};
    for (const auto &[fin, texto] : casos) {
        app.write_file(QStringLiteral("c.crt"), autoridad.emitir({}, utc(2025, 1, 1), fin).certificado);
        const VencimientoCertificado leido = leer_vencimiento(app.ruta(QStringLiteral("c.crt")));
        ASSERT_TRUE(leido.fin) << leido.error.toStdString();
        EXPECT_EQ(*leido.fin, fin);
        EXPECT_EQ(texto_not_after(*leido.fin), texto);
    }
    EXPECT_EQ(leer_vencimiento(app.ruta(QStringLiteral("no.crt"))).error,
              QStringLiteral("No se pudo leer el certificado '%1'.").arg(app.ruta(QStringLiteral("no.crt"))));

    const QDateTime fin = utc(2026, 6, 15);
    // {seconds before the end, seconds checked ahead, still valid}
    const qint64 bordes[][3] = {
        {2, 1, 1}, {1, 1, 0}, {0, 0, 0}, {2592001, 2592000, 1}, {2592000, 2592000, 0}};
    for (const auto &b : bordes)
        EXPECT_EQ(vigente_dentro_de(fin, fin.addSecs(-b[0]), b[1]), b[2] == 1) << b[0];
}

} // namespace
} // namespace vendrix

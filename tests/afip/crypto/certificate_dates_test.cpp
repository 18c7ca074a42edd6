#include "afip/crypto/certificate_dates.h"
#include "afip/crypto/test_authority.h"

#include <QFile>
#include <QTemporaryDir>
#include <QTimeZone>

#include <openssl/asn1.h>
#include <openssl/bio.h>
#include <openssl/pem.h>

#include <gtest/gtest.h>

namespace vendrix {
namespace {

QDateTime utc(int y, int m, int d, int h, int min, int s)
{
    return QDateTime(QDate(y, m, d), QTime(h, min, s), Qt::UTC);
}

// notAfter as OpenSSL prints it, the reference for our own text.
QString impreso_por_openssl(const QByteArray &pem)
{
    BIO *entrada = BIO_new_mem_buf(pem.constData(), -1);
    X509 *cert = PEM_read_bio_X509(entrada, nullptr, nullptr, nullptr);
    BIO *salida = BIO_new(BIO_s_mem());
    ASN1_TIME_print(salida, X509_get0_notAfter(cert));
    char *datos = nullptr;
    const long largo = BIO_get_mem_data(salida, &datos);
    const QString texto = QString::fromLatin1(datos, static_cast<int>(largo));
    BIO_free(salida);
    X509_free(cert);
    BIO_free(entrada);
    return texto;
}

TEST(CertificateDatesTest, TheEndIsReadFromTheFileAndPrintedAsOpensslDoes)
{
    QTemporaryDir dir;
    const AutoridadPrueba autoridad =
        AutoridadPrueba::crear(QStringLiteral("Autoridad"), utc(2025, 1, 1, 0, 0, 0));
    // A one-digit day is padded with a blank; a date from 2050 on is stored
    // in the other ASN.1 time form.
    for (const QDateTime &fin :
         {utc(2026, 6, 5, 12, 0, 0), utc(2026, 12, 15, 23, 59, 59), utc(2051, 3, 9, 1, 2, 3)}) {
        const CertificadoPem pem =
            autoridad.emitir(QStringLiteral("Comercio"), utc(2025, 1, 1, 0, 0, 0), fin);
        const QString ruta = dir.filePath(QStringLiteral("cert.crt"));
        QFile archivo(ruta);
        ASSERT_TRUE(archivo.open(QIODevice::WriteOnly | QIODevice::Truncate));
        archivo.write(pem.certificado);
        archivo.close();

        const VencimientoCertificado leido = leer_vencimiento(ruta);
        ASSERT_TRUE(leido.fin) << leido.error.toStdString();
        EXPECT_EQ(*leido.fin, fin);
        EXPECT_EQ(leido.fin->timeSpec(), Qt::UTC);
        EXPECT_EQ(texto_not_after(*leido.fin), impreso_por_openssl(pem.certificado));
    }
    EXPECT_EQ(texto_not_after(utc(2026, 6, 5, 12, 0, 0)), QStringLiteral("Jun  5 12:00:00 2026 GMT"));
    // A local time is printed in UTC.
    EXPECT_EQ(texto_not_after(QDateTime(QDate(2026, 6, 15), QTime(21, 30), QTimeZone(-3 * 3600))),
              QStringLiteral("Jun 16 00:30:00 2026 GMT"));

    const QString falta = dir.filePath(QStringLiteral("falta.crt"));
    const VencimientoCertificado sin_archivo = leer_vencimiento(falta);
    EXPECT_FALSE(sin_archivo.fin);
    EXPECT_EQ(sin_archivo.error, QStringLiteral("No se pudo leer el certificado '%1'.").arg(falta));
}

TEST(CertificateDatesTest, ACertificateEndingAtTheMomentCheckedCountsAsExpired)
{
    const QDateTime fin = utc(2026, 6, 15, 12, 0, 0);
    const struct {
        QDateTime ahora;
        qint64 segundos;
        bool vigente;
    } casos[] = {
        {fin.addSecs(-2), 1, true},
        {fin.addSecs(-1), 1, false}, // ends exactly then
        {fin, 0, false},
        {fin.addSecs(1), 0, false},
        {fin.addSecs(-2592001), 2592000, true},
        {fin.addSecs(-2592000), 2592000, false},
        {fin.addDays(-10), 2592000, false},
    };
    for (const auto &c : casos)
        EXPECT_EQ(vigente_dentro_de(fin, c.ahora, c.segundos), c.vigente)
            << c.ahora.toString(Qt::ISODate).toStdString() << " + " << c.segundos;
}

} // namespace
} // namespace vendrix

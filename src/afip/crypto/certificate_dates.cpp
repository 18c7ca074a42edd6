#include "afip/crypto/certificate_dates.h"

#include "afip/crypto/openssl_files.h"

#include <openssl/asn1.h>

#include <ctime>

namespace vendrix {

VencimientoCertificado leer_vencimiento(const QString &ruta_certificado)
{
    const openssl::Certificado cert = openssl::leer_certificado(ruta_certificado);
    std::tm tm{};
    if (!cert || ASN1_TIME_to_tm(X509_get0_notAfter(cert.get()), &tm) != 1)
        return {std::nullopt, QStringLiteral("No se pudo leer el certificado '%1'.").arg(ruta_certificado)};
    return {QDateTime(QDate(tm.tm_year + 1900, tm.tm_mon + 1, tm.tm_mday),
                      QTime(tm.tm_hour, tm.tm_min, tm.tm_sec), Qt::UTC),
            {}};
}

bool vigente_dentro_de(const QDateTime &fin, const QDateTime &ahora, qint64 segundos)
{
    // OpenSSL says "will expire" when the end is earlier than or equal to
    // the moment checked.
    return fin.toSecsSinceEpoch() > ahora.toSecsSinceEpoch() + segundos;
}

QString texto_not_after(const QDateTime &fin)
{
    static const char *const meses[] = {"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                                        "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};
    const QDateTime utc = fin.toUTC();
    const QDate dia = utc.date();
    // The day takes two places, padded with a blank, as OpenSSL prints it.
    return QStringLiteral("%1 %2 %3 %4 GMT")
        .arg(QLatin1String(meses[dia.month() - 1]))
        .arg(dia.day(), 2, 10, QLatin1Char(' '))
        .arg(utc.time().toString(QStringLiteral("HH:mm:ss")))
        .arg(dia.year());
}

} // namespace vendrix

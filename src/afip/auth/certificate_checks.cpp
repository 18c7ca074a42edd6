#include "afip/auth/certificate_checks.h"

#include "afip/auth/afip_services.h"
#include "core/context.h"

#include <QFile>

#include <optional>

namespace vendrix {

namespace {

// The certificate's end, or none after logging why it couldn't be read.
// The output file goes first, so that an old result never stands for a
// new check.
std::optional<QDateTime> leer_fin(ServiciosAfip &s, const char *archivo)
{
    const QString salida = s.ctx.ruta(QLatin1String(archivo));
    QFile::remove(salida);
    const VencimientoCertificado vto = s.leer_vto(s.ctx.leer_parametro(QStringLiteral("IF_FE_Certificado")));
    if (!vto.fin)
        s.ctx.escribir_log(vto.error, QStringLiteral("E"));
    return vto.fin;
}

// Writes the text to the file and reads it back whole, as the result is
// taken from the file.
QString escribir_y_leer(const QString &ruta, const QString &texto)
{
    QFile f(ruta);
    if (!f.open(QIODevice::WriteOnly | QIODevice::Truncate))
        return QString();
    f.write(texto.toLatin1());
    f.close();
    if (!f.open(QIODevice::ReadOnly))
        return QString();
    return QString::fromLatin1(f.readAll());
}

bool vigente_por(ServiciosAfip &s, const char *archivo, qint64 segundos)
{
    const std::optional<QDateTime> fin = leer_fin(s, archivo);
    if (!fin)
        return false;
    const QString salida = escribir_y_leer(s.ctx.ruta(QLatin1String(archivo)),
                                           vigente_dentro_de(*fin, s.ctx.reloj().now(), segundos)
                                               ? QStringLiteral("Certificate will not expire\n")
                                               : QStringLiteral("Certificate will expire\n"));
    // "will expire" from the sixth character on means it does.
    return salida.indexOf(QLatin1String("will expire")) < 5;
}

} // namespace

bool certificado_vigente_30(ServiciosAfip &s)
{
    return vigente_por(s, "cert30dias.txt", 2592000);
}

bool certificado_vigente(ServiciosAfip &s)
{
    return vigente_por(s, "certvalido.txt", 1);
}

QString certificado_fecha_vto(ServiciosAfip &s)
{
    const char *archivo = "fechavtocert.txt";
    const std::optional<QDateTime> fin = leer_fin(s, archivo);
    if (!fin)
        return QString();
    const QString salida =
        escribir_y_leer(s.ctx.ruta(QLatin1String(archivo)),
                        QStringLiteral("notAfter=") + texto_not_after(*fin) + QLatin1Char('\n'))
            .remove(QStringLiteral("notAfter="));
    // "Jun 15 12:00:00 2026 GMT" -> "Jun 15  2026": month, day and year.
    return salida.left(6) + QLatin1Char(' ') + salida.mid(15, 5);
}

} // namespace vendrix

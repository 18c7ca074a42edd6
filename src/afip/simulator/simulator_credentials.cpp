#include "afip/simulator/simulator_credentials.h"

#include <QDir>
#include <QFile>
#include <QSaveFile>

#include <stdexcept>

namespace vendrix {

namespace {

QByteArray leer(const QString &ruta)
{
    QFile f(ruta);
    return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray();
}

bool escribir(const QString &ruta, const QByteArray &datos, QString *error)
{
    QSaveFile f(ruta);
    if (f.open(QIODevice::WriteOnly) && f.write(datos) == datos.size() && f.commit())
        return true;
    if (error)
        *error = QStringLiteral("No se pudo escribir el archivo %1: %2").arg(ruta, f.errorString());
    return false;
}

// The pair in `certificado`/`llave`, read, or issued by `emitir` and
// written when either is missing.
template <typename Emitir>
bool par(const QString &certificado, const QString &llave, Emitir emitir, QString *error)
{
    if (QFile::exists(certificado) && QFile::exists(llave))
        return true;
    const CertificadoPem pem = emitir();
    return escribir(certificado, pem.certificado, error) && escribir(llave, pem.llave, error);
}

} // namespace

CertificadoPem CredencialesSimulador::autoridad() const
{
    return {leer(autoridad_certificado), leer(autoridad_llave)};
}

CertificadoPem CredencialesSimulador::servidor() const
{
    return {leer(servidor_certificado), leer(servidor_llave)};
}

bool CredencialesSimulador::preparar(const QString &carpeta, const QDateTime &ahora, bool vencido,
                                     CredencialesSimulador &salida, QString *error)
{
    const QDir dir(carpeta);
    if (!dir.mkpath(QStringLiteral("."))) {
        if (error)
            *error = QStringLiteral("No se pudo crear la carpeta %1").arg(carpeta);
        return false;
    }
    CredencialesSimulador c;
    c.carpeta = dir.absolutePath();
    c.autoridad_certificado = dir.absoluteFilePath(QStringLiteral("autoridad_prueba.crt"));
    c.autoridad_llave = dir.absoluteFilePath(QStringLiteral("autoridad_prueba.key"));
    c.servidor_certificado = dir.absoluteFilePath(QStringLiteral("servidor.crt"));
    c.servidor_llave = dir.absoluteFilePath(QStringLiteral("servidor.key"));
    const QString tienda =
        vencido ? QStringLiteral("vendrix_homologacion_vencido") : QStringLiteral("vendrix_homologacion");
    c.tienda_certificado = dir.absoluteFilePath(tienda + QStringLiteral(".crt"));
    c.tienda_llave = dir.absoluteFilePath(tienda + QStringLiteral(".key"));
    try {
        // A new authority makes the certificates it didn't issue useless.
        if (!QFile::exists(c.autoridad_certificado) || !QFile::exists(c.autoridad_llave)) {
            for (const char *viejo :
                 {"servidor.crt", "vendrix_homologacion.crt", "vendrix_homologacion_vencido.crt"})
                QFile::remove(dir.absoluteFilePath(QLatin1String(viejo)));
        }
        const auto crear_autoridad = [&] {
            return AutoridadPrueba::crear(QStringLiteral("Vendrix AC de Prueba"), ahora).pem();
        };
        if (!par(c.autoridad_certificado, c.autoridad_llave, crear_autoridad, error))
            return false;
        const AutoridadPrueba autoridad = AutoridadPrueba::desde_pem(c.autoridad());
        const auto crear_servidor = [&] {
            return autoridad.emitir(QStringLiteral("localhost"), ahora.addDays(-1), ahora.addYears(5),
                                    {QStringLiteral("127.0.0.1"), QStringLiteral("localhost")});
        };
        if (!par(c.servidor_certificado, c.servidor_llave, crear_servidor, error))
            return false;
        const auto crear_tienda = [&] {
            return vencido ? autoridad.emitir(QStringLiteral("Vendrix Homologacion"), ahora.addYears(-2),
                                              ahora.addDays(-1))
                           : autoridad.emitir(QStringLiteral("Vendrix Homologacion"), ahora.addDays(-1),
                                              ahora.addYears(2));
        };
        if (!par(c.tienda_certificado, c.tienda_llave, crear_tienda, error))
            return false;
    } catch (const std::runtime_error &e) {
        if (error)
            *error = QString::fromUtf8(e.what());
        return false;
    }
    salida = c;
    return true;
}

} // namespace vendrix

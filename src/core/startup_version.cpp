#include "core/startup_version.h"

#include "core/context.h"

#include "vendrix_version.h"

#include <QStringList>

namespace vendrix {

namespace {

const QString kTitulo = QStringLiteral("Nueva Version del programa");
const QString kCrLf = QStringLiteral("\r\n");
const QString kLineaDescarga =
    QStringLiteral("Puede descargar la última versión de Vendrix desde https://www.vendrix.com.ar/descargas");

// The number at the start of a part, as the price lists' makers write them
// ("3", " 10"); anything else is 0.
int numero(const QStringList &parts, int index)
{
    if (index >= parts.size())
        return 0;
    const QString part = parts.at(index).trimmed();
    qsizetype digits = 0;
    while (digits < part.size() && part.at(digits).isDigit())
        ++digits;
    return part.left(digits).toInt();
}

QString aviso_recomendado(const QString &db_version, const char *why)
{
    return QStringLiteral("Existe una version más reciente del programa.") + kCrLf +
           QStringLiteral("Le recomendamos actualizar Vendrix a la nueva version (") + db_version +
           QString::fromUtf8(why) + kCrLf + kLineaDescarga;
}

} // namespace

QString VersionPrograma::texto() const
{
    return QStringLiteral("%1.%2.%3").arg(mayor).arg(menor).arg(revision);
}

VersionPrograma VersionPrograma::actual()
{
    return {VENDRIX_VERSION_MAJOR, VENDRIX_VERSION_MINOR, VENDRIX_VERSION_PATCH};
}

AvisoVersion comparar_version(const QString &db_version, const VersionPrograma &running)
{
    const QStringList parts = db_version.split(QLatin1Char('.'));
    if (numero(parts, 0) > running.mayor)
        return AvisoVersion::mayor;
    if (numero(parts, 1) > running.menor)
        return AvisoVersion::menor;
    if (numero(parts, 2) > running.revision)
        return AvisoVersion::revision;
    return AvisoVersion::ninguno;
}

bool validar_version_db(Context &ctx, const QString &db_version, const VersionPrograma &running)
{
    const QString newer_db = QStringLiteral("Existe una versión de la Base de Datos más actualizada");
    switch (comparar_version(db_version, running)) {
    case AvisoVersion::mayor:
        ctx.op().error(kTitulo, QStringLiteral("Existe una version más reciente del programa.") + kCrLf +
                                    QStringLiteral("Dado que los cambios incluyen novedades importantes, "
                                                   "nuevas funcionalidades y nuevos datos, para continuar "
                                                   "deberá descargar la última versión: ") +
                                    db_version + QLatin1Char('.') + kCrLf + kLineaDescarga);
        ctx.escribir_log(QStringLiteral("Versión del DB muy Antigua - No compatible con el programa"),
                         QStringLiteral("E"));
        return false;
    case AvisoVersion::menor:
        ctx.op().inform(kTitulo,
                        aviso_recomendado(db_version,
                                          ") ya que contiene nuevos datos y nuevas funcionalidades que "
                                          "le permitirán realizar todas las operaciones de una forma "
                                          "mas cómoda y eficiente."));
        ctx.escribir_log(newer_db, QStringLiteral("I"));
        return true;
    case AvisoVersion::revision:
        ctx.op().inform(kTitulo,
                        aviso_recomendado(db_version, ") ya que contiene nuevas y útiles funcionalidades."));
        ctx.escribir_log(newer_db, QStringLiteral("I"));
        return true;
    case AvisoVersion::ninguno:
        break;
    }
    return true;
}

void buscar_actualizaciones(Context &ctx)
{
    // Until the program talks to the vendor's service, a machine set to look
    // for updates is treated as one without a connection.
    if (ctx.leer_parametro(QStringLiteral("actualizar_online")) == QLatin1String("1"))
        ctx.escribir_log(QStringLiteral("No busco actualizaciones porque no hay internet"),
                         QStringLiteral("I"));
    else
        ctx.escribir_log(QStringLiteral("No busco actualizaciones porque no esta configurado para eso"),
                         QStringLiteral("I"));
}

} // namespace vendrix

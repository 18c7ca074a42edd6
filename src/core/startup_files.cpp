#include "core/startup_files.h"

#include "core/context.h"
#include "core/seed_files.h"

#include <QFile>

// The templates are compiled into the core library; a static library must
// register its resources by hand, outside any namespace.
static void registrar_plantillas()
{
    Q_INIT_RESOURCE(plantillas);
}

namespace vendrix {

namespace {

const QString kTituloAplicacion = QStringLiteral("Vendrix");
const QString kCrLf = QStringLiteral("\r\n");
const QString kCierre = QStringLiteral("La aplicación se cerrará.");

// A data file that is missing with its seed: the operator is told, the log
// says so, and the start-up ends.
bool validar(Context &ctx, const Semilla &semilla, const QString &message, const QString &log_line)
{
    const EstadoArchivo estado = asegurar_archivo(ctx, semilla);
    if (estado == EstadoArchivo::presente || estado == EstadoArchivo::copiado)
        return true;
    ctx.op().error(kTituloAplicacion, message);
    ctx.escribir_log(log_line, QStringLiteral("E"));
    return false;
}

QString copie_listas_en(const Context &ctx)
{
    return QStringLiteral("Por Favor copie el archivo Vendrix.vdrxdb en el directorio ") + ctx.carpeta() +
           QLatin1Char('.') + kCrLf + kCierre;
}

} // namespace

QByteArray texto_plantilla_fe(const QString &name)
{
    registrar_plantillas();
    QFile resource(QStringLiteral(":/plantillas/") + name);
    if (name.isEmpty() || !resource.open(QIODevice::ReadOnly))
        return {};
    QByteArray text = resource.readAll();
    text.replace("\r\n", "\n");
    // The delivered file ends in a line end; the written one ends on its
    // last line.
    if (text.endsWith('\n'))
        text.chop(1);
    return text.replace("\n", "\r\n");
}

void asegurar_plantillas_fe(Context &ctx)
{
    for (const char *name : kPlantillasFe) {
        const QString file = QString::fromUtf8(name);
        ctx.escribir_log(QStringLiteral("Verifica de la existencia del archivo ") + file,
                         QStringLiteral("I"));
        if (QFile::exists(ctx.ruta(file)))
            continue;
        QFile out(ctx.ruta(file));
        if (!out.open(QIODevice::WriteOnly | QIODevice::Truncate) ||
            out.write(texto_plantilla_fe(file)) < 0) {
            ctx.escribir_log(QStringLiteral("No se pudo crear el archivo ") + file + QStringLiteral(": ") +
                                 out.errorString(),
                             QStringLiteral("E"));
            continue;
        }
        ctx.escribir_log(QStringLiteral("Archivo ") + file +
                             QStringLiteral(" no encontrado, se creo uno nuevo"),
                         QStringLiteral("I"));
    }
}

bool validar_listas(Context &ctx)
{
    return validar(ctx, kSemillaListas,
                   QStringLiteral("El archivo que contiene las Listas de precios no existe.") + kCrLf +
                       copie_listas_en(ctx),
                   QStringLiteral("El archivo de las listas no existe"));
}

bool validar_clientes(Context &ctx)
{
    return validar(ctx, kSemillaClientes,
                   QStringLiteral("El archivo que contiene los datos del cliente no existe.") + kCrLf +
                       QStringLiteral("Por Favor instale Vendrix nuevamente..") + kCrLf + kCierre,
                   QStringLiteral("El archivo con datos del cliente no existe"));
}

// The message speaks of the price list file, and the log line too: both are
// the texts shops and support have always seen for a missing invoice page.
bool validar_factura(Context &ctx)
{
    return validar(ctx, kSemillaFactura,
                   QStringLiteral("El archivo que contiene el html de la factura no existe.") + kCrLf +
                       copie_listas_en(ctx),
                   QStringLiteral("El archivo de las listas no existe"));
}

bool validar_driver(Context &ctx, const QString &sistema)
{
    if (!QFile::exists(ctx.ruta(QString::fromUtf8(Database::kShopFile))))
        return true;
    if (ctx.db().verificar_driver_db() == QLatin1String("OK"))
        return true;
    const QString sentence =
        QStringLiteral("Vendrix no puede conectarse a la base de datos. Esto puede deberse a "
                       "que no existe un driver compatible instalado en ") +
        sistema + QLatin1Char('.');
    ctx.op().error(
        kTituloAplicacion,
        sentence + kCrLf +
            QStringLiteral("Por favor pongase en contacton con nosotros para solucionar el problema.") +
            kCrLf + kCierre);
    ctx.escribir_log(sentence, QStringLiteral("E"));
    return false;
}

} // namespace vendrix

// vendrix-cli verificar: prepares an application folder the way the program
// does at start: seeds copied, settings file written, both databases opened
// and the shop database brought up to date.
#include "commands.h"
#include "console_operator.h"

#include "core/context.h"
#include "core/migrations.h"
#include "core/seed_files.h"

#include <QTextStream>

namespace vendrix::cli {

namespace {

void informar_archivo(QTextStream &out, const Semilla &semilla, EstadoArchivo estado)
{
    const QString file = QString::fromUtf8(semilla.archivo);
    const QString seed = QString::fromUtf8(semilla.semilla);
    switch (estado) {
    case EstadoArchivo::presente:
    case EstadoArchivo::creado:
        out << file << ": presente\n";
        break;
    case EstadoArchivo::copiado:
        out << file << ": copiado de " << seed << '\n';
        break;
    case EstadoArchivo::faltante:
        out << file << ": no existe (tampoco " << seed << ")\n";
        break;
    case EstadoArchivo::error:
        out << file << ": no se pudo copiar " << seed << '\n';
        break;
    }
}

} // namespace

int cmd_verificar(const CliArgs &args)
{
    ConsoleOperator op(args.flag(QStringLiteral("--si")));
    SilentStatus status;
    SystemClock clock;
    Context ctx(args.carpeta(), op, status, clock);
    QTextStream out(stdout);
    QTextStream err(stderr);
    out << "Carpeta: " << ctx.carpeta() << '\n';

    for (const Semilla &semilla : {kSemillaListas, kSemillaClientes, kSemillaFactura})
        informar_archivo(out, semilla, asegurar_archivo(ctx, semilla));

    switch (asegurar_config(ctx)) {
    case EstadoArchivo::creado:
        out << Context::kConfigFile << ": creado con los valores por defecto\n";
        break;
    case EstadoArchivo::error:
        out << Context::kConfigFile << ": no se pudo crear\n";
        break;
    default:
        out << Context::kConfigFile << ": presente\n";
        break;
    }

    const QString shop_error = ctx.db().error_apertura(QStringLiteral("internal"));
    if (!shop_error.isEmpty()) {
        out.flush();
        err << "No se puede abrir la base de datos del comercio (" << Database::kShopFile
            << "): " << shop_error << '\n';
        return 1;
    }
    out << Database::kShopFile << ": abierta\n";
    if (ctx.db().verificar_driver_db() == QLatin1String("OK"))
        out << Database::kPriceFile << ": abierta (solo lectura)\n";
    else
        out << Database::kPriceFile << ": no se puede abrir; ver vendrix.log\n";

    const ResultadoMigraciones result = ejecutar_migraciones(ctx);
    if (result.aplicadas.isEmpty() && result.fallidas.isEmpty())
        out << "El esquema de la base de datos ya estaba al día.\n";
    for (const QString &line : result.aplicadas)
        out << "Actualizado: " << line << '\n';
    for (const QString &line : result.fallidas)
        out << "No se pudo actualizar: " << line << '\n';
    out.flush();
    if (!result.fallidas.isEmpty()) {
        err << "Quedaron " << result.fallidas.size()
            << " actualizaciones sin aplicar; se reintentarán en la próxima verificación.\n";
        return 3;
    }
    return 0;
}

} // namespace vendrix::cli

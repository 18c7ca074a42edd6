#include "core/seed_files.h"

#include "core/context.h"

#include "vendrix_version.h"

#include <QFile>

namespace vendrix {

EstadoArchivo asegurar_archivo(Context &ctx, const Semilla &semilla)
{
    const QString seed_name = QString::fromUtf8(semilla.semilla);
    const QString file_name = QString::fromUtf8(semilla.archivo);
    const QString target = ctx.ruta(file_name);
    if (QFile::exists(target))
        return EstadoArchivo::presente;
    const QString seed = ctx.ruta(seed_name);
    if (!QFile::exists(seed))
        return EstadoArchivo::faltante;
    // QFile::copy writes a temporary file and renames it, so a cut copy
    // never leaves a half database under the working name.
    if (!QFile::copy(seed, target)) {
        ctx.escribir_log(QStringLiteral("No se pudo copiar el archivo ") + seed_name +
                             QStringLiteral(" como ") + file_name,
                         QStringLiteral("E"));
        return EstadoArchivo::error;
    }
    // Installed seeds may be read-only; the working copy must be writable.
    QFile::setPermissions(target, QFile::permissions(target) | QFile::WriteOwner | QFile::ReadOwner);
    ctx.escribir_log(QStringLiteral("Se copio el archivo ") + seed_name + QStringLiteral(" como ") +
                         file_name,
                     QStringLiteral("A"));
    return EstadoArchivo::copiado;
}

EstadoArchivo asegurar_config(Context &ctx)
{
    if (QFile::exists(ctx.config().path()))
        return EstadoArchivo::presente;
    if (!ctx.config().crear_por_defecto(QStringLiteral(VENDRIX_VERSION)))
        return EstadoArchivo::error;
    ctx.escribir_log(QStringLiteral("Archivo INI no encontrado, se creo uno nuevo"), QStringLiteral("I"));
    return EstadoArchivo::creado;
}

} // namespace vendrix

#include "core/startup_import.h"

#include "core/context.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <filesystem>
#include <system_error>

namespace vendrix {

namespace {

const QString kTituloError = QStringLiteral("Error al Importar Datos");
const QString kCrLf = QStringLiteral("\r\n");

QString sin_comillas(const QString &text)
{
    return QString(text).remove(QLatin1Char('"'));
}

// The lists of a price database and its parameters must be there: the own
// articles go into the one, the question reads the other.
bool es_base_de_listas(Context &ctx, const QString &file)
{
    return ctx.db().execQext1(
               QStringLiteral("SELECT CASE WHEN count(*) = 2 THEN 'OK' END FROM sqlite_master WHERE "
                              "type = 'table' AND lower(name) IN ('xls_listas', 'xls_parametros')"),
               file, QString::fromLatin1(Log::kPricePassword)) == QLatin1String("OK");
}

QString parametro_de(Context &ctx, const QString &file, const QString &key)
{
    return ctx.db().execQext1(QStringLiteral("SELECT VALOR FROM xls_parametros WHERE CLAVE = ?"), file,
                              QString::fromLatin1(Log::kPricePassword), {key});
}

// Copies the new file beside the old one first and then swaps it in with
// one rename, so that a failed copy never leaves the shop without a list.
bool reemplazar_listas(Context &ctx, const QString &file)
{
    const QString target = ctx.db().ruta_listas();
    const QString temp = target + QStringLiteral(".importando");
    QFile::remove(temp);
    if (!QFile::copy(file, temp))
        return false;
    QFile::setPermissions(temp, QFile::permissions(temp) | QFile::ReadOwner | QFile::WriteOwner);
    ctx.db().cerrar();
    std::error_code error;
    std::filesystem::rename(QFile::encodeName(temp).toStdString(), QFile::encodeName(target).toStdString(),
                            error);
    if (error) {
        QFile::remove(temp);
        return false;
    }
    return true;
}

// The articles the shop added by hand live in the shop database and are
// copied into every new list, all of them or none.
void copiar_articulos_propios(Context &ctx)
{
    Database &db = ctx.db();
    const QString target = QStringLiteral("Internal");
    int copied = 0;
    if (db.abrir_listas_escritura() && db.existe_tabla(QStringLiteral("vendrix_listas_custom"), target)) {
        const QString columns = QStringLiteral("Proveedor, FechaLista, Grupo, Codigo, Descripcion, Marca, "
                                               "Unidaddemedida, Precio, Moneda, Observaciones");
        Transaction tx(db, target);
        const int rows =
            db.execQ1(QStringLiteral("SELECT count(*) FROM vendrix_listas_custom"), target).toInt();
        if (tx.activa() &&
            db.execNQ(QStringLiteral("INSERT INTO ") + db.tabla_listas_attach() + QStringLiteral(" (") +
                          columns + QStringLiteral(") SELECT ") + columns +
                          QStringLiteral(" FROM vendrix_listas_custom"),
                      target) &&
            tx.commit())
            copied = rows;
    }
    ctx.escribir_log(QStringLiteral("Se importaron ") + QString::number(copied) +
                         QStringLiteral(" datos de la tabla Vendrix_listas_custom."),
                     QStringLiteral("A"));
}

// The suppliers of the new list join the shop's customers and suppliers,
// those already there by name excepted.
void copiar_proveedores(Context &ctx)
{
    Database &db = ctx.db();
    ctx.escribir_log(
        QStringLiteral("Intento actualizar los proveedores de las listas en la tabla de clientes."),
        QStringLiteral("I"));
    const QString clientes = db.tabla_clientes_attach();
    const bool ok =
        QFile::exists(db.ruta_clientes()) &&
        db.execNQ(
            QStringLiteral("INSERT INTO ") + clientes +
                QStringLiteral(" (Nombre, BORRABLE, TIPO_RECORD) SELECT DISTINCT Proveedor, ?, ? "
                               "FROM xls_Proveedores p WHERE p.Proveedor NOT IN (SELECT DISTINCT Nombre "
                               "FROM ") +
                clientes + QStringLiteral(" WHERE Nombre IS NOT NULL)"),
            QStringLiteral("external"), {QStringLiteral("N"), QStringLiteral("Proveedor Mercadería")});
    if (ok)
        ctx.escribir_log(
            QStringLiteral("Se actualizo los proveedores de las listas en la tabla de clientes."),
            QStringLiteral("I"));
    else
        ctx.escribir_log(
            QStringLiteral("Se produjo un error al intentar agregar los proveedores a la tabla de clientes."),
            QStringLiteral("E"));
}

} // namespace

bool es_archivo_de_listas(const QString &command_line)
{
    const QString path = sin_comillas(command_line);
    const qsizetype dot = path.lastIndexOf(QLatin1Char('.'));
    return dot >= 0 && path.mid(dot + 1) == QLatin1String("vdrxdb");
}

bool puede_escribir_carpeta(const QString &dir)
{
    QFile probe(QDir(dir).filePath(QStringLiteral("000.$000000000000000000000000000$")));
    if (!probe.open(QIODevice::WriteOnly))
        return false;
    probe.close();
    return probe.remove();
}

FinImportacion importar_listas(Context &ctx, const QString &command_line)
{
    ctx.escribir_log(QStringLiteral("Vendrix se abrio en modo importación. El archivo a importar es: ") +
                         command_line,
                     QStringLiteral("I"));
    if (!puede_escribir_carpeta(ctx.carpeta())) {
        ctx.op().error(
            kTituloError,
            QStringLiteral("Vendrix no tiene permisos para importar la nueva base de datos.") + kCrLf +
                QStringLiteral(" Si usted no es un usuario administrador de su computadora, por favor "
                               "cambie el usuario o eleve los permisos e inténtelo nuevamente.") +
                kCrLf + QStringLiteral(" El programa se cerrará.."));
        ctx.escribir_log(QStringLiteral("Permisos insuficientes para improtar la base de datos"),
                         QStringLiteral("E"));
        return FinImportacion::terminar;
    }

    const QString file = QFileInfo(sin_comillas(command_line)).absoluteFilePath();
    if (!es_base_de_listas(ctx, file)) {
        ctx.op().error(kTituloError,
                       QStringLiteral("El archivo ") + file +
                           QStringLiteral(" no es una lista de precios de Vendrix o está dañado.") + kCrLf +
                           QStringLiteral("Se conserva la lista de precios anterior."));
        ctx.escribir_log(QStringLiteral("No se pudo leer la lista de precios a importar: ") + file,
                         QStringLiteral("E"));
        return FinImportacion::continuar;
    }

    const QString cliente = parametro_de(ctx, file, QStringLiteral("CLIENTE"));
    const QString fecha = parametro_de(ctx, file, QStringLiteral("FECHA"));
    const bool prepared = !cliente.isEmpty() && !fecha.isEmpty();
    const QString for_whom = QStringLiteral(" preparada especialmente para '") + cliente +
                             QStringLiteral("' con fecha '") + fecha + QLatin1Char('\'');
    const QString question =
        (prepared ? QStringLiteral("Está intentando importar una base de datos") + for_whom + QLatin1Char('.')
                  : QStringLiteral("Está intentando importar una nueva base de datos.")) +
        QStringLiteral(" ¿Está seguro que desea reemplazar los datos datos ya existentes?");
    if (!ctx.op().ask(QStringLiteral("Importar Datos"), question))
        return FinImportacion::terminar;

    if (!reemplazar_listas(ctx, file)) {
        ctx.op().error(kTituloError, QStringLiteral("No se pudo copiar el archivo ") + file +
                                         QStringLiteral(" en el directorio ") + ctx.carpeta() +
                                         QLatin1Char('.') + kCrLf +
                                         QStringLiteral("Se conserva la lista de precios anterior."));
        ctx.escribir_log(QStringLiteral("No se pudo copiar la lista de precios a importar: ") + file,
                         QStringLiteral("E"));
        return FinImportacion::continuar;
    }
    ctx.op().inform(QStringLiteral("Nueva Versión del programa"),
                    QStringLiteral("Se importaron los datos correctamente."));
    ctx.escribir_log(QStringLiteral("Se importó correctamente la lista de precios ") + file +
                         (prepared ? for_whom : QString()),
                     QStringLiteral("A"));

    copiar_articulos_propios(ctx);
    copiar_proveedores(ctx);
    // Back to the price file read-only, as the rest of the program wants it.
    ctx.db().cerrar();
    return FinImportacion::continuar;
}

} // namespace vendrix

#include "catalogue/search/index_at_startup.h"

#include "catalogue/search/search_index.h"
#include "core/context.h"
#include "core/sqlite_values.h"

namespace vendrix {

bool preparar_indice_busqueda(Context &ctx)
{
    const QString price = QStringLiteral("external");
    Database &db = ctx.db();
    if (indice_busqueda_al_dia(db.conexion(price)))
        return true;
    // No price file at all is told by the start-up's own check.
    if (!db.error_apertura(price).isEmpty())
        return false;
    ctx.escribir_log(
        QStringLiteral("Listas - la base de precios no tiene el índice de búsqueda al día: se crea"),
        QStringLiteral("I"));
    ctx.estado().marcar_ocupado(true);
    QString error;
    if (!db.abrir_listas_escritura()) {
        error = QStringLiteral("no se pudo abrir ") + db.ruta_listas() + QStringLiteral(" para escritura");
    } else {
        sqlite3 *writable = db.conexion(price);
        if (!asegurar_indice_busqueda(writable))
            error = SqlError::de_conexion(writable).texto();
    }
    db.cerrar();
    ctx.estado().marcar_ocupado(false);
    if (!error.isEmpty()) {
        ctx.escribir_log(
            QStringLiteral("ER IDX01 - No se pudo crear el índice de búsqueda de la base de precios: ") +
                error + QStringLiteral(" preparar_indice_busqueda"),
            QStringLiteral("E"));
        return false;
    }
    ctx.escribir_log(QStringLiteral("Listas - se creó el índice de búsqueda de la base de precios"),
                     QStringLiteral("I"));
    return true;
}

} // namespace vendrix

#include "catalogue/pricelist/price_file_reader.h"

#include "catalogue/pricelist/price_file_connection.h"

#include <QFileInfo>
#include <QHash>

namespace vendrix {

namespace {

bool tiene_tabla(PriceFileConnection &db, const char *table)
{
    PriceFileStatement probe(db.db(),
                          "SELECT 1 FROM sqlite_master WHERE type = 'table' AND name = ? COLLATE NOCASE");
    probe.texto(1, QString::fromLatin1(table));
    return probe.fila();
}

ListArticle articulo_de(const PriceFileStatement &row, int first)
{
    return {row.columna(first),     row.columna(first + 1), row.columna(first + 2), row.columna(first + 3),
            row.columna(first + 4), row.columna(first + 5), row.columna(first + 6), row.columna(first + 7)};
}

bool leer_listas(PriceFileConnection &db, PriceFileContent &out)
{
    PriceFileStatement rows(db.db(),
                         "SELECT Proveedor, FechaLista, Grupo, Codigo, Descripcion, Marca, UnidaddeMedida, "
                         "Precio, Moneda, Observaciones FROM xls_listas ORDER BY ID");
    QHash<QString, size_t> where;
    while (rows.fila()) {
        const QString supplier = rows.columna(0);
        auto found = where.constFind(supplier);
        if (found == where.cend()) {
            found = where.insert(supplier, out.listas.size());
            out.listas.push_back({supplier, rows.columna(1), {}, {}, {}});
        }
        out.listas[*found].articulos.push_back(articulo_de(rows, 2));
    }
    if (rows.fallo() || !tiene_tabla(db, "xls_proveedores"))
        return !rows.fallo();
    // Files from other tools may lack the shop's code of the supplier.
    const bool has_code = PriceFileStatement(db.db(), "SELECT codigo_interno FROM xls_proveedores").valida();
    PriceFileStatement info(db.db(),
                         has_code ? "SELECT Proveedor, Ult_Actualizacion, codigo_interno FROM xls_proveedores"
                                  : "SELECT Proveedor, Ult_Actualizacion, '' FROM xls_proveedores");
    while (info.fila()) {
        const auto found = where.constFind(info.columna(0));
        if (found == where.cend())
            continue;
        out.listas[*found].ult_actualizacion = info.columna(1);
        out.listas[*found].codigo_interno = info.columna(2);
    }
    return !info.fallo();
}

bool leer_viejos(PriceFileConnection &db, PriceFileContent &out)
{
    if (!tiene_tabla(db, "xls_listas_viejos"))
        return true;
    PriceFileStatement rows(db.db(),
                         "SELECT Proveedor, FechaLista, Grupo, Codigo, Descripcion, Marca, UnidaddeMedida, "
                         "Precio, Moneda, Observaciones FROM xls_listas_viejos ORDER BY ID");
    while (rows.fila())
        out.viejos.push_back({rows.columna(0), rows.columna(1), articulo_de(rows, 2)});
    return !rows.fallo();
}

bool leer_extras(PriceFileConnection &db, PriceFileContent &out)
{
    if (tiene_tabla(db, "xls_reportes")) {
        PriceFileStatement rows(db.db(),
                             "SELECT report_nombre, report_descripcion, report_filtro, report_db, "
                             "report_tabla_query, report_totales, report_query_grafico, "
                             "report_grafico_titulo, report_tipo_grafico FROM xls_reportes ORDER BY rowid");
        while (rows.fila()) {
            out.reportes.push_back({rows.columna(0), rows.columna(1), rows.columna(2), rows.columna(3),
                                    rows.columna(4), rows.columna(5), rows.columna(6), rows.columna(7),
                                    rows.columna(8)});
        }
        if (rows.fallo())
            return false;
    }
    if (tiene_tabla(db, "xls_tips")) {
        PriceFileStatement rows(db.db(), "SELECT tip, version FROM xls_tips ORDER BY rowid");
        while (rows.fila())
            out.tips.push_back({rows.columna(0), rows.columna(1)});
        return !rows.fallo();
    }
    return true;
}

} // namespace

bool leer_contenido_lista(const QString &ruta, PriceFileContent &contenido, QString &error)
{
    const QString file = QFileInfo(ruta).fileName();
    contenido = {};
    if (!QFileInfo::exists(ruta)) {
        error = QStringLiteral("La base de precios anterior '%1' no existe.").arg(file);
        return false;
    }
    QString why;
    auto db = PriceFileConnection::abrir(ruta, PriceFileConnection::Mode::SoloLectura, why);
    if (db && !tiene_tabla(*db, "xls_listas"))
        why = QStringLiteral("no tiene la tabla xls_listas");
    if (!db || !why.isEmpty()) {
        error = QStringLiteral("La base de precios anterior '%1' no se puede leer: %2.").arg(file, why);
        return false;
    }
    PriceFileStatement version(db->db(), "PRAGMA user_version");
    if (version.fila() && version.columna_entero(0) > kFormatoLista) {
        error = QStringLiteral("La base de precios anterior '%1' tiene un formato más nuevo (%2) que el que "
                               "conoce este programa (%3).")
                    .arg(file)
                    .arg(version.columna_entero(0))
                    .arg(kFormatoLista);
        return false;
    }
    if (!leer_listas(*db, contenido) || !leer_viejos(*db, contenido) || !leer_extras(*db, contenido)) {
        error = QStringLiteral("La base de precios anterior '%1' no se puede leer: %2.")
                    .arg(file, db->ultimo_error());
        return false;
    }
    return true;
}

} // namespace vendrix

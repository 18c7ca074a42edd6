#include "catalogue/search/search_index.h"

#include "catalogue/pricelist/price_file_connection.h"
#include "catalogue/pricelist/price_file_format.h"

#include <sqlite3.h>

namespace vendrix {

namespace {

bool ejecutar(sqlite3 *db, const char *sql)
{
    return sqlite3_exec(db, sql, nullptr, nullptr, nullptr) == SQLITE_OK;
}

bool existe_tabla(sqlite3 *db, const char *tabla)
{
    PriceFileStatement probe(db, "SELECT 1 FROM sqlite_master WHERE type IN ('table','view') AND name = ? "
                              "COLLATE NOCASE");
    probe.texto(1, QString::fromUtf8(tabla));
    return probe.fila();
}

// True when the index has exactly the articles of the list.
bool indice_completo(sqlite3 *db)
{
    PriceFileStatement counts(db,
                           "SELECT (SELECT count(*) FROM xls_listas) = (SELECT count(*) FROM xls_busqueda)"
                           " AND (SELECT ifnull(max(ID), 0) FROM xls_listas)"
                           " = (SELECT ifnull(max(rowid), 0) FROM xls_busqueda)");
    return counts.fila() && counts.columna_entero(0) == 1;
}

bool completar_indice(sqlite3 *db)
{
    if (!ejecutar(db, "DELETE FROM xls_busqueda WHERE rowid NOT IN (SELECT ID FROM xls_listas)"))
        return false;
    PriceFileStatement faltan(db, "SELECT ID, Proveedor, Grupo, Observaciones, Descripcion, Marca, Codigo "
                               "FROM xls_listas WHERE ID NOT IN (SELECT rowid FROM xls_busqueda)");
    PriceFileStatement insertar(db, "INSERT INTO xls_busqueda (rowid, texto) VALUES (?, ?)");
    if (!faltan.valida() || !insertar.valida())
        return false;
    while (faltan.fila()) {
        insertar.entero(1, faltan.columna_entero(0));
        insertar.texto(2, texto_busqueda(faltan.columna(1), faltan.columna(2), faltan.columna(3),
                                         faltan.columna(4), faltan.columna(5), faltan.columna(6)));
        if (!insertar.ejecutar())
            return false;
    }
    return !faltan.fallo();
}

bool marcar_version(sqlite3 *db)
{
    PriceFileStatement version(db, "PRAGMA user_version");
    if (!version.fila())
        return false;
    if (version.columna_entero(0) < kFormatoLista &&
        !ejecutar(db, QStringLiteral("PRAGMA user_version = %1").arg(kFormatoLista).toUtf8().constData()))
        return false;
    if (!existe_tabla(db, "xls_parametros"))
        return true;
    PriceFileStatement borrar(db, "DELETE FROM xls_parametros WHERE CLAVE = ?");
    borrar.texto(1, QString::fromLatin1(kClaveFormato));
    PriceFileStatement poner(db, "INSERT INTO xls_parametros (CLAVE, VALOR) VALUES (?, ?)");
    poner.texto(1, QString::fromLatin1(kClaveFormato));
    poner.texto(2, QString::number(kFormatoLista));
    return borrar.ejecutar() && poner.ejecutar();
}

int version_archivo(sqlite3 *db)
{
    PriceFileStatement version(db, "PRAGMA user_version");
    return version.fila() ? static_cast<int>(version.columna_entero(0)) : -1;
}

// Merges the index into one segment after a large load: searches then read
// one b-tree per trigram.
bool optimizar(sqlite3 *db)
{
    return ejecutar(db, "INSERT INTO xls_busqueda (xls_busqueda) VALUES ('optimize')");
}

bool asegurar(sqlite3 *db)
{
    if (!existe_tabla(db, "xls_listas"))
        return false;
    // An index of an older format holds text folded another way.
    if (version_archivo(db) < kFormatoLista && !ejecutar(db, "DROP TABLE IF EXISTS xls_busqueda"))
        return false;
    if (!ejecutar(db, "CREATE VIRTUAL TABLE IF NOT EXISTS xls_busqueda USING fts5(texto, tokenize='trigram "
                      "case_sensitive 1')") ||
        !ejecutar(db,
                  "CREATE INDEX IF NOT EXISTS xls_listas_proveedor_codigo ON xls_listas (Proveedor, Codigo)"))
        return false;
    if (!indice_completo(db) && !(completar_indice(db) && optimizar(db)))
        return false;
    return marcar_version(db);
}

} // namespace

QString plegar_texto(const QString &text)
{
    QString folded = text;
    for (QChar &c : folded)
        c = c.toUpper();
    return folded;
}

QString texto_busqueda(const QString &proveedor, const QString &grupo, const QString &observaciones,
                       const QString &descripcion, const QString &marca, const QString &codigo)
{
    const QChar blank = QLatin1Char(' ');
    return plegar_texto(proveedor + blank + grupo + blank + observaciones + blank + descripcion + blank +
                        marca + blank + codigo + blank);
}

bool indice_busqueda_al_dia(sqlite3 *db)
{
    return db && existe_tabla(db, "xls_busqueda") && version_archivo(db) >= kFormatoLista &&
           indice_completo(db);
}

bool asegurar_indice_busqueda(sqlite3 *db)
{
    if (!db || !ejecutar(db, "SAVEPOINT indice_busqueda"))
        return false;
    if (asegurar(db))
        return ejecutar(db, "RELEASE indice_busqueda");
    ejecutar(db, "ROLLBACK TO indice_busqueda");
    ejecutar(db, "RELEASE indice_busqueda");
    return false;
}

} // namespace vendrix

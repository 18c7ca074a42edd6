#include "catalogue/search/search_index.h"

#include "catalogue/pricelist/price_file_connection.h"
#include "catalogue/pricelist/price_file_format.h"

#include <sqlite3.h>

#include <algorithm>

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

// The last article the index holds: kept beside it, since a contentless
// index can't tell. Articles always get a higher ID than any before them,
// so a list that grew has a higher last ID. A row deleted from the list
// leaves its index row behind, which finds no article and so is harmless.
qint64 ultimo_indexado(sqlite3 *db)
{
    PriceFileStatement last(db, "SELECT ultimo_id FROM xls_busqueda_estado");
    return last.fila() ? last.columna_entero(0) : -1;
}

qint64 ultimo_articulo(sqlite3 *db)
{
    PriceFileStatement last(db, "SELECT ifnull(max(ID), 0) FROM xls_listas");
    return last.fila() ? last.columna_entero(0) : -1;
}

// Adds the articles after the last one indexed, and records the new last.
bool completar_indice(sqlite3 *db, qint64 desde)
{
    PriceFileStatement faltan(db, "SELECT ID, Proveedor, Grupo, Observaciones, Descripcion, Marca, Codigo "
                                  "FROM xls_listas WHERE ID > ? ORDER BY ID");
    PriceFileStatement insertar(db, "INSERT INTO xls_busqueda (rowid, texto) VALUES (?, ?)");
    if (!faltan.valida() || !insertar.valida())
        return false;
    faltan.entero(1, desde);
    qint64 last = desde;
    while (faltan.fila()) {
        last = faltan.columna_entero(0);
        insertar.entero(1, last);
        insertar.texto(2, texto_busqueda(faltan.columna(1), faltan.columna(2), faltan.columna(3),
                                         faltan.columna(4), faltan.columna(5), faltan.columna(6)));
        if (!insertar.ejecutar())
            return false;
    }
    if (faltan.fallo() || !ejecutar(db, "DELETE FROM xls_busqueda_estado"))
        return false;
    PriceFileStatement estado(db, "INSERT INTO xls_busqueda_estado (ultimo_id) VALUES (?)");
    estado.entero(1, last);
    return estado.ejecutar();
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
// one b-tree per trigram. Then lists the trigrams with the number of
// articles that hold each: a search picks the rarest trigrams of a term, and
// finds those that start with a pair, without reading the index itself.
bool optimizar(sqlite3 *db)
{
    return ejecutar(db, "INSERT INTO xls_busqueda (xls_busqueda) VALUES ('optimize');"
                        "DELETE FROM xls_busqueda_trigramas;"
                        "CREATE VIRTUAL TABLE temp.xls_busqueda_vocabulario USING "
                        "fts5vocab(main, xls_busqueda, row);"
                        "INSERT INTO xls_busqueda_trigramas (trigrama, articulos) "
                        "SELECT term, doc FROM temp.xls_busqueda_vocabulario;"
                        "DROP TABLE temp.xls_busqueda_vocabulario");
}

// The index keeps no copy of the text (the list has it) and no positions:
// a search asks for the trigrams of a term and tests every article found on
// its own text, so positions would only make the file bigger.
constexpr const char *kCrearIndice =
    "CREATE VIRTUAL TABLE IF NOT EXISTS xls_busqueda USING fts5(texto, tokenize='trigram case_sensitive 1', "
    "content='', detail=none, columnsize=0);"
    "CREATE TABLE IF NOT EXISTS xls_busqueda_estado (ultimo_id INTEGER);"
    "CREATE TABLE IF NOT EXISTS xls_busqueda_trigramas (trigrama TEXT PRIMARY KEY, articulos INTEGER) "
    "WITHOUT ROWID;"
    "CREATE INDEX IF NOT EXISTS xls_listas_codigo ON xls_listas (Codigo)";

bool asegurar(sqlite3 *db)
{
    if (!existe_tabla(db, "xls_listas"))
        return false;
    // An index of an older format holds text folded another way, or copies
    // of the text; without the index, what is kept beside it tells nothing.
    if ((version_archivo(db) < kFormatoLista || !existe_tabla(db, "xls_busqueda") ||
         !existe_tabla(db, "xls_busqueda_trigramas")) &&
        !ejecutar(db, "DROP TABLE IF EXISTS xls_busqueda; DROP TABLE IF EXISTS xls_busqueda_estado;"
                      "DROP TABLE IF EXISTS xls_busqueda_trigramas;"
                      "DROP INDEX IF EXISTS xls_listas_proveedor_codigo"))
        return false;
    if (!ejecutar(db, kCrearIndice))
        return false;
    const qint64 indexed = std::max<qint64>(ultimo_indexado(db), 0);
    const qint64 last = ultimo_articulo(db);
    if (last < 0)
        return false;
    if (last != indexed && !(completar_indice(db, indexed) && optimizar(db)))
        return false;
    return marcar_version(db);
}

} // namespace

void plegar_en_su_lugar(QString &text)
{
    // Most of a list is ASCII: its letters are folded here, the rest by Qt.
    for (QChar &c : text) {
        const char16_t u = c.unicode();
        if (u >= u'a' && u <= u'z')
            c = QChar(char16_t(u - (u'a' - u'A')));
        else if (u >= 0x80)
            c = c.toUpper();
    }
}

QString plegar_texto(const QString &text)
{
    QString folded = text;
    plegar_en_su_lugar(folded);
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
           existe_tabla(db, "xls_busqueda_estado") && existe_tabla(db, "xls_busqueda_trigramas") &&
           ultimo_indexado(db) == ultimo_articulo(db);
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

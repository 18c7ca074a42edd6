#pragma once

// The index that serves the catalogue search: an FTS5 table `xls_busqueda`
// with the trigram tokenizer, one row per article of `xls_listas` (same
// rowid as the article's `ID`), whose one column `texto` is the article's
// searchable text folded by `plegar_texto`. A search folds its terms the same
// way and asks the index for the rows whose text holds every term.

#include <QString>

struct sqlite3;

namespace vendrix {

// Folds a text for searching: upper case, and the vowels with an accent,
// grave, circumflex, tilde or diaeresis become plain ("Tubería" and
// "TUBERIA" fold alike). Ñ and Ü are letters of their own in Spanish: they
// are only upper-cased ("caño" folds to "CAÑO", "pingüino" to "PINGÜINO").
// Everything else is upper-cased as Unicode does it.
QString plegar_texto(const QString &text);

// The searchable text of an article: Proveedor, Grupo, Observaciones,
// Descripcion, Marca and Codigo joined by one blank, folded. A term never
// holds a blank, so it matches inside one field only, as the search of the
// whole list row by row does.
QString texto_busqueda(const QString &proveedor, const QString &grupo, const QString &observaciones,
                       const QString &descripcion, const QString &marca, const QString &codigo);

// Makes sure that the price database open on `db` has its search index: it
// creates `xls_busqueda` when it is missing, adds the articles it lacks,
// drops the rows of articles that are gone, and records the format version
// (`PRAGMA user_version` and `FORMATO` in `xls_parametros`). Cheap when the
// index is complete. Runs inside a savepoint, so it can be called inside a
// transaction; on failure nothing is changed. Needs a writable connection.
bool asegurar_indice_busqueda(sqlite3 *db);

} // namespace vendrix

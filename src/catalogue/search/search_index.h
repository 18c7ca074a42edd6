#pragma once

// The index that serves the catalogue search: an FTS5 table `xls_busqueda`
// with the trigram tokenizer, one row per article of `xls_listas` (same
// rowid as the article's `ID`), made of the trigrams of the article's
// searchable text folded by `plegar_texto`. It holds neither the text nor
// where each trigram stands (contentless, `detail=none`): it only tells
// which articles hold a trigram, and the search tests each of them on the
// text it makes from the list's own columns. A search folds its terms the
// same way; the text is folded by our code only (the tokenizer keeps case),
// so the trigrams of the index are exactly those of the folded text.
// `xls_busqueda_estado` keeps the ID of the last article indexed, and
// `xls_busqueda_trigramas` every trigram with the number of articles that
// hold it.

#include <QString>

struct sqlite3;

namespace vendrix {

// Folds a text for searching: upper case, character by character, so the
// text keeps its length ("caño" folds to "CAÑO", "Tubería" to "TUBERÍA").
// Accents stay: the search tells "Á" from "A", as the earlier database engine
// did, while "á" and "Á" are the same letter.
QString plegar_texto(const QString &text);
void plegar_en_su_lugar(QString &text);

// The searchable text of an article: Proveedor, Grupo, Observaciones,
// Descripcion, Marca and Codigo, each followed by one blank (an empty field
// is an empty text), folded. A term never holds a blank, so it matches
// inside one field; the last blank lets every pair of characters of the text
// start a trigram.
QString texto_busqueda(const QString &proveedor, const QString &grupo, const QString &observaciones,
                       const QString &descripcion, const QString &marca, const QString &codigo);

// True when the open price database has its search index in the current
// format and up to its last article. Reads only; as cheap as two lookups.
bool indice_busqueda_al_dia(sqlite3 *db);

// Makes sure that the price database open on `db` has its search index: it
// creates `xls_busqueda` when it is missing, remakes it when the file's
// format version is older, adds the articles after the last one indexed
// (a row deleted from the list leaves an index row that finds nothing),
// makes the lookup index by code, and records the format version
// (`PRAGMA user_version` and `FORMATO` in `xls_parametros`). Cheap when the
// index is complete. Runs inside a savepoint, so it can be called inside a
// transaction; on failure nothing is changed. Needs a writable connection.
bool asegurar_indice_busqueda(sqlite3 *db);

} // namespace vendrix

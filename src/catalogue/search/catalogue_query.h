#pragma once

// The catalogue search against the price database: which articles match,
// in which order, and how many the grid shows.
//
// The result is the one the list gave when it was searched row by row: the
// union of
// - the favourites that match (all of them), and
// - the first `limite` articles that match, by ID,
// ordered favourites first, then by ID, each article once. The grid shows
// the first `limite` - 1 of them and, when there are more, the marker row.
// So the marker shows exactly when more than `limite` - 1 articles match.
// An article matches when it meets the condition (see `SearchCondition`)
// or, in the comment branch, when one of its comments holds the text.
//
// The index `xls_busqueda` serves the condition: each text of three or more
// characters is asked of it as a phrase; a text of two asks for the
// trigrams of the index that start with it; one character can't narrow
// anything. Every article the index gives is tested on its folded text,
// which decides. Articles with a comment are tested as well when the
// comment takes part, since the index doesn't hold comments. A condition
// with no text long enough, or a file without the index, is served by
// reading the list in order of ID, which stops as soon as the rows to show
// are found.

#include "catalogue/search/search_terms.h"
#include "catalogue/search/shop_marks.h"

#include <QString>

#include <atomic>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

struct sqlite3;

namespace vendrix {

// The limit of the second press of "Buscar": 100 000 rows and the marker.
inline constexpr int kLimiteTodos = 100001;

struct SearchQuery {
    SearchCondition condicion;
    // The comment branch: also the articles one of whose comments holds this
    // text anywhere (the whole search text, not its terms).
    std::optional<QString> comentario;
    bool solo_favoritos = false;
    int limite = kLimiteTodos;
};

// One article of the result, with its fields as the list holds them.
struct FoundArticle {
    qint64 id = 0;
    QString proveedor, grupo, descripcion, moneda, marca, precio, codigo;
    RowMarks marcas;

    bool operator==(const FoundArticle &) const = default;
};

struct QueryResult {
    std::vector<FoundArticle> articulos; // at most `limite` - 1
    bool hay_mas = false;                // more articles match: the marker row follows
    bool ok = true;                      // false on a database failure
    QString error;                       // then: "number description errno"
    bool abandonada = false;             // stopped by its caller: nothing else holds
};

// Runs the search on the price connection (with the shop tables attached
// under `clientes`). On failure `ok` is false and `error` tells why.
QueryResult ejecutar_consulta(sqlite3 *db, const SearchQuery &consulta);

// The searches of one screen or worker: keeps its prepared statements and
// the shop's marks between searches on the same connection, and sees a
// change of the shop's tables or a new connection. Not shared between
// threads; each thread that searches has its own, on its own connection.
class CatalogueSearcher {
public:
    CatalogueSearcher();
    ~CatalogueSearcher();
    CatalogueSearcher(const CatalogueSearcher &) = delete;
    CatalogueSearcher &operator=(const CatalogueSearcher &) = delete;

    // As `ejecutar_consulta`. When `abandonar` turns true (from any thread)
    // the search stops soon and returns with `abandonada` set.
    QueryResult buscar(sqlite3 *db, const SearchQuery &consulta,
                       const std::atomic<bool> *abandonar = nullptr);

    struct State; // what is kept between searches

private:
    std::unique_ptr<State> estado_;
};

// What the index tells of its trigrams.
struct IndexVocabulary {
    // The trigrams that start with a pair of characters; too many to be
    // worth it gives nothing (std::nullopt).
    std::function<std::optional<QStringList>(const QString &par)> trigramas;
    // How many articles hold a trigram.
    std::function<qint64(const QString &trigrama)> articulos;
};

// The index query for a condition ("" when no term can be narrowed). Without
// `trigramas`, pairs narrow nothing; without `articulos`, a longer text asks
// for all its trigrams, else only for its rarest ones (the rarest one alone
// with `pocas_filas`, for a search that stops after a few rows, when other
// terms narrow too), and a pair held by more articles than the rarest
// trigrams of a longer text is left out.
QString expresion_indice(const SearchCondition &condicion, const IndexVocabulary &vocabulario = {},
                         bool pocas_filas = false);

} // namespace vendrix

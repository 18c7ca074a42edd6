#pragma once

// Where the search reads the articles: the rows of `xls_listas`, either the
// ones the index `xls_busqueda` gives for an expression or the whole list,
// always in order of ID. Each row comes with the fields the grid shows and
// the folded text the search tests.

#include "catalogue/pricelist/price_file_connection.h"
#include "catalogue/search/shop_marks.h"

#include <QByteArray>
#include <QHash>
#include <QString>
#include <QStringList>

#include <array>
#include <map>
#include <memory>
#include <optional>

struct sqlite3;

namespace vendrix {

// One article as the search reads it.
struct ArticleRow {
    qint64 id = 0;
    QString proveedor, grupo, observaciones, descripcion, marca, codigo, moneda, precio;
    bool proveedor_nulo = false, codigo_nulo = false, descripcion_nula = false, grupo_nulo = false;

    // The searchable text, folded (see `texto_busqueda`).
    QString texto() const;
    ShopMarks::ArticleData datos_marcas() const;
};

// The statements of one connection, prepared once and kept while the
// connection lasts.
class ArticleRows {
public:
    explicit ArticleRows(sqlite3 *db) : db_(db) {}

    sqlite3 *db() const { return db_; }
    // True when the file has its index in the current format.
    bool con_indice();
    // The number a statement without parameters gives (-1 on failure); the
    // statement is kept for the next call.
    qint64 numero(const char *sql);
    // One article; nothing when there is no such article or on failure.
    std::optional<ArticleRow> articulo(qint64 id);

    // The trigrams of the index that start with a pair of characters;
    // nothing when there are too many to be worth asking for, or on failure.
    std::optional<QStringList> trigramas(const QString &par);
    // How many articles hold a trigram (0 on failure). Counts and the
    // trigrams of pairs are kept until `olvidar_conteos`, for a file that
    // changed.
    qint64 articulos_con(const QString &trigrama);
    void olvidar_conteos()
    {
        conteos_.clear();
        pares_.clear();
    }

    // Walks articles in order of ID: those the index gives for `expresion`,
    // or every article when it is empty. `siguiente` moves to the next one,
    // giving its ID and its folded text (into `texto`, whose memory is
    // reused), and is false at the end; `fila_actual` reads the whole row
    // of an article that is kept.
    bool abrir(const QString &expresion);
    bool siguiente(qint64 &id, QString &texto);
    ArticleRow fila_actual();

    // A database failure in the last search (the connection holds the error).
    bool fallo() const { return fallo_; }
    void olvidar_fallo() { fallo_ = false; }

private:
    PriceFileStatement &sentencia(const char *sql);
    using Repetidos = std::array<PriceFileStatement::Repetido, 5>;
    static ArticleRow de_fila(const PriceFileStatement &row, Repetidos *repetidos = nullptr);

    sqlite3 *db_;
    std::map<QByteArray, std::unique_ptr<PriceFileStatement>> sentencias_;
    PriceFileStatement *recorrido_ = nullptr;
    // Supplier, group, notes, brand and currency of the last row read whole.
    Repetidos repetidos_;
    QHash<QString, qint64> conteos_;                   // trigram -> articles that hold it
    QHash<QString, std::optional<QStringList>> pares_; // pair -> its trigrams
    bool fallo_ = false;
};

} // namespace vendrix

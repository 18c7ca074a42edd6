#pragma once

// The shop's marks on the articles of the price list, read afresh for each
// search: favourites, sentinels, witnesses and comments (the rows 'F', 'C',
// 'T' and 'U' of `vendrix_articulos_testigo`) and orders (`vendrix_pedidos`).
// They are read through the price connection, which sees the shop tables
// under `clientes`.
//
// A mark belongs to the articles of the same supplier and code, and an order
// to those of the same description and group, compared as the earlier
// database engine compared text: ignoring case, Ñ/ñ and Á/á included; a
// NULL equals nothing. Favourites, sentinels and witnesses need a code that
// isn't empty; a comment may sit on an article without code.

#include <QHash>
#include <QSet>
#include <QString>
#include <QStringList>

#include <optional>
#include <vector>

struct sqlite3;

namespace vendrix {

// What a grid row shows besides its cells. Counts are those of the marks or
// orders that belong to the article.
struct RowMarks {
    bool favorito = false;
    int centinela = 0;
    int testigo = 0;
    int pedido_pendiente = 0;
    int pedido = 0;

    bool operator==(const RowMarks &) const = default;
};

// Used by one thread at a time.
class ShopMarks {
public:
    // Reads the marks and finds the articles that are favourites or carry a
    // comment. False on a database failure (the connection holds the error).
    bool leer(sqlite3 *db);
    // Reads the orders that are pending ("Pedido Pendiente") or placed
    // ("Pedido"); only needed for `marcas`.
    bool leer_pedidos(sqlite3 *db);

    // Favourite articles, by ID.
    const std::vector<qint64> &favoritos() const { return favoritos_; }
    bool es_favorito(qint64 id) const;
    // Articles with at least one comment, by ID.
    const std::vector<qint64> &comentados() const { return comentados_; }
    // The article's comment folded for searching, "" when it has none. With
    // more than one comment row (the comment editor keeps one) the first one
    // counts.
    QString comentario(qint64 id) const;
    // True when one of the article's comment rows holds the text, folded.
    bool algun_comentario_contiene(qint64 id, const QString &plegado) const;

    // The marks of an article; `nulos` tells which of supplier and code are
    // NULL, description and group likewise for the orders.
    // The fields are read where they stand: the caller keeps them alive.
    struct ArticleData {
        qint64 id = 0;
        QStringView proveedor, codigo, descripcion, grupo;
        bool proveedor_nulo = false, codigo_nulo = false, descripcion_nula = false, grupo_nulo = false;
    };
    RowMarks marcas(const ArticleData &a) const;

private:
    struct Key {
        QString proveedor; // as written in one of the rows
        QString codigo;
    };
    // Whether the set holds the text, folded.
    bool plegado_en(const QSet<QString> &folded, QStringView text) const;
    bool resolver(sqlite3 *db, const QHash<QString, Key> &keys, QHash<QString, std::vector<qint64>> &found);

    QHash<QString, int> centinelas_, testigos_;
    QHash<QString, std::vector<qint64>> articulos_favoritos_; // key -> articles
    // key -> folded comments, first row first; a NULL comment is empty
    QHash<QString, std::vector<std::optional<QString>>> comentarios_;
    QHash<qint64, QString> clave_comentada_;                 // article -> its key in comentarios_
    QHash<QString, std::pair<int, int>> pedidos_;            // description+group -> pending, placed
    QSet<QString> codigos_marcados_, descripciones_pedidas_; // folded, of the sentinels, witnesses and orders
    std::vector<qint64> favoritos_, comentados_;
    mutable QString plegado_; // reused by `marcas`, so that most articles cost no allocation
};

// The key by which marks are matched to articles: both parts folded.
QString clave_marca(const QString &a, const QString &b);

// Every spelling of the text that a comparison ignoring case takes as equal
// and a comparison ignoring only the case of A-Z does not: the letters
// outside A-Z that have a case (Ñ, Á, Ü...) each in upper and in lower case.
// At most `tope` spellings; empty when there would be more.
QStringList variantes_de_caso(const QString &text, int tope);

} // namespace vendrix

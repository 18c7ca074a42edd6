#pragma once

// Where the search reads the articles' folded texts: the index `xls_busqueda`
// when the file has it in the current format, else the list itself, with
// each text made on the fly.

#include "catalogue/pricelist/price_file_connection.h"

#include <QString>
#include <QStringList>

#include <memory>
#include <optional>

struct sqlite3;

namespace vendrix {

class TextSource {
public:
    explicit TextSource(sqlite3 *db);

    bool con_indice() const { return indice_; }
    // The folded text of one article; "" when there is no such article.
    QString texto(qint64 id);

    // The trigrams of the index that start with a pair of characters;
    // nothing when there are too many to be worth asking for, or on failure.
    std::optional<QStringList> trigramas(const QString &par);

    // Walks articles in order of ID: those the index gives for `expresion`,
    // or every article when it is empty. `siguiente` moves to the next one.
    bool abrir(const QString &expresion);
    bool siguiente();
    qint64 id() const { return recorrido_->columna_entero(0); }
    QString texto_actual() const;

    // A database failure so far (the connection holds the error).
    bool fallo() const;

private:
    sqlite3 *db_;
    bool indice_ = false;
    std::unique_ptr<PriceFileStatement> uno_;
    std::unique_ptr<PriceFileStatement> recorrido_;
    std::unique_ptr<PriceFileStatement> vocabulario_;
};

} // namespace vendrix

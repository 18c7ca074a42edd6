#pragma once

#include <QString>

#include <optional>

namespace vendrix {

class Context;

// What the price chain needs of one article of the price list `xls_listas`.
struct PricedArticle {
    qint64 id = 0;
    QString proveedor;
    QString grupo;
    QString codigo;
    QString descripcion;
    QString precio; // the list price as the list has it, text
    QString moneda; // the currency code: "1", "2", "101", "102"
};

// The outcome of reading an article: `ok` false when the database failed
// (the layer has logged it), `encontrado` false when no row has that id.
struct ArticleRead {
    bool ok = false;
    bool encontrado = false;
    PricedArticle articulo;
};

ArticleRead leer_articulo(Context &ctx, qint64 id);

// The units one list price covers, from `vendrix_unidades_articulo`; nullopt
// when the article has no row (one unit) or a row that isn't above 0.
std::optional<double> leer_unidades(Context &ctx, const QString &proveedor, const QString &codigo);

} // namespace vendrix

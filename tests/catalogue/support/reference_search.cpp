#include "catalogue/support/reference_search.h"

#include "catalogue/pricelist/price_file_connection.h"

#include <QRegularExpression>

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <set>

namespace vendrix::test {

namespace {

Texto columna(const PriceFileStatement &row, int n)
{
    return row.es_nulo(n) ? std::nullopt : Texto(row.columna(n));
}

// Every row of a query, each column NULL or text.
std::vector<std::vector<Texto>> leer(const QString &path, const char *sql)
{
    QString error;
    auto db = PriceFileConnection::abrir(path, PriceFileConnection::Mode::SoloLectura, error);
    EXPECT_TRUE(db) << error.toStdString();
    std::vector<std::vector<Texto>> rows;
    if (!db)
        return rows;
    PriceFileStatement query(db->db(), sql);
    while (query.fila()) {
        std::vector<Texto> row;
        for (int c = 0; c < query.columnas(); ++c)
            row.push_back(columna(query, c));
        rows.push_back(std::move(row));
    }
    EXPECT_FALSE(query.fallo()) << sql;
    return rows;
}

// `=` of the earlier engine: case ignored, NULL equals nothing.
bool igual(const Texto &a, const Texto &b)
{
    return a && b && a->compare(*b, Qt::CaseInsensitive) == 0;
}

bool igual(const Texto &a, const char *b)
{
    return igual(a, Texto(QString::fromUtf8(b)));
}

QString valor(const Texto &t)
{
    return t.value_or(QString());
}

// A LIKE pattern as a regular expression that ignores case.
QRegularExpression regex_like(const QString &pattern)
{
    QString re;
    for (qsizetype i = 0; i < pattern.size(); ++i) {
        const QChar c = pattern.at(i);
        const qsizetype close = c == QLatin1Char('[') ? pattern.indexOf(QLatin1Char(']'), i + 1) : -1;
        if (c == QLatin1Char('%')) {
            re += QLatin1String(".*");
        } else if (c == QLatin1Char('_')) {
            re += QLatin1Char('.');
        } else if (close > i) {
            QString group = pattern.mid(i + 1, close - i - 1);
            i = close;
            if (group.isEmpty())
                continue;
            const bool negated = group.size() > 1 && group.startsWith(QLatin1Char('!'));
            if (negated)
                group.remove(0, 1);
            QString set;
            for (qsizetype k = 0; k < group.size(); ++k) {
                if (k + 2 < group.size() && group.at(k + 1) == QLatin1Char('-')) {
                    set += QLatin1String("\\x{") + QString::number(group.at(k).unicode(), 16) +
                           QLatin1String("}-\\x{") + QString::number(group.at(k + 2).unicode(), 16) +
                           QLatin1Char('}');
                    k += 2;
                } else {
                    set +=
                        QLatin1String("\\x{") + QString::number(group.at(k).unicode(), 16) + QLatin1Char('}');
                }
            }
            re += (negated ? QLatin1String("[^") : QLatin1String("[")) + set + QLatin1Char(']');
        } else {
            re += QRegularExpression::escape(QString(c));
        }
    }
    return QRegularExpression(QLatin1String("\\A(?:") + re + QLatin1String(")\\z"),
                              QRegularExpression::CaseInsensitiveOption |
                                  QRegularExpression::DotMatchesEverythingOption);
}

class Evaluacion {
public:
    Evaluacion(const DatosBusqueda &d, const QString &text, const SearchOptions &o, int limite)
        : d_(d), comentario_(regex_like(QLatin1Char('%') + patron_de_literal(text) + QLatin1Char('%'))),
          o_(o), limite_(limite)
    {
        for (const QString &term : text.split(QLatin1Char(' '))) {
            if (term.isEmpty())
                continue;
            QStringList patterns{patron_de_literal(term)};
            if (o.ortografia) {
                const QStringList variants = variantes_ortografia(term);
                for (qsizetype i = 1; i < variants.size(); ++i)
                    patterns << patron_de_literal(variants.at(i));
            }
            std::vector<QRegularExpression> compiled;
            for (const QString &p : patterns)
                compiled.push_back(regex_like(QLatin1Char('%') + p + QLatin1Char('%')));
            terminos_.push_back(std::move(compiled));
        }
    }

    QueryResult ejecutar()
    {
        // (favorito, ID) of each row of the union.
        std::set<std::pair<int, qint64>, std::greater<>> rows;
        for (const DatosBusqueda::Articulo &l : d_.articulos) {
            if (l.favoritas > 0 && (where(l) || (o_.en_comentarios && comentario_coincide(l))))
                rows.insert({1, l.id});
        }
        if (!o_.solo_favoritos) {
            for (qint64 id : rama_principal())
                rows.insert({articulo(id).favoritas, id});
        }
        // ORDER BY favorito DESC, l.ID
        std::vector<std::pair<int, qint64>> ordered(rows.begin(), rows.end());
        std::stable_sort(ordered.begin(), ordered.end(), [](const auto &a, const auto &b) {
            return a.first != b.first ? a.first > b.first : a.second < b.second;
        });
        QueryResult r;
        for (const auto &[favorito, id] : ordered) {
            if (static_cast<int>(r.articulos.size()) == limite_ - 1) {
                r.hay_mas = true;
                break;
            }
            r.articulos.push_back(fila(articulo(id), favorito));
        }
        return r;
    }

private:
    const DatosBusqueda::Articulo &articulo(qint64 id) const
    {
        return *std::lower_bound(
            d_.articulos.begin(), d_.articulos.end(), id,
            [](const DatosBusqueda::Articulo &a, qint64 wanted) { return a.id < wanted; });
    }

    static bool like(const Texto &value, const QRegularExpression &pattern)
    {
        return value && pattern.match(*value).hasMatch();
    }

    bool where(const DatosBusqueda::Articulo &l) const
    {
        const Texto haystack = o_.ortografia && o_.en_comentarios ? l.pajar + l.comentario : l.pajar;
        return std::all_of(terminos_.begin(), terminos_.end(), [&haystack](const auto &term) {
            return std::any_of(term.begin(), term.end(),
                               [&haystack](const QRegularExpression &p) { return like(haystack, p); });
        });
    }

    // The join on a comment 'U' whose text holds the whole search text.
    bool comentario_coincide(const DatosBusqueda::Articulo &l) const
    {
        return std::any_of(l.comentarios.begin(), l.comentarios.end(),
                           [&](const Texto &comment) { return like(comment, comentario_); });
    }

    // TOP limit of the plain branch; with comments, TOP limit of the union of
    // TOP limit of each part. Without an order of their own, TOP takes rows by ID.
    std::vector<qint64> rama_principal() const
    {
        std::vector<qint64> plain, commented;
        for (const DatosBusqueda::Articulo &l : d_.articulos) {
            if (static_cast<int>(plain.size()) < limite_ && where(l))
                plain.push_back(l.id);
            if (o_.en_comentarios && static_cast<int>(commented.size()) < limite_ && comentario_coincide(l))
                commented.push_back(l.id);
        }
        std::set<qint64> both(plain.begin(), plain.end());
        both.insert(commented.begin(), commented.end());
        std::vector<qint64> top(both.begin(), both.end());
        top.resize(std::min<size_t>(top.size(), static_cast<size_t>(limite_)));
        return top;
    }

    FoundArticle fila(const DatosBusqueda::Articulo &l, int favorito) const
    {
        FoundArticle a;
        a.id = l.id;
        a.proveedor = valor(l.proveedor);
        a.grupo = valor(l.grupo);
        a.descripcion = valor(l.descripcion);
        a.moneda = igual(l.moneda, "1") || igual(l.moneda, "101")   ? QStringLiteral("Pesos")
                   : igual(l.moneda, "2") || igual(l.moneda, "102") ? QStringLiteral("Dolares")
                                                                    : valor(l.moneda);
        a.marca = valor(l.marca);
        a.precio = valor(l.precio);
        a.codigo = valor(l.codigo);
        a.marcas.favorito = favorito == 1;
        if (!o_.solo_favoritos) {
            a.marcas.centinela = l.centinelas;
            a.marcas.testigo = l.testigos;
            a.marcas.pedido_pendiente = l.pendientes;
            a.marcas.pedido = l.pedidos;
        }
        return a;
    }

    const DatosBusqueda &d_;
    QRegularExpression comentario_; // LIKE '%<text>%' on a comment
    SearchOptions o_;
    int limite_;
    std::vector<std::vector<QRegularExpression>> terminos_;
};

// l.proveedor = t.proveedor AND l.codigo <> '' AND l.codigo = t.codigo AND t.tipo = <tipo>
bool es_marca(const DatosBusqueda::Articulo &l, const DatosBusqueda::Marca &m, const char *tipo)
{
    return igual(l.proveedor, m.proveedor) && l.codigo && !l.codigo->isEmpty() && igual(l.codigo, m.codigo) &&
           igual(m.tipo, tipo);
}

void unir(DatosBusqueda::Articulo &l, const DatosBusqueda &d)
{
    const QChar b = QLatin1Char(' ');
    l.pajar = valor(l.proveedor) + b + valor(l.grupo) + b + valor(l.observaciones) + b +
              valor(l.descripcion) + b + valor(l.marca) + b + valor(l.codigo) + b;
    for (const DatosBusqueda::Marca &m : d.marcas) {
        l.favoritas += es_marca(l, m, "F") ? 1 : 0;
        l.centinelas += es_marca(l, m, "C") ? 1 : 0;
        l.testigos += es_marca(l, m, "T") ? 1 : 0;
        // ate.codigo = l.codigo AND ate.proveedor = l.proveedor AND ate.tipo = 'U'
        if (igual(m.tipo, "U") && igual(m.codigo, l.codigo) && igual(m.proveedor, l.proveedor)) {
            if (l.comentarios.empty())
                l.comentario = valor(m.descripcion);
            l.comentarios.push_back(m.descripcion);
        }
    }
    for (const DatosBusqueda::Pedido &p : d.pedidos) {
        if (igual(l.descripcion, p.descripcion) && igual(l.grupo, p.grupo)) {
            l.pendientes += igual(p.estado, "Pedido Pendiente") ? 1 : 0;
            l.pedidos += igual(p.estado, "Pedido") ? 1 : 0;
        }
    }
}

} // namespace

DatosBusqueda leer_datos_busqueda(const QString &precios, const QString &tienda)
{
    DatosBusqueda d;
    for (const auto &r :
         leer(precios, "SELECT ID, Proveedor, Grupo, Observaciones, Descripcion, Marca, Codigo, "
                       "Moneda, Precio FROM xls_listas ORDER BY ID"))
        d.articulos.push_back(
            {r[0]->toLongLong(), r[1], r[2], r[3], r[4], r[5], r[6], r[7], r[8], 0, 0, 0, 0, 0, {}, {}, {}});
    for (const auto &r :
         leer(tienda,
              "SELECT Tipo, Proveedor, Codigo, Descripcion FROM vendrix_articulos_testigo ORDER BY ID"))
        d.marcas.push_back({r[0], r[1], r[2], r[3]});
    for (const auto &r : leer(tienda, "SELECT Descripcion, Grupo, Estado FROM vendrix_pedidos ORDER BY ID"))
        d.pedidos.push_back({r[0], r[1], r[2]});
    for (DatosBusqueda::Articulo &l : d.articulos)
        unir(l, d);
    return d;
}

QueryResult busqueda_referencia(const DatosBusqueda &datos, const QString &texto_trabajo,
                                      const SearchOptions &opciones, int limite)
{
    return Evaluacion(datos, texto_trabajo, opciones, limite).ejecutar();
}

} // namespace vendrix::test

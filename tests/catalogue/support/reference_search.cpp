#include "catalogue/support/reference_search.h"

#include "catalogue/support/list_fixture.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>

namespace vendrix::test {

namespace {

using Articulo = DatosBusqueda::Articulo;

bool igual(const Texto &a, const Texto &b)
{
    return a && b && a->compare(*b, Qt::CaseInsensitive) == 0;
}

bool igual(const Texto &a, const char *b)
{
    return igual(a, Texto(QString::fromUtf8(b)));
}

// LIKE '%text%' where every character stands for itself.
bool contiene(const Texto &value, const QString &text)
{
    return value && value->contains(text, Qt::CaseInsensitive);
}

class Evaluacion {
public:
    Evaluacion(const DatosBusqueda &d, const QString &text, const SearchOptions &o, int limite)
        : d_(d), comentario_(texto_literal(text)), o_(o), limite_(static_cast<size_t>(limite))
    {
        for (const QString &term : text.split(QLatin1Char(' '), Qt::SkipEmptyParts)) {
            QStringList texts{texto_literal(term)};
            const QStringList variants = o.ortografia ? variantes_ortografia(term) : QStringList();
            for (qsizetype i = 1; i < variants.size(); ++i)
                texts << texto_literal(variants.at(i));
            terminos_.push_back(texts);
        }
    }

    QueryResult ejecutar() const
    {
        // (-favorito, ID) of each row of the union, in the order of ORDER BY.
        std::set<std::pair<int, qint64>> rows;
        for (const Articulo &l : d_.articulos) {
            if (l.favoritas > 0 && (where(l) || comentado(l)))
                rows.insert({-1, l.id});
        }
        if (!o_.solo_favoritos) {
            for (const Articulo *l : rama_principal())
                rows.insert({-l->favoritas, l->id});
        }
        QueryResult r;
        for (const auto &[favorito, id] : rows) {
            if (r.articulos.size() == limite_ - 1) {
                r.hay_mas = true;
                break;
            }
            const Articulo &l = *std::lower_bound(d_.articulos.begin(), d_.articulos.end(), id,
                                                  [](const Articulo &a, qint64 want) { return a.id < want; });
            r.articulos.push_back(fila(l, favorito == -1));
        }
        return r;
    }

private:
    bool where(const Articulo &l) const
    {
        const QString first = l.comentarios.empty() ? QString() : l.comentarios.front().value_or(QString());
        const Texto haystack = o_.ortografia && o_.en_comentarios ? l.pajar + first : l.pajar;
        return std::all_of(terminos_.begin(), terminos_.end(), [&haystack](const QStringList &term) {
            return std::any_of(term.begin(), term.end(),
                               [&haystack](const QString &t) { return contiene(haystack, t); });
        });
    }

    bool comentado(const Articulo &l) const
    {
        return o_.en_comentarios && std::any_of(l.comentarios.begin(), l.comentarios.end(),
                                                [this](const Texto &c) { return contiene(c, comentario_); });
    }

    // TOP limit of the plain branch; with comments, TOP limit of the union of
    // TOP limit of each part. Without an order of their own, TOP takes rows by ID.
    std::vector<const Articulo *> rama_principal() const
    {
        std::vector<const Articulo *> plain, commented;
        for (const Articulo &l : d_.articulos) {
            if (plain.size() < limite_ && where(l))
                plain.push_back(&l);
            if (commented.size() < limite_ && comentado(l))
                commented.push_back(&l);
        }
        std::vector<const Articulo *> both;
        const auto by_id = [](const Articulo *a, const Articulo *b) { return a->id < b->id; };
        std::set_union(plain.begin(), plain.end(), commented.begin(), commented.end(),
                       std::back_inserter(both), by_id);
        both.resize(std::min(both.size(), limite_));
        return both;
    }

    FoundArticle fila(const Articulo &l, bool favorito) const
    {
        const auto text = [](const Texto &t) { return t.value_or(QString()); };
        const QString moneda = igual(l.moneda, "1") || igual(l.moneda, "101")   ? QStringLiteral("Pesos")
                               : igual(l.moneda, "2") || igual(l.moneda, "102") ? QStringLiteral("Dolares")
                                                                                : text(l.moneda);
        RowMarks marks{favorito, l.centinelas, l.testigos, l.pendientes, l.pedidos};
        if (o_.solo_favoritos)
            marks = {favorito, 0, 0, 0, 0};
        return {l.id,           text(l.proveedor), text(l.grupo), text(l.descripcion), moneda, text(l.marca),
                text(l.precio), text(l.codigo),    marks};
    }

    const DatosBusqueda &d_;
    QString comentario_; // the whole text, for LIKE on a comment
    SearchOptions o_;
    size_t limite_;
    std::vector<QStringList> terminos_;
};

} // namespace

DatosBusqueda leer_datos_busqueda(const QString &precios, const QString &tienda)
{
    const auto marks = filas_con_nulos(
        tienda, "SELECT Tipo, Proveedor, Codigo, Descripcion FROM vendrix_articulos_testigo ORDER BY ID");
    const auto orders = filas_con_nulos(tienda, "SELECT Descripcion, Grupo, Estado FROM vendrix_pedidos");
    DatosBusqueda d;
    for (const auto &r :
         filas_con_nulos(precios, "SELECT ID, Proveedor, Grupo, Observaciones, Descripcion, Marca, "
                                  "Codigo, Moneda, Precio FROM xls_listas ORDER BY ID")) {
        Articulo l{r[0]->toLongLong(), r[1], r[2], r[3], r[4], r[5], r[6], r[7], r[8], 0, 0, 0, 0, 0, {}, {}};
        for (int field = 1; field <= 6; ++field)
            l.pajar += r[field].value_or(QString()) + QLatin1Char(' ');
        for (const auto &m : marks) {
            // l.proveedor = t.proveedor AND l.codigo = t.codigo [AND l.codigo <> '']
            const bool same = igual(l.proveedor, m[1]) && igual(l.codigo, m[2]);
            const bool coded = same && !l.codigo->isEmpty();
            l.favoritas += coded && igual(m[0], "F");
            l.centinelas += coded && igual(m[0], "C");
            l.testigos += coded && igual(m[0], "T");
            if (same && igual(m[0], "U"))
                l.comentarios.push_back(m[3]);
        }
        for (const auto &o : orders) {
            if (igual(l.descripcion, o[0]) && igual(l.grupo, o[1])) {
                l.pendientes += igual(o[2], "Pedido Pendiente");
                l.pedidos += igual(o[2], "Pedido");
            }
        }
        d.articulos.push_back(std::move(l));
    }
    return d;
}

QueryResult busqueda_referencia(const DatosBusqueda &datos, const QString &texto_trabajo,
                                const SearchOptions &opciones, int limite)
{
    return Evaluacion(datos, texto_trabajo, opciones, limite).ejecutar();
}

} // namespace vendrix::test

#include "catalogue/search/shop_marks.h"

#include "catalogue/pricelist/price_file_connection.h"
#include "catalogue/search/search_index.h"

#include <QSet>

#include <algorithm>

namespace vendrix {

namespace {

// More spellings than this for one supplier and code, and the articles are
// looked for by reading the whole list instead.
constexpr int kTopeVariantes = 256;

// A letter outside A-Z whose case the lookup index doesn't ignore.
bool tiene_caso_propio(QChar c)
{
    return c.unicode() > 127 && c.toUpper() != c.toLower();
}

void ordenar_unicos(std::vector<qint64> &ids)
{
    std::sort(ids.begin(), ids.end());
    ids.erase(std::unique(ids.begin(), ids.end()), ids.end());
}

} // namespace

QString clave_marca(const QString &a, const QString &b)
{
    return plegar_texto(a) + QChar(0x1F) + plegar_texto(b);
}

QStringList variantes_de_caso(const QString &text, int tope)
{
    QStringList spellings{text};
    for (qsizetype i = 0; i < text.size(); ++i) {
        if (!tiene_caso_propio(text.at(i)))
            continue;
        if (spellings.size() * 2 > tope)
            return {};
        const qsizetype count = spellings.size();
        for (qsizetype k = 0; k < count; ++k) {
            QString upper = spellings.at(k);
            QString lower = upper;
            upper[i] = text.at(i).toUpper();
            lower[i] = text.at(i).toLower();
            spellings[k] = upper;
            spellings << lower;
        }
    }
    return spellings;
}

bool ShopMarks::leer(sqlite3 *db)
{
    PriceFileStatement rows(
        db, "SELECT Tipo, Proveedor, Codigo, Descripcion, Proveedor IS NULL OR Codigo IS NULL "
            "FROM clientes.vendrix_articulos_testigo ORDER BY ID");
    QHash<QString, Key> favourite_keys, comment_keys;
    while (rows.fila()) {
        if (rows.columna_entero(4) != 0)
            continue;
        const QString kind = plegar_texto(rows.columna(0));
        const Key clave{rows.columna(1), rows.columna(2)};
        const QString key = clave_marca(clave.proveedor, clave.codigo);
        if (kind == QLatin1String("U")) {
            comment_keys.insert(key, clave);
            // A NULL comment is an empty text in the haystack and holds no text.
            comentarios_[key].push_back(rows.es_nulo(3) ? std::nullopt
                                                        : std::optional(plegar_texto(rows.columna(3))));
        } else if (clave.codigo.isEmpty()) {
            continue;
        } else if (kind == QLatin1String("F")) {
            favourite_keys.insert(key, clave);
        } else if (kind == QLatin1String("C")) {
            ++centinelas_[key];
            codigos_marcados_.insert(plegar_texto(clave.codigo));
        } else if (kind == QLatin1String("T")) {
            ++testigos_[key];
            codigos_marcados_.insert(plegar_texto(clave.codigo));
        }
    }
    if (rows.fallo())
        return false;

    QHash<QString, std::vector<qint64>> commented;
    if (!resolver(db, favourite_keys, articulos_favoritos_) || !resolver(db, comment_keys, commented))
        return false;
    for (const std::vector<qint64> &ids : std::as_const(articulos_favoritos_))
        favoritos_.insert(favoritos_.end(), ids.begin(), ids.end());
    for (auto it = commented.cbegin(); it != commented.cend(); ++it) {
        for (qint64 id : it.value()) {
            clave_comentada_.insert(id, it.key());
            comentados_.push_back(id);
        }
    }
    ordenar_unicos(favoritos_);
    ordenar_unicos(comentados_);
    return true;
}

// Finds the articles of each key through the index by code, which ignores
// the case of A-Z only: every spelling of the code's other letters is asked
// for, and the supplier is compared here. The rare code with too many
// spellings is found by one pass over the list.
bool ShopMarks::resolver(sqlite3 *db, const QHash<QString, Key> &keys,
                         QHash<QString, std::vector<qint64>> &found)
{
    if (keys.isEmpty())
        return true;
    PriceFileStatement lookup(db, "SELECT ID, Proveedor, Codigo FROM xls_listas WHERE Codigo = ?");
    QSet<QString> by_scan;
    for (auto it = keys.cbegin(); it != keys.cend(); ++it) {
        const QStringList codes = variantes_de_caso(it->codigo, kTopeVariantes);
        if (codes.isEmpty()) {
            by_scan.insert(it.key());
            continue;
        }
        for (const QString &code : codes) {
            lookup.texto(1, code);
            while (lookup.fila()) {
                if (clave_marca(lookup.columna(1), lookup.columna(2)) == it.key())
                    found[it.key()].push_back(lookup.columna_entero(0));
            }
            lookup.reiniciar();
        }
    }
    if (lookup.fallo())
        return false;
    if (by_scan.isEmpty())
        return true;
    PriceFileStatement all(db, "SELECT ID, Proveedor, Codigo FROM xls_listas "
                               "WHERE Proveedor IS NOT NULL AND Codigo IS NOT NULL");
    while (all.fila()) {
        const QString key = clave_marca(all.columna(1), all.columna(2));
        if (by_scan.contains(key))
            found[key].push_back(all.columna_entero(0));
    }
    return !all.fallo();
}

bool ShopMarks::leer_pedidos(sqlite3 *db)
{
    PriceFileStatement rows(
        db, "SELECT Descripcion, Grupo, Estado = 'Pedido Pendiente' COLLATE NOCASE "
            "FROM clientes.vendrix_pedidos WHERE Descripcion IS NOT NULL AND Grupo IS NOT NULL "
            "AND (Estado = 'Pedido Pendiente' COLLATE NOCASE OR Estado = 'Pedido' COLLATE NOCASE)");
    while (rows.fila()) {
        std::pair<int, int> &counts = pedidos_[clave_marca(rows.columna(0), rows.columna(1))];
        descripciones_pedidas_.insert(plegar_texto(rows.columna(0)));
        ++(rows.columna_entero(2) != 0 ? counts.first : counts.second);
    }
    return !rows.fallo();
}

bool ShopMarks::es_favorito(qint64 id) const
{
    return std::binary_search(favoritos_.begin(), favoritos_.end(), id);
}

QString ShopMarks::comentario(qint64 id) const
{
    const auto key = clave_comentada_.constFind(id);
    if (key == clave_comentada_.cend())
        return {};
    return comentarios_.value(*key).front().value_or(QString());
}

bool ShopMarks::algun_comentario_contiene(qint64 id, const QString &plegado) const
{
    const auto key = clave_comentada_.constFind(id);
    if (key == clave_comentada_.cend())
        return false;
    const auto texts = comentarios_.constFind(*key);
    return std::any_of(texts->begin(), texts->end(), [&plegado](const std::optional<QString> &text) {
        return text && text->contains(plegado);
    });
}

// Most articles carry no mark: the short code or group, folded into a
// buffer that keeps its memory, tells so before the whole key is made.
bool ShopMarks::plegado_en(const QSet<QString> &folded, QStringView text) const
{
    plegado_.resize(0);
    plegado_.append(text);
    plegar_en_su_lugar(plegado_);
    return folded.contains(plegado_);
}

RowMarks ShopMarks::marcas(const ArticleData &a) const
{
    RowMarks m;
    m.favorito = es_favorito(a.id);
    if (!a.proveedor_nulo && !a.codigo_nulo && !a.codigo.isEmpty() &&
        plegado_en(codigos_marcados_, a.codigo)) {
        const QString key = clave_marca(a.proveedor.toString(), a.codigo.toString());
        m.centinela = centinelas_.value(key);
        m.testigo = testigos_.value(key);
    }
    if (!a.descripcion_nula && !a.grupo_nulo && plegado_en(descripciones_pedidas_, a.descripcion)) {
        const std::pair<int, int> orders =
            pedidos_.value(clave_marca(a.descripcion.toString(), a.grupo.toString()));
        m.pedido_pendiente = orders.first;
        m.pedido = orders.second;
    }
    return m;
}

} // namespace vendrix

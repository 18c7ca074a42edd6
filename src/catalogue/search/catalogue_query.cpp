#include "catalogue/search/catalogue_query.h"

#include "catalogue/pricelist/price_file_connection.h"
#include "catalogue/search/search_index.h"
#include "catalogue/search/text_source.h"
#include "core/sqlite_values.h"

#include <sqlite3.h>

#include <algorithm>

namespace vendrix {

namespace {

// The trigram index can't look for less than three characters.
constexpr qsizetype kMinimoIndice = 3;

qsizetype caracteres(const QString &text)
{
    return std::count_if(text.begin(), text.end(), [](QChar c) { return !c.isLowSurrogate(); });
}

QString frase(QString run)
{
    run.replace(QLatin1Char('"'), QLatin1String("\"\""));
    return QLatin1Char('"') + run + QLatin1Char('"');
}

// What the index must hold for the text of a term to be there: the text as
// a phrase when it is long enough, else a pair as one of the trigrams that
// start with it (the indexed text ends with a blank, so each pair in it
// starts a trigram). Nothing when the index can't narrow it: one character,
// or a pair with too many trigrams.
std::optional<QString> acotar(const QString &text, const TrigramsOf &trigramas)
{
    const QString folded = plegar_texto(text);
    const qsizetype length = caracteres(folded);
    if (length >= kMinimoIndice)
        return frase(folded);
    const std::optional<QStringList> trigrams =
        length == kMinimoIndice - 1 && trigramas ? trigramas(folded) : std::nullopt;
    if (!trigrams)
        return std::nullopt;
    QStringList any;
    for (const QString &t : *trigrams)
        any << frase(t);
    // A pair the index doesn't hold: nothing matches (a phrase without itself).
    const QString never = frase(folded + folded);
    return QLatin1Char('(') +
           (any.isEmpty() ? never + QStringLiteral(" NOT ") + never : any.join(QLatin1String(" OR "))) +
           QLatin1Char(')');
}

// The condition, folded: every term must match, a term matches when the
// text holds any of its texts.
class TermFilter {
public:
    explicit TermFilter(const SearchCondition &condition)
    {
        for (const QStringList &term : condition.terminos) {
            QStringList texts;
            for (const QString &text : term)
                texts << plegar_texto(text);
            terminos_.push_back(std::move(texts));
        }
    }

    bool cumple(QStringView haystack) const
    {
        return std::all_of(terminos_.begin(), terminos_.end(), [haystack](const QStringList &term) {
            return std::any_of(term.begin(), term.end(),
                               [haystack](const QString &text) { return haystack.contains(text); });
        });
    }

private:
    std::vector<QStringList> terminos_;
};

// "Pesos" for 1 and 101, "Dolares" for 2 and 102, else the code itself.
QString texto_moneda(const QString &code)
{
    if (code == QLatin1String("1") || code == QLatin1String("101"))
        return QStringLiteral("Pesos");
    if (code == QLatin1String("2") || code == QLatin1String("102"))
        return QStringLiteral("Dolares");
    return code;
}

class QueryRun {
public:
    QueryRun(sqlite3 *db, const SearchQuery &consulta)
        : db_(db), consulta_(consulta), filtro_(consulta.condicion), fuente_(db),
          limite_(static_cast<size_t>(std::max(1, consulta.limite)))
    {
        if (consulta.comentario)
            rama_comentario_ = plegar_texto(*consulta.comentario);
    }

    QueryResult ejecutar()
    {
        QueryResult r;
        if (!marcas_.leer(db_) || !buscar() || !leer_articulos(r)) {
            // Read now, while the failed statement is still alive.
            r = {{}, false, false, SqlError::de_conexion(db_).texto()};
        }
        return r;
    }

private:
    bool coincide(qint64 id, const QString &text) const
    {
        const QString comment = consulta_.condicion.con_comentario ? marcas_.comentario(id) : QString();
        const bool meets = comment.isEmpty() ? filtro_.cumple(text) : filtro_.cumple(text + comment);
        return meets || (rama_comentario_ && marcas_.algun_comentario_contiene(id, *rama_comentario_));
    }

    // The IDs of the result in its order, one more than the grid shows when
    // there are more.
    bool buscar()
    {
        for (qint64 id : marcas_.favoritos()) {
            if (coincide(id, fuente_.texto(id)))
                ids_.push_back(id);
        }
        if (!consulta_.solo_favoritos && ids_.size() < limite_)
            buscar_los_demas(limite_ - ids_.size());
        return !fuente_.fallo();
    }

    // The first `wanted` articles that match and are not favourites, by ID.
    void buscar_los_demas(size_t wanted)
    {
        const QString expression =
            fuente_.con_indice()
                ? expresion_indice(consulta_.condicion,
                                   [this](const QString &pair) { return fuente_.trigramas(pair); })
                : QString();
        // The index doesn't hold comments: the articles with one are tested too.
        const bool comments_count = consulta_.condicion.con_comentario || rama_comentario_;
        const std::vector<qint64> none;
        const std::vector<qint64> &extra =
            !expression.isEmpty() && comments_count ? marcas_.comentados() : none;
        if (!fuente_.abrir(expression))
            return;
        bool more = fuente_.siguiente();
        size_t next_extra = 0;
        while (wanted > 0 && (more || next_extra < extra.size())) {
            qint64 id = 0;
            QString text;
            if (more && (next_extra == extra.size() || fuente_.id() <= extra[next_extra])) {
                id = fuente_.id();
                text = fuente_.texto_actual();
                if (next_extra < extra.size() && extra[next_extra] == id)
                    ++next_extra;
                more = fuente_.siguiente();
            } else {
                id = extra[next_extra++];
                text = fuente_.texto(id);
            }
            if (!marcas_.es_favorito(id) && coincide(id, text)) {
                ids_.push_back(id);
                --wanted;
            }
        }
    }

    bool leer_articulos(QueryResult &r)
    {
        r.hay_mas = ids_.size() > limite_ - 1;
        ids_.resize(std::min(ids_.size(), limite_ - 1));
        if (ids_.empty())
            return true;
        if (!consulta_.solo_favoritos && !marcas_.leer_pedidos(db_))
            return false;
        PriceFileStatement row(db_, "SELECT Proveedor, Grupo, Descripcion, Moneda, Marca, Precio, Codigo, "
                                    "Proveedor IS NULL, Codigo IS NULL, Descripcion IS NULL, Grupo IS NULL "
                                    "FROM xls_listas WHERE ID = ?");
        r.articulos.reserve(ids_.size());
        for (qint64 id : ids_) {
            row.entero(1, id);
            if (!row.fila())
                break;
            FoundArticle a{id,
                           row.columna(0),
                           row.columna(1),
                           row.columna(2),
                           texto_moneda(row.columna(3)),
                           row.columna(4),
                           row.columna(5),
                           row.columna(6),
                           {}};
            if (consulta_.solo_favoritos) {
                a.marcas.favorito = true;
            } else {
                a.marcas = marcas_.marcas({id, a.proveedor, a.codigo, a.descripcion, a.grupo,
                                           row.columna_entero(7) != 0, row.columna_entero(8) != 0,
                                           row.columna_entero(9) != 0, row.columna_entero(10) != 0});
            }
            r.articulos.push_back(std::move(a));
            row.reiniciar();
        }
        return !row.fallo();
    }

    sqlite3 *db_;
    const SearchQuery &consulta_;
    TermFilter filtro_;
    std::optional<QString> rama_comentario_; // folded
    ShopMarks marcas_;
    TextSource fuente_;
    size_t limite_;
    std::vector<qint64> ids_;
};

// One read transaction for all the statements of a search: the files are
// locked and checked once, not once per statement. A savepoint, so that it
// also works inside a transaction of the caller.
class SingleRead {
public:
    explicit SingleRead(sqlite3 *db) : db_(db)
    {
        // The pages of the index a search reads stay in memory for the next
        // one: 16 MB instead of SQLite's 2 MB.
        sqlite3_exec(db_, "PRAGMA main.cache_size = -16384; SAVEPOINT busqueda_articulos", nullptr, nullptr,
                     nullptr);
    }
    ~SingleRead() { sqlite3_exec(db_, "RELEASE busqueda_articulos", nullptr, nullptr, nullptr); }
    SingleRead(const SingleRead &) = delete;
    SingleRead &operator=(const SingleRead &) = delete;

private:
    sqlite3 *db_;
};

} // namespace

QString expresion_indice(const SearchCondition &condicion, const TrigramsOf &trigramas)
{
    QStringList terms;
    for (const QStringList &term : condicion.terminos) {
        QStringList options;
        for (const QString &text : term) {
            const std::optional<QString> narrowed = acotar(text, trigramas);
            // One text the index can't narrow leaves the whole term open.
            if (!narrowed) {
                options.clear();
                break;
            }
            options << *narrowed;
        }
        if (!options.isEmpty())
            terms << QLatin1Char('(') + options.join(QLatin1String(" OR ")) + QLatin1Char(')');
    }
    return terms.join(QLatin1String(" AND "));
}

QueryResult ejecutar_consulta(sqlite3 *db, const SearchQuery &consulta)
{
    const SingleRead transaction(db);
    return QueryRun(db, consulta).ejecutar();
}

struct CatalogueSearcher::State {};

CatalogueSearcher::CatalogueSearcher() : estado_(std::make_unique<State>())
{
}
CatalogueSearcher::~CatalogueSearcher() = default;

QueryResult CatalogueSearcher::buscar(sqlite3 *db, const SearchQuery &consulta, const std::atomic<bool> *)
{
    return ejecutar_consulta(db, consulta);
}

} // namespace vendrix

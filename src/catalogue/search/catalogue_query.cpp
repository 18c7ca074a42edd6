#include "catalogue/search/catalogue_query.h"

#include "catalogue/pricelist/price_file_connection.h"
#include "catalogue/search/article_rows.h"
#include "catalogue/search/search_index.h"
#include "core/sqlite_values.h"

#include <sqlite3.h>

#include <QHash>

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

// The distinct trigrams of a folded text of three characters or more.
QStringList trigramas_de(const QString &folded)
{
    const QList<uint> points = folded.toUcs4();
    QStringList trigrams;
    for (qsizetype i = 0; i + kMinimoIndice <= points.size(); ++i) {
        const QString trigram =
            QString::fromUcs4(reinterpret_cast<const char32_t *>(points.constData()) + i, kMinimoIndice);
        if (!trigrams.contains(trigram))
            trigrams << trigram;
    }
    return trigrams;
}

// The trigrams of a text the index is asked for: the rarest few are enough
// to narrow the articles to test, and each one more costs a walk through
// its list of articles.
constexpr qsizetype kTrigramasPorTexto = 3;
// Up to this many rows wanted, a search is one that stops early.
constexpr size_t kPocasFilas = 100;

QStringList los_mas_raros(QStringList trigrams, const IndexVocabulary &vocabulario, qsizetype cuantos)
{
    if (!vocabulario.articulos || trigrams.size() <= cuantos)
        return trigrams;
    std::vector<std::pair<qint64, QString>> counted;
    for (QString &t : trigrams) {
        const qint64 count = vocabulario.articulos(t);
        // A trigram no article holds: that alone tells that nothing matches.
        if (count == 0)
            return {t};
        counted.emplace_back(count, std::move(t));
    }
    std::stable_sort(counted.begin(), counted.end(),
                     [](const auto &a, const auto &b) { return a.first < b.first; });
    QStringList rarest;
    for (qsizetype i = 0; i < cuantos; ++i)
        rarest << counted[static_cast<size_t>(i)].second;
    return rarest;
}

// The trigrams as one query that wants them all.
QString grupo_y(const QStringList &trigrams)
{
    QStringList all;
    for (const QString &t : trigrams)
        all << frase(t);
    return all.size() == 1 ? all.front()
                           : QLatin1Char('(') + all.join(QLatin1String(" AND ")) + QLatin1Char(')');
}

// The trigrams every text of a term of several texts holds, in the order of
// the first; none when a text is too short for a trigram.
QStringList trigramas_comunes(const QStringList &term)
{
    if (term.size() < 2)
        return {};
    QStringList common;
    for (const QString &text : term) {
        const QString folded = plegar_texto(text);
        if (caracteres(folded) < kMinimoIndice)
            return {};
        const QStringList own = trigramas_de(folded);
        if (&text == &term.front())
            common = own;
        else
            common.removeIf([&own](const QString &t) { return !own.contains(t); });
    }
    return common;
}

// The smallest number of articles that hold one of the trigrams; -1 when
// the counts aren't known.
qint64 menos_articulos(const QStringList &trigrams, const IndexVocabulary &vocabulario)
{
    if (!vocabulario.articulos)
        return -1;
    qint64 fewest = -1;
    for (const QString &t : trigrams) {
        const qint64 n = vocabulario.articulos(t);
        fewest = fewest < 0 ? n : std::min(fewest, n);
    }
    return fewest;
}

// What the index is asked for one text or term, with at most how many
// articles it gives (-1 when not known) and whether a pair is in it.
struct Acotado {
    QString expresion;
    qint64 articulos = -1;
    bool de_par = false;
};

// What the index must hold for the text of a term to be there: trigrams of
// the text when it is long enough (the index doesn't know where they stand;
// the article's own text decides), else a pair as one of the trigrams that
// start with it (the indexed text ends with a blank, so each pair in it
// starts a trigram). Nothing when the index can't narrow it: one character,
// or a pair with too many trigrams.
std::optional<Acotado> acotar(const QString &text, const IndexVocabulary &vocabulario, qsizetype cuantos)
{
    const QString folded = plegar_texto(text);
    const qsizetype length = caracteres(folded);
    if (length >= kMinimoIndice) {
        const QStringList asked = los_mas_raros(trigramas_de(folded), vocabulario, cuantos);
        return Acotado{grupo_y(asked), menos_articulos(asked, vocabulario), false};
    }
    const std::optional<QStringList> trigrams =
        length == kMinimoIndice - 1 && vocabulario.trigramas ? vocabulario.trigramas(folded) : std::nullopt;
    if (!trigrams)
        return std::nullopt;
    QStringList any;
    qint64 total = vocabulario.articulos ? 0 : -1;
    for (const QString &t : *trigrams) {
        any << frase(t);
        if (vocabulario.articulos)
            total += vocabulario.articulos(t);
    }
    // A pair the index doesn't hold: nothing matches (a trigram without itself).
    const QString never = frase(folded + folded.left(folded.front().isHighSurrogate() ? 2 : 1));
    return Acotado{
        QLatin1Char('(') +
            (any.isEmpty() ? never + QStringLiteral(" NOT ") + never : any.join(QLatin1String(" OR "))) +
            QLatin1Char(')'),
        total, true};
}

// A term: its texts, any of which will do.
std::optional<Acotado> acotar_termino(const QStringList &term, const IndexVocabulary &vocabulario,
                                      qsizetype cuantos)
{
    // The spellings of a word share most of their trigrams: three or
    // more they all hold narrow about as well as asking for each spelling.
    if (const QStringList common = trigramas_comunes(term); common.size() >= kTrigramasPorTexto) {
        const QStringList asked = los_mas_raros(common, vocabulario, cuantos);
        return Acotado{grupo_y(asked), menos_articulos(asked, vocabulario), false};
    }
    QStringList options;
    Acotado whole{{}, 0, false};
    for (const QString &text : term) {
        const std::optional<Acotado> narrowed = acotar(text, vocabulario, cuantos);
        // One text the index can't narrow leaves the whole term open.
        if (!narrowed)
            return std::nullopt;
        options << narrowed->expresion;
        whole.articulos =
            whole.articulos < 0 || narrowed->articulos < 0 ? -1 : whole.articulos + narrowed->articulos;
        whole.de_par = whole.de_par || narrowed->de_par;
    }
    if (options.isEmpty())
        return std::nullopt;
    whole.expresion = options.size() == 1
                          ? options.front()
                          : QLatin1Char('(') + options.join(QLatin1String(" OR ")) + QLatin1Char(')');
    return whole;
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

// The row's fields move into the result.
FoundArticle encontrado(ArticleRow &&row, const RowMarks &marks)
{
    return {row.id,
            std::move(row.proveedor),
            std::move(row.grupo),
            std::move(row.descripcion),
            texto_moneda(row.moneda),
            std::move(row.marca),
            std::move(row.precio),
            std::move(row.codigo),
            marks};
}

// An article read with its folded text, as the searcher keeps favourites
// and commented articles between searches.
struct KnownArticle {
    ArticleRow fila;
    QString texto;
};

} // namespace

// What a searcher keeps between searches on one connection: its prepared
// statements, the shop's marks with the articles they point at, those
// articles' rows, and the counts of the trigrams asked. All of it is read
// again when either file changed: `data_version` moves when another
// connection wrote it, the connection's change count when this one did.
struct CatalogueSearcher::State {
    std::unique_ptr<ArticleRows> filas;
    std::unique_ptr<ShopMarks> marcas;
    bool con_pedidos = false;
    std::vector<qint64> version_marcas;
    QHash<qint64, KnownArticle> conocidos; // favourites and commented articles

    void conectar(sqlite3 *db)
    {
        if (filas && filas->db() == db)
            return;
        filas = std::make_unique<ArticleRows>(db);
        marcas.reset();
        conocidos.clear();
        // The file is read in place, page by page as the search needs it,
        // instead of copied into SQLite's own cache.
        sqlite3_exec(db, "PRAGMA main.mmap_size = 1073741824", nullptr, nullptr, nullptr);
    }

    std::vector<qint64> version(sqlite3 *db)
    {
        return {sqlite3_total_changes64(db), filas->numero("PRAGMA main.data_version"),
                filas->numero("PRAGMA clientes.data_version")};
    }

    // The marks, read again when they may have changed; orders only when asked.
    bool leer_marcas(bool pedidos)
    {
        sqlite3 *db = filas->db();
        const std::vector<qint64> now = version(db);
        if (!marcas || now != version_marcas) {
            marcas = std::make_unique<ShopMarks>();
            con_pedidos = false;
            conocidos.clear();
            filas->olvidar_conteos();
            version_marcas = now;
            if (!marcas->leer(db)) {
                marcas.reset();
                return false;
            }
        }
        if (pedidos && !con_pedidos) {
            if (!marcas->leer_pedidos(db)) {
                marcas.reset();
                return false;
            }
            con_pedidos = true;
        }
        return true;
    }

    const KnownArticle *conocido(qint64 id)
    {
        auto it = conocidos.find(id);
        if (it == conocidos.end()) {
            const std::optional<ArticleRow> row = filas->articulo(id);
            if (!row)
                return nullptr;
            it = conocidos.insert(id, {*row, row->texto()});
        }
        return &it.value();
    }
};

namespace {

class QueryRun {
public:
    QueryRun(CatalogueSearcher::State &estado, const SearchQuery &consulta,
             const std::atomic<bool> *abandonar)
        : estado_(estado), filas_(*estado.filas), consulta_(consulta), filtro_(consulta.condicion),
          abandonar_(abandonar), limite_(static_cast<size_t>(std::max(1, consulta.limite)))
    {
        if (consulta.comentario)
            rama_comentario_ = plegar_texto(*consulta.comentario);
    }

    QueryResult ejecutar()
    {
        QueryResult r;
        filas_.olvidar_fallo();
        if (!estado_.leer_marcas(!consulta_.solo_favoritos) || !buscar()) {
            // Read now, while the failed statement is still alive.
            r = {{}, false, false, SqlError::de_conexion(filas_.db()).texto()};
            return r;
        }
        if (abandonada()) {
            r.ok = false;
            r.abandonada = true;
            return r;
        }
        r.hay_mas = encontrados_.size() > limite_ - 1;
        encontrados_.resize(std::min(encontrados_.size(), limite_ - 1));
        r.articulos = std::move(encontrados_);
        return r;
    }

private:
    const ShopMarks &marcas() const { return *estado_.marcas; }

    bool abandonada() const { return abandonar_ && abandonar_->load(std::memory_order_relaxed); }

    // An article of the result, with its marks.
    void guardar(ArticleRow &&row)
    {
        RowMarks marks;
        if (consulta_.solo_favoritos)
            marks.favorito = true;
        else
            marks = marcas().marcas(row.datos_marcas());
        encontrados_.push_back(encontrado(std::move(row), marks));
    }

    bool coincide(qint64 id, const QString &text) const
    {
        const QString comment = consulta_.condicion.con_comentario ? marcas().comentario(id) : QString();
        const bool meets = comment.isEmpty() ? filtro_.cumple(text) : filtro_.cumple(text + comment);
        return meets || (rama_comentario_ && marcas().algun_comentario_contiene(id, *rama_comentario_));
    }

    // The rows of the result in its order, one more than the grid shows when
    // there are more.
    bool buscar()
    {
        for (qint64 id : marcas().favoritos()) {
            const KnownArticle *known = estado_.conocido(id);
            if (known && coincide(id, known->texto))
                guardar(ArticleRow(known->fila));
        }
        if (!consulta_.solo_favoritos && encontrados_.size() < limite_)
            buscar_los_demas(limite_ - encontrados_.size());
        return !filas_.fallo();
    }

    // The first `wanted` articles that match and are not favourites, by ID.
    void buscar_los_demas(size_t wanted)
    {
        const QString expression =
            filas_.con_indice()
                ? expresion_indice(consulta_.condicion,
                                   {[this](const QString &pair) { return filas_.trigramas(pair); },
                                    [this](const QString &trigram) { return filas_.articulos_con(trigram); }},
                                   wanted <= kPocasFilas)
                : QString();
        // The index doesn't hold comments: the articles with one are tested too.
        const bool comments_count = consulta_.condicion.con_comentario || rama_comentario_;
        const std::vector<qint64> none;
        const std::vector<qint64> &extra =
            !expression.isEmpty() && comments_count ? marcas().comentados() : none;
        if (!filas_.abrir(expression))
            return;
        encontrados_.reserve(std::min<size_t>(wanted, 4096));
        qint64 id = 0;
        bool more = filas_.siguiente(id, texto_);
        size_t next_extra = 0;
        while (wanted > 0 && (more || next_extra < extra.size()) && !abandonada()) {
            if (more && (next_extra == extra.size() || id <= extra[next_extra])) {
                if (next_extra < extra.size() && extra[next_extra] == id)
                    ++next_extra;
                if (!marcas().es_favorito(id) && coincide(id, texto_)) {
                    guardar(filas_.fila_actual());
                    --wanted;
                }
                more = filas_.siguiente(id, texto_);
            } else {
                const qint64 commented = extra[next_extra++];
                const KnownArticle *known = estado_.conocido(commented);
                if (known && !marcas().es_favorito(commented) && coincide(commented, known->texto)) {
                    guardar(ArticleRow(known->fila));
                    --wanted;
                }
            }
        }
    }

    CatalogueSearcher::State &estado_;
    ArticleRows &filas_;
    const SearchQuery &consulta_;
    TermFilter filtro_;
    const std::atomic<bool> *abandonar_;
    std::optional<QString> rama_comentario_; // folded
    size_t limite_;
    std::vector<FoundArticle> encontrados_;
    QString texto_; // the folded text of the article being tested
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

// Stops SQLite's own work on a long step when the caller gives up.
int progreso(void *flag)
{
    return static_cast<const std::atomic<bool> *>(flag)->load(std::memory_order_relaxed) ? 1 : 0;
}

} // namespace

QString expresion_indice(const SearchCondition &condicion, const IndexVocabulary &vocabulario,
                         bool pocas_filas)
{
    std::vector<Acotado> terms;
    // A search that stops after a few rows walks the index only until it
    // finds them: one list of articles per text costs less than the false
    // candidates it lets through, when other texts narrow as well.
    const qsizetype cuantos = pocas_filas && condicion.terminos.size() > 1 ? 1 : kTrigramasPorTexto;
    for (const QStringList &term : condicion.terminos) {
        if (std::optional<Acotado> narrowed = acotar_termino(term, vocabulario, cuantos))
            terms.push_back(std::move(*narrowed));
    }
    // A pair is worth asking for only when it gives fewer articles than the
    // longer texts do: a common one ("de") is many lists of articles to walk
    // that narrow nothing the others don't.
    qint64 narrowest = -1;
    for (const Acotado &t : terms) {
        if (!t.de_par && t.articulos >= 0)
            narrowest = narrowest < 0 ? t.articulos : std::min(narrowest, t.articulos);
    }
    QStringList asked;
    for (const Acotado &t : terms) {
        if (!(t.de_par && narrowest >= 0 && t.articulos > narrowest))
            asked << t.expresion;
    }
    return asked.join(QLatin1String(" AND "));
}

QueryResult ejecutar_consulta(sqlite3 *db, const SearchQuery &consulta)
{
    return CatalogueSearcher().buscar(db, consulta);
}

CatalogueSearcher::CatalogueSearcher() : estado_(std::make_unique<State>())
{
}
CatalogueSearcher::~CatalogueSearcher() = default;

QueryResult CatalogueSearcher::buscar(sqlite3 *db, const SearchQuery &consulta,
                                      const std::atomic<bool> *abandonar)
{
    const SingleRead transaction(db);
    estado_->conectar(db);
    if (abandonar)
        sqlite3_progress_handler(db, 1000, progreso, const_cast<std::atomic<bool> *>(abandonar));
    QueryResult r = QueryRun(*estado_, consulta, abandonar).ejecutar();
    if (abandonar) {
        sqlite3_progress_handler(db, 0, nullptr, nullptr);
        if (abandonar->load()) {
            r = {};
            r.ok = false;
            r.abandonada = true;
        }
    }
    return r;
}

} // namespace vendrix

#include "catalogue/search/article_rows.h"

#include "catalogue/pricelist/price_file_format.h"
#include "catalogue/search/search_index.h"

#include <sqlite3.h>

namespace vendrix {

namespace {

// More trigrams than this for one pair, and the pair isn't asked of the
// index: so common a pair narrows little, and each trigram asked is one
// more list of articles to walk.
constexpr int kTopeTrigramas = 48;

#define CAMPOS                                                                                               \
    "l.ID, l.Proveedor, l.Grupo, l.Observaciones, l.Descripcion, l.Marca, l.Codigo, l.Moneda, l.Precio, "    \
    "l.Proveedor IS NULL, l.Codigo IS NULL, l.Descripcion IS NULL, l.Grupo IS NULL"

constexpr const char *kUno = "SELECT " CAMPOS " FROM xls_listas l WHERE l.ID = ?";
constexpr const char *kTodos = "SELECT " CAMPOS " FROM xls_listas l ORDER BY l.ID";
// The index leads: its rows come in order of rowid, and each finds its
// article by ID.
constexpr const char *kDelIndice = "SELECT " CAMPOS " FROM xls_busqueda b CROSS JOIN xls_listas l "
                                   "ON l.ID = b.rowid WHERE xls_busqueda MATCH ? ORDER BY b.rowid";
#undef CAMPOS

} // namespace

QString ArticleRow::texto() const
{
    return texto_busqueda(proveedor, grupo, observaciones, descripcion, marca, codigo);
}

ShopMarks::ArticleData ArticleRow::datos_marcas() const
{
    return {id,          proveedor,        codigo,    descripcion, grupo, proveedor_nulo,
            codigo_nulo, descripcion_nula, grupo_nulo};
}

PriceFileStatement &ArticleRows::sentencia(const char *sql)
{
    std::unique_ptr<PriceFileStatement> &kept = sentencias_[QByteArray::fromRawData(sql, qstrlen(sql))];
    if (!kept || !kept->valida() || kept->fallo())
        kept = std::make_unique<PriceFileStatement>(db_, sql);
    else
        kept->reiniciar();
    return *kept;
}

qint64 ArticleRows::numero(const char *sql)
{
    PriceFileStatement &query = sentencia(sql);
    const qint64 n = query.fila() ? query.columna_entero(0) : -1;
    query.reiniciar();
    return n;
}

bool ArticleRows::con_indice()
{
    PriceFileStatement &probe =
        sentencia("SELECT (SELECT count(*) FROM sqlite_master WHERE type = 'table' AND "
                  "name = 'xls_busqueda') = 1 AND (SELECT user_version FROM pragma_user_version) >= ?");
    probe.entero(1, kFormatoLista);
    const bool indexed = probe.fila() && probe.columna_entero(0) == 1;
    fallo_ = fallo_ || probe.fallo();
    probe.reiniciar();
    return indexed;
}

// `repetidos`: the texts of the last row read this way, for the fields
// that repeat from one row to the next; null reads every field afresh.
ArticleRow ArticleRows::de_fila(const PriceFileStatement &row, Repetidos *repetidos)
{
    const auto text = [&](int column, int kept) {
        return repetidos ? row.columna_repetida(column, (*repetidos)[kept]) : row.columna(column);
    };
    return {row.columna_entero(0),
            text(1, 0),
            text(2, 1),
            text(3, 2),
            row.columna(4),
            text(5, 3),
            row.columna(6),
            text(7, 4),
            row.columna(8),
            row.columna_entero(9) != 0,
            row.columna_entero(10) != 0,
            row.columna_entero(11) != 0,
            row.columna_entero(12) != 0};
}

std::optional<ArticleRow> ArticleRows::articulo(qint64 id)
{
    PriceFileStatement &one = sentencia(kUno);
    one.entero(1, id);
    std::optional<ArticleRow> row;
    if (one.fila())
        row = de_fila(one);
    fallo_ = fallo_ || one.fallo();
    one.reiniciar();
    return row;
}

// The index's list of its trigrams, in order: those of a pair are one
// range of it.
std::optional<QStringList> ArticleRows::trigramas(const QString &par)
{
    if (const auto known = pares_.constFind(par); known != pares_.cend())
        return *known;
    PriceFileStatement &vocabulary = sentencia(
        "SELECT trigrama FROM xls_busqueda_trigramas WHERE trigrama >= ? AND trigrama <= ? LIMIT ?");
    vocabulary.texto(1, par);
    vocabulary.texto(2, par + QString::fromUcs4(U"\U0010FFFF"));
    vocabulary.entero(3, kTopeTrigramas + 1);
    QStringList trigrams;
    while (vocabulary.fila()) {
        const QString term = vocabulary.columna(0);
        if (term.startsWith(par))
            trigrams << term;
    }
    fallo_ = fallo_ || vocabulary.fallo();
    const bool usable = !vocabulary.fallo() && trigrams.size() <= kTopeTrigramas;
    const std::optional<QStringList> found = usable ? std::optional(trigrams) : std::nullopt;
    if (!vocabulary.fallo())
        pares_.insert(par, found);
    vocabulary.reiniciar();
    return found;
}

qint64 ArticleRows::articulos_con(const QString &trigrama)
{
    if (const auto known = conteos_.constFind(trigrama); known != conteos_.cend())
        return *known;
    PriceFileStatement &count = sentencia("SELECT articulos FROM xls_busqueda_trigramas WHERE trigrama = ?");
    count.texto(1, trigrama);
    const qint64 n = count.fila() ? count.columna_entero(0) : 0;
    fallo_ = fallo_ || count.fallo();
    if (!count.fallo())
        conteos_.insert(trigrama, n);
    count.reiniciar();
    return n;
}

bool ArticleRows::abrir(const QString &expresion)
{
    recorrido_ = &sentencia(expresion.isEmpty() ? kTodos : kDelIndice);
    if (!expresion.isEmpty())
        recorrido_->texto(1, expresion);
    fallo_ = fallo_ || !recorrido_->valida();
    return recorrido_->valida();
}

bool ArticleRows::siguiente(qint64 &id, QString &texto)
{
    if (!recorrido_ || !recorrido_->valida())
        return false;
    if (!recorrido_->fila()) {
        fallo_ = fallo_ || recorrido_->fallo();
        return false;
    }
    id = recorrido_->columna_entero(0);
    // The fields of `texto_busqueda`, each followed by a blank, folded.
    texto.clear();
    for (int field = 1; field <= 6; ++field) {
        recorrido_->anexar_columna(field, texto);
        texto.append(QLatin1Char(' '));
    }
    plegar_en_su_lugar(texto);
    return true;
}

ArticleRow ArticleRows::fila_actual()
{
    return de_fila(*recorrido_, &repetidos_);
}

} // namespace vendrix

#include "catalogue/search/text_source.h"

#include "catalogue/pricelist/price_file_format.h"
#include "catalogue/search/search_index.h"

#include <sqlite3.h>

namespace vendrix {

namespace {

// More trigrams than this for one pair, and the pair isn't asked of the index.
constexpr int kTopeTrigramas = 400;

constexpr const char *kCampos = "ID, Proveedor, Grupo, Observaciones, Descripcion, Marca, Codigo";

// An index of an older format holds text folded another way: it is not used.
bool indice_vigente(sqlite3 *db)
{
    PriceFileStatement probe(
        db, "SELECT (SELECT count(*) FROM sqlite_master WHERE type = 'table' AND "
            "name = 'xls_busqueda') = 1 AND (SELECT user_version FROM pragma_user_version) >= ?");
    probe.entero(1, kFormatoLista);
    return probe.fila() && probe.columna_entero(0) == 1;
}

QString texto_de_fila(const PriceFileStatement &row)
{
    return texto_busqueda(row.columna(1), row.columna(2), row.columna(3), row.columna(4), row.columna(5),
                          row.columna(6));
}

} // namespace

TextSource::TextSource(sqlite3 *db) : db_(db), indice_(indice_vigente(db))
{
    const QByteArray sql = indice_ ? QByteArray("SELECT rowid, texto FROM xls_busqueda WHERE rowid = ?")
                                   : QByteArray("SELECT ") + kCampos + " FROM xls_listas WHERE ID = ?";
    uno_ = std::make_unique<PriceFileStatement>(db, sql.constData());
}

QString TextSource::texto(qint64 id)
{
    uno_->entero(1, id);
    QString text;
    if (uno_->fila())
        text = indice_ ? uno_->columna(1) : texto_de_fila(*uno_);
    uno_->reiniciar();
    return text;
}

// The index's own list of its trigrams, in order: those of a pair are one
// range of it.
std::optional<QStringList> TextSource::trigramas(const QString &par)
{
    if (!vocabulario_) {
        sqlite3_exec(db_,
                     "CREATE VIRTUAL TABLE IF NOT EXISTS temp.xls_busqueda_trigramas USING "
                     "fts5vocab(main, xls_busqueda, row)",
                     nullptr, nullptr, nullptr);
        vocabulario_ = std::make_unique<PriceFileStatement>(
            db_, "SELECT term FROM temp.xls_busqueda_trigramas WHERE term >= ? AND term <= ?");
    }
    vocabulario_->texto(1, par);
    vocabulario_->texto(2, par + QString::fromUcs4(U"\U0010FFFF"));
    QStringList trigrams;
    while (vocabulario_->fila() && trigrams.size() <= kTopeTrigramas) {
        const QString term = vocabulario_->columna(0);
        if (term.startsWith(par))
            trigrams << term;
    }
    const bool usable = !vocabulario_->fallo() && trigrams.size() <= kTopeTrigramas;
    vocabulario_->reiniciar();
    return usable ? std::optional(trigrams) : std::nullopt;
}

bool TextSource::abrir(const QString &expresion)
{
    if (!indice_) {
        const QByteArray sql = QByteArray("SELECT ") + kCampos + " FROM xls_listas ORDER BY ID";
        recorrido_ = std::make_unique<PriceFileStatement>(db_, sql.constData());
    } else if (expresion.isEmpty()) {
        recorrido_ =
            std::make_unique<PriceFileStatement>(db_, "SELECT rowid, texto FROM xls_busqueda ORDER BY rowid");
    } else {
        recorrido_ = std::make_unique<PriceFileStatement>(
            db_, "SELECT rowid, texto FROM xls_busqueda WHERE xls_busqueda MATCH ? ORDER BY rowid");
        recorrido_->texto(1, expresion);
    }
    return recorrido_->valida();
}

bool TextSource::siguiente()
{
    return recorrido_->fila();
}

QString TextSource::texto_actual() const
{
    return indice_ ? recorrido_->columna(1) : texto_de_fila(*recorrido_);
}

bool TextSource::fallo() const
{
    return uno_->fallo() || (recorrido_ && recorrido_->fallo());
}

} // namespace vendrix

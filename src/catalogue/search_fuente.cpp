#include "catalogue/search_fuente.h"

#include "catalogue/lista_formato.h"
#include "catalogue/search_index.h"

namespace vendrix {

namespace {

constexpr const char *kCampos = "ID, Proveedor, Grupo, Observaciones, Descripcion, Marca, Codigo";

// An index of an older format holds text folded another way: it is not used.
bool indice_vigente(sqlite3 *db)
{
    SentenciaSqlite probe(
        db, "SELECT (SELECT count(*) FROM sqlite_master WHERE type = 'table' AND "
            "name = 'xls_busqueda') = 1 AND (SELECT user_version FROM pragma_user_version) >= ?");
    probe.entero(1, kFormatoLista);
    return probe.fila() && probe.columna_entero(0) == 1;
}

QString texto_de_fila(const SentenciaSqlite &row)
{
    return texto_busqueda(row.columna(1), row.columna(2), row.columna(3), row.columna(4), row.columna(5),
                          row.columna(6));
}

} // namespace

FuenteTextos::FuenteTextos(sqlite3 *db) : db_(db), indice_(indice_vigente(db))
{
    const QByteArray sql = indice_ ? QByteArray("SELECT rowid, texto FROM xls_busqueda WHERE rowid = ?")
                                   : QByteArray("SELECT ") + kCampos + " FROM xls_listas WHERE ID = ?";
    uno_ = std::make_unique<SentenciaSqlite>(db, sql.constData());
}

QString FuenteTextos::texto(qint64 id)
{
    uno_->entero(1, id);
    QString text;
    if (uno_->fila())
        text = indice_ ? uno_->columna(1) : texto_de_fila(*uno_);
    uno_->reiniciar();
    return text;
}

bool FuenteTextos::abrir(const QString &expresion)
{
    if (!indice_) {
        const QByteArray sql = QByteArray("SELECT ") + kCampos + " FROM xls_listas ORDER BY ID";
        recorrido_ = std::make_unique<SentenciaSqlite>(db_, sql.constData());
    } else if (expresion.isEmpty()) {
        recorrido_ =
            std::make_unique<SentenciaSqlite>(db_, "SELECT rowid, texto FROM xls_busqueda ORDER BY rowid");
    } else {
        recorrido_ = std::make_unique<SentenciaSqlite>(
            db_, "SELECT rowid, texto FROM xls_busqueda WHERE xls_busqueda MATCH ? ORDER BY rowid");
        recorrido_->texto(1, expresion);
    }
    return recorrido_->valida();
}

bool FuenteTextos::siguiente()
{
    return recorrido_->fila();
}

QString FuenteTextos::texto_actual() const
{
    return indice_ ? recorrido_->columna(1) : texto_de_fila(*recorrido_);
}

bool FuenteTextos::fallo() const
{
    return uno_->fallo() || (recorrido_ && recorrido_->fallo());
}

} // namespace vendrix

#include "catalogue/pricelist/price_file_connection.h"

#include <QFile>

#include <sqlite3.h>

#include <algorithm>

namespace vendrix {

std::unique_ptr<PriceFileConnection> PriceFileConnection::abrir(const QString &ruta, Mode modo,
                                                                QString &error)
{
    sqlite3 *db = nullptr;
    const int flags =
        modo == Mode::SoloLectura ? SQLITE_OPEN_READONLY : SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE;
    const int rc = sqlite3_open_v2(QFile::encodeName(ruta).constData(), &db, flags, nullptr);
    if (rc != SQLITE_OK) {
        error = db ? QString::fromUtf8(sqlite3_errmsg(db)) : QString::fromUtf8(sqlite3_errstr(rc));
        sqlite3_close_v2(db);
        return nullptr;
    }
    return std::unique_ptr<PriceFileConnection>(new PriceFileConnection(db));
}

PriceFileConnection::~PriceFileConnection()
{
    cerrar();
}

bool PriceFileConnection::ejecutar(const char *sql)
{
    char *message = nullptr;
    if (sqlite3_exec(db_, sql, nullptr, nullptr, &message) == SQLITE_OK)
        return true;
    error_ = QString::fromUtf8(message ? message : sqlite3_errmsg(db_));
    sqlite3_free(message);
    return false;
}

QString PriceFileConnection::ultimo_error() const
{
    return QString::fromUtf8(sqlite3_errmsg(db_));
}

bool PriceFileConnection::cerrar()
{
    if (!db_)
        return true;
    const bool ok = sqlite3_close(db_) == SQLITE_OK;
    if (!ok) {
        error_ = QString::fromUtf8(sqlite3_errmsg(db_));
        sqlite3_close_v2(db_);
    }
    db_ = nullptr;
    return ok;
}

PriceFileStatement::PriceFileStatement(sqlite3 *db, const char *sql) : db_(db)
{
    if (sqlite3_prepare_v2(db, sql, -1, &stmt_, nullptr) != SQLITE_OK) {
        sqlite3_finalize(stmt_);
        stmt_ = nullptr;
        failed_ = true;
    }
}

PriceFileStatement::~PriceFileStatement()
{
    sqlite3_finalize(stmt_);
}

void PriceFileStatement::texto(int n, const QString &value)
{
    const QByteArray utf8 = value.toUtf8();
    sqlite3_bind_text(stmt_, n, utf8.constData(), static_cast<int>(utf8.size()), SQLITE_TRANSIENT);
}

void PriceFileStatement::entero(int n, qint64 value)
{
    sqlite3_bind_int64(stmt_, n, value);
}

bool PriceFileStatement::fila()
{
    if (!stmt_)
        return false;
    const int rc = sqlite3_step(stmt_);
    if (rc == SQLITE_ROW)
        return true;
    if (rc != SQLITE_DONE)
        failed_ = true;
    return false;
}

bool PriceFileStatement::ejecutar()
{
    if (!stmt_)
        return false;
    const bool ok = sqlite3_step(stmt_) == SQLITE_DONE;
    if (!ok)
        failed_ = true;
    sqlite3_reset(stmt_);
    sqlite3_clear_bindings(stmt_);
    return ok;
}

void PriceFileStatement::reiniciar()
{
    sqlite3_reset(stmt_);
    sqlite3_clear_bindings(stmt_);
}

QString PriceFileStatement::error() const
{
    return QString::fromUtf8(sqlite3_errmsg(db_));
}

int PriceFileStatement::columnas() const
{
    return stmt_ ? sqlite3_column_count(stmt_) : 0;
}

QString PriceFileStatement::columna(int n) const
{
    const auto *text = reinterpret_cast<const char *>(sqlite3_column_text(stmt_, n));
    return text ? QString::fromUtf8(text, sqlite3_column_bytes(stmt_, n)) : QString();
}

const QString &PriceFileStatement::columna_repetida(int n, Repetido &anterior) const
{
    const auto *text = reinterpret_cast<const char *>(sqlite3_column_text(stmt_, n));
    const qsizetype size = sqlite3_column_bytes(stmt_, n);
    // A NULL and an empty text both read as "": they are kept apart by
    // the null-ness of `texto`.
    const QByteArrayView now(text ? text : "", size);
    if (anterior.bytes != now || anterior.texto.isNull() != (text == nullptr)) {
        anterior.bytes = now.toByteArray();
        anterior.texto = text ? QString::fromUtf8(text, size) : QString();
    }
    return anterior.texto;
}

void PriceFileStatement::anexar_columna(int n, QString &to) const
{
    const auto *text = reinterpret_cast<const char *>(sqlite3_column_text(stmt_, n));
    const qsizetype size = sqlite3_column_bytes(stmt_, n);
    if (!text)
        return;
    // Most list text is plain ASCII, which is Latin-1 as well.
    const bool ascii =
        std::all_of(text, text + size, [](char c) { return static_cast<signed char>(c) >= 0; });
    if (ascii)
        to.append(QLatin1StringView(text, size));
    else
        to.append(QString::fromUtf8(text, size));
}

qint64 PriceFileStatement::columna_entero(int n) const
{
    return sqlite3_column_int64(stmt_, n);
}

bool PriceFileStatement::es_nulo(int n) const
{
    return sqlite3_column_type(stmt_, n) == SQLITE_NULL;
}

} // namespace vendrix

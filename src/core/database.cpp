// The statements of the database layer: queries, commands and probes.
#include "core/database.h"
#include "core/log.h"
#include "core/operator.h"
#include "core/sqlite_values.h"

#include <QDir>
#include <QUrl>

#include <utility>

namespace vendrix {

namespace {

const QString kQueryLevel = QStringLiteral("Q");

bool solo_separadores(const char *tail)
{
    for (; tail && *tail; ++tail) {
        if (!QChar::isSpace(static_cast<uchar>(*tail)) && *tail != ';')
            return false;
    }
    return true;
}

// Finalizes a statement when it goes out of scope.
struct Sentencia {
    sqlite3_stmt *stmt;
    ~Sentencia() { sqlite3_finalize(stmt); }
    sqlite3_stmt *soltar() { return std::exchange(stmt, nullptr); }
};

// One step: SQLITE_ROW, SQLITE_DONE, or an error filled in.
int avanzar(sqlite3_stmt *stmt, SqlError &error)
{
    const int rc = sqlite3_step(stmt);
    if (rc != SQLITE_ROW && rc != SQLITE_DONE)
        error = SqlError::de_conexion(sqlite3_db_handle(stmt));
    return rc;
}

} // namespace

sqlite3_stmt *Database::preparar(const QString &sql, const QString &target, const SqlParams &params,
                                 SqlError &error, bool log_sql)
{
    sqlite3 *db = abrir(es_externa(target), error);
    if (!db)
        return nullptr;
    if (log_sql)
        log_consulta(sql);
    reloj_.start();
    if (!antes_de_ejecutar(sql)) {
        error =
            SqlError::propio(SQLITE_ERROR, QStringLiteral("La sentencia fue rechazada antes de ejecutarse"));
        return nullptr;
    }
    const QByteArray utf8 = sql.toUtf8();
    sqlite3_stmt *stmt = nullptr;
    const char *tail = nullptr;
    if (sqlite3_prepare_v2(db, utf8.constData(), static_cast<int>(utf8.size()), &stmt, &tail) != SQLITE_OK) {
        error = SqlError::de_conexion(db);
        sqlite3_finalize(stmt);
        return nullptr;
    }
    Sentencia owned{stmt};
    if (!stmt) {
        error = SqlError::propio(SQLITE_MISUSE, QStringLiteral("La sentencia SQL está vacía"));
        return nullptr;
    }
    // One statement a call: a second one would be silently skipped.
    if (!solo_separadores(tail)) {
        error =
            SqlError::propio(SQLITE_MISUSE, QStringLiteral("Se admite una sola sentencia SQL por llamada"));
        return nullptr;
    }
    if (!sqlite_values::enlazar(stmt, params, error))
        return nullptr;
    return owned.soltar();
}

sqlite3_stmt *Database::ejecutar_primera(const QString &sql, const QString &target, const SqlParams &params,
                                         SqlError &error, int &rc)
{
    Sentencia st{preparar(sql, target, params, error)};
    if (!st.stmt)
        return nullptr;
    rc = avanzar(st.stmt, error);
    return rc == SQLITE_ROW || rc == SQLITE_DONE ? st.soltar() : nullptr;
}

void Database::fallo_consulta(const QString &word, const SqlError &error, const char *source)
{
    log_error(word, error, source);
    status_.marcar_ocupado(false);
}

QString Database::execQ1(const QString &sql, const QString &target, const SqlParams &params)
{
    if (sql.isEmpty())
        return {};
    SqlError error;
    int rc = SQLITE_ERROR;
    Sentencia st{ejecutar_primera(sql, target, params, error, rc)};
    if (!st.stmt) {
        fallo_consulta(QStringLiteral("ER EXECQ1 - "), error, "execQ1");
        return {};
    }
    log_tiempo();
    // A single row whose first field is NULL reads as no rows: "" either way.
    return rc == SQLITE_ROW ? sqlite_values::texto_columna(st.stmt, 0) : QString();
}

Matrix Database::execQ_matriz(const QString &sql, const QString &target, const SqlParams &params)
{
    if (sql.isEmpty())
        return {};
    SqlError error;
    int rc = SQLITE_ERROR;
    Sentencia st{ejecutar_primera(sql, target, params, error, rc)};
    std::vector<QStringList> rows;
    const int columns = st.stmt ? sqlite3_column_count(st.stmt) : 0;
    const bool first_is_null =
        rc == SQLITE_ROW && columns > 0 && sqlite3_column_type(st.stmt, 0) == SQLITE_NULL;
    for (; rc == SQLITE_ROW; rc = avanzar(st.stmt, error)) {
        QStringList row;
        row.reserve(columns);
        for (int c = 0; c < columns; ++c)
            row << sqlite_values::texto_columna(st.stmt, c);
        rows.push_back(std::move(row));
    }
    if (rc != SQLITE_DONE) {
        fallo_consulta(QStringLiteral("ER EXECQ1 - "), error, "execQ_matriz");
        return {};
    }
    log_tiempo();
    // `SELECT max(x)` on an empty table gives one row of NULL: no rows.
    if (rows.size() == 1 && first_is_null)
        return {};
    return Matrix(columns, std::move(rows));
}

std::unique_ptr<Cursor> Database::execQ(const QString &sql, const QString &target, const SqlParams &params)
{
    if (sql.isEmpty())
        return nullptr;
    SqlError error;
    int rc = SQLITE_ERROR;
    sqlite3_stmt *stmt = ejecutar_primera(sql, target, params, error, rc);
    if (!stmt) {
        fallo_consulta(QStringLiteral("ER EXECQ - "), error, "execQ");
        return nullptr;
    }
    log_tiempo();
    return std::make_unique<Cursor>(stmt, rc == SQLITE_ROW, [this](const QString &text) {
        log_.escribir_log(QStringLiteral("ER EXECQ - ") + text + QStringLiteral(" execQ"),
                          QStringLiteral("E"));
        status_.marcar_ocupado(false);
    });
}

bool Database::execNQ(const QString &sql, const QString &target, const SqlParams &params)
{
    SqlError error = SqlError::propio(SQLITE_MISUSE, QStringLiteral("La sentencia SQL está vacía"));
    int rc = SQLITE_ERROR;
    if (!sql.trimmed().isEmpty()) {
        Sentencia st{ejecutar_primera(sql, target, params, error, rc)};
        if (st.stmt) {
            log_tiempo();
            return true;
        }
    }
    op_.error(QStringLiteral("Error al acceder a la base de datos"),
              QStringLiteral(
                  "Se produjo un error al intentar ejecutar una query en la base de datos (no un Select)"));
    log_error(QStringLiteral("ER EXECNQ - "), error, "execNQ");
    return false;
}

QString Database::execQext1(const QString &sql, const QString &file, const QString &password,
                            const SqlParams &params)
{
    Q_UNUSED(password) // SQLite files carry no password.
    if (sql.isEmpty())
        return {};
    const QString path = QDir(folder_).absoluteFilePath(file);
    SqlError error;
    sqlite3 *db = nullptr;
    QString result;
    bool ok = false;
    if (sqlite3_open_v2(QUrl::fromLocalFile(path).toEncoded().append("?mode=ro").constData(), &db,
                        SQLITE_OPEN_READONLY | SQLITE_OPEN_URI, nullptr) != SQLITE_OK) {
        error = SqlError::de_conexion(db);
    } else if (!antes_de_ejecutar(sql)) {
        error =
            SqlError::propio(SQLITE_ERROR, QStringLiteral("La sentencia fue rechazada antes de ejecutarse"));
    } else {
        sqlite3_extended_result_codes(db, 1);
        const QByteArray utf8 = sql.toUtf8();
        Sentencia st{nullptr};
        if (sqlite3_prepare_v2(db, utf8.constData(), static_cast<int>(utf8.size()), &st.stmt, nullptr) !=
            SQLITE_OK) {
            error = SqlError::de_conexion(db);
        } else if (!st.stmt) {
            error = SqlError::propio(SQLITE_MISUSE, QStringLiteral("La sentencia SQL está vacía"));
        } else if (sqlite_values::enlazar(st.stmt, params, error)) {
            const int rc = avanzar(st.stmt, error);
            ok = rc == SQLITE_ROW || rc == SQLITE_DONE;
            if (rc == SQLITE_ROW)
                result = sqlite_values::texto_columna(st.stmt, 0);
        }
    }
    sqlite3_close_v2(db);
    if (!ok)
        log_error(QStringLiteral("ER EXECQEXT1 - "), error, "execQext1");
    return result;
}

// A probe runs like any statement but tells only whether it ran: a locked or
// damaged file reads as "doesn't exist", and nothing is logged.
bool Database::probar(const QString &sql, const QString &target)
{
    SqlError error;
    Sentencia st{preparar(sql, target, {}, error, false)};
    if (!st.stmt)
        return false;
    const int rc = avanzar(st.stmt, error);
    return rc == SQLITE_ROW || rc == SQLITE_DONE;
}

// `main.` keeps the probe inside the selected file: without it SQLite would
// also find the table in the attached one.
bool Database::existe_tabla(const QString &table, const QString &target)
{
    return probar(QStringLiteral("SELECT 1 FROM main.") + sqlite_values::citar_nombre(table) +
                      QStringLiteral(" WHERE 0=1"),
                  target);
}

bool Database::existe_campo(const QString &table, const QString &column)
{
    return probar(QStringLiteral("SELECT ") + sqlite_values::citar_nombre(column) +
                      QStringLiteral(" FROM main.") + sqlite_values::citar_nombre(table) +
                      QStringLiteral(" WHERE 0=1"),
                  QStringLiteral("internal"));
}

bool Database::antes_de_ejecutar(const QString &sql)
{
    Q_UNUSED(sql)
    return true;
}

bool Database::ejecutar_interno(const QString &sql, const QString &target)
{
    SqlError error;
    sqlite3 *db = abrir(es_externa(target), error);
    if (db && sqlite3_exec(db, sql.toUtf8().constData(), nullptr, nullptr, nullptr) == SQLITE_OK)
        return true;
    if (db)
        error = SqlError::de_conexion(db);
    log_error(QStringLiteral("ER EXECNQ - "), error, "Transaction");
    return false;
}

void Database::log_consulta(const QString &sql) const
{
    if (log_.detalle_alto())
        log_.escribir_log(sql, kQueryLevel);
}

void Database::log_tiempo() const
{
    if (log_.detalle_alto())
        log_.escribir_log(QStringLiteral("Tiempo de ejecución de la query: ") +
                              QString::number(reloj_.elapsed() / 1000),
                          kQueryLevel);
}

void Database::log_error(const QString &word, const SqlError &error, const char *source) const
{
    log_.escribir_log(word + error.texto() + QLatin1Char(' ') + QLatin1String(source), QStringLiteral("E"));
}

} // namespace vendrix

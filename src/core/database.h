#pragma once

#include <QElapsedTimer>
#include <QString>
#include <QStringList>
#include <QVariant>

#include <functional>
#include <memory>
#include <vector>

struct sqlite3;
struct sqlite3_stmt;

namespace vendrix {

class Log;
class Operator;
class StatusSink;
struct SqlError;

// Values bound to the `?` placeholders of a statement, in order. User values
// always travel this way; they are never pasted into the SQL text.
using SqlParams = std::vector<QVariant>;

// All rows of a query as text, indexed (column, row) like the described
// two-dimensional array. Empty when the query gave no rows or failed.
class Matrix {
public:
    Matrix() = default;
    Matrix(int columns, std::vector<QStringList> rows);

    bool vacia() const { return rows_.empty(); }
    int columnas() const { return columns_; }
    int filas() const { return static_cast<int>(rows_.size()); }
    // Out of range reads "".
    QString at(int column, int row) const;
    const QStringList &fila(int row) const { return rows_.at(static_cast<size_t>(row)); }

private:
    int columns_ = 0;
    std::vector<QStringList> rows_;
};

// An open query, moved row by row. Columns are read as text (NULL reads "").
// A cursor that reads shop tables through the price connection holds a read
// lock on the shop file: release it before writing to the shop database.
class Cursor {
public:
    // Told the error text when a later row can't be read.
    using ErrorHandler = std::function<void(const QString &error)>;

    Cursor(sqlite3_stmt *stmt, bool has_row);
    Cursor(sqlite3_stmt *stmt, bool has_row, ErrorHandler on_error);
    ~Cursor();
    Cursor(const Cursor &) = delete;
    Cursor &operator=(const Cursor &) = delete;

    bool eof() const { return !has_row_; }
    void siguiente();
    int columnas() const;
    QString nombre_columna(int column) const;
    QString texto(int column) const;
    QVariant valor(int column) const;
    bool es_nulo(int column) const;

private:
    sqlite3_stmt *stmt_;
    bool has_row_;
    ErrorHandler on_error_;
};

// Closes a connection of `Database::abrir_precios_lectura`.
struct CerrarConexion {
    void operator()(sqlite3 *db) const;
};
using ConexionPropia = std::unique_ptr<sqlite3, CerrarConexion>;

// The two database files of the application folder and the one layer every
// statement goes through.
//
// - `clientes.vdrx`, the shop database, read-write. Selected by every target
//   word except `external` (so `internal`, `clientes`, even `External`).
// - `Vendrix.vdrxdb`, the price database, read-only. Selected by exactly
//   `external`.
//
// Each file is opened on first use and kept open. The shop connection sees the
// price tables under the schema `listas`, and the price connection sees the
// shop tables under `clientes`, so one statement can join both; the
// `tabla_*_attach` names give those qualified names.
//
// Failures never throw: they are told by the result, logged with the
// described "ER ..." words and, for `execNQ`, shown to the operator.
class Database {
public:
    static constexpr const char *kShopFile = "clientes.vdrx";
    static constexpr const char *kPriceFile = "Vendrix.vdrxdb";
    static constexpr const char *kPriceSchema = "listas";
    static constexpr const char *kShopSchema = "clientes";

    Database(QString folder, Log &log, Operator &op, StatusSink &status);
    virtual ~Database();
    Database(const Database &) = delete;
    Database &operator=(const Database &) = delete;

    static bool es_externa(const QString &target) { return target == QLatin1String("external"); }

    QString execQ1(const QString &sql, const QString &target, const SqlParams &params = {});
    Matrix execQ_matriz(const QString &sql, const QString &target, const SqlParams &params = {});
    // Null on error (logged "ER EXECQ - ").
    std::unique_ptr<Cursor> execQ(const QString &sql, const QString &target, const SqlParams &params = {});
    bool execNQ(const QString &sql, const QString &target, const SqlParams &params = {});
    // A query on another database file. SQLite files have no password; the
    // argument is kept for the callers that name one.
    QString execQext1(const QString &sql, const QString &file, const QString &password = {},
                      const SqlParams &params = {});

    bool existe_tabla(const QString &table, const QString &target);
    // Always probes the shop database.
    bool existe_campo(const QString &table, const QString &column);
    // "OK" when the price database opens.
    QString verificar_driver_db();

    // The row id of the last insert on the target's connection.
    qint64 ultimo_id(const QString &target);

    QString tabla_listas_attach() const;
    QString tabla_testigo_attach() const;
    QString tabla_pedidos_attach() const;
    QString tabla_descuentos_attach() const;
    QString tabla_clientes_attach() const;

    QString ruta_clientes() const;
    QString ruta_listas() const;

    // Closes both files, for example before the price file is replaced.
    void cerrar();
    // Opens the price file writable until `cerrar`, for an import.
    bool abrir_listas_escritura();

    // The raw connection of a target (opened if needed), for the few places
    // that need SQLite itself (registering functions, bulk loads). Null when
    // the file can't be opened.
    sqlite3 *conexion(const QString &target);
    // Opens the target's file; "" when it is open, else why it can't be
    // ("number description errno").
    QString error_apertura(const QString &target);
    // Why the last statement on the target failed ("number description
    // errno"), or why its file can't be opened.
    QString ultimo_error(const QString &target);

    // A connection of the caller's own to the price file, for searches on
    // another thread: the price file read-only, with the shop file attached
    // under `clientes` read-only as well. It reads only the paths of this
    // object, so any thread may call it. Null, and why in `error`, when the
    // price file can't be opened.
    ConexionPropia abrir_precios_lectura(SqlError &error) const;

protected:
    // Called before each statement runs. A test double overrides it to make
    // the Nth statement fail; false makes the statement fail as a database
    // error would.
    virtual bool antes_de_ejecutar(const QString &sql);

private:
    friend class Transaction;

    // Opens the connection of one file with its attachment, or tells why not.
    sqlite3 *abrir(bool price, SqlError &error);
    sqlite3 *abrir_tienda(SqlError &error);
    sqlite3 *abrir_precios(SqlError &error);
    void adjuntar_listas();
    // Opens the target, logs the statement when asked, runs the hook,
    // prepares and binds. Null and the error on failure.
    sqlite3_stmt *preparar(const QString &sql, const QString &target, const SqlParams &params,
                           SqlError &error, bool log_sql = true);
    // Prepares and runs a statement to its first row: the statement, with
    // `rc` SQLITE_ROW or SQLITE_DONE, or null and the error.
    sqlite3_stmt *ejecutar_primera(const QString &sql, const QString &target, const SqlParams &params,
                                   SqlError &error, int &rc);
    // A failed query: logged with its word, and the busy state released.
    void fallo_consulta(const QString &word, const SqlError &error, const char *source);
    bool probar(const QString &sql, const QString &target);
    // A statement of the layer itself (a rollback) that no hook may stop.
    bool ejecutar_interno(const QString &sql, const QString &target);
    void log_consulta(const QString &sql) const;
    // The time since the statement was prepared, in whole seconds.
    void log_tiempo() const;
    void log_error(const QString &word, const SqlError &error, const char *source) const;

    QString folder_;
    Log &log_;
    Operator &op_;
    StatusSink &status_;
    sqlite3 *shop_ = nullptr;
    sqlite3 *price_ = nullptr;
    bool listas_attached_ = false;
    bool price_writable_ = false;
    int savepoints_ = 0;
    QElapsedTimer reloj_;
};

// A transaction on one target's connection: `commit` makes the writes stay;
// leaving the scope without a commit rolls them back. It starts with
// BEGIN IMMEDIATE; check `activa` when the start may fail (a locked or
// damaged file), as statements would then run one by one.
class Transaction {
public:
    Transaction(Database &db, const QString &target);
    ~Transaction();
    Transaction(const Transaction &) = delete;
    Transaction &operator=(const Transaction &) = delete;

    bool activa() const { return active_; }
    bool commit();

private:
    Database &db_;
    QString target_;
    // Inside another transaction on the same connection this one is a
    // savepoint of it, so transactional helpers can call each other.
    QString savepoint_;
    bool active_ = false;
};

// The text of a REAL as the rest of the program reads numbers: the shortest
// decimal that reads back the same, "." as the decimal mark and no ".0" for
// whole values (3.0 -> "3", 12.5 -> "12.5").
QString texto_de_real(double value);

} // namespace vendrix

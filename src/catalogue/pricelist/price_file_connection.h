#pragma once

#include <QByteArray>
#include <QString>

#include <memory>

struct sqlite3;
struct sqlite3_stmt;

namespace vendrix {

// A connection to a price database file that the list builder writes or
// reads by itself, outside the application folder's database layer: the
// builder makes a new file in bulk and needs prepared statements in one
// transaction, nothing else. Closes the file when it goes.
class PriceFileConnection {
public:
    enum class Mode { SoloLectura, Crear };

    // Null on failure, with the reason in `error`.
    static std::unique_ptr<PriceFileConnection> abrir(const QString &ruta, Mode modo, QString &error);
    ~PriceFileConnection();
    PriceFileConnection(const PriceFileConnection &) = delete;
    PriceFileConnection &operator=(const PriceFileConnection &) = delete;

    sqlite3 *db() const { return db_; }
    // Runs one or more statements without parameters; false on failure,
    // with the reason in `error()`.
    bool ejecutar(const char *sql);
    const QString &error() const { return error_; }
    // SQLite's own text for the last failure on this connection.
    QString ultimo_error() const;
    // Closes now; false when SQLite could not close the file cleanly.
    bool cerrar();

private:
    explicit PriceFileConnection(sqlite3 *db) : db_(db) {}
    sqlite3 *db_;
    QString error_;
};

// A prepared statement with `?` placeholders, numbered from 1.
class PriceFileStatement {
public:
    PriceFileStatement(sqlite3 *db, const char *sql);
    ~PriceFileStatement();
    PriceFileStatement(const PriceFileStatement &) = delete;
    PriceFileStatement &operator=(const PriceFileStatement &) = delete;

    bool valida() const { return stmt_ != nullptr; }
    void texto(int n, const QString &value);
    void entero(int n, qint64 value);

    // Moves to the next row; false at the end or on failure (see `fallo`).
    bool fila();
    // Runs a statement that gives no rows, then makes it ready to run again.
    bool ejecutar();
    // Makes a query ready to run again with new values, before its end.
    void reiniciar();
    bool fallo() const { return failed_; }
    QString error() const;

    int columnas() const;
    // Columns of the current row, from 0. NULL reads "".
    QString columna(int n) const;
    // Appends a column's text to `to`, without a string of its own.
    void anexar_columna(int n, QString &to) const;
    // A column's text as it was in the previous row read this way, when it
    // is the same (then `anterior` is given back without reading it again),
    // else read afresh and kept in `anterior`. Lists come in runs of one
    // supplier and group, so most rows repeat them.
    struct Repetido {
        QByteArray bytes;
        QString texto;
    };
    const QString &columna_repetida(int n, Repetido &anterior) const;
    qint64 columna_entero(int n) const;
    bool es_nulo(int n) const;

private:
    sqlite3 *db_;
    sqlite3_stmt *stmt_ = nullptr;
    bool failed_ = false;
};

} // namespace vendrix

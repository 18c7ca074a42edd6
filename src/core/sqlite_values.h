#pragma once

#include "core/database.h"

#include <sqlite3.h>

namespace vendrix {

// Why a statement or an opening failed: SQLite's error code and message and
// the operating system's errno.
struct SqlError {
    int code = 0;
    QString description;
    int system_errno = 0;

    static SqlError de_conexion(sqlite3 *db);
    static SqlError propio(int code, const QString &description);
    // "number description errno", as the error lines of the log carry it.
    QString texto() const;
};

} // namespace vendrix

// Helpers of the database layer that turn SQLite values into the program's
// text and back. Internal to the layer.
namespace vendrix::sqlite_values {

// A column of the current row as text: NULL reads "", integers in decimal,
// REALs as `texto_de_real`, text as stored.
QString texto_columna(sqlite3_stmt *stmt, int column);
// A column as a typed value (NULL is an invalid QVariant).
QVariant valor_columna(sqlite3_stmt *stmt, int column);

// Binds the parameters to the `?` placeholders in order. False, with the
// error, when the counts differ or a value can't be bound.
bool enlazar(sqlite3_stmt *stmt, const SqlParams &params, SqlError &error);

// A name as an SQL identifier, quoted so that no name can end it early.
QString citar_nombre(const QString &name);

} // namespace vendrix::sqlite_values

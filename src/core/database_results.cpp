// The results of the database layer: the matrix of texts and the cursor.
#include "core/database.h"
#include "core/sqlite_values.h"

namespace vendrix {

Matrix::Matrix(int columns, std::vector<QStringList> rows) : columns_(columns), rows_(std::move(rows))
{
}

QString Matrix::at(int column, int row) const
{
    if (row < 0 || row >= filas() || column < 0)
        return {};
    const QStringList &cells = rows_[static_cast<size_t>(row)];
    return column < cells.size() ? cells.at(column) : QString();
}

Cursor::Cursor(sqlite3_stmt *stmt, bool has_row) : Cursor(stmt, has_row, {})
{
}

Cursor::Cursor(sqlite3_stmt *stmt, bool has_row, ErrorHandler on_error)
    : stmt_(stmt), has_row_(has_row && stmt), on_error_(std::move(on_error))
{
}

Cursor::~Cursor()
{
    sqlite3_finalize(stmt_);
}

void Cursor::siguiente()
{
    if (!has_row_)
        return;
    const int rc = sqlite3_step(stmt_);
    has_row_ = rc == SQLITE_ROW;
    if (rc != SQLITE_ROW && rc != SQLITE_DONE && on_error_)
        on_error_(SqlError::de_conexion(sqlite3_db_handle(stmt_)).texto());
}

int Cursor::columnas() const
{
    return stmt_ ? sqlite3_column_count(stmt_) : 0;
}

QString Cursor::nombre_columna(int column) const
{
    if (column < 0 || column >= columnas())
        return {};
    return QString::fromUtf8(sqlite3_column_name(stmt_, column));
}

QString Cursor::texto(int column) const
{
    if (!has_row_ || column < 0 || column >= columnas())
        return {};
    return sqlite_values::texto_columna(stmt_, column);
}

QVariant Cursor::valor(int column) const
{
    if (!has_row_ || column < 0 || column >= columnas())
        return {};
    return sqlite_values::valor_columna(stmt_, column);
}

bool Cursor::es_nulo(int column) const
{
    if (!has_row_ || column < 0 || column >= columnas())
        return true;
    return sqlite3_column_type(stmt_, column) == SQLITE_NULL;
}

} // namespace vendrix

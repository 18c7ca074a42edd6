#include "core/sqlite_values.h"

#include <QDate>
#include <QDateTime>

#include <charconv>
#include <cmath>

namespace vendrix {

QString texto_de_real(double value)
{
    if (value == 0.0)
        return QStringLiteral("0"); // also -0.0
    if (!std::isfinite(value))
        return QString::number(value);
    // Whole amounts and prices read without exponent; only the extremes take
    // the "1E+20" form.
    const double magnitude = std::fabs(value);
    const bool scientific = magnitude >= 1e15 || magnitude < 1e-5;
    char buffer[64];
    const auto result = std::to_chars(buffer, buffer + sizeof buffer, value,
                                      scientific ? std::chars_format::scientific : std::chars_format::fixed);
    QString text = QString::fromLatin1(buffer, static_cast<qsizetype>(result.ptr - buffer));
    return scientific ? text.toUpper() : text;
}

SqlError SqlError::de_conexion(sqlite3 *db)
{
    if (!db)
        return propio(SQLITE_NOMEM, QString::fromUtf8(sqlite3_errstr(SQLITE_NOMEM)));
    return {sqlite3_extended_errcode(db), QString::fromUtf8(sqlite3_errmsg(db)), sqlite3_system_errno(db)};
}

SqlError SqlError::propio(int code, const QString &description)
{
    return {code, description, 0};
}

QString SqlError::texto() const
{
    return QString::number(code) + QLatin1Char(' ') + description + QLatin1Char(' ') +
           QString::number(system_errno);
}

namespace sqlite_values {

QString texto_columna(sqlite3_stmt *stmt, int column)
{
    switch (sqlite3_column_type(stmt, column)) {
    case SQLITE_NULL:
        return {};
    case SQLITE_INTEGER:
        return QString::number(sqlite3_column_int64(stmt, column));
    case SQLITE_FLOAT:
        return texto_de_real(sqlite3_column_double(stmt, column));
    default: {
        const auto *text = reinterpret_cast<const char *>(sqlite3_column_text(stmt, column));
        return QString::fromUtf8(text, sqlite3_column_bytes(stmt, column));
    }
    }
}

QVariant valor_columna(sqlite3_stmt *stmt, int column)
{
    switch (sqlite3_column_type(stmt, column)) {
    case SQLITE_NULL:
        return {};
    case SQLITE_INTEGER:
        return QVariant::fromValue<qlonglong>(sqlite3_column_int64(stmt, column));
    case SQLITE_FLOAT:
        return sqlite3_column_double(stmt, column);
    case SQLITE_BLOB: {
        const auto *bytes = static_cast<const char *>(sqlite3_column_blob(stmt, column));
        return QByteArray(bytes, sqlite3_column_bytes(stmt, column));
    }
    default:
        return texto_columna(stmt, column);
    }
}

namespace {

int enlazar_texto(sqlite3_stmt *stmt, int index, const QString &text)
{
    const QByteArray utf8 = text.toUtf8();
    return sqlite3_bind_text64(stmt, index, utf8.constData(), static_cast<sqlite3_uint64>(utf8.size()),
                               SQLITE_TRANSIENT, SQLITE_UTF8);
}

int enlazar_uno(sqlite3_stmt *stmt, int index, const QVariant &value)
{
    if (!value.isValid() || value.isNull())
        return sqlite3_bind_null(stmt, index);
    switch (value.typeId()) {
    case QMetaType::Bool:
        return sqlite3_bind_int(stmt, index, value.toBool() ? 1 : 0);
    case QMetaType::Int:
    case QMetaType::UInt:
    case QMetaType::Long:
    case QMetaType::LongLong:
    case QMetaType::Short:
    case QMetaType::UShort:
    case QMetaType::Char:
    case QMetaType::SChar:
    case QMetaType::UChar:
        return sqlite3_bind_int64(stmt, index, value.toLongLong());
    case QMetaType::ULong:
    case QMetaType::ULongLong:
        return sqlite3_bind_int64(stmt, index, static_cast<sqlite3_int64>(value.toULongLong()));
    case QMetaType::Double:
    case QMetaType::Float:
        return sqlite3_bind_double(stmt, index, value.toDouble());
    case QMetaType::QByteArray: {
        const QByteArray bytes = value.toByteArray();
        return sqlite3_bind_blob64(stmt, index, bytes.constData(), static_cast<sqlite3_uint64>(bytes.size()),
                                   SQLITE_TRANSIENT);
    }
    // Dates are stored as ISO text, which sorts and compares in order.
    case QMetaType::QDate:
        return enlazar_texto(stmt, index, value.toDate().toString(Qt::ISODate));
    case QMetaType::QDateTime:
        return enlazar_texto(stmt, index, value.toDateTime().toString(QStringLiteral("yyyy-MM-dd HH:mm:ss")));
    default:
        return enlazar_texto(stmt, index, value.toString());
    }
}

} // namespace

bool enlazar(sqlite3_stmt *stmt, const SqlParams &params, SqlError &error)
{
    const int expected = sqlite3_bind_parameter_count(stmt);
    if (expected != static_cast<int>(params.size())) {
        error =
            SqlError::propio(SQLITE_RANGE, QStringLiteral("La sentencia espera %1 parámetros y recibió %2")
                                               .arg(expected)
                                               .arg(params.size()));
        return false;
    }
    for (int i = 0; i < expected; ++i) {
        const int rc = enlazar_uno(stmt, i + 1, params[static_cast<size_t>(i)]);
        if (rc != SQLITE_OK) {
            error = SqlError::propio(rc, QString::fromUtf8(sqlite3_errstr(rc)));
            return false;
        }
    }
    return true;
}

QString citar_nombre(const QString &name)
{
    // Backquotes, doubled inside: unlike double quotes, SQLite never reads a
    // backquoted word as a string literal when no such column exists.
    QString quoted = name;
    quoted.replace(QLatin1Char('`'), QLatin1String("``"));
    return QLatin1Char('`') + quoted + QLatin1Char('`');
}

} // namespace sqlite_values
} // namespace vendrix

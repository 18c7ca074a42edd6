// Opening, attaching and closing the two database files.
#include "core/database.h"
#include "core/log.h"
#include "core/sqlite_values.h"

#include <QFile>
#include <QFileInfo>
#include <QUrl>

namespace vendrix {

namespace {

// One process and one thread use the files, so a lock held longer than this
// is another program (a copy, a backup tool) and the statement gives up.
constexpr int kBusyTimeoutMs = 3000;

// A file as a URI, so that SQLite takes the access mode from it.
QByteArray uri_de(const QString &path, bool writable)
{
    return QUrl::fromLocalFile(path).toEncoded() + (writable ? "?mode=rw" : "?mode=ro");
}

bool ejecutar(sqlite3 *db, const char *sql, SqlError &error)
{
    if (sqlite3_exec(db, sql, nullptr, nullptr, nullptr) == SQLITE_OK)
        return true;
    error = SqlError::de_conexion(db);
    return false;
}

// Durability of the shop's data: the rollback journal is deleted at each
// commit (journal_mode=DELETE), so the .vdrx file alone always holds every
// committed sale and can be copied or replaced whole, with no -wal file
// beside it. synchronous=EXTRA syncs the journal before the database is
// written, the database before the journal goes, and the folder after the
// journal is deleted: a power cut right after a commit can't bring back a
// stale journal that would undo it (FULL leaves that last sync out).
bool hacer_durable(sqlite3 *db, const char *schema, SqlError &error)
{
    const QByteArray name(schema);
    return ejecutar(db, "PRAGMA " + name + ".journal_mode=DELETE", error) &&
           ejecutar(db, "PRAGMA " + name + ".synchronous=EXTRA", error);
}

// SQLite reads a file lazily; reading its schema now tells at once a file
// that isn't a database or is damaged, before any statement of the program.
bool leer_esquema(sqlite3 *db, const char *schema, SqlError &error)
{
    return ejecutar(db, "SELECT count(*) FROM " + QByteArray(schema) + ".sqlite_master", error);
}

// A connection is used by one thread at a time (the context's by the main
// thread, a worker's by the worker): SQLite needn't lock it on every call.
sqlite3 *abrir_archivo(const QByteArray &name, SqlError &error)
{
    sqlite3 *db = nullptr;
    const int rc = sqlite3_open_v2(name.constData(), &db,
                                   SQLITE_OPEN_READWRITE | SQLITE_OPEN_URI | SQLITE_OPEN_NOMUTEX, nullptr);
    if (rc != SQLITE_OK) {
        error = SqlError::de_conexion(db);
        sqlite3_close_v2(db);
        return nullptr;
    }
    sqlite3_extended_result_codes(db, 1);
    sqlite3_busy_timeout(db, kBusyTimeoutMs);
    return db;
}

bool adjuntar(sqlite3 *db, const QByteArray &uri, const char *schema)
{
    sqlite3_stmt *stmt = nullptr;
    const QByteArray sql = "ATTACH DATABASE ? AS " + QByteArray(schema);
    if (sqlite3_prepare_v2(db, sql.constData(), -1, &stmt, nullptr) != SQLITE_OK)
        return false;
    sqlite3_bind_text(stmt, 1, uri.constData(), static_cast<int>(uri.size()), SQLITE_TRANSIENT);
    const bool ok = sqlite3_step(stmt) == SQLITE_DONE;
    sqlite3_finalize(stmt);
    return ok;
}

void desadjuntar(sqlite3 *db, const char *schema)
{
    sqlite3_exec(db, "DETACH DATABASE " + QByteArray(schema), nullptr, nullptr, nullptr);
}

} // namespace

Database::Database(QString folder, Log &log, Operator &op, StatusSink &status)
    : folder_(std::move(folder)), log_(log), op_(op), status_(status)
{
}

Database::~Database()
{
    cerrar();
}

QString Database::ruta_clientes() const
{
    return folder_ + QLatin1Char('/') + QLatin1String(kShopFile);
}

QString Database::ruta_listas() const
{
    return folder_ + QLatin1Char('/') + QLatin1String(kPriceFile);
}

// The price tables seen from the shop connection, the shop tables from the
// price connection.
QString Database::tabla_listas_attach() const
{
    return QLatin1String(kPriceSchema) + QLatin1String(".xls_listas");
}

QString Database::tabla_testigo_attach() const
{
    return QLatin1String(kShopSchema) + QLatin1String(".vendrix_articulos_testigo");
}

QString Database::tabla_pedidos_attach() const
{
    return QLatin1String(kShopSchema) + QLatin1String(".vendrix_pedidos");
}

QString Database::tabla_descuentos_attach() const
{
    return QLatin1String(kShopSchema) + QLatin1String(".vendrix_descuentos");
}

QString Database::tabla_clientes_attach() const
{
    return QLatin1String(kShopSchema) + QLatin1String(".vendrix_clientes");
}

sqlite3 *Database::abrir(bool price, SqlError &error)
{
    return price ? abrir_precios(error) : abrir_tienda(error);
}

// The shop file, read-write. It is never created here: a missing file is a
// failure, as the seed copy at start-up is what makes it.
sqlite3 *Database::abrir_tienda(SqlError &error)
{
    if (!shop_) {
        sqlite3 *db = abrir_archivo(QFile::encodeName(ruta_clientes()), error);
        if (!db)
            return nullptr;
        if (!hacer_durable(db, "main", error) || !leer_esquema(db, "main", error)) {
            sqlite3_close_v2(db);
            return nullptr;
        }
        shop_ = db;
        listas_attached_ = false;
    }
    if (!listas_attached_)
        adjuntar_listas();
    return shop_;
}

// The price file under `listas`. A missing or damaged price file leaves the
// shop connection working; the attachment is tried again on the next use.
void Database::adjuntar_listas()
{
    if (!QFileInfo::exists(ruta_listas()))
        return;
    SqlError ignored;
    listas_attached_ = adjuntar(shop_, uri_de(ruta_listas(), price_writable_), kPriceSchema) &&
                       leer_esquema(shop_, kPriceSchema, ignored);
    if (!listas_attached_)
        desadjuntar(shop_, kPriceSchema);
}

// The price file, read-only through its URI. The connection itself is opened
// read-write so that the shop file it attaches under `clientes` can be
// written through it (the suppliers of a new list are added that way);
// SQLite gives an attachment no more rights than its connection.
sqlite3 *Database::abrir_precios(SqlError &error)
{
    if (price_)
        return price_;
    if (!QFileInfo::exists(ruta_listas())) {
        error = SqlError::propio(SQLITE_CANTOPEN, QStringLiteral("No existe el archivo ") + ruta_listas());
        return nullptr;
    }
    sqlite3 *db = abrir_archivo(uri_de(ruta_listas(), price_writable_), error);
    if (!db)
        return nullptr;
    if ((price_writable_ && !hacer_durable(db, "main", error)) || !leer_esquema(db, "main", error)) {
        sqlite3_close_v2(db);
        return nullptr;
    }
    SqlError ignored;
    if (QFileInfo::exists(ruta_clientes()) && adjuntar(db, uri_de(ruta_clientes(), true), kShopSchema) &&
        !(hacer_durable(db, kShopSchema, ignored) && leer_esquema(db, kShopSchema, ignored))) {
        desadjuntar(db, kShopSchema);
    }
    price_ = db;
    return price_;
}

ConexionPropia Database::abrir_precios_lectura(SqlError &error) const
{
    if (!QFileInfo::exists(ruta_listas())) {
        error = SqlError::propio(SQLITE_CANTOPEN, QStringLiteral("No existe el archivo ") + ruta_listas());
        return nullptr;
    }
    ConexionPropia db(abrir_archivo(uri_de(ruta_listas(), false), error));
    if (!db || !leer_esquema(db.get(), "main", error))
        return nullptr;
    SqlError ignored;
    if (QFileInfo::exists(ruta_clientes()) &&
        adjuntar(db.get(), uri_de(ruta_clientes(), false), kShopSchema) &&
        !leer_esquema(db.get(), kShopSchema, ignored)) {
        desadjuntar(db.get(), kShopSchema);
    }
    return db;
}

void CerrarConexion::operator()(sqlite3 *db) const
{
    sqlite3_close_v2(db);
}

sqlite3 *Database::conexion(const QString &target)
{
    SqlError ignored;
    return abrir(es_externa(target), ignored);
}

QString Database::error_apertura(const QString &target)
{
    SqlError error;
    return abrir(es_externa(target), error) ? QString() : error.texto();
}

QString Database::ultimo_error(const QString &target)
{
    sqlite3 *db = conexion(target);
    return db ? SqlError::de_conexion(db).texto() : error_apertura(target);
}

// close_v2 lets a cursor still alive finish with its statement; the
// connection goes when the cursor does.
void Database::cerrar()
{
    sqlite3_close_v2(shop_);
    sqlite3_close_v2(price_);
    shop_ = nullptr;
    price_ = nullptr;
    listas_attached_ = false;
    price_writable_ = false;
}

bool Database::abrir_listas_escritura()
{
    cerrar();
    price_writable_ = true;
    SqlError ignored;
    if (abrir_precios(ignored))
        return true;
    price_writable_ = false;
    return false;
}

QString Database::verificar_driver_db()
{
    SqlError error;
    if (abrir_precios(error))
        return QStringLiteral("OK");
    // There is no catalogue of drivers to list: the engine is built in, so
    // the list names the SQLite library in use.
    const QString crlf = QStringLiteral("\r\n");
    log_.escribir_log(
        QStringLiteral("ER DBCONN001 - No se puede encontrar un controlador/driver para conectarse a "
                       "la base de datos.") +
            QString::number(error.code) + QLatin1Char(' ') + error.description +
            QStringLiteral(" verificar_driver_db") + crlf +
            QStringLiteral("los driver instalados de 32 bit son: ") + crlf + QStringLiteral("SQLite ") +
            QString::fromLatin1(sqlite3_libversion()) + QStringLiteral(" -- instalado"),
        QStringLiteral("E"));
    return error.texto();
}

qint64 Database::ultimo_id(const QString &target)
{
    sqlite3 *db = es_externa(target) ? price_ : shop_;
    return db ? sqlite3_last_insert_rowid(db) : 0;
}

} // namespace vendrix

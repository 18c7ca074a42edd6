#include "sales/tienda.h"

#include <sqlite3.h>

#include <chrono>
#include <random>
#include <thread>

#include <signal.h>
#include <spawn.h>
#include <sys/wait.h>

extern char **environ;

namespace vendrix {
namespace {

class RegistroMatado : public test::Tienda {};

// The first column of the first row, on a connection of its own.
QString consultar(sqlite3 *db, const char *sql)
{
    sqlite3_stmt *st = nullptr;
    QString out = QStringLiteral("error");
    if (sqlite3_prepare_v2(db, sql, -1, &st, nullptr) == SQLITE_OK && sqlite3_step(st) == SQLITE_ROW)
        out = QString::fromUtf8(reinterpret_cast<const char *>(sqlite3_column_text(st, 0)));
    sqlite3_finalize(st);
    return out;
}

TEST_F(RegistroMatado, AfterEachKillEveryDocumentIsWholeAndTheFileSound)
{
    for (const char *a : {"IF_max_efectivo=9999", "IF_max_tarjeta=9999", "IF_Modelo=Sin impresora"})
        ajuste(QString(a).section('=', 0, 0).toUtf8(), QString(a).section('=', 1));
    const QByteArray carpeta = app.carpeta().toLocal8Bit();
    const QByteArray archivo = app.ruta("clientes.vdrx").toLocal8Bit();
    char *args[] = {const_cast<char *>(VENDRIX_RECORDING_LOOP), const_cast<char *>(carpeta.constData()),
                    nullptr};
    std::mt19937 azar(15);
    for (int vez = 0; vez < 20; ++vez) {
        pid_t pid = 0;
        ASSERT_EQ(posix_spawn(&pid, args[0], nullptr, nullptr, args, environ), 0);
        std::this_thread::sleep_for(std::chrono::milliseconds(std::uniform_int_distribution(60, 400)(azar)));
        kill(pid, SIGKILL);
        waitpid(pid, nullptr, 0);

        // A fresh connection, as at the next start: an interrupted transaction rolls back.
        sqlite3 *db = nullptr;
        ASSERT_EQ(sqlite3_open_v2(archivo.constData(), &db, SQLITE_OPEN_READWRITE, nullptr), SQLITE_OK);
        EXPECT_EQ(consultar(db, "PRAGMA integrity_check"), "ok") << vez;
        EXPECT_EQ(consultar(db, "SELECT count(*) FROM vendrix_facturas f WHERE (SELECT count(*) FROM "
                                "vendrix_factura_items WHERE Factura_Id = f.ID) <> 3"),
                  "0")
            << vez;
        EXPECT_EQ(consultar(db,
                            "SELECT count(*) FROM vendrix_factura_items WHERE Factura_Id NOT IN (SELECT ID "
                            "FROM vendrix_facturas)"),
                  "0")
            << vez;
        sqlite3_close(db);
    }
    EXPECT_NE(app.db().execQ1("SELECT count(*) FROM vendrix_facturas", "cliente"), "0");
}

} // namespace
} // namespace vendrix

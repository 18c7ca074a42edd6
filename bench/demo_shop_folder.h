#pragma once

// The demo shop a benchmark measures: built once into the temporary folder
// by a child process (so that the lists it makes in memory don't count in
// the benchmark's peak memory), and reused by the next runs. A shop folder
// given in the environment is taken as it is: never deleted or rebuilt.
#include "catalogue/pricelist/build/price_file_builder.h"
#include "catalogue/pricelist/demo/demo_lists.h"
#include "catalogue/pricelist/price_file_format.h"

#include <QDir>
#include <QFile>

#include <sqlite3.h>
#include <sys/wait.h>
#include <unistd.h>

#include <functional>

namespace vendrix::bench {

// The size of the demo list the benchmarks measure: VENDRIX_BENCH_ARTICULOS,
// else the program's own demo size.
inline int articulos_demo()
{
    bool ok = false;
    const int given = qEnvironmentVariableIntValue("VENDRIX_BENCH_ARTICULOS", &ok);
    return ok && given > 0 ? given : kArticulosDemo;
}

// A folder made by an earlier run, still of the current file format.
inline bool carpeta_al_dia(const QString &folder)
{
    if (!QFile::exists(folder + QStringLiteral("/.lista_lista")))
        return false;
    sqlite3 *db = nullptr;
    int version = -1;
    if (sqlite3_open_v2((folder + QStringLiteral("/Vendrix.vdrxdb")).toUtf8().constData(), &db,
                        SQLITE_OPEN_READONLY, nullptr) == SQLITE_OK) {
        sqlite3_stmt *stmt = nullptr;
        if (sqlite3_prepare_v2(db, "PRAGMA user_version", -1, &stmt, nullptr) == SQLITE_OK &&
            sqlite3_step(stmt) == SQLITE_ROW)
            version = sqlite3_column_int(stmt, 0);
        sqlite3_finalize(stmt);
    }
    sqlite3_close(db);
    return version == kFormatoLista;
}

// The folder: `variable`'s value when set, else `nombre`_`articulos` in the
// temporary folder with a list of that many demo articles and an empty shop
// database, then `preparar` run on the folder in the child. A folder of an
// older file format is made again.
inline QString carpeta_demo(const char *variable, const QString &nombre, int articulos,
                            const std::function<void(const QString &)> &preparar = {})
{
    if (const QString given = qEnvironmentVariable(variable); !given.isEmpty())
        return given;
    const QString folder = QDir::temp().filePath(nombre + QLatin1Char('_') + QString::number(articulos));
    const QString done = folder + QStringLiteral("/.lista_lista");
    if (carpeta_al_dia(folder))
        return folder;
    const pid_t child = fork();
    if (child == 0) {
        QDir(folder).removeRecursively();
        QDir().mkpath(folder);
        const DemoLists demo = generar_listas_demo(articulos, kSemillaDemo);
        const BuildResult built = construir_lista({folder + QStringLiteral("/Vendrix.vdrxdb"),
                                                   QStringLiteral("Demo"),
                                                   QStringLiteral("1.0.0"),
                                                   QStringLiteral("2026-11-23"),
                                                   {},
                                                   {}},
                                                  demo.nuevas, &demo.anterior);
        if (!built.ok())
            _exit(1);
        sqlite3 *shop = nullptr;
        sqlite3_open((folder + QStringLiteral("/clientes.vdrx")).toUtf8().constData(), &shop);
        sqlite3_close(shop);
        if (preparar)
            preparar(folder);
        QFile marker(done);
        _exit(marker.open(QIODevice::WriteOnly) ? 0 : 1);
    }
    int status = 0;
    waitpid(child, &status, 0);
    return folder;
}

} // namespace vendrix::bench

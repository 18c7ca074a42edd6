#pragma once

// The demo shop a benchmark measures: built once into the temporary folder
// by a child process (so that the lists it makes in memory don't count in
// the benchmark's peak memory), and reused by the next runs. A shop folder
// given in the environment is taken as it is: never deleted or rebuilt.
#include "catalogue/pricelist/build/price_file_builder.h"
#include "catalogue/pricelist/demo/demo_lists.h"

#include <QDir>
#include <QFile>

#include <sqlite3.h>
#include <sys/wait.h>
#include <unistd.h>

#include <functional>

namespace vendrix::bench {

// The folder: `variable`'s value when set, else `nombre` in the temporary
// folder with a list of `articulos` demo articles and an empty shop
// database, then `preparar` run on the folder in the child.
inline QString carpeta_demo(const char *variable, const QString &nombre, int articulos,
                            const std::function<void(const QString &)> &preparar = {})
{
    if (const QString given = qEnvironmentVariable(variable); !given.isEmpty())
        return given;
    const QString folder = QDir::temp().filePath(nombre);
    const QString done = folder + QStringLiteral("/.lista_lista");
    if (QFile::exists(done))
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

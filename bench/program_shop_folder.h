#pragma once

// The shop folder a benchmark of the whole program opens. The program writes
// into its folder (the log, the settings, the shop database brought up to
// date), so it always works on a copy: of the folder given in
// VENDRIX_BENCH_CARPETA, which is never written, or else of the demo shop
// built once in the temporary folder with the program's usual search
// settings (prepositions ignored, a cap of 10 rows). The copy's shop
// database is a new installation's with the marks of the original shop: a
// demo shop holds only the tables the search reads.
#include "core/context.h"
#include "core/migrations.h"
#include "core/operator.h"
#include "core/seed_files.h"
#include "demo_shop_folder.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStringList>
#include <QTemporaryDir>

#include <cstdio>

namespace vendrix::bench {

// Prints errors and answers no to every question: a bench has nobody to ask.
class OperadorMudo final : public Operator {
public:
    void inform(const QString &, const QString &) override {}
    void warn(const QString &, const QString &) override {}
    void error(const QString &, const QString &text) override
    {
        std::fprintf(stderr, "%s\n", qPrintable(text));
    }
    bool ask(const QString &, const QString &) override { return false; }
};

// Copies the files of `desde` (not its subfolders) into `hacia`, all but
// the shop database.
inline bool copiar_carpeta(const QString &desde, const QString &hacia)
{
    const QDir from(desde);
    for (const QString &name : from.entryList(QDir::Files | QDir::Hidden)) {
        if (name != QLatin1String(kSemillaClientes.archivo) &&
            !QFile::copy(from.filePath(name), hacia + QLatin1Char('/') + name))
            return false;
    }
    return true;
}

// The seeds the program ships, from the first of `semillas` (folders) that
// has each.
inline void poner_semillas(const QString &folder, const QStringList &semillas)
{
    for (const Semilla &s : {kSemillaClientes, kSemillaFactura}) {
        for (const QString &dir : semillas) {
            const QString seed = dir + QLatin1Char('/') + QLatin1String(s.semilla);
            if (QFile::exists(seed)) {
                QFile::copy(seed, folder + QLatin1Char('/') + QLatin1String(s.semilla));
                break;
            }
        }
    }
}

// The settings file (the default one when missing) and a whole shop
// database from its seed, with the favourites, comments, marks
// and orders of the shop `origen` (which a search shows), when it has them.
inline void poner_tienda(Context &ctx, const QString &origen)
{
    asegurar_config(ctx);
    asegurar_archivo(ctx, kSemillaClientes);
    asegurar_archivo(ctx, kSemillaFactura);
    ejecutar_migraciones(ctx);
    if (!QFile::exists(origen))
        return;
    Database &db = ctx.db();
    const QString shop = QStringLiteral("internal");
    db.execNQ(QStringLiteral("ATTACH DATABASE ? AS origen"), shop, {origen});
    if (db.execQ1(QStringLiteral("SELECT count(*) FROM origen.sqlite_master WHERE name IN "
                                 "('vendrix_articulos_testigo', 'vendrix_pedidos')"),
                  shop) == QLatin1String("2")) {
        db.execNQ(
            QStringLiteral("INSERT INTO vendrix_articulos_testigo (Proveedor, Codigo, Tipo, Descripcion) "
                           "SELECT Proveedor, Codigo, Tipo, Descripcion FROM "
                           "origen.vendrix_articulos_testigo"),
            shop);
        db.execNQ(
            QStringLiteral("INSERT INTO vendrix_pedidos (Descripcion, Grupo, Estado) SELECT Descripcion, "
                           "Grupo, Estado FROM origen.vendrix_pedidos"),
            shop);
    }
    db.execNQ(QStringLiteral("DETACH DATABASE origen"), shop);
}

// A copy of the shop in `copia`, brought up to date. The demo shop made
// here takes the program's usual search settings.
inline QString carpeta_programa(const QTemporaryDir &copia, const QStringList &semillas)
{
    const QString origen = carpeta_demo(
        "VENDRIX_BENCH_CARPETA", QStringLiteral("vendrix_bench_programa"), articulos_demo(),
        [](const QString &folder) {
            OperadorMudo op;
            SilentStatus status;
            SystemClock clock;
            Context ctx(folder, op, status, clock);
            for (const char *key : {"busqueda_ignorarPreposiciones", "busqueda_cantidad_resultados"})
                ctx.escribir_parametro(QLatin1String(key), QStringLiteral("1"));
            ctx.escribir_parametro(QStringLiteral("busqueda_cantidad_resultados_combo"),
                                   QStringLiteral("10"));
        });
    const QString folder = copia.path();
    if (!copiar_carpeta(origen, folder))
        return {};
    poner_semillas(folder, semillas);
    OperadorMudo op;
    SilentStatus status;
    SystemClock clock;
    Context ctx(folder, op, status, clock);
    poner_tienda(ctx, origen + QLatin1Char('/') + QLatin1String(kSemillaClientes.archivo));
    return folder;
}

} // namespace vendrix::bench

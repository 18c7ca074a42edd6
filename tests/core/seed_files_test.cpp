#include "core/seed_files.h"

#include "support/qt_print.h"
#include "support/test_context.h"

#include "vendrix_version.h"

#include <QFile>

#include <gtest/gtest.h>

namespace vendrix::test {
namespace {

TEST(SeedFiles, MissingFilesAreCopiedFromTheirSeeds)
{
    TestApp app;
    app.copy_seed(QStringLiteral("clientes.install"), QStringLiteral("clientes.install"));
    app.write_file(QStringLiteral("Vendrix.install"), "listas");
    QFile::setPermissions(app.ruta(QStringLiteral("Vendrix.install")), QFile::ReadOwner);

    EXPECT_EQ(asegurar_archivo(app.ctx(), kSemillaListas), EstadoArchivo::copiado);
    EXPECT_EQ(asegurar_archivo(app.ctx(), kSemillaClientes), EstadoArchivo::copiado);
    EXPECT_EQ(asegurar_archivo(app.ctx(), kSemillaFactura), EstadoArchivo::faltante);

    EXPECT_EQ(app.log_messages(), QStringList({"Se copio el archivo Vendrix.install como Vendrix.vdrxdb.",
                                               "Se copio el archivo clientes.install como clientes.vdrx."}));
    EXPECT_TRUE(app.log_lines().at(0).contains(QStringLiteral("[ACT] - ")));
    EXPECT_EQ(app.read_file(QStringLiteral("Vendrix.vdrxdb")), "listas");
    // A read-only seed still gives a working copy the program can write.
    EXPECT_TRUE(QFile::permissions(app.ruta(QStringLiteral("Vendrix.vdrxdb"))) & QFile::WriteOwner);
    EXPECT_TRUE(app.db().existe_tabla(QStringLiteral("vendrix_facturas"), QStringLiteral("internal")));
    EXPECT_FALSE(QFile::exists(app.ruta(QStringLiteral("factura.html"))));
}

TEST(SeedFiles, ExistingFilesAreNeverOverwritten)
{
    TestApp app;
    app.write_file(QStringLiteral("clientes.install"), "semilla nueva");
    app.write_file(QStringLiteral("clientes.vdrx"), "datos del comercio");
    EXPECT_EQ(asegurar_archivo(app.ctx(), kSemillaClientes), EstadoArchivo::presente);
    EXPECT_EQ(app.read_file(QStringLiteral("clientes.vdrx")), "datos del comercio");
    EXPECT_TRUE(app.log_lines().isEmpty());
}

TEST(SeedFiles, MissingSettingsFileIsWrittenWithDefaults)
{
    TestApp app;
    EXPECT_EQ(asegurar_config(app.ctx()), EstadoArchivo::creado);
    EXPECT_TRUE(app.read_file(QStringLiteral("Config.vdrx")).contains("version=" VENDRIX_VERSION "\r\n"));
    EXPECT_EQ(app.log_messages(), QStringList{"Archivo INI no encontrado;; se creo uno nuevo."});

    app.write_file(QStringLiteral("Config.vdrx"), "[PARAMETROS]\r\niva=21\r\n");
    EXPECT_EQ(asegurar_config(app.ctx()), EstadoArchivo::presente);
    EXPECT_EQ(app.read_file(QStringLiteral("Config.vdrx")), "[PARAMETROS]\r\niva=21\r\n");
    EXPECT_EQ(app.log_messages().size(), 1);
}

} // namespace
} // namespace vendrix::test

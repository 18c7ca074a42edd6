#include "core/seed_files.h"

#include "support/qt_print.h"
#include "support/test_context.h"

#include "vendrix_version.h"

#include <QFile>

#include <gtest/gtest.h>

namespace vendrix::test {
namespace {

TEST(SeedFiles, MissingFilesAreCopiedFromTheirSeedsAndPresentOnesNeverOverwritten)
{
    TestApp app;
    app.write_file("Vendrix.install", "listas");
    QFile::setPermissions(app.ruta("Vendrix.install"), QFile::ReadOwner);
    app.write_file("clientes.install", "semilla nueva");
    app.write_file("clientes.vdrx", "datos del comercio");

    EXPECT_EQ(asegurar_archivo(app.ctx(), kSemillaListas), EstadoArchivo::copiado);
    EXPECT_EQ(asegurar_archivo(app.ctx(), kSemillaClientes), EstadoArchivo::presente);
    EXPECT_EQ(asegurar_archivo(app.ctx(), kSemillaFactura), EstadoArchivo::faltante);
    EXPECT_EQ(app.read_file("Vendrix.vdrxdb"), "listas");
    // A read-only seed still gives a working copy the program can write.
    EXPECT_TRUE(QFile::permissions(app.ruta("Vendrix.vdrxdb")) & QFile::WriteOwner);
    EXPECT_EQ(app.read_file("clientes.vdrx"), "datos del comercio");
    EXPECT_EQ(app.log_messages(), QStringList{"Se copio el archivo Vendrix.install como Vendrix.vdrxdb."});

    EXPECT_EQ(asegurar_config(app.ctx()), EstadoArchivo::creado);
    EXPECT_TRUE(app.read_file("Config.vdrx").contains("version=" VENDRIX_VERSION "\r\n"));
    app.write_file("Config.vdrx", "[PARAMETROS]\r\niva=21\r\n");
    EXPECT_EQ(asegurar_config(app.ctx()), EstadoArchivo::presente);
    EXPECT_EQ(app.read_file("Config.vdrx"), "[PARAMETROS]\r\niva=21\r\n");
}

} // namespace
} // namespace vendrix::test

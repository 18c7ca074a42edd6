#include "core/startup_import.h"

#include "startup_fixture.h"
#include "support/qt_print.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace vendrix::test {
namespace {

TEST(ImportMode, TheLastDotOfTheCommandLineDecides)
{
    for (const char *line : {"\"/home/cajero/Descargas/lista.final.vdrxdb\"", "/tmp/lista.vdrxdb"})
        EXPECT_TRUE(es_archivo_de_listas(line)) << line;
    for (const char *line : {"lista.vdrxdb.bak", "lista.VDRXDB", "lista.vdrxdb ", "vdrxdb", ""})
        EXPECT_FALSE(es_archivo_de_listas(line)) << line;
}

// A folder already in use, with its list of last month, and a new list in
// another folder as a double-click hands it over.
struct Importacion : ::testing::Test {
    explicit Importacion(bool failing = false) : run(failing)
    {
        run.instalar("Viejo");
        EXPECT_TRUE(run.ejecutar().continuar);
        run.app.op.clear();
        crear_archivo_de_precios(
            nueva,
            {"INSERT INTO xls_parametros VALUES ('CLIENTE', 'Ferretería Sur'), ('FECHA', '20/11/2026'), "
             "('VERSION', '2.9.9')",
             "INSERT INTO xls_proveedores VALUES ('Acme', '20/11/2026'), ('Bulonera', '20/11/2026'), "
             "('Bulonera', '19/11/2026')",
             "INSERT INTO xls_listas (Proveedor, Codigo, Descripcion, Precio) VALUES ('Acme', 'A1', "
             "'Martillo', '100')"});
        run.options.linea_de_comandos = '"' + nueva + '"';
        before = run.app.read_file("Vendrix.vdrxdb");
    }

    QString lista(const QString &sql) { return run.app.db().execQ1(sql, "external"); }
    QStringList shown() const { return run.app.op.lines(); }

    Arranque run;
    QTemporaryDir otra;
    QString nueva = QDir(otra.path()).filePath("lista.final.vdrxdb");
    QByteArray before;
};

struct FailingImport : Importacion {
    FailingImport() : Importacion(true) {}
};

const QString kPregunta =
    "ask|Importar Datos|Está intentando importar una base de datos preparada especialmente para 'Ferretería "
    "Sur' "
    "con fecha '20/11/2026'. ¿Está seguro que desea reemplazar los datos datos ya existentes?";

TEST_F(Importacion, NoEndsTheRunWithTheOldListInPlace)
{
    run.app.op.answer(false);
    EXPECT_FALSE(run.ejecutar().continuar);
    EXPECT_EQ(shown(), QStringList{kPregunta});
    EXPECT_EQ(run.app.read_file("Vendrix.vdrxdb"), before);
    EXPECT_EQ(run.splash.captions.last(), "Importando Archivo");
    EXPECT_TRUE(run.app.log_messages().contains(
        "Vendrix se abrio en modo importación. El archivo a importar es: \"" + nueva + "\"."));
}

TEST_F(Importacion, YesReplacesTheListAndBringsOwnArticlesAndSuppliers)
{
    Database &db = run.app.db();
    ASSERT_TRUE(
        db.execNQ("INSERT INTO vendrix_listas_custom (Proveedor, Codigo, Descripcion, Precio, Moneda) "
                  "VALUES ('Propio', 'P1', 'Tornillo especial', '12.5', '$'), ('Propio', 'P2', "
                  "'Arandela', '3', '$')",
                  "internal"));
    ASSERT_TRUE(db.execNQ("INSERT INTO vendrix_clientes (NOMBRE, TIPO_RECORD) VALUES ('Acme', 'Proveedor "
                          "Mercadería'), (NULL, 'Cliente')",
                          "internal"));
    db.cerrar();
    run.app.op.answer(true);

    const ResultadoArranque result = run.ejecutar();

    EXPECT_TRUE(result.continuar);
    EXPECT_EQ(result.titulo, "Vendrix - Ferretería Sur");
    EXPECT_EQ(shown(), QStringList({kPregunta, "inform|Nueva Versión del programa|Se importaron los datos "
                                               "correctamente."}));
    EXPECT_EQ(lista("SELECT group_concat(Codigo || '=' || Descripcion || '=' || Precio, ';') FROM (SELECT * "
                    "FROM xls_listas ORDER BY Codigo)"),
              "A1=Martillo=100;P1=Tornillo especial=12.5;P2=Arandela=3");
    // Acme was already a supplier of the shop; Bulonera joins once.
    EXPECT_EQ(db.execQ1("SELECT group_concat(NOMBRE || '/' || BORRABLE || '/' || TIPO_RECORD, ';') FROM "
                        "vendrix_clientes WHERE BORRABLE IS NOT NULL",
                        "internal"),
              "Bulonera/N/Proveedor Mercadería");
    // The new list is read-only again for the rest of the run.
    EXPECT_FALSE(db.execNQ("DELETE FROM xls_listas", "external"));
    EXPECT_TRUE(QFile::exists(nueva)); // the file handed over is left where it was

    const QStringList log = run.app.log_messages();
    const qsizetype at =
        log.indexOf("Se importó correctamente la lista de precios " + nueva +
                    " preparada especialmente para 'Ferretería Sur' con fecha '20/11/2026'.");
    ASSERT_GE(at, 0) << log.join('\n').toStdString();
    EXPECT_EQ(log.mid(at + 1, 3),
              QStringList({"Se importaron 2 datos de la tabla Vendrix_listas_custom..",
                           "Intento actualizar los proveedores de las listas en la tabla de clientes..",
                           "Se actualizo los proveedores de las listas en la tabla de clientes.."}));
}

TEST_F(FailingImport, OwnArticlesComeAllOrNone)
{
    ASSERT_TRUE(run.app.db().execNQ(
        "INSERT INTO vendrix_listas_custom (Proveedor, Codigo) VALUES ('Propio', 'P1'), ('Propio', 'P2')",
        "internal"));
    run.app.failing_db().fail_matching("COMMIT");
    run.app.op.answer(true);

    EXPECT_TRUE(run.ejecutar().continuar);

    run.app.failing_db().heal();
    EXPECT_EQ(lista("SELECT count(*) FROM xls_listas"), "1");
    EXPECT_TRUE(run.app.log_messages().contains("Se importaron 0 datos de la tabla Vendrix_listas_custom.."));
}

TEST_F(Importacion, AFileThatIsNotAPriceListLeavesTheOldOneAndTheRunGoesOn)
{
    QFile::remove(nueva);
    QFile bad(nueva);
    ASSERT_TRUE(bad.open(QIODevice::WriteOnly));
    bad.write("no es una lista");
    bad.close();

    EXPECT_TRUE(run.ejecutar().continuar);

    EXPECT_EQ(shown(), QStringList{"error|Error al Importar Datos|El archivo " + nueva +
                                   " no es una lista de precios de Vendrix o está dañado.\r\nSe conserva la "
                                   "lista de precios anterior."});
    EXPECT_EQ(run.app.read_file("Vendrix.vdrxdb"), before);
}

TEST_F(Importacion, AFolderThatCannotBeWrittenEndsTheRun)
{
    // A folder in the probe file's place makes the probe fail for any user.
    ASSERT_TRUE(QDir(run.app.carpeta()).mkdir("000.$000000000000000000000000000$"));

    EXPECT_FALSE(run.ejecutar().continuar);

    EXPECT_EQ(shown(),
              QStringList{"error|Error al Importar Datos|Vendrix no tiene permisos para importar la "
                          "nueva base de datos.\r\n Si usted no es un usuario administrador de su "
                          "computadora, por favor cambie el usuario o eleve los permisos e inténtelo "
                          "nuevamente.\r\n El programa se cerrará.."});
    EXPECT_EQ(run.app.read_file("Vendrix.vdrxdb"), before);
    EXPECT_TRUE(run.app.log_lines().last().endsWith(
        "[ERR] - Permisos insuficientes para improtar la base de datos."));
}

TEST_F(Importacion, AListWithoutShopNameAsksTheGeneralQuestion)
{
    ejecutar_en_archivo(nueva, {"DELETE FROM xls_parametros WHERE CLAVE = 'FECHA'"});
    run.app.op.answer(false);
    EXPECT_FALSE(run.ejecutar().continuar);
    EXPECT_EQ(shown(),
              QStringList{"ask|Importar Datos|Está intentando importar una nueva base de datos. ¿Está "
                          "seguro que desea reemplazar los datos datos ya existentes?"});
}

} // namespace
} // namespace vendrix::test

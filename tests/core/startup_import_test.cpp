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
    struct Caso {
        const char *linea;
        bool importa;
    };
    const Caso casos[] = {
        {"\"/home/cajero/Descargas/lista.final.vdrxdb\"", true},
        {"/tmp/lista.vdrxdb", true},
        {"\"lista.vdrxdb\"", true},
        {"lista.vdrxdb.bak", false},
        {"lista.VDRXDB", false},
        {"lista.vdrxdb ", false},
        {"vdrxdb", false},
        {"", false},
    };
    for (const Caso &c : casos)
        EXPECT_EQ(es_archivo_de_listas(QString::fromUtf8(c.linea)), c.importa) << c.linea;
}

// A folder already in use, with its list of last month, and a new list in
// another folder as a double-click hands it over.
struct Importacion {
    explicit Importacion(bool failing = false) : run(failing)
    {
        run.instalar(QStringLiteral("Viejo"));
        EXPECT_TRUE(run.ejecutar().continuar);
        run.app.op.clear();
        run.splash.captions.clear();
        nueva = QDir(otra.path()).filePath(QStringLiteral("lista.final.vdrxdb"));
        crear_archivo_de_precios(
            nueva, {QStringLiteral("INSERT INTO xls_parametros VALUES ('CLIENTE', 'Ferretería Sur'), "
                                   "('FECHA', '20/11/2026'), ('VERSION', '2.9.9')"),
                    QStringLiteral("INSERT INTO xls_proveedores (Proveedor, Ult_Actualizacion) VALUES "
                                   "('Acme', '20/11/2026'), ('Bulonera', '20/11/2026')"),
                    QStringLiteral("INSERT INTO xls_listas (Proveedor, Codigo, Descripcion, Precio) VALUES "
                                   "('Acme', 'A1', 'Martillo', '100')")});
        run.options.linea_de_comandos = QLatin1Char('"') + nueva + QLatin1Char('"');
    }

    QString valor_lista(const QString &sql) { return run.app.db().execQ1(sql, QStringLiteral("external")); }

    Arranque run;
    QTemporaryDir otra;
    QString nueva;
};

const QString kPregunta = QStringLiteral(
    "ask|Importar Datos|Está intentando importar una base de datos preparada especialmente para 'Ferretería "
    "Sur' "
    "con fecha '20/11/2026'. ¿Está seguro que desea reemplazar los datos datos ya existentes?");

TEST(ImportMode, NoEndsTheRunWithTheOldListInPlace)
{
    Importacion imp;
    const QByteArray before = imp.run.app.read_file(QStringLiteral("Vendrix.vdrxdb"));
    imp.run.app.op.answer(false);

    EXPECT_FALSE(imp.run.ejecutar().continuar);

    EXPECT_EQ(imp.run.app.op.lines(), QStringList{kPregunta});
    EXPECT_EQ(imp.run.app.read_file(QStringLiteral("Vendrix.vdrxdb")), before);
    EXPECT_EQ(imp.run.splash.captions.last(), QStringLiteral("Importando Archivo"));
    EXPECT_TRUE(imp.run.app.log_messages().contains(
        "Vendrix se abrio en modo importación. El archivo a importar es: \"" + imp.nueva + "\"."));
    EXPECT_FALSE(QFile::exists(imp.run.app.ruta(QStringLiteral("Vendrix.vdrxdb.importando"))));
}

TEST(ImportMode, YesReplacesTheListAndBringsOwnArticlesAndSuppliers)
{
    Importacion imp;
    Database &db = imp.run.app.db();
    const QString internal = QStringLiteral("internal");
    ASSERT_TRUE(
        db.execNQ(QStringLiteral("INSERT INTO vendrix_listas_custom (Proveedor, Codigo, Descripcion, "
                                 "Precio, Moneda) VALUES ('Propio', 'P1', 'Tornillo especial', '12.5', "
                                 "'$'), ('Propio', 'P2', 'Arandela', '3', '$')"),
                  internal));
    ASSERT_TRUE(db.execNQ(QStringLiteral("INSERT INTO vendrix_clientes (NOMBRE, TIPO_RECORD) VALUES "
                                         "('Acme', 'Proveedor Mercadería'), (NULL, 'Cliente')"),
                          internal));
    db.cerrar();
    imp.run.app.op.answer(true);

    const ResultadoArranque result = imp.run.ejecutar();

    EXPECT_TRUE(result.continuar);
    EXPECT_EQ(result.titulo, QStringLiteral("Vendrix - Ferretería Sur"));
    EXPECT_EQ(
        imp.run.app.op.lines(),
        QStringList({kPregunta, "inform|Nueva Versión del programa|Se importaron los datos correctamente."}));
    EXPECT_EQ(imp.valor_lista(QStringLiteral("SELECT VALOR FROM xls_parametros WHERE CLAVE = 'CLIENTE'")),
              QStringLiteral("Ferretería Sur"));
    EXPECT_EQ(imp.valor_lista(QStringLiteral("SELECT group_concat(Codigo || '=' || Descripcion || '=' || "
                                             "Precio, ';') FROM (SELECT * FROM xls_listas ORDER BY Codigo)")),
              QStringLiteral("A1=Martillo=100;P1=Tornillo especial=12.5;P2=Arandela=3"));
    // Acme was already a supplier of the shop; Bulonera joins once.
    EXPECT_EQ(db.execQ1(QStringLiteral("SELECT group_concat(NOMBRE || '/' || BORRABLE || '/' || TIPO_RECORD, "
                                       "';') FROM vendrix_clientes WHERE BORRABLE IS NOT NULL"),
                        internal),
              QStringLiteral("Bulonera/N/Proveedor Mercadería"));
    // The new list is read-only again for the rest of the run.
    EXPECT_FALSE(db.execNQ(QStringLiteral("DELETE FROM xls_listas"), QStringLiteral("external")));
    // The file handed over is left where it was.
    EXPECT_TRUE(QFile::exists(imp.nueva));

    const QStringList log = imp.run.app.log_messages();
    const qsizetype at =
        log.indexOf("Se importó correctamente la lista de precios " + imp.nueva +
                    " preparada especialmente para 'Ferretería Sur' con fecha '20/11/2026'.");
    ASSERT_GE(at, 0) << log.join('\n').toStdString();
    EXPECT_EQ(log.at(at + 1), QStringLiteral("Se importaron 2 datos de la tabla Vendrix_listas_custom.."));
    EXPECT_EQ(log.at(at + 2),
              QStringLiteral("Intento actualizar los proveedores de las listas en la tabla de clientes.."));
    EXPECT_EQ(log.at(at + 3),
              QStringLiteral("Se actualizo los proveedores de las listas en la tabla de clientes.."));
}

TEST(ImportMode, OwnArticlesComeAllOrNone)
{
    Importacion imp(true);
    Database &db = imp.run.app.db();
    ASSERT_TRUE(db.execNQ(QStringLiteral("INSERT INTO vendrix_listas_custom (Proveedor, Codigo) VALUES "
                                         "('Propio', 'P1'), ('Propio', 'P2')"),
                          QStringLiteral("internal")));
    imp.run.app.failing_db().fail_matching(QStringLiteral("COMMIT"));
    imp.run.app.op.answer(true);

    EXPECT_TRUE(imp.run.ejecutar().continuar);

    imp.run.app.failing_db().heal();
    EXPECT_EQ(imp.valor_lista(QStringLiteral("SELECT count(*) FROM xls_listas")), QStringLiteral("1"));
    EXPECT_TRUE(imp.run.app.log_messages().contains(
        QStringLiteral("Se importaron 0 datos de la tabla Vendrix_listas_custom..")));
}

TEST(ImportMode, AFileThatIsNotAPriceListLeavesTheOldOneAndTheRunGoesOn)
{
    Importacion imp;
    const QByteArray before = imp.run.app.read_file(QStringLiteral("Vendrix.vdrxdb"));
    QFile::remove(imp.nueva);
    QFile bad(imp.nueva);
    ASSERT_TRUE(bad.open(QIODevice::WriteOnly));
    bad.write("no es una lista");
    bad.close();

    EXPECT_TRUE(imp.run.ejecutar().continuar);

    EXPECT_EQ(imp.run.app.op.lines(),
              QStringList{"error|Error al Importar Datos|El archivo " + imp.nueva +
                          " no es una lista de precios de Vendrix o está dañado.\r\nSe conserva la lista de "
                          "precios anterior."});
    EXPECT_EQ(imp.run.app.read_file(QStringLiteral("Vendrix.vdrxdb")), before);
}

TEST(ImportMode, AFolderThatCannotBeWrittenEndsTheRun)
{
    Importacion imp;
    // A folder in the probe file's place makes the probe fail for any user.
    ASSERT_TRUE(QDir(imp.run.app.carpeta()).mkdir(QStringLiteral("000.$000000000000000000000000000$")));
    const QByteArray before = imp.run.app.read_file(QStringLiteral("Vendrix.vdrxdb"));

    EXPECT_FALSE(imp.run.ejecutar().continuar);

    EXPECT_EQ(
        imp.run.app.op.lines(),
        QStringList{"error|Error al Importar Datos|Vendrix no tiene permisos para importar la nueva base de "
                    "datos.\r\n Si usted no es un usuario administrador de su computadora, por favor cambie "
                    "el usuario o eleve los permisos e inténtelo nuevamente.\r\n El programa se cerrará.."});
    EXPECT_EQ(imp.run.app.read_file(QStringLiteral("Vendrix.vdrxdb")), before);
    EXPECT_TRUE(imp.run.app.log_lines().last().endsWith(
        QStringLiteral("[ERR] - Permisos insuficientes para improtar la base de datos.")));
}

TEST(ImportMode, AListWithoutShopNameAsksTheGeneralQuestion)
{
    Importacion imp;
    ejecutar_en_archivo(imp.nueva, {QStringLiteral("DELETE FROM xls_parametros WHERE CLAVE = 'FECHA'")});
    imp.run.app.op.answer(false);
    EXPECT_FALSE(imp.run.ejecutar().continuar);
    EXPECT_EQ(
        imp.run.app.op.lines(),
        QStringList{"ask|Importar Datos|Está intentando importar una nueva base de datos. ¿Está seguro que "
                    "desea reemplazar los datos datos ya existentes?"});
}

} // namespace
} // namespace vendrix::test

#include "catalogue/pricelist/build/build_steps.h"
#include "catalogue/pricelist/build/list_values.h"
#include "catalogue/pricelist/build/price_file_builder.h"
#include "catalogue/pricelist/price_file_connection.h"
#include "catalogue/support/list_fixture.h"
#include "core/cp1252.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace vendrix {
namespace {

using test::articulo;
using test::escribir;
using test::filas;
using test::valor;

class ListaBuilderTest : public ::testing::Test {
protected:
    QString ruta(const QString &name) const { return dir_.filePath(name); }

    BuildOptions opciones(const QString &output) const
    {
        return {ruta(output),
                QStringLiteral("Ferretería Demo"),
                QStringLiteral("1.2.3"),
                QStringLiteral("2026-11-23"),
                {},
                {}};
    }

    BuildResult reconstruir(const QString &former, const QString &output,
                                      const std::vector<SupplierList> &lists)
    {
        PriceFileContent previous;
        QString error;
        EXPECT_TRUE(leer_contenido_lista(ruta(former), previous, error)) << error.toStdString();
        return construir_lista(opciones(output), lists, &previous);
    }

    QStringList archivos() const { return QDir(dir_.path()).entryList(QDir::Files, QDir::Name); }

    QTemporaryDir dir_;
};

TEST_F(ListaBuilderTest, BuildsFromCsvFilesWhatTheProgramReads)
{
    escribir(ruta(QStringLiteral("Sanitarios_O'Higgins_2026-11-20.csv")),
             QStringLiteral("Codigo;Descripcion;Grupo;Precio;Moneda;UnidaddeMedida;Marca;Observaciones\r\n"
                            "A-1;\"Caño 1/2\"\" termofusión\";PLOMERÍA;1.234,56;1;TIRA;AquaSur;\r\n"
                            "A-2;Codo 90°;PLOMERÍA;0;1;UN;AquaSur;SIN STOCK\r\n")
                 .toUtf8());
    escribir(ruta(QStringLiteral("agro_ñuñoa_2026-11-18.csv")),
             cp1252::codificar(QStringLiteral("Codigo,Descripcion,Grupo,Precio,Moneda\n"
                                              "H1,Hormigonera 130 L,MÁQUINAS,\"1,500.75\",102\n")));
    BuildRequest request{opciones(QStringLiteral("Vendrix.vdrxdb")),
                        {ruta(QStringLiteral("Sanitarios_O'Higgins_2026-11-20.csv")),
                         ruta(QStringLiteral("agro_ñuñoa_2026-11-18.csv"))},
                        {},
                        {}};
    const BuildResult r = construir_desde_archivos(request);
    ASSERT_TRUE(r.ok()) << r.error.toStdString();
    EXPECT_EQ(r.articulos, 3);
    EXPECT_EQ(r.proveedores, 2);

    const QString db = ruta(QStringLiteral("Vendrix.vdrxdb"));
    EXPECT_EQ(filas(db,
                    "SELECT ID, Proveedor, FechaLista, Grupo, Codigo, Descripcion, Marca, UnidaddeMedida, "
                    "Precio, Moneda, Observaciones FROM xls_listas ORDER BY ID"),
              (QStringList{
                  QStringLiteral("1|agro ñuñoa|2026-11-18|MÁQUINAS|H1|Hormigonera 130 L|||1500.75|102|"),
                  QStringLiteral(
                      "2|Sanitarios O'Higgins|2026-11-20|PLOMERÍA|A-1|Caño 1/2\" termofusión|AquaSur|TIRA|"
                      "1234.56|1|"),
                  QStringLiteral(
                      "3|Sanitarios O'Higgins|2026-11-20|PLOMERÍA|A-2|Codo 90°|AquaSur|UN|0|1|SIN STOCK"),
              }));
    EXPECT_EQ(
        filas(db, "SELECT Proveedor, Ult_Actualizacion, codigo_interno FROM xls_proveedores ORDER BY 1"),
        (QStringList{QStringLiteral("agro ñuñoa|2026-11-18|"),
                     QStringLiteral("Sanitarios O'Higgins|2026-11-20|")}));
    EXPECT_EQ(filas(db, "SELECT CLAVE, VALOR FROM xls_parametros ORDER BY CLAVE"),
              (QStringList{QStringLiteral("CLIENTE|Ferretería Demo"), QStringLiteral("FECHA|2026-11-23"),
                           QStringLiteral("FORMATO|2"), QStringLiteral("TOTREG|3"),
                           QStringLiteral("VERSION|1.2.3")}));
    EXPECT_EQ(valor(db, "PRAGMA user_version"), QStringLiteral("2"));
    EXPECT_EQ(valor(db, "SELECT count(*) FROM xls_Novedades"), QStringLiteral("0"));
    EXPECT_EQ(valor(db, "SELECT count(*) FROM xls_listas_viejos"), QStringLiteral("0"));
    EXPECT_EQ(valor(db, "SELECT count(*) FROM xls_reportes"), QStringLiteral("6"));
    EXPECT_EQ(valor(db, "SELECT count(*) FROM xls_tips WHERE version = '1.2.3'"), QStringLiteral("12"));
    // The queries of the configuration tab and the search.
    EXPECT_EQ(filas(db, "SELECT Proveedor, substr(Ult_Actualizacion, 1, 10) FROM xls_Proveedores ORDER BY 1"),
              (QStringList{QStringLiteral("agro ñuñoa|2026-11-18"),
                           QStringLiteral("Sanitarios O'Higgins|2026-11-20")}));
    EXPECT_EQ(
        filas(db, "SELECT rowid, texto FROM xls_busqueda WHERE texto LIKE '%TERMOFUSIÓN%'"),
        QStringList{QStringLiteral("2|SANITARIOS O'HIGGINS PLOMERÍA  CAÑO 1/2\" TERMOFUSIÓN AQUASUR A-1 ")});
    EXPECT_EQ(filas(db, "SELECT rowid FROM xls_busqueda WHERE xls_busqueda MATCH '\"ÑUÑ\"'"),
              QStringList{QStringLiteral("1")});
    EXPECT_EQ(archivos(),
              (QStringList{QStringLiteral("Sanitarios_O'Higgins_2026-11-20.csv"),
                           QStringLiteral("Vendrix.vdrxdb"), QStringLiteral("agro_ñuñoa_2026-11-18.csv")}));
}

// Alfa changes in every way between builds, Beta's article loses its price,
// Gamma sends an empty list and Delta comes in last.
TEST_F(ListaBuilderTest, RebuildsRecordChangesOldPricesAndKeepSuppliersWithoutNewLists)
{
    const QString one = QStringLiteral("1");
    SupplierList alfa1{QStringLiteral("Alfa"),
                         QStringLiteral("2026-10-01"),
                         {},
                         QStringLiteral("P-1"),
                         {articulo(QStringLiteral("A1"), QStringLiteral("Tornillo"), QStringLiteral("10")),
                          articulo(QStringLiteral("A2"), QStringLiteral("Tuerca"), QStringLiteral("20")),
                          articulo(QStringLiteral("A3"), QStringLiteral("Arandela"), QStringLiteral("30")),
                          articulo(QStringLiteral("A4"), QStringLiteral("Clavo"), QStringLiteral("40")),
                          articulo(QString(), QStringLiteral("Sin código"), QStringLiteral("5")),
                          articulo(QStringLiteral("A6"), QStringLiteral("Par uno"), QStringLiteral("1")),
                          articulo(QStringLiteral("A6"), QStringLiteral("Par dos"), QStringLiteral("2")),
                          articulo(QStringLiteral("A7"), QStringLiteral("Se va"), QStringLiteral("70"))}};
    SupplierList beta1{QStringLiteral("Beta"),
                         QStringLiteral("2026-10-02"),
                         {},
                         QStringLiteral("P-2"),
                         {articulo(QStringLiteral("B1"), QStringLiteral("Beta uno"), QStringLiteral("15"),
                                   QStringLiteral("2"))}};
    SupplierList gamma1{QStringLiteral("Gamma"),
                          QStringLiteral("2026-10-03"),
                          {},
                          {},
                          {articulo(QStringLiteral("G1"), QStringLiteral("Gamma uno"), QStringLiteral("9"))}};
    ASSERT_TRUE(construir_lista(opciones(QStringLiteral("v1.vdrxdb")), {alfa1, beta1, gamma1}).ok());

    // The new list spells the supplier otherwise and brings no shop code.
    SupplierList alfa2{
        QStringLiteral("ALFA"),
        QStringLiteral("2026-11-01"),
        {},
        {},
        {articulo(QStringLiteral("A1"), QStringLiteral("Tornillo"), QStringLiteral("10.00")),
         articulo(QStringLiteral("A2"), QStringLiteral("Tuerca"), QStringLiteral("25")),
         articulo(QStringLiteral("A3"), QStringLiteral("Arandela plana"), QStringLiteral("30")),
         articulo(QStringLiteral("A4"), QStringLiteral("Clavo"), QStringLiteral("0")),
         articulo(QStringLiteral("A5"), QStringLiteral("Nuevo"), QStringLiteral("50")),
         articulo(QString(), QStringLiteral("Sin código"), QStringLiteral("5")),
         articulo(QStringLiteral("A6"), QStringLiteral("Par uno"), QStringLiteral("1")),
         articulo(QStringLiteral("A6"), QStringLiteral("Par dos"), QStringLiteral("3"))}};
    SupplierList beta2 = beta1;
    beta2.fecha = QStringLiteral("2026-11-02");
    beta2.articulos[0].precio = QStringLiteral("0");
    SupplierList gamma2{QStringLiteral("Gamma"), QStringLiteral("2026-11-03"), {}, {}, {}};
    const BuildResult r2 =
        reconstruir(QStringLiteral("v1.vdrxdb"), QStringLiteral("v2.vdrxdb"), {gamma2, beta2, alfa2});
    ASSERT_TRUE(r2.ok()) << r2.error.toStdString();
    EXPECT_EQ(r2.altas, 1);
    EXPECT_EQ(r2.bajas, 2);
    EXPECT_EQ(r2.cambios_precio, 4);
    EXPECT_EQ(r2.cambios_texto, 1);
    EXPECT_EQ(r2.precios_viejos, 2);

    const QString v2 = ruta(QStringLiteral("v2.vdrxdb"));
    EXPECT_EQ(
        filas(v2,
              "SELECT Proveedor, Codigo, alta, baja, cambiotexto, cambioprecio, FechaLisAnt, GrupoLisAnt, "
              "DescripLisAnt, MarcaLisAnt, MonedaLisAnt, UMLisAnt, PrecioLisAnt, ObsLisAnt, FechaLisNva, "
              "GrupoLisNva, DescripLisNva, MarcaLisNva, MonedaLisNva, UMLisNva, PrecioLisNva, ObsLisNva "
              "FROM xls_Novedades ORDER BY id"),
        (QStringList{
            QStringLiteral(
                "ALFA|A2||||x|2026-10-01|Grupo|Tuerca|Marca|1|UN|20||2026-11-01|Grupo|Tuerca|Marca|1|"
                "UN|25|"),
            QStringLiteral("ALFA|A3|||x||2026-10-01|Grupo|Arandela|Marca|1|UN|30||2026-11-01|Grupo|"
                           "Arandela plana|Marca|1|UN|30|"),
            QStringLiteral(
                "ALFA|A4||||x|2026-10-01|Grupo|Clavo|Marca|1|UN|40||2026-11-01|Grupo|Clavo|Marca|1|"
                "UN|0|"),
            QStringLiteral("ALFA|A5|x||||||||||||2026-11-01|Grupo|Nuevo|Marca|1|UN|50|"),
            QStringLiteral(
                "ALFA|A6||||x|2026-10-01|Grupo|Par dos|Marca|1|UN|2||2026-11-01|Grupo|Par dos|Marca|"
                "1|UN|3|"),
            QStringLiteral("ALFA|A7||x|||2026-10-01|Grupo|Se va|Marca|1|UN|70|||||||||"),
            QStringLiteral("Beta|B1||||x|2026-10-02|Grupo|Beta uno|Marca|2|UN|15||2026-11-02|Grupo|Beta uno|"
                           "Marca|2|UN|0|"),
            QStringLiteral("Gamma|G1||x|||2026-10-03|Grupo|Gamma uno|Marca|1|UN|9|||||||||"),
        }));
    // The news tab's filters read the marks as 'x' or not 'x', never NULL.
    EXPECT_EQ(valor(v2, "SELECT count(*) FROM xls_Novedades WHERE cambiotexto <> 'x' and cambioprecio = 'x'"),
              QStringLiteral("4"));
    EXPECT_EQ(
        filas(v2, "SELECT Proveedor, FechaLista, Codigo, Descripcion, Precio, Moneda FROM xls_listas_viejos "
                  "ORDER BY ID"),
        (QStringList{QStringLiteral("ALFA|2026-10-01|A4|Clavo|40|1"),
                     QStringLiteral("Beta|2026-10-02|B1|Beta uno|15|2")}));
    EXPECT_EQ(
        filas(v2, "SELECT Proveedor, Ult_Actualizacion, codigo_interno FROM xls_proveedores ORDER BY 1"),
        (QStringList{QStringLiteral("ALFA|2026-11-01|P-1"), QStringLiteral("Beta|2026-11-02|P-2")}));
    EXPECT_EQ(valor(v2, "SELECT VALOR FROM xls_parametros WHERE CLAVE = 'TOTREG'"), QStringLiteral("9"));

    // Third build: Alfa again unchanged, Beta sends nothing, Delta comes in.
    SupplierList delta{QStringLiteral("Delta"),
                         QStringLiteral("2026-11-20"),
                         {},
                         {},
                         {articulo(QStringLiteral("D1"), QStringLiteral("Delta uno"), QStringLiteral("7"))}};
    alfa2.fecha = QStringLiteral("2026-11-15");
    const BuildResult r3 =
        reconstruir(QStringLiteral("v2.vdrxdb"), QStringLiteral("v3.vdrxdb"), {alfa2, delta});
    ASSERT_TRUE(r3.ok()) << r3.error.toStdString();
    EXPECT_EQ(r3.proveedores_conservados, 1);
    const QString v3 = ruta(QStringLiteral("v3.vdrxdb"));
    EXPECT_EQ(filas(v3, "SELECT Proveedor, Codigo, alta, baja, cambiotexto, cambioprecio FROM xls_Novedades"),
              QStringList{QStringLiteral("Delta|D1|x|||")});
    EXPECT_EQ(
        filas(v3, "SELECT Proveedor, FechaLista, Codigo, Precio FROM xls_listas_viejos ORDER BY Proveedor"),
        (QStringList{QStringLiteral("ALFA|2026-10-01|A4|40"), QStringLiteral("Beta|2026-10-02|B1|15")}));
    EXPECT_EQ(
        filas(v3, "SELECT Proveedor, FechaLista, Codigo, Precio FROM xls_listas WHERE Proveedor <> 'ALFA'"),
        (QStringList{QStringLiteral("Beta|2026-11-02|B1|0"), QStringLiteral("Delta|2026-11-20|D1|7")}));
    EXPECT_EQ(
        filas(v3, "SELECT Proveedor, Ult_Actualizacion, codigo_interno FROM xls_proveedores ORDER BY 1"),
        (QStringList{QStringLiteral("ALFA|2026-11-15|P-1"), QStringLiteral("Beta|2026-11-02|P-2"),
                     QStringLiteral("Delta|2026-11-20|")}));
    // Reports and tips travel from one build to the next.
    EXPECT_EQ(valor(v3, "SELECT count(*) FROM xls_reportes"), valor(v2, "SELECT count(*) FROM xls_reportes"));
}

TEST_F(ListaBuilderTest, ABadLineStopsTheBuildAndLeavesTheFormerFileAsItWas)
{
    escribir(ruta(QStringLiteral("Bueno_2026-11-20.csv")), "Codigo;Descripcion;Precio\nA1;Tornillo;10\n");
    BuildRequest request{
        opciones(QStringLiteral("Vendrix.vdrxdb")), {ruta(QStringLiteral("Bueno_2026-11-20.csv"))}, {}, {}};
    ASSERT_TRUE(construir_desde_archivos(request).ok());
    QFile built(ruta(QStringLiteral("Vendrix.vdrxdb")));
    ASSERT_TRUE(built.open(QIODevice::ReadOnly));
    const QByteArray before = built.readAll();
    built.close();

    escribir(ruta(QStringLiteral("Malo_2026-11-20.csv")),
             "Codigo;Descripcion;Precio\nA1;Tornillo;10\nA2;Tuerca;diez\n");
    request.archivos << ruta(QStringLiteral("Malo_2026-11-20.csv"));
    EXPECT_EQ(construir_desde_archivos(request).error,
              QStringLiteral("Archivo 'Malo_2026-11-20.csv', línea 3: el precio 'diez' no se puede leer."));
    ASSERT_TRUE(built.open(QIODevice::ReadOnly));
    EXPECT_EQ(built.readAll(), before);

    request.opciones.salida = ruta(QStringLiteral("Nuevo.vdrxdb"));
    EXPECT_FALSE(construir_desde_archivos(request).ok());
    EXPECT_EQ(archivos(),
              (QStringList{QStringLiteral("Bueno_2026-11-20.csv"), QStringLiteral("Malo_2026-11-20.csv"),
                           QStringLiteral("Vendrix.vdrxdb")}));
}

TEST_F(ListaBuilderTest, AFailedWriteLeavesNoTemporaryFile)
{
    ASSERT_TRUE(QDir(dir_.path()).mkdir(QStringLiteral("ocupado.vdrxdb")));
    const SupplierList list{
        QStringLiteral("Alfa"),
        QStringLiteral("2026-11-01"),
        {},
        {},
        {articulo(QStringLiteral("A1"), QStringLiteral("Tornillo"), QStringLiteral("10"))}};
    const BuildResult r = construir_lista(opciones(QStringLiteral("ocupado.vdrxdb")), {list});
    EXPECT_EQ(r.error,
              QStringLiteral("No se pudo escribir la base de precios 'ocupado.vdrxdb': no se pudo renombrar "
                             "el archivo temporal"));
    EXPECT_FALSE(QFile::exists(ruta_temporal_lista(ruta(QStringLiteral("ocupado.vdrxdb")))));

    const BuildResult nowhere =
        construir_lista(opciones(QStringLiteral("no/existe/x.vdrxdb")), {list});
    EXPECT_TRUE(
        nowhere.error.startsWith(QStringLiteral("No se pudo escribir la base de precios 'x.vdrxdb': ")))
        << nowhere.error.toStdString();
}

TEST_F(ListaBuilderTest, RefusesTwoListsOfOneSupplierAndUnusableFormerFiles)
{
    const SupplierList a{
        QStringLiteral("Ferretería Sur"),
        QStringLiteral("2026-11-01"),
        {},
        {},
        {articulo(QStringLiteral("A1"), QStringLiteral("Tornillo"), QStringLiteral("10"))}};
    SupplierList b = a;
    b.proveedor = QStringLiteral("FERRETERIA SUR");
    EXPECT_EQ(
        construir_lista(opciones(QStringLiteral("x.vdrxdb")), {a, b}).error,
        QStringLiteral(
            "El proveedor 'FERRETERIA SUR' viene en dos listas ('Ferretería Sur' y 'FERRETERIA SUR')."));
    EXPECT_EQ(construir_lista(opciones(QStringLiteral("x.vdrxdb")), {}).error,
              QStringLiteral("No hay listas para construir la base de precios."));

    PriceFileContent previous;
    QString error;
    EXPECT_FALSE(leer_contenido_lista(ruta(QStringLiteral("falta.vdrxdb")), previous, error));
    EXPECT_EQ(error, QStringLiteral("La base de precios anterior 'falta.vdrxdb' no existe."));

    ASSERT_TRUE(construir_lista(opciones(QStringLiteral("futuro.vdrxdb")), {a}).ok());
    {
        QString why;
        auto db = PriceFileConnection::abrir(ruta(QStringLiteral("futuro.vdrxdb")), PriceFileConnection::Mode::Crear, why);
        ASSERT_TRUE(db && db->ejecutar("PRAGMA user_version = 7"));
    }
    EXPECT_FALSE(leer_contenido_lista(ruta(QStringLiteral("futuro.vdrxdb")), previous, error));
    EXPECT_EQ(error,
              QStringLiteral("La base de precios anterior 'futuro.vdrxdb' tiene un formato más nuevo (7) que "
                             "el que conoce este programa (2)."));
    EXPECT_FALSE(QFile::exists(ruta(QStringLiteral("x.vdrxdb"))));
}

} // namespace
} // namespace vendrix

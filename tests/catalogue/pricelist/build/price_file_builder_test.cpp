#include "catalogue/pricelist/build/build_steps.h"
#include "catalogue/support/list_fixture.h"
#include "support/price_file.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace vendrix {
namespace {

using test::articulo;
using test::escribir;
using test::filas;
using test::lista;
using test::valor;

class ListaBuilderTest : public ::testing::Test {
protected:
    QString ruta(const QString &name) const { return dir_.filePath(name); }
    BuildOptions opciones(const QString &output) const { return test::opciones_lista(ruta(output)); }

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
    escribir(ruta("Sanitarios_O'Higgins_2026-11-20.csv"),
             QStringLiteral("Codigo;Descripcion;Grupo;Precio;Marca;Observaciones\r\n"
                            "A-1;Caño termofusión;PLOMERÍA;1.234,56;AquaSur;\r\nA-2;Codo;;0;;SIN STOCK\r\n")
                 .toUtf8());
    escribir(ruta("agro_ñuñoa_2026-11-18.csv"),
             "Codigo,Descripcion,Precio,Moneda,UM\nH1,Hormigonera,1500.75,102,UN\n");
    const BuildRequest request{
        opciones("Vendrix.vdrxdb"),
        {ruta("Sanitarios_O'Higgins_2026-11-20.csv"), ruta("agro_ñuñoa_2026-11-18.csv")},
        {},
        {}};
    const BuildResult r = construir_desde_archivos(request);
    ASSERT_TRUE(r.ok()) << r.error.toStdString();
    EXPECT_EQ(std::make_pair(r.articulos, r.proveedores), std::make_pair(3, 2));

    // Suppliers go in by name regardless of case and accents.
    const QString db = ruta("Vendrix.vdrxdb");
    EXPECT_EQ(
        filas(db, "SELECT * FROM xls_listas ORDER BY ID"),
        (QStringList{"1|agro ñuñoa|2026-11-18||H1|Hormigonera||UN|1500.75|102|",
                     "2|Sanitarios O'Higgins|2026-11-20|PLOMERÍA|A-1|Caño termofusión|AquaSur||1234.56|1|",
                     "3|Sanitarios O'Higgins|2026-11-20||A-2|Codo|||0|1|SIN STOCK"}));
    EXPECT_EQ(filas(db, "SELECT * FROM xls_proveedores ORDER BY 1"),
              (QStringList{"agro ñuñoa|2026-11-18|", "Sanitarios O'Higgins|2026-11-20|"}));
    EXPECT_EQ(filas(db, "SELECT CLAVE, VALOR FROM xls_parametros ORDER BY CLAVE"),
              (QStringList{"CLIENTE|Ferretería Demo", "FECHA|2026-11-23", "FORMATO|3", "TOTREG|3",
                           "VERSION|1.0.0"}));
    EXPECT_EQ(valor(db, "PRAGMA user_version"), "3");
    // A first build has no changes nor old prices, and the sample reports and tips.
    EXPECT_EQ(filas(db,
                    "SELECT (SELECT count(*) FROM xls_Novedades), (SELECT count(*) FROM xls_listas_viejos), "
                    "(SELECT count(*) FROM xls_reportes), (SELECT count(*) FROM xls_tips WHERE version = "
                    "'1.0.0')"),
              QStringList{"0|0|6|12"});
    EXPECT_EQ(archivos(), (QStringList{"Sanitarios_O'Higgins_2026-11-20.csv", "Vendrix.vdrxdb",
                                       "agro_ñuñoa_2026-11-18.csv"}));
}

// Alfa changes in every way between builds, Beta's article loses its price,
// Gamma sends an empty list and Delta comes in last.
TEST_F(ListaBuilderTest, RebuildsRecordChangesOldPricesAndKeepSuppliersWithoutNewLists)
{
    const SupplierList alfa1 = lista("Alfa", "2026-10-01",
                                     {articulo("A1", "Tornillo", "10"), articulo("A2", "Tuerca", "20"),
                                      articulo("A3", "Arandela", "30"), articulo("A4", "Clavo", "40"),
                                      articulo("", "Sin código", "5"), articulo("A6", "Par uno", "1"),
                                      articulo("A6", "Par dos", "2"), articulo("A7", "Se va", "70")},
                                     "P-1");
    const SupplierList beta1 = lista("Beta", "2026-10-02", {articulo("B1", "Beta uno", "15", "2")}, "P-2");
    const SupplierList gamma1 = lista("Gamma", "2026-10-03", {articulo("G1", "Gamma uno", "9")});
    BuildOptions first = opciones("v1.vdrxdb");
    first.tips = {{"Un consejo", "1.0.0"}};
    ASSERT_TRUE(construir_lista(first, {alfa1, beta1, gamma1}).ok());

    // The new list spells the supplier otherwise and brings no shop code.
    SupplierList alfa2 = lista("ALFA", "2026-11-01",
                               {articulo("A1", "Tornillo", "10.00"), articulo("A2", "Tuerca", "25"),
                                articulo("A3", "Arandela plana", "30"), articulo("A4", "Clavo", "0"),
                                articulo("A5", "Nuevo", "50"), articulo("", "Sin código", "5"),
                                articulo("A6", "Par uno", "1"), articulo("A6", "Par dos", "3")});
    SupplierList beta2 = beta1;
    beta2.fecha = "2026-11-02";
    beta2.articulos[0].precio = "0";
    const SupplierList gamma2 = lista("Gamma", "2026-11-03", {});
    const BuildResult r2 = reconstruir("v1.vdrxdb", "v2.vdrxdb", {gamma2, beta2, alfa2});
    ASSERT_TRUE(r2.ok()) << r2.error.toStdString();
    EXPECT_EQ((std::vector<int>{r2.altas, r2.bajas, r2.cambios_precio, r2.cambios_texto, r2.precios_viejos}),
              (std::vector<int>{1, 2, 4, 1, 2}));

    const QString v2 = ruta("v2.vdrxdb");
    EXPECT_EQ(
        filas(v2, "SELECT * FROM xls_Novedades ORDER BY id"),
        (QStringList{
            "1|ALFA|A2||||x|2026-10-01|Grupo|Tuerca|Marca|1|UN|20||2026-11-01|Grupo|Tuerca|Marca|1|UN|25|",
            "2|ALFA|A3|||x||2026-10-01|Grupo|Arandela|Marca|1|UN|30||2026-11-01|Grupo|Arandela plana|"
            "Marca|1|UN|30|",
            "3|ALFA|A4||||x|2026-10-01|Grupo|Clavo|Marca|1|UN|40||2026-11-01|Grupo|Clavo|Marca|1|UN|0|",
            "4|ALFA|A5|x||||||||||||2026-11-01|Grupo|Nuevo|Marca|1|UN|50|",
            "5|ALFA|A6||||x|2026-10-01|Grupo|Par dos|Marca|1|UN|2||2026-11-01|Grupo|Par dos|Marca|1|UN|3|",
            "6|ALFA|A7||x|||2026-10-01|Grupo|Se va|Marca|1|UN|70|||||||||",
            "7|Beta|B1||||x|2026-10-02|Grupo|Beta uno|Marca|2|UN|15||2026-11-02|Grupo|Beta uno|Marca|2|UN|0|",
            "8|Gamma|G1||x|||2026-10-03|Grupo|Gamma uno|Marca|1|UN|9|||||||||",
        }));
    // The news tab's filters read the marks as 'x' or not 'x', never NULL.
    EXPECT_EQ(valor(v2, "SELECT count(*) FROM xls_Novedades WHERE cambiotexto <> 'x' and cambioprecio = 'x'"),
              "4");
    EXPECT_EQ(filas(v2, "SELECT Proveedor, FechaLista, Codigo, Descripcion, Precio, Moneda FROM "
                        "xls_listas_viejos ORDER BY ID"),
              (QStringList{"ALFA|2026-10-01|A4|Clavo|40|1", "Beta|2026-10-02|B1|Beta uno|15|2"}));
    EXPECT_EQ(filas(v2, "SELECT * FROM xls_proveedores ORDER BY 1"),
              (QStringList{"ALFA|2026-11-01|P-1", "Beta|2026-11-02|P-2"}));

    // Third build: Alfa again unchanged, Beta sends nothing, Delta comes in.
    alfa2.fecha = "2026-11-15";
    const BuildResult r3 = reconstruir(
        "v2.vdrxdb", "v3.vdrxdb", {alfa2, lista("Delta", "2026-11-20", {articulo("D1", "Delta uno", "7")})});
    ASSERT_TRUE(r3.ok()) << r3.error.toStdString();
    EXPECT_EQ(r3.proveedores_conservados, 1);
    const QString v3 = ruta("v3.vdrxdb");
    EXPECT_EQ(filas(v3, "SELECT Proveedor, Codigo, alta, baja, cambiotexto, cambioprecio FROM xls_Novedades"),
              QStringList{"Delta|D1|x|||"});
    EXPECT_EQ(filas(v3, "SELECT Proveedor, FechaLista, Codigo, Precio FROM xls_listas_viejos ORDER BY 1"),
              (QStringList{"ALFA|2026-10-01|A4|40", "Beta|2026-10-02|B1|15"}));
    EXPECT_EQ(
        filas(v3, "SELECT Proveedor, FechaLista, Codigo, Precio FROM xls_listas WHERE Proveedor <> 'ALFA'"),
        (QStringList{"Beta|2026-11-02|B1|0", "Delta|2026-11-20|D1|7"}));
    EXPECT_EQ(filas(v3, "SELECT * FROM xls_proveedores ORDER BY 1"),
              (QStringList{"ALFA|2026-11-15|P-1", "Beta|2026-11-02|P-2", "Delta|2026-11-20|"}));
    // Reports and tips travel from one build to the next.
    EXPECT_EQ(filas(v3, "SELECT * FROM xls_tips"), QStringList{"Un consejo|1.0.0"});
}

TEST_F(ListaBuilderTest, ABadLineStopsTheBuildAndLeavesTheFormerFileAsItWas)
{
    escribir(ruta("Bueno_2026-11-20.csv"), "Codigo;Descripcion;Precio\nA1;Tornillo;10\n");
    BuildRequest request{opciones("Vendrix.vdrxdb"), {ruta("Bueno_2026-11-20.csv")}, {}, {}};
    ASSERT_TRUE(construir_desde_archivos(request).ok());
    const QByteArray before = test::leer(ruta("Vendrix.vdrxdb"));

    escribir(ruta("Malo_2026-11-20.csv"), "Codigo;Descripcion;Precio\nA1;Tornillo;10\nA2;Tuerca;diez\n");
    request.archivos << ruta("Malo_2026-11-20.csv");
    EXPECT_EQ(construir_desde_archivos(request).error,
              "Archivo 'Malo_2026-11-20.csv', línea 3: el precio 'diez' no se puede leer.");
    EXPECT_EQ(test::leer(ruta("Vendrix.vdrxdb")), before);

    request.opciones.salida = ruta("Nuevo.vdrxdb");
    EXPECT_FALSE(construir_desde_archivos(request).ok());
    EXPECT_EQ(archivos(), (QStringList{"Bueno_2026-11-20.csv", "Malo_2026-11-20.csv", "Vendrix.vdrxdb"}));
}

// Two lists of one supplier, no lists, unusable former files, a failed write.
TEST_F(ListaBuilderTest, RefusalsAndFailedWritesLeaveNoFile)
{
    const SupplierList a = lista("Ferretería Sur", "2026-11-01", {articulo("A1", "Tornillo", "10")});
    SupplierList b = a;
    b.proveedor = "FERRETERIA SUR";
    EXPECT_EQ(construir_lista(opciones("x.vdrxdb"), {a, b}).error,
              "El proveedor 'FERRETERIA SUR' viene en dos listas ('Ferretería Sur' y 'FERRETERIA SUR').");
    EXPECT_EQ(construir_lista(opciones("x.vdrxdb"), {}).error,
              "No hay listas para construir la base de precios.");

    PriceFileContent previous;
    QString error;
    EXPECT_FALSE(leer_contenido_lista(ruta("falta.vdrxdb"), previous, error));
    EXPECT_EQ(error, "La base de precios anterior 'falta.vdrxdb' no existe.");

    ASSERT_TRUE(construir_lista(opciones("futuro.vdrxdb"), {a}).ok());
    test::ejecutar_en_archivo(ruta("futuro.vdrxdb"), {"PRAGMA user_version = 7"});
    EXPECT_FALSE(leer_contenido_lista(ruta("futuro.vdrxdb"), previous, error));
    EXPECT_EQ(error, "La base de precios anterior 'futuro.vdrxdb' tiene un formato más nuevo (7) que el que "
                     "conoce este programa (3).");
    EXPECT_FALSE(QFile::exists(ruta("x.vdrxdb")));

    ASSERT_TRUE(QDir(dir_.path()).mkdir("ocupado.vdrxdb"));
    EXPECT_EQ(construir_lista(opciones("ocupado.vdrxdb"), {a}).error,
              "No se pudo escribir la base de precios 'ocupado.vdrxdb': no se pudo renombrar el archivo "
              "temporal");
    EXPECT_FALSE(QFile::exists(ruta_temporal_lista(ruta("ocupado.vdrxdb"))));
    EXPECT_TRUE(construir_lista(opciones("no/existe/x.vdrxdb"), {a})
                    .error.startsWith("No se pudo escribir la base de precios 'x.vdrxdb': "));
}

} // namespace
} // namespace vendrix

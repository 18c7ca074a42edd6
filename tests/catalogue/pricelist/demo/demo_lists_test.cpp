#include "catalogue/pricelist/demo/demo_lists.h"
#include "catalogue/support/list_fixture.h"
#include "core/settings.h"

#include <QDir>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace vendrix {
namespace {

using test::filas;
using test::valor;

TEST(DemoLists, HoldWhatRealListsHold)
{
    QTemporaryDir dir;
    DemoLists demo = generar_listas_demo(12000, kSemillaDemo);
    // The same seed gives the same lists.
    EXPECT_TRUE(generar_listas_demo(12000, kSemillaDemo).nuevas.back().articulos ==
                demo.nuevas.back().articulos);
    EXPECT_EQ(std::make_pair(demo.nuevas.size(), demo.anterior.listas.size()), std::make_pair(9ul, 12ul));
    const QString db = dir.filePath("demo.vdrxdb");
    const BuildResult r = construir_lista(test::opciones_lista(db), demo.nuevas, &demo.anterior);
    ASSERT_TRUE(r.ok()) << r.error.toStdString();
    EXPECT_EQ((std::vector<int>{r.articulos, r.proveedores, r.proveedores_conservados}),
              (std::vector<int>{12000, 12, 3}));
    EXPECT_TRUE(r.altas > 0 && r.bajas > 0 && r.cambios_precio > 1000 && r.cambios_texto > 0);
    EXPECT_EQ(filas(db, "SELECT DISTINCT Moneda FROM xls_listas ORDER BY 0 + Moneda"),
              (QStringList{"1", "2", "101", "102"}));
    const QString names = filas(db, "SELECT Proveedor FROM xls_proveedores").join(' ');
    for (const char *mark : {"'", "Ñ", "/", "%", "í", "Á"})
        EXPECT_TRUE(names.contains(QString::fromUtf8(mark))) << mark;
    // Repeated and empty codes, long descriptions, dollar lists; the suppliers
    // without a new list show their older date.
    EXPECT_EQ(filas(db,
                    "SELECT (SELECT count(*) > 0 FROM (SELECT 1 FROM xls_listas WHERE Codigo <> '' GROUP "
                    "BY Proveedor, Codigo HAVING count(*) > 1)), (SELECT count(*) > 0 FROM xls_listas WHERE "
                    "Codigo = ''), (SELECT count(*) > 0 FROM xls_listas WHERE length(Descripcion) > 150), "
                    "(SELECT count(*) > 0 FROM xls_listas WHERE Moneda IN ('2', '102') AND Proveedor LIKE "
                    "'Ferre%'), (SELECT count(*) FROM xls_proveedores WHERE Ult_Actualizacion < "
                    "'2026-10-01')"),
              QStringList{"1|1|1|1|3"});
    // Zero prices, most of them with a former price of the same supplier and code.
    EXPECT_EQ(valor(db,
                    "SELECT count(*) > 10 AND (SELECT count(DISTINCT l.Proveedor || '/' || l.Codigo) FROM "
                    "xls_listas l JOIN xls_listas_viejos v ON v.Proveedor = l.Proveedor AND v.Codigo = "
                    "l.Codigo WHERE l.Precio = '0' AND CAST(v.Precio AS REAL) > 0) > count(*) / 3 FROM "
                    "xls_listas WHERE Precio = '0'"),
              "1");
    EXPECT_EQ(valor(db, "SELECT count(*) FROM xls_listas_viejos"), QString::number(r.precios_viejos));
}

TEST(CarpetaDemo, WritesTheSeedsTemplateAndSettingsOfAFirstRun)
{
    QTemporaryDir dir;
    const QString seed = dir.filePath("semilla.install");
    test::escribir(seed, "clientes de prueba");
    DemoOptions options{dir.filePath("app"), 500,  kSemillaDemo,          "Ferretería Demo", "1.0.0",
                        "2026-11-23",        seed, dir.filePath("listas")};
    const DemoResult made = crear_carpeta_demo(options);
    ASSERT_TRUE(made.ok()) << made.error.toStdString();

    const QDir app(options.carpeta);
    EXPECT_EQ(app.entryList(QDir::Files, QDir::Name),
              (QStringList{"Config.vdrx", "Vendrix.install", "clientes.install", "factura.install",
                           "wsaa_cae.xml"}));
    EXPECT_EQ(test::leer(app.filePath("clientes.install")), "clientes de prueba");
    EXPECT_EQ(test::leer(app.filePath("factura.install")),
              test::leer(VENDRIX_TEST_DATA "/../../data/factura.install"));
    // The invoice request as start-up writes it: the shipped one, with CR LF lines.
    EXPECT_EQ(test::leer(app.filePath("wsaa_cae.xml")).replace("\r\n", "\n").trimmed(),
              test::leer(VENDRIX_TEST_DATA "/../../data/wsaa_cae.xml").trimmed());
    // Dollar lists show real prices; the rest are the default settings.
    const Settings ajustes(app.filePath("Config.vdrx"));
    EXPECT_EQ(ajustes.leer_parametro("Valor_Dolar"), "1450");
    EXPECT_EQ(ajustes.leer_parametro("version"), "1.0.0");
    EXPECT_EQ(ajustes.leer_parametro("iva"), "21");
    // A second run keeps the shop's own settings.
    ajustes.escribir_parametro("Valor_Dolar", "1500");
    ASSERT_TRUE(crear_carpeta_demo(options).ok());
    EXPECT_EQ(ajustes.leer_parametro("Valor_Dolar"), "1500");

    const QString db = app.filePath("Vendrix.install");
    EXPECT_EQ(filas(db, "SELECT group_concat(CLAVE || '=' || VALOR, ' ') FROM (SELECT * FROM xls_parametros "
                        "ORDER BY CLAVE)"),
              QStringList{"CLIENTE=Ferretería Demo FECHA=2026-11-23 FORMATO=3 TOTREG=500 VERSION=1.0.0"});
    EXPECT_EQ(filas(db, "SELECT (SELECT count(*) FROM xls_reportes), (SELECT count(*) FROM xls_tips)"),
              QStringList{"6|12"});
    EXPECT_EQ(QDir(options.carpeta_csv).entryList(QDir::Files).size(), 9);
}

TEST(CarpetaDemo, WithoutTheShopSeedWritesNothing)
{
    QTemporaryDir dir;
    const DemoOptions options{dir.path(), 100, kSemillaDemo, {}, {}, {}, dir.filePath("falta.install"), {}};
    EXPECT_EQ(crear_carpeta_demo(options).error,
              QStringLiteral("No se encuentra la base de clientes inicial 'clientes.install' en '%1'.")
                  .arg(options.semilla_clientes));
    EXPECT_TRUE(QDir(dir.path()).entryList(QDir::Files).isEmpty());
}

} // namespace
} // namespace vendrix

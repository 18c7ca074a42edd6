#include "catalogue/pricelist/demo/demo_lists.h"
#include "catalogue/support/list_fixture.h"
#include "core/settings.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace vendrix {
namespace {

using test::escribir;
using test::filas;
using test::valor;

BuildOptions salida(const QString &path)
{
    return {path, QStringLiteral("Demo"), QStringLiteral("1.0.0"), QStringLiteral("2026-11-23"), {}, {}};
}

TEST(DemoLists, TheSameSeedGivesTheSameArticleRows)
{
    QTemporaryDir dir;
    const auto build = [&dir](const QString &name, quint64 seed) {
        DemoLists demo = generar_listas_demo(3000, seed);
        const QString path = dir.filePath(name);
        EXPECT_TRUE(construir_lista(salida(path), demo.nuevas, &demo.anterior).ok());
        return filas(path, "SELECT * FROM xls_listas ORDER BY ID");
    };
    const QStringList first = build(QStringLiteral("a.vdrxdb"), 42);
    EXPECT_EQ(first.size(), 3000);
    EXPECT_EQ(build(QStringLiteral("b.vdrxdb"), 42), first);
    EXPECT_NE(build(QStringLiteral("c.vdrxdb"), 43), first);
}

TEST(DemoLists, HoldWhatRealListsHold)
{
    QTemporaryDir dir;
    DemoLists demo = generar_listas_demo(12000, kSemillaDemo);
    EXPECT_EQ(demo.nuevas.size(), 9u);
    EXPECT_EQ(demo.anterior.listas.size(), 12u);
    const QString db = dir.filePath(QStringLiteral("demo.vdrxdb"));
    const BuildResult r = construir_lista(salida(db), demo.nuevas, &demo.anterior);
    ASSERT_TRUE(r.ok()) << r.error.toStdString();
    EXPECT_EQ(r.articulos, 12000);
    EXPECT_EQ(r.proveedores, 12);
    EXPECT_EQ(r.proveedores_conservados, 3);
    EXPECT_GT(r.altas, 0);
    EXPECT_GT(r.bajas, 0);
    EXPECT_GT(r.cambios_precio, 1000);
    EXPECT_GT(r.cambios_texto, 0);

    EXPECT_EQ(valor(db, "SELECT VALOR FROM xls_parametros WHERE CLAVE = 'TOTREG'"), QStringLiteral("12000"));
    EXPECT_EQ(filas(db, "SELECT DISTINCT Moneda FROM xls_listas ORDER BY 0 + Moneda"),
              (QStringList{QStringLiteral("1"), QStringLiteral("2"), QStringLiteral("101"),
                           QStringLiteral("102")}));
    const QString names = filas(db, "SELECT Proveedor FROM xls_proveedores").join(QLatin1Char(' '));
    for (const char *mark : {"'", "Ñ", "/", "%", "í", "Á"})
        EXPECT_TRUE(names.contains(QString::fromUtf8(mark))) << mark;
    EXPECT_NE(valor(db, "SELECT count(*) FROM (SELECT Proveedor, Codigo FROM xls_listas WHERE Codigo <> '' "
                        "GROUP BY Proveedor, Codigo HAVING count(*) > 1)"),
              QStringLiteral("0"));
    EXPECT_NE(valor(db, "SELECT count(*) FROM xls_listas WHERE Codigo = ''"), QStringLiteral("0"));
    EXPECT_NE(valor(db, "SELECT count(*) FROM xls_listas WHERE length(Descripcion) > 150"),
              QStringLiteral("0"));
    EXPECT_NE(
        valor(db, "SELECT count(*) FROM xls_listas WHERE Moneda IN ('2', '102') AND Proveedor LIKE 'Ferre%'"),
        QStringLiteral("0"));
    // Zero prices, most of them with a former price of the same supplier and code.
    const int zero = valor(db, "SELECT count(*) FROM xls_listas WHERE Precio = '0'").toInt();
    const int with_old =
        valor(db, "SELECT count(DISTINCT l.Proveedor || '/' || l.Codigo) FROM xls_listas l JOIN "
                  "xls_listas_viejos v ON v.Proveedor = l.Proveedor AND v.Codigo = l.Codigo "
                  "WHERE l.Precio = '0' AND CAST(v.Precio AS REAL) > 0")
            .toInt();
    EXPECT_GT(zero, 10);
    EXPECT_GT(with_old, zero / 3);
    EXPECT_EQ(valor(db, "SELECT count(*) FROM xls_listas_viejos"), QString::number(r.precios_viejos));
    // The suppliers without a new list show their older date.
    EXPECT_EQ(valor(db, "SELECT count(*) FROM xls_proveedores WHERE Ult_Actualizacion < '2026-10-01'"),
              QStringLiteral("3"));
}

TEST(CarpetaDemo, WritesTheSeedsTemplateAndSettingsOfAFirstRun)
{
    QTemporaryDir dir;
    const QString seed = dir.filePath(QStringLiteral("semilla.install"));
    escribir(seed, "clientes de prueba");
    DemoOptions options;
    options.carpeta = dir.filePath(QStringLiteral("app"));
    options.articulos = 500;
    options.cliente = QStringLiteral("Ferretería Demo");
    options.version = QStringLiteral("1.0.0");
    options.fecha = QStringLiteral("2026-11-23");
    options.semilla_clientes = seed;
    options.carpeta_csv = dir.filePath(QStringLiteral("listas"));
    const DemoResult made = crear_carpeta_demo(options);
    ASSERT_TRUE(made.ok()) << made.error.toStdString();

    const QDir app(options.carpeta);
    EXPECT_EQ(app.entryList(QDir::Files, QDir::Name),
              (QStringList{QStringLiteral("Config.vdrx"), QStringLiteral("Vendrix.install"),
                           QStringLiteral("clientes.install"), QStringLiteral("factura.install"),
                           QStringLiteral("wsaa_cae.xml")}));
    // Dollar lists show real prices; the rest are the default settings.
    const Settings ajustes(app.filePath(QStringLiteral("Config.vdrx")));
    EXPECT_EQ(ajustes.leer_parametro(QStringLiteral("Valor_Dolar")), QStringLiteral("1450"));
    EXPECT_EQ(ajustes.leer_parametro(QStringLiteral("version")), QStringLiteral("1.0.0"));
    EXPECT_EQ(ajustes.leer_parametro(QStringLiteral("iva")), QStringLiteral("21"));
    QFile request(app.filePath(QStringLiteral("wsaa_cae.xml")));
    ASSERT_TRUE(request.open(QIODevice::ReadOnly));
    EXPECT_TRUE(request.readAll().contains("<FECAESolicitar>"));
    // A second run keeps the shop's own settings.
    ajustes.escribir_parametro(QStringLiteral("Valor_Dolar"), QStringLiteral("1500"));
    ASSERT_TRUE(crear_carpeta_demo(options).ok());
    EXPECT_EQ(ajustes.leer_parametro(QStringLiteral("Valor_Dolar")), QStringLiteral("1500"));
    QFile copied(app.filePath(QStringLiteral("clientes.install")));
    ASSERT_TRUE(copied.open(QIODevice::ReadOnly));
    EXPECT_EQ(copied.readAll(), QByteArray("clientes de prueba"));
    QFile invoice(app.filePath(QStringLiteral("factura.install")));
    ASSERT_TRUE(invoice.open(QIODevice::ReadOnly));
    const QByteArray html = invoice.readAll();
    for (const char *mark :
         {"%TABLA_ARTICULOS%", "%SUBTOTAL_DISCRIMINANDO_IVA%", "Total: $ %VTA_TOTAL%",
          "Recibi(mos) la suma de:", "<!-- CAE -->", "%JSON_ENCODED%", "%COMP_T_IVA COMP_IVA%"})
        EXPECT_TRUE(html.contains(mark)) << mark;

    const QString db = app.filePath(QStringLiteral("Vendrix.install"));
    EXPECT_EQ(filas(db, "SELECT CLAVE, VALOR FROM xls_parametros ORDER BY CLAVE"),
              (QStringList{QStringLiteral("CLIENTE|Ferretería Demo"), QStringLiteral("FECHA|2026-11-23"),
                           QStringLiteral("FORMATO|2"), QStringLiteral("TOTREG|500"),
                           QStringLiteral("VERSION|1.0.0")}));
    EXPECT_EQ(valor(db, "SELECT count(*) FROM xls_reportes"), QStringLiteral("6"));
    EXPECT_EQ(valor(db, "SELECT count(*) FROM xls_tips"), QStringLiteral("12"));
    EXPECT_EQ(QDir(options.carpeta_csv).entryList(QDir::Files).size(), 9);
}

TEST(CarpetaDemo, WithoutTheShopSeedWritesNothing)
{
    QTemporaryDir dir;
    DemoOptions options;
    options.carpeta = dir.path();
    options.articulos = 100;
    options.semilla_clientes = dir.filePath(QStringLiteral("falta.install"));
    EXPECT_EQ(crear_carpeta_demo(options).error,
              QStringLiteral("No se encuentra la base de clientes inicial 'clientes.install' en '%1'.")
                  .arg(options.semilla_clientes));
    EXPECT_TRUE(QDir(dir.path()).entryList(QDir::Files).isEmpty());
}

} // namespace
} // namespace vendrix

// The sample reports run against the shop's tables as the reports tab runs
// them: placeholders replaced, table query and chart query on the database
// the row names.
#include "catalogue/lista_builder.h"
#include "catalogue/lista_extras.h"
#include "catalogue/lista_sqlite.h"
#include "lista_test_util.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <map>

namespace vendrix {
namespace {

using test::articulo;
using test::filas;

constexpr const char *kTienda = R"sql(
CREATE TABLE vendrix_facturas (ID INTEGER PRIMARY KEY AUTOINCREMENT, nro_ticket TEXT, fecha TEXT, letra TEXT,
    Puntoventa TEXT, tipo TEXT, cliente TEXT, codigo TEXT, cuit TEXT, razon_social TEXT, Domicilio TEXT,
    Provincia TEXT, Total_facturado REAL, Descuentos REAL, Iva REAL, Total REAL, Descuento_habitual REAL,
    total_neto REAL, Total_iva REAL, forma_de_pago TEXT, carro TEXT, maquina TEXT, insert_timestamp TEXT,
    nro_referencia TEXT);
CREATE TABLE vendrix_factura_items (Factura_Id INTEGER, Offset INTEGER, Proveedor TEXT, Codigo TEXT,
    Descripcion TEXT, Costo_siva REAL, venta_siva REAL, cantidad REAL, iva REAL, Precio_final REAL,
    descripcion_nueva TEXT, ganancia REAL, descuento REAL);
INSERT INTO vendrix_facturas (ID, tipo, letra, razon_social, Total, forma_de_pago, insert_timestamp, nro_referencia)
VALUES (1, 'Factura', 'B', 'Juan Pérez', '100.5', 'Efectivo', '202610151030', '261015-103000'),
       (2, 'Factura', 'A', 'O''Brien SA', 300, 'Tarjeta de Crédito', '202611021200', '261102-120000'),
       (3, 'Nota de Crédito', 'B', 'Juan Pérez', -50.25, 'Efectivo', '202611051500', '261105-150000'),
       (4, 'Carrito', 'B', 'Juan Pérez', 999, 'Efectivo', '202611061600', '261106-160000'),
       (5, 'Factura', 'B', 'Juan Pérez', 70, 'Efectivo', '202609301200', '260930-120000');
INSERT INTO vendrix_factura_items (Factura_Id, Offset, Proveedor, Codigo, Descripcion, cantidad, Precio_final)
VALUES (1, 1, 'Alfa', 'A1', 'Tornillo', 2, '25.25'),
       (2, 1, 'Alfa', 'A1', 'Tornillo', 4, 25.25),
       (2, 2, 'Beta', 'B1', 'Beta uno', 1, 199),
       (3, 1, 'Alfa', 'A1', 'Tornillo', 2, -25.125),
       (4, 1, 'Alfa', 'A1', 'Tornillo', 50, 25.25),
       (5, 1, 'Alfa', 'A1', 'Tornillo', 3, 25.25);
)sql";

struct Esperado {
    QString cliente; // what the combo holds
    QStringList tabla;
    QStringList grafico;
};

QString sustituir(QString sql, const QString &cliente)
{
    sql.replace(QLatin1String("#FECHA_INICIO#"), QLatin1String("01/10/2026"));
    sql.replace(QLatin1String("#FECHA_FIN#"), QLatin1String("30/11/2026"));
    return sql.replace(QLatin1String("#CLIENTE#"),
                       cliente.toUpper() == QLatin1String("TODOS") ? QString() : cliente);
}

TEST(ReportesPredeterminados, RunOnTheShopTablesAndGiveTheirFigures)
{
    QTemporaryDir dir;
    const QString shop = dir.filePath(QStringLiteral("clientes.vdrx"));
    const QString prices = dir.filePath(QStringLiteral("Vendrix.vdrxdb"));
    {
        QString error;
        auto db = BaseSqlite::abrir(shop, BaseSqlite::Modo::Crear, error);
        ASSERT_TRUE(db && db->ejecutar(kTienda)) << (db ? db->error() : error).toStdString();
    }
    const ListaProveedor list{
        QStringLiteral("Alfa"),
        QStringLiteral("2026-11-01"),
        {},
        {},
        {articulo(QStringLiteral("A1"), QStringLiteral("Tornillo"), QStringLiteral("25.25")),
         articulo(QStringLiteral("A2"), QStringLiteral("Tuerca"), QStringLiteral("0"),
                  QStringLiteral("102"))}};
    ASSERT_TRUE(construir_lista(
                    {prices, {}, {}, QStringLiteral("2026-11-23"), reportes_predeterminados(), {}}, {list})
                    .ok());

    const std::map<QString, Esperado> expected{
        {QStringLiteral("Ventas por mes"),
         {{}, {"2026-10|1|100.5", "2026-11|2|249.75"}, {"100.5|2026-10", "249.75|2026-11"}}},
        {QStringLiteral("Ventas por forma de pago"),
         {{},
          {"Tarjeta de Crédito|1|300.0", "Efectivo|2|50.25"},
          {"300.0|Tarjeta de Crédito", "50.25|Efectivo"}}},
        {QStringLiteral("Artículos más vendidos"),
         {{},
          {"Alfa|A1|Tornillo|6.0|151.5", "Beta|B1|Beta uno|1.0|199.0"},
          {"6.0|Tornillo", "1.0|Beta uno"}}},
        {QStringLiteral("Compras de un cliente"),
         {QStringLiteral("Juan Pérez"),
          {"15/10/2026|Factura|B|261015-103000|Efectivo|100.5",
           "05/11/2026|Nota de Crédito|B|261105-150000|Efectivo|-50.25"},
          {"50.25|Efectivo"}}},
        {QStringLiteral("Ventas de un proveedor"),
         {QStringLiteral("Alfa"), {"A1|Tornillo|6.0|151.5"}, {"151.5|Tornillo"}}},
        {QStringLiteral("Listas de precios por proveedor"), {{}, {"Alfa|2026-11-01|2|1|1"}, {"2|Alfa"}}},
    };
    // Queries hold "||", so each column is read on its own.
    const auto column = [&prices](const QString &name, const char *field) {
        const QByteArray sql = QStringLiteral("SELECT %1 FROM xls_reportes WHERE report_nombre = '%2'")
                                   .arg(QLatin1String(field), name)
                                   .toUtf8();
        return filas(prices, sql.constData()).value(0);
    };
    const QStringList names = filas(prices, "SELECT report_nombre FROM xls_reportes");
    ASSERT_EQ(names.size(), static_cast<qsizetype>(expected.size()));
    for (const QString &name : names) {
        const auto found = expected.find(name);
        ASSERT_NE(found, expected.end()) << name.toStdString();
        const QString &target = column(name, "report_db") == QLatin1String("external") ? prices : shop;
        const QByteArray table =
            sustituir(column(name, "report_tabla_query"), found->second.cliente).toUtf8();
        const QByteArray chart =
            sustituir(column(name, "report_query_grafico"), found->second.cliente).toUtf8();
        EXPECT_EQ(filas(target, table.constData()), found->second.tabla) << name.toStdString();
        EXPECT_EQ(filas(target, chart.constData()), found->second.grafico) << name.toStdString();
        EXPECT_FALSE(column(name, "report_totales").isEmpty());
    }

    // "Todos" in the customers' combo removes the placeholder: every customer.
    const QString query = column(QStringLiteral("Compras de un cliente"), "report_tabla_query");
    EXPECT_EQ(filas(shop, sustituir(query, QStringLiteral("Todos")).toUtf8().constData()).size(), 3);
}

} // namespace
} // namespace vendrix

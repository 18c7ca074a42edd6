// The sample reports run as the reports tab runs them: placeholders
// replaced, table and chart queries through the database layer on the
// database the row names, over a shop database made from the built seed.
#include "catalogue/pricelist/build/extra_rows.h"
#include "catalogue/support/list_fixture.h"
#include "core/migrations.h"
#include "support/test_context.h"

#include <gtest/gtest.h>

#include <map>

namespace vendrix {
namespace {

QString sustituir(QString sql, const QString &cliente)
{
    sql.replace("#FECHA_INICIO#", "01/10/2026").replace("#FECHA_FIN#", "30/11/2026");
    return sql.replace("#CLIENTE#", cliente.toUpper() == "TODOS" ? QString() : cliente);
}

QStringList filas(const Matrix &m)
{
    QStringList rows;
    for (int r = 0; r < m.filas(); ++r)
        rows << m.fila(r).join('|');
    return rows;
}

TEST(ReportesPredeterminados, RunOnTheShopTablesAndGiveTheirFigures)
{
    test::TestApp app;
    app.copy_seed("clientes.install", "clientes.vdrx");
    ejecutar_migraciones(app.ctx());
    BuildOptions options = test::opciones_lista(app.ruta("Vendrix.vdrxdb"));
    options.reportes = reportes_predeterminados();
    ASSERT_TRUE(construir_lista(options, {test::lista("Alfa", "2026-11-01",
                                                      {test::articulo("A1", "Tornillo", "25.25"),
                                                       test::articulo("A2", "Tuerca", "0", "102")})})
                    .ok());
    // Sales in range, a stored cart, and one sale before the range; amounts as text and as numbers.
    ASSERT_TRUE(app.db().execNQ(
        "INSERT INTO vendrix_facturas (ID, tipo, letra, razon_social, Total, forma_de_pago, "
        "insert_timestamp, "
        "nro_referencia) VALUES (1, 'Factura', 'B', 'Juan Pérez', '100.5', 'Efectivo', '202610151030', "
        "'261015-103000'), (2, 'Factura', 'A', 'O''Brien SA', 300, 'Tarjeta de Crédito', '202611021200', "
        "'261102-120000'), (3, 'Nota de Crédito', 'B', 'Juan Pérez', -50.25, 'Efectivo', '202611051500', "
        "'261105-150000'), (4, 'Carrito', 'B', 'Juan Pérez', 999, 'Efectivo', '202611061600', "
        "'261106-160000'), "
        "(5, 'Factura', 'B', 'Juan Pérez', 70, 'Efectivo', '202609301200', '260930-120000')",
        "internal"));
    ASSERT_TRUE(app.db().execNQ(
        "INSERT INTO vendrix_factura_items (Factura_Id, Offset, Proveedor, Codigo, Descripcion, cantidad, "
        "Precio_final) VALUES (1, 1, 'Alfa', 'A1', 'Tornillo', 2, '25.25'), (2, 1, 'Alfa', 'A1', 'Tornillo', "
        "4, "
        "25.25), (2, 2, 'Beta', 'B1', 'Beta uno', 1, 199), (3, 1, 'Alfa', 'A1', 'Tornillo', 2, -25.125), "
        "(4, 1, 'Alfa', 'A1', 'Tornillo', 50, 25.25), (5, 1, 'Alfa', 'A1', 'Tornillo', 3, 25.25)",
        "internal"));

    // Per report: what its filter combo holds, the table's rows, the chart's.
    const std::map<QString, std::tuple<QString, QStringList, QStringList>> expected{
        {"Ventas por mes",
         {{}, {"2026-10|1|100.5", "2026-11|2|249.75"}, {"100.5|2026-10", "249.75|2026-11"}}},
        {"Ventas por forma de pago",
         {{},
          {"Tarjeta de Crédito|1|300", "Efectivo|2|50.25"},
          {"300|Tarjeta de Crédito", "50.25|Efectivo"}}},
        {"Artículos más vendidos",
         {{}, {"Alfa|A1|Tornillo|6|151.5", "Beta|B1|Beta uno|1|199"}, {"6|Tornillo", "1|Beta uno"}}},
        {"Compras de un cliente",
         {"Juan Pérez",
          {"15/10/2026|Factura|B|261015-103000|Efectivo|100.5",
           "05/11/2026|Nota de Crédito|B|261105-150000|Efectivo|-50.25"},
          {"50.25|Efectivo"}}},
        {"Ventas de un proveedor", {"Alfa", {"A1|Tornillo|6|151.5"}, {"151.5|Tornillo"}}},
        {"Listas de precios por proveedor", {{}, {"Alfa|2026-11-01|2|1|1"}, {"2|Alfa"}}},
    };
    const auto columna = [&app](const QString &name, const char *field) {
        return app.db().execQ1(
            QStringLiteral("SELECT %1 FROM xls_reportes WHERE report_nombre = ?").arg(field), "external",
            {name});
    };
    const Matrix names = app.db().execQ_matriz("SELECT report_nombre FROM xls_reportes", "external");
    ASSERT_EQ(names.filas(), static_cast<int>(expected.size()));
    for (int r = 0; r < names.filas(); ++r) {
        const QString name = names.at(0, r);
        ASSERT_TRUE(expected.count(name)) << name.toStdString();
        const auto &[cliente, tabla, grafico] = expected.at(name);
        const QString target = columna(name, "report_db");
        const auto correr = [&](const char *field) {
            return filas(app.db().execQ_matriz(sustituir(columna(name, field), cliente), target));
        };
        EXPECT_EQ(correr("report_tabla_query"), tabla) << name.toStdString();
        EXPECT_EQ(correr("report_query_grafico"), grafico) << name.toStdString();
        EXPECT_FALSE(columna(name, "report_totales").isEmpty());
    }
    // "Todos" in the customer combo lists every customer.
    const QString todos = sustituir(columna("Compras de un cliente", "report_tabla_query"), "Todos");
    EXPECT_EQ(app.db().execQ_matriz(todos, "internal").filas(), 3);
    EXPECT_TRUE(app.op.empty()) << app.op.lines().join('\n').toStdString();
}

} // namespace
} // namespace vendrix

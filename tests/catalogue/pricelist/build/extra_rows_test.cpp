// The sample reports run as the reports tab runs them: placeholders
// replaced, table and chart queries through the database layer on the
// database the row names, over a shop database made from the built seed.
#include "catalogue/pricelist/build/extra_rows.h"
#include "catalogue/pricelist/build/price_file_builder.h"
#include "catalogue/support/list_fixture.h"
#include "core/migrations.h"
#include "support/test_context.h"

#include <gtest/gtest.h>

#include <map>

namespace vendrix {
namespace {

struct Esperado {
    QString cliente; // what the filter combo holds
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

QStringList filas(const Matrix &m)
{
    QStringList rows;
    for (int r = 0; r < m.filas(); ++r)
        rows << m.fila(r).join(QLatin1Char('|'));
    return rows;
}

class ReportesPredeterminados : public ::testing::Test {
protected:
    void SetUp() override
    {
        app_.copy_seed(QStringLiteral("clientes.install"), QStringLiteral("clientes.vdrx"));
        ejecutar_migraciones(app_.ctx());
        const SupplierList list{
            QStringLiteral("Alfa"),
            QStringLiteral("2026-11-01"),
            {},
            {},
            {test::articulo(QStringLiteral("A1"), QStringLiteral("Tornillo"), QStringLiteral("25.25")),
             test::articulo(QStringLiteral("A2"), QStringLiteral("Tuerca"), QStringLiteral("0"),
                            QStringLiteral("102"))}};
        ASSERT_TRUE(construir_lista({app_.ruta(QStringLiteral("Vendrix.vdrxdb")),
                                     {},
                                     {},
                                     QStringLiteral("2026-11-23"),
                                     reportes_predeterminados(),
                                     {}},
                                    {list})
                        .ok());
        // Sales in range, a stored cart, and one sale before the range.
        const std::vector<SqlParams> sales{
            {1, "Factura", "B", "Juan Pérez", "100.5", "Efectivo", "202610151030", "261015-103000"},
            {2, "Factura", "A", "O'Brien SA", 300, "Tarjeta de Crédito", "202611021200", "261102-120000"},
            {3, "Nota de Crédito", "B", "Juan Pérez", -50.25, "Efectivo", "202611051500", "261105-150000"},
            {4, "Carrito", "B", "Juan Pérez", 999, "Efectivo", "202611061600", "261106-160000"},
            {5, "Factura", "B", "Juan Pérez", 70, "Efectivo", "202609301200", "260930-120000"},
        };
        for (const SqlParams &sale : sales) {
            ASSERT_TRUE(app_.db().execNQ(
                QStringLiteral("INSERT INTO vendrix_facturas (ID, tipo, letra, razon_social, "
                               "Total, forma_de_pago, insert_timestamp, nro_referencia) "
                               "VALUES (?,?,?,?,?,?,?,?)"),
                QStringLiteral("internal"), sale));
        }
        const std::vector<SqlParams> items{
            {1, 1, "Alfa", "A1", "Tornillo", 2, "25.25"}, {2, 1, "Alfa", "A1", "Tornillo", 4, 25.25},
            {2, 2, "Beta", "B1", "Beta uno", 1, 199},     {3, 1, "Alfa", "A1", "Tornillo", 2, -25.125},
            {4, 1, "Alfa", "A1", "Tornillo", 50, 25.25},  {5, 1, "Alfa", "A1", "Tornillo", 3, 25.25},
        };
        for (const SqlParams &item : items) {
            ASSERT_TRUE(
                app_.db().execNQ(QStringLiteral("INSERT INTO vendrix_factura_items (Factura_Id, Offset, "
                                                "Proveedor, Codigo, Descripcion, cantidad, Precio_final) "
                                                "VALUES (?,?,?,?,?,?,?)"),
                                 QStringLiteral("internal"), item));
        }
    }

    // One column of a report's row, as the engine reads them.
    QString columna(const QString &name, const char *field)
    {
        return app_.db().execQ1(
            QStringLiteral("SELECT %1 FROM xls_reportes WHERE report_nombre = ?").arg(QLatin1String(field)),
            QStringLiteral("external"), {name});
    }

    test::TestApp app_;
};

TEST_F(ReportesPredeterminados, RunOnTheShopTablesAndGiveTheirFigures)
{
    const std::map<QString, Esperado> expected{
        {QStringLiteral("Ventas por mes"),
         {{}, {"2026-10|1|100.5", "2026-11|2|249.75"}, {"100.5|2026-10", "249.75|2026-11"}}},
        {QStringLiteral("Ventas por forma de pago"),
         {{},
          {"Tarjeta de Crédito|1|300", "Efectivo|2|50.25"},
          {"300|Tarjeta de Crédito", "50.25|Efectivo"}}},
        {QStringLiteral("Artículos más vendidos"),
         {{}, {"Alfa|A1|Tornillo|6|151.5", "Beta|B1|Beta uno|1|199"}, {"6|Tornillo", "1|Beta uno"}}},
        {QStringLiteral("Compras de un cliente"),
         {QStringLiteral("Juan Pérez"),
          {"15/10/2026|Factura|B|261015-103000|Efectivo|100.5",
           "05/11/2026|Nota de Crédito|B|261105-150000|Efectivo|-50.25"},
          {"50.25|Efectivo"}}},
        {QStringLiteral("Ventas de un proveedor"),
         {QStringLiteral("Alfa"), {"A1|Tornillo|6|151.5"}, {"151.5|Tornillo"}}},
        {QStringLiteral("Listas de precios por proveedor"), {{}, {"Alfa|2026-11-01|2|1|1"}, {"2|Alfa"}}},
    };
    const Matrix names = app_.db().execQ_matriz(QStringLiteral("SELECT report_nombre FROM xls_reportes"),
                                                QStringLiteral("external"));
    ASSERT_EQ(names.filas(), static_cast<int>(expected.size()));
    for (int r = 0; r < names.filas(); ++r) {
        const QString name = names.at(0, r);
        const auto found = expected.find(name);
        ASSERT_NE(found, expected.end()) << name.toStdString();
        const QString target = columna(name, "report_db");
        const Esperado &want = found->second;
        EXPECT_EQ(filas(app_.db().execQ_matriz(sustituir(columna(name, "report_tabla_query"), want.cliente),
                                               target)),
                  want.tabla)
            << name.toStdString();
        EXPECT_EQ(filas(app_.db().execQ_matriz(sustituir(columna(name, "report_query_grafico"), want.cliente),
                                               target)),
                  want.grafico)
            << name.toStdString();
        EXPECT_FALSE(columna(name, "report_totales").isEmpty());
    }
    EXPECT_TRUE(app_.op.empty()) << app_.op.lines().join(QLatin1Char('\n')).toStdString();
}

TEST_F(ReportesPredeterminados, TodosInTheCustomerComboListsEveryCustomer)
{
    const QString query = sustituir(columna(QStringLiteral("Compras de un cliente"), "report_tabla_query"),
                                    QStringLiteral("Todos"));
    EXPECT_EQ(app_.db().execQ_matriz(query, QStringLiteral("internal")).filas(), 3);
}

} // namespace
} // namespace vendrix

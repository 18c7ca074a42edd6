// The eraser of old sales: what goes, what stays, and a failure half way.
#include "fiscal/front/old_sales_eraser.h"

#include "support/test_context.h"

#include <QDate>

#include <gtest/gtest.h>

namespace vendrix::test {
namespace {

class Eraser : public ::testing::Test {
protected:
    Eraser() : app(true)
    {
        app.copy_seed("clientes.install", "clientes.vdrx");
        // Two sales of the day before (one with a one-digit hour), one at
        // the day's midnight, one later that day, one of next year (which a
        // comparison of the text would take for older), one with no date.
        const char *fechas[] = {"31/12/2025 23:59:59", "31/12/2025 9:05:00",  "01/01/2026 00:00:00",
                                "01/01/2026 08:30:00", "15/02/2027 10:00:00", ""};
        int id = 1;
        for (const char *fecha : fechas) {
            EXPECT_TRUE(app.db().execNQ("INSERT INTO vendrix_facturas (ID, fecha) VALUES (?, ?)", "internal",
                                        {id, QString::fromLatin1(fecha)}));
            EXPECT_TRUE(app.db().execNQ(
                "INSERT INTO vendrix_factura_items (Factura_Id, Codigo) VALUES (?, 'x')", "internal", {id}));
            ++id;
        }
    }
    // The ids of a table's rows, in order.
    QString ids(const char *columna, const char *tabla)
    {
        return app.db().execQ1(QStringLiteral("SELECT group_concat(%1) FROM (SELECT %1 FROM %2 ORDER BY %1)")
                                   .arg(QLatin1String(columna), QLatin1String(tabla)),
                               "internal");
    }
    QString ventas() { return ids("ID", "vendrix_facturas"); }
    QString lineas() { return ids("Factura_Id", "vendrix_factura_items"); }

    TestApp app;
};

TEST_F(Eraser, SalesUpToTheDayGoWithTheirLinesAndTheRestStays)
{
    app.op.answer(true);
    EXPECT_TRUE(borrar_ventas_anteriores(app.ctx(), QDate(2026, 1, 1)));
    EXPECT_EQ(ventas(), "4,5,6");
    EXPECT_EQ(lineas(), "4,5,6");
    EXPECT_EQ(app.op.lines(),
              QStringList({"ask|Eliminar Datos historicos|Está seguro de eliminar los datos de facturación "
                           "anteriores al 01/01/2026?. Los datos almacenados en el controlador fiscal no se "
                           "veran afectados por este procedimiento.",
                           "inform|Infromación eliminada correctamente|La información de facturación fue "
                           "eliminada correctamente de Vendrix. Recuerde que si tiene configurado un "
                           "controlador fiscal, los datos de dicho controlador no se ven afectados por este "
                           "procedimiento."}));
}

TEST_F(Eraser, NoOrAFailingDeleteLeavesBothTablesAsTheyWere)
{
    app.op.answer(false);
    EXPECT_FALSE(borrar_ventas_anteriores(app.ctx(), QDate(2030, 1, 1)));
    // The lines' delete fails after the sales' one ran.
    app.op.answer(true);
    app.failing_db().fail_matching("DELETE FROM vendrix_factura_items");
    EXPECT_FALSE(borrar_ventas_anteriores(app.ctx(), QDate(2030, 1, 1)));
    app.failing_db().heal();
    EXPECT_EQ(ventas(), "1,2,3,4,5,6");
    EXPECT_EQ(lineas(), "1,2,3,4,5,6");
    EXPECT_FALSE(app.op.lines().last().startsWith("inform|Infromación"));
}

} // namespace
} // namespace vendrix::test

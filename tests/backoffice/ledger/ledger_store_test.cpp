// The ledger's storage on a shop database fresh from its migrations (the
// forms' and the tab's tests go through it too): what an edit leaves, and
// a database failing at each statement of a change leaving the ledger as
// it was.
#include "backoffice/ledger/ledger_store.h"
#include "core/db_helpers.h"
#include "core/migrations.h"

namespace vendrix {
namespace {

const QDate kDia(2026, 11, 20);
const QString kFilas = "SELECT ID, TIPO, Proveedor, Medio_de_pago, Medio_de_pago_origen, Pagado, Total_Pago, "
                       "ifnull(ID_Factura_pagos, '-'), Fecha, ifnull(Proximo_Vencimiento, '-') "
                       "FROM Vendrix_Pagos ORDER BY ID";

class LedgerStore : public test::ShopTest {
protected:
    explicit LedgerStore(bool failing = true) : ShopTest(failing)
    {
        EXPECT_TRUE(ejecutar_migraciones(app.ctx()).fallidas.isEmpty());
    }

    DatosGasto gasto(double total) const
    {
        return {kDia, "Servicios", "Luz del Sur S'A", "", "bimestre", total, QDate(2026, 12, 10), "No"};
    }
    DatosFactura factura(const QString &letra, double neto, double iva) const
    {
        return {kDia,
                "Pérez & Hijos",
                "",
                neto,
                iva,
                0,
                0,
                letra,
                "00003",
                "00001234",
                "Compra de mercadería",
                "Efectivo",
                QDate(2026, 12, 1)};
    }
    QString pagar(qint64 deuda, double monto, QDate vence = {})
    {
        return agregar_pago(app.ctx(), {deuda, kDia, "Servicios", "", "Efectivo", "", monto, vence});
    }
};

TEST_F(LedgerStore, EditsChangeTheDebtRowOnlyAndLogTheAdditionsName)
{
    const qint64 id = agregar_factura(app.ctx(), factura("A", 1000, 210)).toLongLong();
    ASSERT_EQ(pagar(id, 500), "");
    DatosFactura changed = factura("A", 200, 42);
    changed.proximo_vencimiento = {};
    EXPECT_EQ(modificar_factura(app.ctx(), id, changed), "");
    // Lowered below what was paid: not refused for an invoice.
    EXPECT_EQ(
        filas("SELECT TIPO, Total_Pago, Factura_iva, ifnull(Proximo_Vencimiento, 'NULL') FROM Vendrix_Pagos "
              "ORDER BY ID"),
        QStringList({"FACTURA|242|42|NULL", "PAGO|-500||2026-11-23"}));
    EXPECT_EQ(q1("SELECT ID_Factura_pagos FROM Vendrix_Pagos WHERE TIPO = 'PAGO'"), QString::number(id));
    EXPECT_TRUE(app.log_messages().contains("modificar_factura - inicia la funcion 'agregar_factura'.."));
    EXPECT_TRUE(app.log_messages().contains(
        "modificar_factura - termino la funcion 'agregar_factura' correctamente.."));
    EXPECT_TRUE(app.log_messages().contains(
        "agregar_pago - se actualizaron las fechas de proximo vencimiento para el GASTO o FACTURA  ID =" +
        QString::number(id) + ".."));
}

TEST_F(LedgerStore, AFailureAtAnyStatementOfAChangeLeavesTheLedgerAsItWas)
{
    const qint64 debt = agregar_gasto(app.ctx(), gasto(50)).toLongLong();
    ASSERT_EQ(pagar(debt, 10, QDate(2027, 3, 1)), "");
    const qint64 transfer = agregar_transferencia(app.ctx(), kDia, "Efectivo", "Banco", 7, "").toLongLong();
    const QStringList before = filas(kFilas);
    struct Cambio {
        const char *nombre;
        std::function<bool()> hacer;
    };
    Context &ctx = app.ctx();
    const Cambio cambios[] = {
        {"transferencia",
         [&] { return agregar_transferencia(ctx, kDia, "Banco", "Efectivo", 3, "") != "0"; }},
        {"gasto pagado", [&] { return agregar_gasto(ctx, gasto(20), QStringLiteral("Banco")) != "0"; }},
        {"factura pagada",
         [&] { return agregar_factura(ctx, factura("C", 5, 0), QStringLiteral("Banco")) != "0"; }},
        {"pago", [&] { return pagar(debt, 5).isEmpty(); }},
        {"borrar transferencia", [&] { return eliminar_movimiento(ctx, transfer); }},
        {"borrar gasto", [&] { return eliminar_movimiento(ctx, debt); }},
        {"borrar del historial", [&] { return eliminar_pago_del_historial(ctx, debt + 1, debt); }},
    };
    for (const Cambio &c : cambios) {
        // Count the statements of the change, then fail each of them in turn.
        int statements = 0;
        {
            const int seen = app.failing_db().statements_seen();
            ASSERT_TRUE(c.hacer()) << c.nombre;
            statements = app.failing_db().statements_seen() - seen;
            ASSERT_TRUE(nq("DELETE FROM Vendrix_Pagos"));
            for (const QString &row : before) {
                const QStringList v = row.split('|');
                ASSERT_TRUE(nq(
                    "INSERT INTO Vendrix_Pagos (ID, TIPO, Proveedor, Medio_de_pago, Medio_de_pago_origen, "
                    "Pagado, Total_Pago, ID_Factura_pagos, Fecha, Proximo_Vencimiento) VALUES (?, ?, ?, ?, "
                    "?, ?, ?, nullif(?, '-'), ?, nullif(?, '-'))",
                    "internal", {v[0], v[1], v[2], v[3], v[4], v[5], v[6], v[7], v[8], v[9]}));
            }
            ASSERT_EQ(filas(kFilas), before);
        }
        for (int n = 2; n <= statements;
             ++n) { // the first is BEGIN: a change that can't start writes nothing
            app.failing_db().fail_nth(n);
            EXPECT_FALSE(c.hacer()) << c.nombre << " " << n;
            app.failing_db().heal();
            EXPECT_EQ(filas(kFilas), before) << c.nombre << " failing statement " << n;
        }
    }
}

} // namespace
} // namespace vendrix

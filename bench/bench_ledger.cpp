// The "Pagos" tab over a ledger of 200 000 rows spread over five years:
// one year listed, until the grid holds its rows and the first is
// selected. Goal: 200 ms or less.
//
// The ledger: 60 000 expenses and invoices, a third unpaid, a third paid in
// part, a third paid in two payments (60 000 payments), and 20 000
// transfers of four rows each. A year holds about 12 000 debts and 8 000
// transfer rows.
//
// Figures on the shared 2-core machine (Release, offscreen, wall time): the
// query and its lines 139 ms, with the grid filled 147 ms, 19 756 rows.
// Grouping the joined payments and sorting by ID instead took 256 ms.
#include "backoffice/ledger/ledger_listing.h"
#include "bench_figures.h"
#include "core/context.h"
#include "core/desktop.h"
#include "core/migrations.h"
#include "screens/payments/tab_pagos.h"
#include "widgets/lynx_grid.h"

#include <benchmark/benchmark.h>

#include <QApplication>
#include <QFile>
#include <QTemporaryDir>

namespace {

using namespace vendrix;

constexpr int kDeudas = 60000;
constexpr int kTransferencias = 20000;

const char *const kDeudasSql =
    "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < %1) "
    "INSERT INTO Vendrix_Pagos (ID, TIPO, Proveedor, Medio_de_pago, Destino_de_pago, Pagado, Notas, "
    "Total_Pago, "
    "Fecha, factura_letra, Factura_sucursal, factura_numero, proximo_vencimiento) "
    "SELECT i, CASE WHEN i % 2 = 0 THEN 'FACTURA' ELSE 'GASTO' END, 'Proveedor ' || (i % 300), '', "
    "'Servicios', 'No', '', (1000 + i % 5000) || '.5', date('2021-11-25', '+' || (i % 1825) || ' days'), "
    "CASE WHEN i % 2 = 0 THEN 'B' END, '00001', printf('%08d', i), "
    "date('2021-12-25', '+' || (i % 1825) || ' days') FROM n";

// The first payment of two debts in three, the second of one in three.
const char *const kPagosSql =
    "INSERT INTO Vendrix_Pagos (TIPO, Proveedor, Medio_de_pago, Destino_de_pago, Pagado, Notas, Total_Pago, "
    "ID_Factura_pagos, Fecha, proximo_vencimiento) "
    "SELECT 'PAGO', Proveedor, 'Efectivo', 'Servicios', 'Si', '', "
    "CAST(-CAST(Total_Pago AS REAL) / 2 AS TEXT), ID, Fecha, proximo_vencimiento FROM Vendrix_Pagos "
    "WHERE TIPO IN ('GASTO', 'FACTURA') AND ID % 3 <> 0";
const char *const kSegundosPagosSql =
    "INSERT INTO Vendrix_Pagos (TIPO, Proveedor, Medio_de_pago, Destino_de_pago, Pagado, Notas, Total_Pago, "
    "ID_Factura_pagos, Fecha, proximo_vencimiento) "
    "SELECT 'PAGO', Proveedor, 'Efectivo', 'Servicios', 'Si', '', "
    "CAST(-CAST(Total_Pago AS REAL) / 2 AS TEXT), ID, Fecha, proximo_vencimiento FROM Vendrix_Pagos "
    "WHERE TIPO IN ('GASTO', 'FACTURA') AND ID % 3 = 1";

// Each transfer: its two rows pointing at each other, then a payment
// linked to each.
const char *const kTransferenciasSql =
    "WITH RECURSIVE n(i) AS (SELECT 0 UNION ALL SELECT i + 1 FROM n WHERE i < %1 - 1), "
    "t(id, espejo, signo, fecha, origen, destino) AS ("
    "SELECT 1000000 + 2 * i, 1000001 + 2 * i, 1, date('2021-11-25', '+' || (i % 1825) || ' days'), "
    "'Efectivo', 'Banco' FROM n UNION ALL "
    "SELECT 1000001 + 2 * i, 1000000 + 2 * i, -1, date('2021-11-25', '+' || (i % 1825) || ' days'), "
    "'Banco', 'Efectivo' FROM n) "
    "INSERT INTO Vendrix_Pagos (ID, TIPO, Pagado, Notas, Total_Pago, ID_Factura_pagos, Fecha, Medio_de_pago, "
    "Medio_de_pago_origen) SELECT id, 'TRANSFERENCIA', 'Si', '', CAST(signo * 250 AS TEXT), espejo, fecha, "
    "origen, "
    "destino FROM t";
const char *const kPagosTransferenciasSql =
    "INSERT INTO Vendrix_Pagos (TIPO, Proveedor, Medio_de_pago, Destino_de_pago, Pagado, Notas, Total_Pago, "
    "ID_Factura_pagos, Fecha, proximo_vencimiento) SELECT 'PAGO', '', Medio_de_pago, '', 'Si', '', "
    "CAST(-CAST(Total_Pago AS REAL) AS TEXT), ID, Fecha, Fecha FROM Vendrix_Pagos WHERE TIPO = "
    "'TRANSFERENCIA'";

struct Tienda {
    Tienda()
    {
        QFile::copy(QStringLiteral(VENDRIX_SEED_DIR "/clientes.install"), dir.filePath("clientes.vdrx"));
        QFile::setPermissions(dir.filePath("clientes.vdrx"), QFile::ReadOwner | QFile::WriteOwner);
        ctx = std::make_unique<Context>(dir.path(), op, estado, reloj);
        ejecutar_migraciones(*ctx);
        Database &db = ctx->db();
        const QString internal = QStringLiteral("internal");
        db.execNQ(QString::fromUtf8(kDeudasSql).arg(kDeudas), internal);
        db.execNQ(QString::fromUtf8(kPagosSql), internal);
        db.execNQ(QString::fromUtf8(kSegundosPagosSql), internal);
        db.execNQ(QString::fromUtf8(kTransferenciasSql).arg(kTransferencias), internal);
        db.execNQ(QString::fromUtf8(kPagosTransferenciasSql), internal);
        filas = db.execQ1(QStringLiteral("SELECT count(*) FROM Vendrix_Pagos"), internal).toInt();
    }
    QTemporaryDir dir;
    SilentOperator op;
    SilentStatus estado;
    FixedClock reloj{QDateTime(QDate(2026, 11, 23), QTime(10, 30))};
    std::unique_ptr<Context> ctx;
    int filas = 0;
};

// The query and the lines alone, without the grid.
void BM_ConsultarPagos(benchmark::State &state)
{
    Tienda t;
    const FiltroPagos filtro = filtro_inicial(*t.ctx);
    std::size_t lineas = 0;
    for (auto _ : state)
        lineas = buscar_pagos(*t.ctx, filtro)->size();
    state.counters["filas"] = double(lineas);
    state.counters["libro"] = t.filas;
}

void BM_ListarPagos(benchmark::State &state)
{
    Tienda t;
    // The list opens nothing on the desktop.
    struct SinEscritorio final : Escritorio {
        bool abrir(const QUrl &) override { return false; }
        bool redactar_correo(const QString &, const QString &, const QString &, const QString &) override
        {
            return false;
        }
    } escritorio;
    screens::TabPagos tab(*t.ctx, escritorio);
    tab.iniciar_tab_pagos();
    tab.resize(1280, 700);
    tab.show();
    for (auto _ : state) {
        tab.buscar_pagos();
        QApplication::processEvents();
    }
    if (tab.grilla()->Rows() == 0)
        state.SkipWithError("the year listed nothing");
    state.counters["filas"] = tab.grilla()->Rows();
    state.counters["libro"] = t.filas;
}

BENCHMARK(BM_ConsultarPagos)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_ListarPagos)->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char **argv)
{
    return vendrix::bench::correr_con_qt<QApplication>(argc, argv);
}

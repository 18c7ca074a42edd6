// The "Pagos" list over a shop database fresh from its migrations: the
// rows' states and owed amounts, the search, the unpaid filter, the
// deletion from the list and the mail of the marked rows.
#include "backoffice/ledger/ledger_listing.h"
#include "backoffice/ledger/ledger_store.h"
#include "backoffice/ledger/ledger_tab.h"
#include "core/db_helpers.h"
#include "core/migrations.h"
#include "core/rows.h"

#include <QUrl>
#include <QUrlQuery>

namespace vendrix {
namespace {

const QDate kDia(2026, 11, 20);

class LedgerListing : public test::ShopTest {
protected:
    LedgerListing() : ShopTest(true)
    {
        EXPECT_TRUE(ejecutar_migraciones(app.ctx()).fallidas.isEmpty());
        app.op.clear();
    }

    qint64 gasto(double total, const QString &proveedor = "Luz del Sur", QDate fecha = kDia)
    {
        return agregar_gasto(app.ctx(),
                             {fecha, "Servicios", proveedor, "", "", total, QDate(2026, 12, 10), "No"})
            .toLongLong();
    }
    qint64 factura(const QString &letra, double neto)
    {
        return agregar_factura(app.ctx(), {kDia, "Pérez & Hijos", "", neto, 0, 0, 0, letra, "00003",
                                           "00001234", "Compra de mercadería", "", QDate(2026, 12, 1)})
            .toLongLong();
    }
    void pagar(qint64 deuda, double monto)
    {
        ASSERT_EQ(
            agregar_pago(app.ctx(), {deuda, kDia, "Servicios", "", "Efectivo", "", monto, QDate(2027, 1, 5)}),
            "");
    }
    qint64 transferir(double total)
    {
        return agregar_transferencia(app.ctx(), kDia, "Efectivo", "Banco", total, "").toLongLong();
    }
    std::vector<QString> listar(const QString &texto = {}, bool solo_impagos = false)
    {
        FiltroPagos f = filtro_inicial(app.ctx());
        f.texto = texto;
        f.solo_impagos = solo_impagos;
        auto filas = buscar_pagos(app.ctx(), f);
        EXPECT_TRUE(filas.has_value());
        return filas.value_or(std::vector<QString>{});
    }
    // One cell of each listed row.
    QStringList columna(const std::vector<QString> &filas, ColumnaPagos c)
    {
        QStringList out;
        for (const QString &f : filas)
            out << f.split('\t').at(static_cast<int>(c));
        return out;
    }
};

TEST_F(LedgerListing, StartsAYearBackAndTheIndexesOfTheJoinAndTheDatesExist)
{
    const FiltroPagos f = filtro_inicial(app.ctx());
    EXPECT_EQ(f.desde, QDate(2025, 11, 23));
    EXPECT_EQ(f.hasta, QDate(2026, 11, 23));
    EXPECT_EQ(
        filas("SELECT name FROM sqlite_master WHERE type = 'index' AND tbl_name = 'Vendrix_Pagos' ORDER BY "
              "name"),
        QStringList({"idx_vendrix_pagos_factura", "idx_vendrix_pagos_fecha"}));
}

TEST_F(LedgerListing, ADebtsStateAndOwedAmountFollowItsPayments)
{
    // total, payments, payment deleted last (index or -1), owed, state, due text
    for (const auto &[total, pagos, borrado, adeudado, pagada, vto] :
         Rows<double, std::vector<double>, int, QString, QString, QString>{
             {12000, {}, -1, "12000", "No", "Vto. 10/12/2026"},
             {12000, {5000}, -1, "7000", "Parcialmente", "Vto. 05/01/2027"},
             {12000, {5000, 7000}, -1, "0", "Si", ""},
             {0.88, {0.29, 0.29, 0.30}, -1, "0", "Si", ""},
             {12000, {5000, 7000}, 1, "7000", "Parcialmente", "Vto. 05/01/2027"},
             {12000, {5000}, 0, "12000", "No", "Vto. 05/01/2027"},
         }) {
        SCOPED_TRACE(QString("%1 paid %2 times").arg(total).arg(pagos.size()).toStdString());
        nq("DELETE FROM Vendrix_Pagos");
        const qint64 id = gasto(total);
        for (double p : pagos)
            pagar(id, p);
        if (borrado >= 0) {
            const qint64 pago =
                q1("SELECT ID FROM Vendrix_Pagos WHERE ID_Factura_pagos = ? ORDER BY ID LIMIT 1 "
                   "OFFSET ?",
                   "internal", {id, borrado})
                    .toLongLong();
            ASSERT_TRUE(eliminar_pago_del_historial(app.ctx(), pago, id));
        }
        const auto lista = listar();
        ASSERT_EQ(lista.size(), 1u);
        EXPECT_EQ(lista[0], QString("%1\t20/11/2026\tGASTO\tLuz del Sur\tGasto Servicios\t%2\t%3\t%4\t%5")
                                .arg(id)
                                .arg(QString::number(total).replace('.', ','), adeudado, pagada, vto));
    }
}

TEST_F(LedgerListing, InvoicesAndBothRowsOfATransferAreListedButNeverAPayment)
{
    const qint64 f = factura("B", 1210.5);
    pagar(f, 10);
    const qint64 segunda = transferir(250);
    const auto lista = listar();
    ASSERT_EQ(lista.size(), 3u);
    EXPECT_EQ(lista[0],
              QString("%1\t20/11/2026\tFACTURA\tPérez & Hijos\tFactura B-00003-00001234 cargada en el "
                      "sistema\t1210,5\t1200,5\tParcialmente\tVto. 05/01/2027")
                  .arg(f));
    EXPECT_EQ(lista[1],
              QString("%1\t20/11/2026\tTRANSFERENCIA\t\tTransferencia de `Banco` a `Efectivo`\t250\t0\tSi\t")
                  .arg(segunda - 1));
    EXPECT_EQ(lista[2],
              QString("%1\t20/11/2026\tTRANSFERENCIA\t\tTransferencia de `Efectivo` a `Banco`\t-250\t0\tSi\t")
                  .arg(segunda));
}

TEST_F(LedgerListing, TheSearchMatchesSupplierDateLetterAndNumberWithinInclusiveDates)
{
    gasto(100, "Luz del Sur");                 // no letter nor number: NULL
    factura("B", 50);                          // Pérez & Hijos 20/11/2026 B 00001234
    gasto(1, "Al borde", QDate(2025, 11, 23)); // the first day of the range
    gasto(2, "Al borde", QDate(2026, 11, 23)); // the last
    gasto(3, "Fuera", QDate(2025, 11, 22));    // a day before it
    for (const auto &[texto, proveedores] : Rows<QString, QStringList>{
             {"", {"Luz del Sur", "Pérez & Hijos", "Al borde", "Al borde"}},
             {"luz", {"Luz del Sur"}},
             {"20/11/2026", {"Luz del Sur", "Pérez & Hijos"}},
             {"2026 B 0000123", {"Pérez & Hijos"}},
             {"Hijos 20/11", {"Pérez & Hijos"}},
             {"23/11/202", {"Al borde", "Al borde"}},
             {"Fuera", {}},
             {"2026-11", {}},
         }) {
        SCOPED_TRACE(texto.toStdString());
        EXPECT_EQ(columna(listar(texto), ColumnaPagos::RazonSocial), proveedores);
    }
}

TEST_F(LedgerListing, OnlyUnpaidHidesTransfersAndPaidRowsAndKeepsPartlyPaidOnes)
{
    const qint64 pagado = gasto(100, "Pagado");
    pagar(pagado, 100);
    pagar(gasto(100, "Parcial"), 40);
    gasto(100, "Impago");
    transferir(10);
    EXPECT_EQ(columna(listar({}, true), ColumnaPagos::RazonSocial), QStringList({"Parcial", "Impago"}));
    EXPECT_EQ(columna(listar({}, true), ColumnaPagos::Pagada), QStringList({"Parcialmente", "No"}));
    EXPECT_EQ(listar().size(), 5u);
}

TEST_F(LedgerListing, AFailedQueryTellsTheOperatorAndLogs)
{
    gasto(100);
    app.failing_db().fail_matching("FROM Vendrix_Pagos FA");
    EXPECT_FALSE(buscar_pagos(app.ctx(), filtro_inicial(app.ctx())).has_value());
    EXPECT_EQ(app.op.lines(),
              QStringList({"error|Error al intentar cargar las Grillas.|ER PAGOS01: Se produjo un "
                           "error al cargar la información en la Grilla de Pagos. Cierre Vendrix e "
                           "intente nuevamente."}));
    EXPECT_TRUE(app.log_messages().filter("ER PAGOSPRO01 - ").size() == 1);
}

TEST_F(LedgerListing, DeletingAsksByKindWithTheStoredSumOfThePayments)
{
    const qint64 g = gasto(12000);
    pagar(g, 5000);
    const qint64 c = gasto(0.88);
    pagar(c, 0.29);
    pagar(c, 0.30);
    const qint64 f = factura("A", 10);
    for (const auto &[id, pregunta] : Rows<qint64, QString>{
             {g, "¿Desea eliminar el gasto seleccionado y sus pagos asociados por $-5000?"},
             {c, "¿Desea eliminar el gasto seleccionado y sus pagos asociados por $-0,59?"},
             {f, "¿Desea eliminar la factura seleccionada?"},
         }) {
        app.op.clear();
        app.op.answer(false);
        EXPECT_FALSE(eliminar_pago(app.ctx(), QString::number(id)));
        EXPECT_EQ(app.op.lines(), QStringList({"ask|Eliminar Pago|" + pregunta}));
    }
    EXPECT_EQ(q1("SELECT count(*) FROM Vendrix_Pagos"), "6");
    EXPECT_TRUE(app.log_messages().contains("Pagos - El usuario cambio de idea. no se eliminara el pago.."));

    app.op.clear();
    app.op.answer(true);
    EXPECT_TRUE(eliminar_pago(app.ctx(), QString::number(g)));
    EXPECT_EQ(
        q1("SELECT count(*) FROM Vendrix_Pagos WHERE ID = ? OR ID_Factura_pagos = ?", "internal", {g, g}),
        "0");
    EXPECT_EQ(q1("SELECT count(*) FROM Vendrix_Pagos"), "4");
    EXPECT_TRUE(
        app.log_messages().contains(QString("Pagos - Se Elimino 'GASTO' con ID = %1 y todos sus pagos "
                                            "asociados..")
                                        .arg(g)));
}

TEST_F(LedgerListing, NothingSelectedIsRefusedWithoutAQuestion)
{
    for (const QString id : {"", "abc"}) {
        app.op.clear();
        EXPECT_FALSE(eliminar_pago(app.ctx(), id));
        EXPECT_EQ(app.op.lines(),
                  QStringList({"error|Eliminar Pagos|No hay pagos seleccionados en la grilla de Pagos "
                               "para ser eliminados. Seleccione un registro e intente nuevamente."}));
    }
}

TEST_F(LedgerListing, DeletingATransferFromEitherRowLeavesOneOrphanPayment)
{
    for (const int fila : {0, 1}) {
        SCOPED_TRACE(fila);
        nq("DELETE FROM Vendrix_Pagos");
        const qint64 segunda = transferir(250);
        const qint64 elegida = segunda - 1 + fila;
        app.op.clear();
        app.op.answer(true);
        EXPECT_TRUE(eliminar_pago(app.ctx(), QString::number(elegida)));
        EXPECT_EQ(app.op.lines(),
                  QStringList({"ask|Eliminar Pago|¿Desea eliminar la transferencia seleccionada?"}));
        const qint64 espejo = fila == 0 ? segunda : segunda - 1;
        // The payment of the mirror row stays, pointing at nothing.
        EXPECT_EQ(filas("SELECT TIPO, ID_Factura_pagos, Medio_de_pago FROM Vendrix_Pagos"),
                  QStringList({QString("PAGO|%1|%2").arg(espejo).arg(fila == 0 ? "Banco" : "Efectivo")}));
        EXPECT_TRUE(
            app.log_messages().contains(QString("Pagos - Se eliminarán las transferencias con ID '%1' y con "
                                                "ID = %2 y todos sus pagos asociados..")
                                            .arg(espejo)
                                            .arg(elegida)));
        EXPECT_TRUE(listar().empty());
    }
}

TEST_F(LedgerListing, TheMailCarriesTheMarkedRowsWholeAndTheShopsName)
{
    test::crear_archivo_de_precios(
        app.ruta("Vendrix.vdrxdb"),
        {"INSERT INTO xls_parametros (CLAVE, VALOR) VALUES ('CLIENTE', 'Ferretería "
         "Don Tito & Cía')"});
    factura("B", 1210.5);
    gasto(100);
    const auto lista = listar();
    std::vector<QStringList> marcadas;
    for (const QString &l : lista)
        marcadas.push_back(l.split('\t'));
    const QString url = enviar_pagos_por_mail(app.ctx(), marcadas);
    const QString prefijo = "mailto:?subject=Vendrix - Egresos.&body=";
    ASSERT_TRUE(url.startsWith(prefijo));
    const QString esperado =
        "Buenos días, \r\n\r\n"
        "Fecha\tMovimiento\tRazón Social\tOperación\tMonto\tAdeudato\tPagada\tVencimiento\r\n"
        "20/11/2026\tFACTURA\tPérez & Hijos\tFactura B-00003-00001234 cargada en el "
        "sistema\t1210,5\t1210,5\tNo\t"
        "Vto. 01/12/2026\r\n"
        "20/11/2026\tGASTO\tLuz del Sur\tGasto Servicios\t100\t100\tNo\tVto. 10/12/2026\r\n"
        "\r\nMuchas gracias.\r\n\r\nAtte,\r\n\r\nFerretería Don Tito & Cía\r\n\r\n correo generado con "
        "Vendrix";
    EXPECT_EQ(QUrl::fromPercentEncoding(url.mid(prefijo.size()).toUtf8()), esperado);
    // As the mail program reads the address: the body is not cut at a "&".
    EXPECT_EQ(QUrlQuery(QUrl(url, QUrl::TolerantMode)).queryItemValue("body", QUrl::FullyDecoded), esperado);
    EXPECT_TRUE(app.op.empty());
    EXPECT_TRUE(app.log_messages().contains("Egresos - Se ejecuto la funcionalidad para mandar mail."));
}

TEST_F(LedgerListing, AMailWithNothingMarkedIsRefused)
{
    EXPECT_EQ(enviar_pagos_por_mail(app.ctx(), {}), "");
    EXPECT_EQ(app.op.lines(),
              QStringList({"error|Error al enviar mail.|No hay ningún valor seleccionado. Seleccione "
                           "almenos un elemento antes de generar un correo electrónico."}));
}

TEST(LedgerTabRules, ActionsFollowTheSelectedRowAndTransfersAreNotEdited)
{
    for (const auto &[hay, pagada, eliminar, editar, pago] : Rows<bool, QString, bool, bool, bool>{
             {true, "No", true, true, true},
             {true, "Parcialmente", true, true, true},
             {true, "Si", true, true, false},
             {false, "No", false, false, false},
         }) {
        const AccionesPagos a = acciones_por_seleccion(hay, pagada);
        EXPECT_EQ(std::tuple(a.eliminar, a.editar, a.agregar_pago), std::tuple(eliminar, editar, pago))
            << pagada.toStdString();
    }
    EXPECT_EQ(modo_edicion("FACTURA"), "MODIFICAR_FACTURA");
    EXPECT_EQ(modo_edicion("GASTO"), "MODIFICAR_GASTO");
    EXPECT_EQ(modo_edicion("TRANSFERENCIA"), "");
}

} // namespace
} // namespace vendrix

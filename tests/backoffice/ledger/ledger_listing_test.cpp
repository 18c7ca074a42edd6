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
        return agregar_gasto(app.ctx(), {fecha, "Servicios", proveedor, "", "", total, {2026, 12, 10}, "No"})
            .toLongLong();
    }
    qint64 factura(double neto)
    {
        DatosFactura f;
        f.fecha = kDia;
        f.proveedor = "Pérez & Hijos";
        f.neto = neto;
        f.letra = "B";
        f.sucursal = "00003";
        f.numero = "00001234";
        f.proximo_vencimiento = {2026, 12, 1};
        return agregar_factura(app.ctx(), f).toLongLong();
    }
    void pagar(qint64 deuda, double monto)
    {
        ASSERT_EQ(agregar_pago(app.ctx(), {deuda, kDia, "", "", "Efectivo", "", monto, {2027, 1, 5}}), "");
    }
    qint64 transferir()
    {
        return agregar_transferencia(app.ctx(), kDia, "Efectivo", "Banco", 250, "").toLongLong();
    }
    // The listed rows, or one cell of each.
    QStringList listar(const QString &texto = {}, bool solo_impagos = false, int columna = -1)
    {
        FiltroPagos f = filtro_inicial(app.ctx());
        f.texto = texto;
        f.solo_impagos = solo_impagos;
        QStringList out;
        const std::vector<QString> lineas = buscar_pagos(app.ctx(), f).value();
        for (const QString &fila : lineas)
            out << (columna < 0 ? fila : fila.split('\t').at(columna));
        return out;
    }
};

TEST_F(LedgerListing, ADebtsStateAndOwedAmountFollowItsPayments)
{
    // total, payments, the newest payment deleted, owed, state, due text
    for (const auto &[total, pagos, borrar, adeudado, pagada, vto] :
         Rows<double, std::vector<double>, bool, QString, QString, QString>{
             {12000, {}, false, "12000", "No", "Vto. 10/12/2026"},
             {12000, {5000}, false, "7000", "Parcialmente", "Vto. 05/01/2027"},
             {12000, {5000, 7000}, false, "0", "Si", ""},
             {0.88, {0.29, 0.29, 0.30}, false, "0", "Si", ""},
             {12000, {5000, 7000}, true, "7000", "Parcialmente", "Vto. 05/01/2027"},
             {12000, {5000}, true, "12000", "No", "Vto. 05/01/2027"},
         }) {
        SCOPED_TRACE(pagos.size());
        nq("DELETE FROM Vendrix_Pagos");
        const qint64 id = gasto(total);
        for (double p : pagos)
            pagar(id, p);
        if (borrar) {
            ASSERT_TRUE(eliminar_pago_del_historial(
                app.ctx(), q1("SELECT max(ID) FROM Vendrix_Pagos WHERE TIPO = 'PAGO'").toLongLong(), id));
        }
        EXPECT_EQ(listar(),
                  QStringList(QString("%1\t20/11/2026\tGASTO\tLuz del Sur\tGasto Servicios\t%2\t%3\t%4\t%5")
                                  .arg(id)
                                  .arg(QString::number(total).replace('.', ','), adeudado, pagada, vto)));
    }
}

TEST_F(LedgerListing, InvoicesAndBothRowsOfATransferAreListedAndOnlyUnpaidKeepsTheOpenDebts)
{
    const qint64 f = factura(1210.5);
    pagar(f, 10);
    const qint64 segunda = transferir();
    pagar(gasto(100), 100);
    gasto(100);
    const QStringList lista = listar();
    ASSERT_EQ(lista.size(), 5); // never a payment
    EXPECT_EQ(
        lista.mid(0, 3),
        QStringList({QString("%1\t20/11/2026\tFACTURA\tPérez & Hijos\tFactura B-00003-00001234 cargada en el "
                             "sistema\t1210,5\t1200,5\tParcialmente\tVto. 05/01/2027")
                         .arg(f),
                     QString("%1\t20/11/2026\tTRANSFERENCIA\t\tTransferencia de `Banco` a "
                             "`Efectivo`\t250\t0\tSi\t")
                         .arg(segunda - 1),
                     QString("%1\t20/11/2026\tTRANSFERENCIA\t\tTransferencia de `Efectivo` a "
                             "`Banco`\t-250\t0\tSi\t")
                         .arg(segunda)}));
    EXPECT_EQ(listar({}, true, 7), QStringList({"Parcialmente", "No"}));
}

TEST_F(LedgerListing, TheSearchMatchesSupplierDateLetterAndNumberWithinInclusiveDates)
{
    gasto(100, "Luz del Sur");                 // no letter nor number: NULL
    factura(50);                               // Pérez & Hijos 20/11/2026 B 00001234
    gasto(1, "Al borde", QDate(2025, 11, 23)); // the first day of the range
    gasto(2, "Al borde", QDate(2026, 11, 23)); // the last
    gasto(3, "Fuera", QDate(2025, 11, 22));    // a day before it
    for (const auto &[texto, proveedores] : Rows<QString, QStringList>{
             {"", {"Al borde", "Luz del Sur", "Pérez & Hijos", "Al borde"}}, // by date
             {"luz", {"Luz del Sur"}},
             {"20/11/2026", {"Luz del Sur", "Pérez & Hijos"}},
             {"2026 B 0000123", {"Pérez & Hijos"}},
             {"Fuera", {}},
         }) {
        SCOPED_TRACE(texto.toStdString());
        EXPECT_EQ(listar(texto, false, 3), proveedores);
    }
}

TEST_F(LedgerListing, DeletingAsksByKindWithTheStoredSumOfThePayments)
{
    const qint64 g = gasto(12000);
    pagar(g, 5000);
    const qint64 c = gasto(0.88);
    pagar(c, 0.29);
    pagar(c, 0.30);
    const qint64 f = factura(10);
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

    app.op.clear();
    app.op.answer(true);
    EXPECT_TRUE(eliminar_pago(app.ctx(), QString::number(g)));
    EXPECT_EQ(q1("SELECT count(*) FROM Vendrix_Pagos"), "4");
}

TEST_F(LedgerListing, NothingSelectedIsRefusedWithoutAQuestionOrAMail)
{
    EXPECT_FALSE(eliminar_pago(app.ctx(), "abc"));
    EXPECT_EQ(app.op.lines(),
              QStringList({"error|Eliminar Pagos|No hay pagos seleccionados en la grilla de Pagos "
                           "para ser eliminados. Seleccione un registro e intente nuevamente."}));
    app.op.clear();
    EXPECT_EQ(enviar_pagos_por_mail(app.ctx(), {}), "");
    EXPECT_EQ(app.op.lines(),
              QStringList({"error|Error al enviar mail.|No hay ningún valor seleccionado. "
                           "Seleccione almenos un elemento antes de generar un correo electrónico."}));
}

TEST_F(LedgerListing, AListThatCantBeReadSaysSoAndLogsTheDatabasesError)
{
    app.failing_db().fail_matching("FROM Vendrix_Pagos FA");
    EXPECT_FALSE(buscar_pagos(app.ctx(), filtro_inicial(app.ctx())));
    EXPECT_EQ(
        app.op.lines(),
        QStringList({"error|Error al intentar cargar las Grillas.|ER PAGOS01: Se produjo un error al cargar "
                     "la información en la Grilla de Pagos. Cierre Vendrix e intente nuevamente."}));
    const QString line = app.log_messages().filter("ER PAGOSPRO01 - ").value(0);
    EXPECT_TRUE(line.endsWith(" populate_grilla_pagos.")) << line.toStdString();
    EXPECT_GT(line.size(), QString("ER PAGOSPRO01 -  populate_grilla_pagos.").size());
}

TEST_F(LedgerListing, DeletingATransferFromEitherRowLeavesOneOrphanPayment)
{
    for (const int fila : {0, 1}) {
        SCOPED_TRACE(fila);
        nq("DELETE FROM Vendrix_Pagos");
        const qint64 segunda = transferir();
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
        EXPECT_TRUE(listar().isEmpty());
    }
}

TEST_F(LedgerListing, TheMailCarriesTheMarkedRowsWholeAndTheShopsName)
{
    test::crear_archivo_de_precios(
        app.ruta("Vendrix.vdrxdb"),
        {"INSERT INTO xls_parametros (CLAVE, VALOR) VALUES ('CLIENTE', 'Ferretería "
         "Don Tito & Cía')"});
    factura(1210.5);
    gasto(100);
    std::vector<QStringList> marcadas;
    for (const QString &l : listar())
        marcadas.push_back(l.split('\t'));
    const QString url = enviar_pagos_por_mail(app.ctx(), marcadas);
    const QString prefijo = "mailto:?subject=Vendrix - Egresos.&body=";
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
}

} // namespace
} // namespace vendrix

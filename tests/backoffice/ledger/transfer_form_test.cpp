// The transfer form's checks and what a transfer leaves in the ledger.
#include "backoffice/ledger/ledger_store.h"
#include "backoffice/ledger/transfer_form.h"
#include "core/db_helpers.h"
#include "core/migrations.h"
#include "core/rows.h"

namespace vendrix {
namespace {

class TransferFormTest : public test::ShopTest {
protected:
    TransferFormTest() { EXPECT_TRUE(ejecutar_migraciones(app.ctx()).fallidas.isEmpty()); }
    QStringList filas_pagos()
    {
        return filas("SELECT TIPO, Medio_de_pago, ifnull(Medio_de_pago_origen, ''), Total_Pago, Notas FROM "
                     "Vendrix_Pagos ORDER BY ID");
    }
};

TEST_F(TransferFormTest, ChecksTheTotalAndTheMethodsThenWritesTheFourRows)
{
    TransferForm form(app.ctx(), kAgregarTransferencia, -1);
    EXPECT_TRUE(form.cargar().medios.contains("Efectivo"));
    const QString cero = "El total a Transferir tiene que ser mayor que cero.";
    const QString iguales = "El Origen y el Destino de la Transferencia no pueden ser iguales.";
    // total, destination, message on saving, on leaving the total
    for (const auto &[total, destino, guardar, salir] : Rows<QString, QString, QString, QString>{
             {"", "Banco", cero, "El valor del campo 'Total' es menor o igual a cero."},
             {"0", "Banco", cero, "El valor del campo 'Total' es menor o igual a cero."},
             {"abc", "Banco", cero,
              "El valor del campo 'Total' no es numerico, por favor intente nuevamente."},
             {"10", "Efectivo", iguales, ""},
         }) {
        app.op.clear();
        EXPECT_FALSE(form.guardar(QDate(2026, 11, 20), "Efectivo", destino, total, ""));
        EXPECT_EQ(form.salir_total(total), salir.isEmpty());
        EXPECT_EQ(app.op.texts(), salir.isEmpty() ? QStringList({guardar}) : QStringList({guardar, salir}));
    }
    app.op.clear();
    EXPECT_TRUE(form.medios_distintos("", ""));
    EXPECT_FALSE(form.medios_distintos("Banco", "Banco"));
    EXPECT_EQ(app.op.lines(), QStringList({"error|Error en los Datos|" + iguales}));
    EXPECT_TRUE(filas_pagos().isEmpty());

    app.op.clear();
    EXPECT_TRUE(form.guardar(QDate(2026, 11, 20), "Efectivo", "MercadoPago", "1500,5", "al banco"));
    EXPECT_EQ(app.op.lines(),
              QStringList({"inform|Salvar Datos|Se agrego una Transferencia Correctamente correctamente"}));
    EXPECT_EQ(filas_pagos(),
              QStringList({"TRANSFERENCIA|Efectivo|MercadoPago|1500.5|al banco",
                           "TRANSFERENCIA|MercadoPago|Efectivo|-1500.5|al banco",
                           "PAGO|Efectivo||-1500.5|al banco", "PAGO|MercadoPago||1500.5|al banco"}));
}

TEST_F(TransferFormTest, ModifyingShowsTheRowAndWritesNothing)
{
    ASSERT_NE(agregar_transferencia(app.ctx(), QDate(2026, 11, 20), "Efectivo", "Banco", 250, "caja"), "0");
    const QStringList antes = filas_pagos();
    app.op.clear();
    TransferForm form(app.ctx(), kModificarTransferencia,
                      q1("SELECT MIN(ID) FROM Vendrix_Pagos").toLongLong());
    const VistaTransferencia v = form.cargar();
    EXPECT_EQ(QStringList({v.marco, v.boton, v.titulo, v.origen, v.destino, v.total, v.notas}),
              QStringList({"Transferencia", "Modificar Transferencia", "Modificar Transferencia", "Banco",
                           "Efectivo", "250", "caja"}));
    EXPECT_TRUE(form.guardar(QDate(2026, 1, 1), "Banco", "Banco", "0", "otra"));
    EXPECT_EQ(app.op.lines(),
              QStringList({"inform|Salvar Datos|Se modificó la Transferencia Correctamente correctamente"}));
    EXPECT_EQ(filas_pagos(), antes);
}

} // namespace
} // namespace vendrix

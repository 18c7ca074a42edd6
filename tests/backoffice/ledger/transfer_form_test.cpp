// The transfer form's checks and what a transfer leaves in the ledger.
#include "backoffice/ledger/transfer_form.h"
#include "core/db_helpers.h"
#include "core/migrations.h"
#include "core/rows.h"

namespace vendrix {
namespace {

class TransferFormTest : public test::ShopTest {
protected:
    TransferFormTest()
    {
        EXPECT_TRUE(ejecutar_migraciones(app.ctx()).fallidas.isEmpty());
        app.op.clear();
    }
    QString filas_pagos()
    {
        return filas("SELECT TIPO, Medio_de_pago, ifnull(Medio_de_pago_origen, ''), Total_Pago, Notas FROM "
                     "Vendrix_Pagos ORDER BY ID")
            .join(" / ");
    }
};

TEST_F(TransferFormTest, AddingOffersThePaymentMethodsAndWritesTheFourRows)
{
    TransferForm form(app.ctx(), kAgregarTransferencia, -1);
    const VistaTransferencia v = form.cargar();
    EXPECT_EQ(
        QStringList({v.marco, v.boton, v.titulo, v.cancelar}),
        QStringList({"Agregar Transferencia", "Agregar Transferencia", "Agregar Transferencia", "Cancelar"}));
    EXPECT_EQ(v.medios,
              filas("SELECT forma_de_pago FROM Vendrix_FormasDePago WHERE tipo <> 'Solo Cobro' ORDER BY "
                    "forma_de_pago"));
    EXPECT_TRUE(v.medios.contains("Efectivo"));

    EXPECT_TRUE(form.guardar(QDate(2026, 11, 20), "Efectivo", "MercadoPago", "1500,5", "al banco"));
    EXPECT_EQ(app.op.lines(),
              QStringList({"inform|Salvar Datos|Se agrego una Transferencia Correctamente correctamente"}));
    EXPECT_EQ(filas_pagos(), "TRANSFERENCIA|Efectivo|MercadoPago|1500.5|al banco / "
                             "TRANSFERENCIA|MercadoPago|Efectivo|-1500.5|al banco / "
                             "PAGO|Efectivo||-1500.5|al banco / PAGO|MercadoPago||1500.5|al banco");
}

TEST_F(TransferFormTest, SavingRefusesANonPositiveTotalAndTheSameMethodTwice)
{
    TransferForm form(app.ctx(), kAgregarTransferencia, -1);
    for (const auto &[origen, destino, total, mensaje] : Rows<QString, QString, QString, QString>{
             {"Efectivo", "Banco", "", "El total a Transferir tiene que ser mayor que cero."},
             {"Efectivo", "Banco", "0", "El total a Transferir tiene que ser mayor que cero."},
             {"Efectivo", "Banco", "abc", "El total a Transferir tiene que ser mayor que cero."},
             {"Efectivo", "Efectivo", "10",
              "El Origen y el Destino de la Transferencia no pueden ser iguales."},
         }) {
        app.op.clear();
        EXPECT_FALSE(form.guardar(QDate(2026, 11, 20), origen, destino, total, ""));
        EXPECT_EQ(app.op.lines(), QStringList({"error|Error en los Datos|" + mensaje}));
    }
    EXPECT_EQ(q1("SELECT count(*) FROM Vendrix_Pagos"), "0");
}

TEST_F(TransferFormTest, LeavingTheTotalAndChangingAMethodCheckAtOnce)
{
    TransferForm form(app.ctx(), kAgregarTransferencia, -1);
    for (const auto &[total, mensaje] : Rows<QString, QString>{
             {"10,5", ""},
             {"abc", "El valor del campo 'Total' no es numerico, por favor intente nuevamente."},
             {"0", "El valor del campo 'Total' es menor o igual a cero."},
             {"", "El valor del campo 'Total' es menor o igual a cero."},
         }) {
        app.op.clear();
        EXPECT_EQ(form.salir_total(total), mensaje.isEmpty());
        EXPECT_EQ(app.op.texts(), mensaje.isEmpty() ? QStringList() : QStringList({mensaje}));
    }
    app.op.clear();
    EXPECT_TRUE(form.medios_distintos("Efectivo", "Banco"));
    EXPECT_TRUE(form.medios_distintos("", ""));
    EXPECT_FALSE(form.medios_distintos("Banco", "Banco"));
    EXPECT_EQ(app.op.lines(),
              QStringList({"error|Error en los Datos|El Origen y el Destino de la Transferencia no "
                           "pueden ser iguales."}));
}

TEST_F(TransferFormTest, ModifyingShowsTheRowAndWritesNothing)
{
    TransferForm alta(app.ctx(), kAgregarTransferencia, -1);
    ASSERT_TRUE(alta.guardar(QDate(2026, 11, 20), "Efectivo", "Banco", "250", "caja"));
    const qint64 id = q1("SELECT MIN(ID) FROM Vendrix_Pagos").toLongLong();
    const QString antes = filas_pagos();
    app.op.clear();
    TransferForm form(app.ctx(), kModificarTransferencia, id);
    const VistaTransferencia v = form.cargar();
    EXPECT_EQ(QStringList({v.marco, v.boton, v.titulo, v.origen, v.destino, v.total, v.notas}),
              QStringList({"Transferencia", "Modificar Transferencia", "Modificar Transferencia", "Banco",
                           "Efectivo", "250", "caja"}));
    EXPECT_TRUE(form.guardar(QDate(2026, 1, 1), "Banco", "Banco", "0", "otra"));
    EXPECT_EQ(app.op.lines(),
              QStringList({"inform|Salvar Datos|Se modificó la Transferencia Correctamente correctamente"}));
    EXPECT_EQ(filas_pagos(), antes);
    EXPECT_TRUE(app.log_messages().contains("Command_Agregar --> SE MODIFICA UNA TRANSFERENCIA."));
}

} // namespace
} // namespace vendrix

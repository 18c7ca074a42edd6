// The ledger's add and edit form on screen: the frames each mode shows, an
// expense saved as paid, and a payment above the debt held back until it
// is put right.
#include "backoffice/ledger/ledger_store.h"
#include "core/migrations.h"
#include "screens/pantalla.h"
#include "screens/payments/frm_pagos.h"
#include "support/test_context.h"

#include <QDateEdit>
#include <QGroupBox>

namespace vendrix::screens {
namespace {

class PantallaPagos : public ::testing::Test {
protected:
    PantallaPagos()
    {
        app.copy_seed("clientes.install", "clientes.vdrx");
        EXPECT_TRUE(ejecutar_migraciones(app.ctx()).fallidas.isEmpty());
        app.op.clear();
    }
    QStringList visibles(const QDialog &form)
    {
        QStringList out;
        for (const FrameDePagos &frame : frames_de_pagos())
            if (test::hijo<QGroupBox>(form, frame.nombre)->isVisible())
                out << frame.nombre;
        return out;
    }
    void elegir(const QDialog &form, const char *combo, const QString &valor)
    {
        auto *c = test::hijo<QComboBox>(form, combo);
        c->setCurrentText(valor);
        Q_EMIT c->textActivated(valor);
    }
    QStringList movimientos()
    {
        const Matrix m = app.db().execQ_matriz(
            "SELECT TIPO || '|' || Medio_de_pago || '|' || Total_Pago FROM Vendrix_Pagos ORDER BY ID",
            "internal");
        QStringList out;
        for (int r = 0; r < m.filas(); ++r)
            out << m.at(0, r);
        return out;
    }

    test::TestApp app;
};

TEST_F(PantallaPagos, AnExpenseSavedAsPaidWritesItsPaymentToo)
{
    FrmPagos form(app.ctx(), {"AGREGAR_GASTO", -1, {}, {}});
    form.show();
    EXPECT_EQ(visibles(form), QStringList({"Frame_Datos", "Frame_Notas"}));
    EXPECT_EQ(form.windowTitle(), "Agregar Gasto");
    EXPECT_TRUE(test::hijo<QDateEdit>(form, "DTPicker_fecha_gasto")->calendarPopup());

    elegir(form, "Combo_destinosdepago_gasto", "Servicios");
    EXPECT_FALSE(test::hijo<QComboBox>(form, "ComboBox_Proveedores_gasto")->isEnabled());
    QLineEdit *total = test::hijo(form, "Text_Total_Gasto");
    test::escribir(total, "12a000");
    QTest::keyClick(total, Qt::Key_Return);
    EXPECT_EQ(total->text(), "12000"); // the key filter let no letter in
    EXPECT_FALSE(test::hijo<QComboBox>(form, "Combo_mediosdePago_Gasto")->isEnabled());
    elegir(form, "Combo_pagada_pago", "Si");
    elegir(form, "Combo_mediosdePago_Gasto", "Banco");
    test::hijo<QPushButton>(form, "Command_Agregar")->click();
    EXPECT_EQ(form.result(), QDialog::Accepted);
    EXPECT_EQ(movimientos(), QStringList({"GASTO||12000", "PAGO|Banco|-12000"}));
    EXPECT_EQ(app.op.lines(), QStringList("inform|Salvar Datos|Se agrego un Gasto correctamente"));
}

TEST_F(PantallaPagos, APaymentAboveTheDebtHoldsTheSaveBack)
{
    const QString id =
        agregar_gasto(app.ctx(), {QDate(2026, 11, 20), "Servicios", " ", "", "", 12000, {}, "No"});
    FrmPagos form(app.ctx(), {"AGREGAR_PAGO", id.toLongLong(), {}, {}});
    form.show();
    EXPECT_EQ(visibles(form),
              QStringList({"Frame_Datos", "Frame_pagos_parciales", "Frame_Pagos", "Frame_Notas"}));
    EXPECT_FALSE(test::hijo(form, "Text_Total_Gasto")->isEnabled());
    QLineEdit *pago = test::hijo(form, "Text_total_pago");
    EXPECT_EQ(pago->text(), "12000");

    test::escribir(pago, "13000");
    QTest::keyClick(pago, Qt::Key_Return);
    EXPECT_EQ(
        app.op.texts(),
        QStringList("El total del pago supera al importe adeudado ($ 12000), por favor intente nuevamente."));
    test::hijo<QPushButton>(form, "Command_Agregar")->click();
    EXPECT_EQ(movimientos(), QStringList("GASTO||12000"));

    test::escribir(pago, "12000");
    QTest::keyClick(pago, Qt::Key_Return);
    EXPECT_FALSE(test::hijo<QDateEdit>(form, "DTPicker_proximo_vencimiento")->isEnabled());
    elegir(form, "Combo_mediosdePago_Pago", "Banco");
    test::hijo<QPushButton>(form, "Command_Agregar")->click();
    EXPECT_EQ(form.result(), QDialog::Accepted);
    EXPECT_EQ(movimientos(), QStringList({"GASTO||12000", "PAGO|Banco|-12000"}));
    EXPECT_EQ(app.op.texts().last(), "Se agrego un Pago correctamente");
}

} // namespace
} // namespace vendrix::screens

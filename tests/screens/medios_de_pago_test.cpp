// The payment methods dialog: its grid, an addition through the form, the
// kind chosen over its cell and a deletion by a click on the last column.
#include "core/migrations.h"
#include "screens/checkout/frm_medios_de_pago.h"
#include "screens/pantalla.h"
#include "support/test_context.h"

namespace vendrix::screens {
namespace {

TEST(MediosDePago, TheGridShowsTheMethodsAndTheFormAddsOne)
{
    test::TestApp app;
    app.copy_seed("clientes.install", "clientes.vdrx");
    ASSERT_TRUE(ejecutar_migraciones(app.ctx()).fallidas.isEmpty());
    FrmMediosDePago form(app.ctx());
    form.show();
    widgets::LynxGrid &grilla = *form.grilla();
    QStringList columnas;
    for (int c = 0; c < grilla.Cols(); ++c)
        columnas << grilla.ColHeading(c) + (grilla.view()->isColumnHidden(c) ? "*" : "");
    EXPECT_EQ(columnas, QStringList({"ID*", "READONLY*", "Forma de Pago / Cobro", "Descripción",
                                     "Cant. Cuotas", "% Recargo", "Tipo", "Eliminar"}));
    ASSERT_EQ(grilla.Rows(), 7);
    EXPECT_EQ(grilla.CellText(1, 2), "Banco");
    EXPECT_TRUE(grilla.CellImage(0, 7).isNull()); // Ajustes came with the database
    EXPECT_FALSE(grilla.CellImage(1, 7).isNull());

    test::escribir(test::hijo(form, "Text_mediodepago"), "Vale");
    test::escribir(test::hijo(form, "Text_cuotas"), "3");
    test::hijo<QComboBox>(form, "Combo_tipo_de_medio")->setCurrentText("Solo Pago");
    app.op.answer(true);
    test::hijo<QPushButton>(form, "Command_clipro_salvar")->click();
    EXPECT_EQ(app.db().execQ1("SELECT Forma_de_Pago || cantidad_cuotas || Tipo FROM Vendrix_FormasDePago "
                              "WHERE ReadOnly = 0 ORDER BY ID DESC",
                              "internal"),
              "Vale3Solo Pago");
    ASSERT_EQ(grilla.Rows(), 8);
    EXPECT_EQ(grilla.CellText(grilla.Row(), 2), "Vale");
    EXPECT_EQ(test::hijo(form, "Text_cuotas")->text(), "1");

    // The kind of Banco through the combo over its cell.
    EXPECT_FALSE(grilla.ForceCellEdit(1, 6));
    auto *tipo = test::hijo<QComboBox>(form, "Combo_tipo_medio_edit");
    ASSERT_TRUE(tipo->isVisible());
    Q_EMIT tipo->textActivated("Solo Cobro");
    EXPECT_EQ(grilla.CellText(1, 6), "Solo Cobro");
    EXPECT_EQ(
        app.db().execQ1("SELECT Tipo FROM Vendrix_FormasDePago WHERE Forma_de_Pago = 'Banco'", "internal"),
        "Solo Cobro");

    // A click on the delete picture of Banco.
    app.op.answer(true);
    QTableView &vista = *grilla.view();
    QTest::mouseClick(vista.viewport(), Qt::LeftButton, {},
                      vista.visualRect(vista.model()->index(1, 7)).center());
    EXPECT_EQ(grilla.Rows(), 7);
    EXPECT_EQ(app.db().execQ1("SELECT count(*) FROM Vendrix_FormasDePago WHERE Forma_de_Pago = 'Banco'",
                              "internal"),
              "0");
}

} // namespace
} // namespace vendrix::screens

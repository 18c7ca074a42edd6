// The "Pagos" tab on screen: a search with Enter fills the grid, and the
// actions follow the selected row.
#include "backoffice/ledger/ledger_store.h"
#include "core/migrations.h"
#include "screens/pantalla.h"
#include "screens/payments/tab_pagos.h"
#include "support/recording_desktop.h"
#include "support/test_context.h"
#include "widgets/lynx_grid.h"

#include <QDateEdit>

namespace vendrix::screens {
namespace {

TEST(TabPagosPantalla, EnterFillsTheGridAndAPaidRowTakesNoPayment)
{
    test::TestApp app;
    app.copy_seed("clientes.install", "clientes.vdrx");
    ASSERT_TRUE(ejecutar_migraciones(app.ctx()).fallidas.isEmpty());
    const QDate dia(2026, 11, 20);
    ASSERT_NE(agregar_gasto(app.ctx(), {dia, "Servicios", "Luz del Sur", "", "", 12000, {}, "No"}), "0");
    ASSERT_NE(
        agregar_gasto(app.ctx(), {dia, "Servicios", "Gas Norte", "", "", 500, {}, "Si"}, QString("Efectivo")),
        "0");
    test::EscritorioAnotado escritorio;
    TabPagos tab(app.ctx(), escritorio);
    tab.iniciar_tab_pagos();
    tab.show();
    EXPECT_EQ(test::hijo<QDateEdit>(tab, "DTPicker_Pagos_desde")->date(), QDate(2025, 11, 23));
    EXPECT_EQ(test::hijo<QDateEdit>(tab, "DTPicker_Pagos_hasta")->date(), QDate(2026, 11, 23));
    widgets::LynxGrid &grilla = *tab.grilla();
    EXPECT_FALSE(tab.accion(TabPagos::kAgregarPago)->isEnabled());

    test::escribir(test::hijo(tab, "Text_Pagos_buscar"), "Norte");
    QTest::keyClick(test::hijo(tab, "Text_Pagos_buscar"), Qt::Key_Return);
    ASSERT_EQ(grilla.Rows(), 1);
    EXPECT_EQ(grilla.CellText(0, 7), "Si");
    EXPECT_TRUE(tab.accion(TabPagos::kEditar)->isEnabled());
    EXPECT_FALSE(tab.accion(TabPagos::kAgregarPago)->isEnabled());

    test::hijo(tab, "Text_Pagos_buscar")->clear();
    test::hijo<QPushButton>(tab, "Pagos_Acciones_4")->click();
    ASSERT_EQ(grilla.Rows(), 2);
    EXPECT_EQ(grilla.CellText(0, 3), "Luz del Sur");
    EXPECT_TRUE(tab.accion(TabPagos::kAgregarPago)->isEnabled());
    grilla.setRowSelected(0, false);
    grilla.setRow(1);
    grilla.setRowSelected(1, true);
    EXPECT_FALSE(tab.accion(TabPagos::kAgregarPago)->isEnabled());
    EXPECT_TRUE(tab.accion(TabPagos::kEditar)->isEnabled());
    // The mail carries the marked row to the desktop's mail program.
    test::hijo<QPushButton>(tab, "Pagos_Acciones_2")->click();
    ASSERT_EQ(escritorio.abiertas.size(), 1);
    EXPECT_TRUE(escritorio.abiertas[0].startsWith("mailto:?subject=Vendrix - Egresos.&body=Buenos"));
    EXPECT_TRUE(escritorio.abiertas[0].contains("Gas Norte"));
    EXPECT_FALSE(escritorio.abiertas[0].contains("Luz del Sur"));
    grilla.setRowSelected(1, false);
    EXPECT_FALSE(tab.accion(TabPagos::kEditar)->isEnabled());
    EXPECT_TRUE(app.op.empty());
}

} // namespace
} // namespace vendrix::screens

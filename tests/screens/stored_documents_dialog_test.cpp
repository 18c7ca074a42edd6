// A cart's "Abrir": the list of stored documents and the pick that fills
// the cart.
#include "sales/stored_carts/documento_guardado.h"
#include "sales/tienda.h"
#include "screens/carrito_tab.h"
#include "screens/pantalla.h"
#include "screens/stored_documents_dialog.h"

namespace vendrix::screens {
namespace {

using test::hijo;

class AbrirCarrito : public test::Tienda {};

TEST_F(AbrirCarrito, PickingADocumentInTheListFillsTheCart)
{
    test::guardar_documento(app.ctx(), "Factura a emitir", "261119-180000", 0, "Efectivo",
                            {{"Acme", "T1", "T", 1, 600}});
    test::guardar_documento(app.ctx(), "Carrito", "261120-091500", 0, "Efectivo",
                            {{"Acme", "T2", "T", 2, 2000}});
    Carrito carrito(2);
    CarritoTab tab(app.ctx(), carrito);
    test::en_el_dialogo<StoredDocumentsDialog>([&](StoredDocumentsDialog &d) {
        auto *g = hijo<widgets::LynxGrid>(d, "DataGridViewFacturas");
        // Newest first; the older one is a customer without a business name.
        EXPECT_EQ(QStringList({g->CellText(0, 0), g->CellText(1, 1), g->CellText(1, 2), g->CellText(1, 5)}),
                  QStringList({"2", "20/11/2026", "F - CONSUMIDOR FINAL", "600,00"}));
        g->setRow(1);
        hijo<QPushButton>(d, "Command_ponerenelcarrito")->click();
    });
    hijo<QPushButton>(tab, "c_abrir")->click();
    EXPECT_EQ(app.op.shown.size(), 1u); // discounts and surcharges don't come back
    widgets::LynxGrid &g = *tab.grilla();
    EXPECT_EQ(QStringList({QString::number(g.Rows()), g.CellText(0, 5), g.TotalsLineCaption(1),
                           tab.caja_total()->text()}),
              QStringList({"1", "1", "Carrito guardado: 261119-180000", "600,00"}));
}

} // namespace
} // namespace vendrix::screens

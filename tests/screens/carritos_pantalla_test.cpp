// The cart strip, a cart's page and the add-article dialog.
#include "sales/tienda.h"
#include "screens/carts/carrito_tab.h"
#include "screens/carts/frm_agregar_articulo.h"
#include "screens/carts/tab_changos.h"
#include "screens/pantalla.h"

#include <QFocusEvent>
#include <QSignalSpy>

namespace vendrix::screens {
namespace {

using test::en_el_dialogo;
using test::hijo;

class Pantalla : public test::Tienda {
protected:
    void SetUp() override
    {
        Tienda::SetUp();
        ajuste("carritos", "1");
        tabs = std::make_unique<TabChangos>(app.ctx(), new QWidget);
    }

    widgets::LynxGrid &grilla(int n) { return *tabs->pagina(n)->grilla(); }
    QString total(int n) { return tabs->pagina(n)->caja_total()->text(); }

    std::unique_ptr<TabChangos> tabs;
};

TEST_F(Pantalla, TheDialogOpensOnTheQuantityAndTheCartEditsInPlace)
{
    en_el_dialogo<FrmAgregarArticulo>([](FrmAgregarArticulo &d) {
        // The quantity has the focus with its "1" selected: the operator
        // types over it and presses Enter.
        QLineEdit *cantidad = hijo<QLineEdit>(d, "cant_agregar");
        EXPECT_EQ(d.focusWidget(), cantidad);
        EXPECT_EQ(cantidad->selectedText(), "1");
        QTest::keyClicks(cantidad, QStringLiteral("2x")); // letters never reach the box
        EXPECT_EQ(hijo<QLineEdit>(d, "total_por_articulos")->text(), "1200,00");
        hijo<QWidget>(d, "ud_cant_agregar")->findChildren<QAbstractButton *>().at(0)->click(); // one more
        QTest::keyClick(cantidad, Qt::Key_Return);
    });
    tabs->agregar_desde_lista(2, tornillo());
    EXPECT_EQ(tabs->currentIndex(), 2);
    widgets::LynxGrid &g = grilla(2);
    ASSERT_EQ(g.Rows(), 1);
    EXPECT_EQ(QStringList({g.CellText(0, 0), g.CellText(0, 1), g.CellText(0, 3)}),
              QStringList({"3", "Tornillo 1/4", "1800"}));
    EXPECT_EQ(total(2), "1800,00");
    // Four columns shown; only carts 2 to 4 format the description.
    EXPECT_TRUE(g.ColVisible(3));
    EXPECT_FALSE(g.ColVisible(4));
    EXPECT_EQ(QStringList({g.ColHeading(2), g.ColHeading(3), g.TotalsLineCaption(0), g.TotalsLineCaption(3)}),
              QStringList({"Precio Unit. (C/iva)", "Importe (C/iva)", "Cant. Art.:", "Total:"}));
    EXPECT_EQ(QStringList({g.ColFormat(1), grilla(1).ColFormat(1)}), QStringList({"#", ""}));

    // The quantity is edited in place; a comma is the decimal mark.
    ASSERT_TRUE(g.ForceCellEdit(0, 0));
    test::escribir(test::open_editor(g), QStringLiteral("2,5a"));
    g.CommitEdit();
    EXPECT_EQ(g.CellText(0, 3), "1500");
    EXPECT_EQ(total(2), "1500");
    EXPECT_EQ(tabs->carritos().carrito(2).celda(0, kColCantidad), "2,5");
    // A cleared cell isn't a number: the message, and the old value stays.
    ASSERT_TRUE(g.ForceCellEdit(0, 2));
    test::open_editor(g)->clear();
    g.CommitEdit();
    EXPECT_EQ(app.op.shown.size(), 1u);
    EXPECT_EQ(g.CellText(0, 2), "600");
    EXPECT_FALSE(g.ForceCellEdit(0, 1)); // only quantity and price take typing
    EXPECT_FALSE(g.ForceCellEdit(0, 3));
}

TEST_F(Pantalla, TheCartButtons)
{
    CarritoTab &pagina = *tabs->pagina(4);
    auto pulsar = [&](const char *nombre) { hijo<QPushButton>(pagina, nombre)->click(); };
    pulsar("c4_agregar");
    pulsar("c4_agregar");
    EXPECT_EQ(grilla(4).Rows(), 2);
    grilla(4).setRow(1);
    pulsar("c4_eliminar");
    EXPECT_EQ(grilla(4).Rows(), 1);
    app.op.answer(true);
    pulsar("c4_vaciar");
    EXPECT_EQ(grilla(4).Rows(), 0);
    EXPECT_EQ(pagina.caja_total()->text(), "");
    pulsar("c_recalcular");
    EXPECT_EQ(app.op.shown.back().title, "Error al recalcular carrito");
}

TEST_F(Pantalla, RenamingOnLeavingTheNameBoxEvenIfCancelled)
{
    QSignalSpy renombrado(tabs.get(), &TabChangos::nombre_carrito_cambiado);
    en_el_dialogo<FrmAgregarArticulo>([](FrmAgregarArticulo &d) {
        QLineEdit *nombre = hijo<QLineEdit>(d, "Text_nombre_Carrito");
        EXPECT_EQ(nombre->text(), "Carrito 2");
        nombre->setText(QStringLiteral("Mostrador"));
        QFocusEvent salida(QEvent::FocusOut);
        QApplication::sendEvent(nombre, &salida);
        hijo<QPushButton>(d, "Command2")->click();
    });
    tabs->agregar_desde_lista(2, tornillo());
    EXPECT_EQ(tabs->tabText(2), "Mostrador");
    EXPECT_EQ(renombrado.count(), 1);
    EXPECT_EQ(app.ctx().leer_parametro(QStringLiteral("nombre_carrito_2")), "Mostrador");
    EXPECT_EQ(grilla(2).Rows(), 0);
    EXPECT_EQ(tabs->currentIndex(), 2);
}

} // namespace
} // namespace vendrix::screens

// The cart strip, a cart's page and the add-article dialog driven through
// their real widgets, offscreen.
#include "catalogue/pricing/supplier_rules/rule_store.h"
#include "sales/agregar_articulo.h"
#include "sales/tienda.h"
#include "screens/carrito_tab.h"
#include "screens/frm_agregar_articulo.h"
#include "screens/panel_articulo.h"
#include "screens/tab_changos.h"
#include "screens/tab_listas.h"
#include "widgets/lynx_grid.h"

#include <QApplication>
#include <QCheckBox>
#include <QFocusEvent>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <QTableView>
#include <QTest>
#include <QTimer>

#include <functional>

namespace vendrix::screens {
namespace {

class Pantalla : public test::Tienda {
protected:
    void SetUp() override
    {
        Tienda::SetUp();
        ajuste("carritos", "1");
        tabs = std::make_unique<TabChangos>(app.ctx(), new QWidget);
    }

    // Runs `paso` on the add-article dialog once it is on screen.
    void en_el_dialogo(std::function<void(FrmAgregarArticulo &)> paso)
    {
        QTimer::singleShot(0, [paso] {
            auto *dialogo = qobject_cast<FrmAgregarArticulo *>(QApplication::activeModalWidget());
            ASSERT_NE(dialogo, nullptr);
            paso(*dialogo);
        });
    }

    template <typename T> static T *control(QWidget &padre, const char *nombre)
    {
        T *c = padre.findChild<T *>(QString::fromUtf8(nombre));
        EXPECT_NE(c, nullptr) << nombre;
        return c;
    }

    static void escribir(QLineEdit *box, const char *texto)
    {
        box->selectAll();
        QTest::keyClicks(box, QString::fromUtf8(texto));
    }

    // The newest editor of a grid; closed ones wait for their deletion.
    static QLineEdit *editor_abierto(widgets::LynxGrid &g)
    {
        const QList<QLineEdit *> editores = g.view()->viewport()->findChildren<QLineEdit *>();
        return editores.isEmpty() ? nullptr : editores.last();
    }

    widgets::LynxGrid &grilla(int n) { return *tabs->pagina(n)->grilla(); }
    QString total(int n) { return tabs->pagina(n)->caja_total()->text(); }

    std::unique_ptr<TabChangos> tabs;
};

TEST_F(Pantalla, AddToCartTwoThroughTheDialogEditAQuantityAndSeeTheTotal)
{
    en_el_dialogo([](FrmAgregarArticulo &d) {
        QLineEdit *cantidad = control<QLineEdit>(d, "cant_agregar");
        // Letters never reach the box.
        escribir(cantidad, "2x");
        EXPECT_EQ(cantidad->text(), "2");
        EXPECT_EQ(control<QLineEdit>(d, "total_por_articulos")->text(), "1200,00");
        EXPECT_EQ(control<QLineEdit>(d, "Text_cantxprecio")->text(), "600,00 c/u");
        control<QPushButton>(d, "Command1")->click();
    });
    // The article as the operator finds it: searched, its row loaded into
    // the price panel.
    RuleStore reglas;
    PanelArticulo panel(app.ctx(), reglas);
    TabListas lista(app.ctx());
    QTest::keyClicks(lista.textoBuscar(), QStringLiteral("1/4"));
    QTest::keyClick(lista.textoBuscar(), Qt::Key_Return);
    const widgets::LynxGrid &fila = *lista.grilla();
    ASSERT_EQ(fila.Rows(), 1);
    panel.cargar_fila(fila.CellText(0, 0), fila.CellText(0, 1));
    const std::optional<ArticuloParaCarrito> datos =
        leer_articulo_para_carrito(app.ctx(), 1, fila.CellText(0, 2), panel.detalle().panel);
    ASSERT_TRUE(datos.has_value());
    tabs->agregar_desde_lista(2, *datos);

    EXPECT_EQ(tabs->currentIndex(), 2);
    widgets::LynxGrid &g = grilla(2);
    EXPECT_EQ(g.objectName(), "DataGridView_carrito2");
    ASSERT_EQ(g.Rows(), 1);
    EXPECT_EQ(g.CellText(0, 0), "2");
    EXPECT_EQ(g.CellText(0, 1), "Tornillo 1/4");
    EXPECT_EQ(g.CellText(0, 3), "1200");
    EXPECT_EQ(total(2), "1200,00");
    EXPECT_EQ(g.TotalsCol(3), 1200.0);
    EXPECT_TRUE(grilla(1).Rows() == 0);

    // The quantity is edited in place; a comma is the decimal mark.
    ASSERT_TRUE(g.ForceCellEdit(0, 0));
    QLineEdit *editor = editor_abierto(g);
    ASSERT_NE(editor, nullptr);
    escribir(editor, "2,5a");
    EXPECT_EQ(editor->text(), "2,5");
    g.CommitEdit();
    EXPECT_EQ(g.CellText(0, 0), "2,5");
    EXPECT_EQ(g.CellText(0, 3), "1500");
    EXPECT_EQ(total(2), "1500");
    EXPECT_EQ(tabs->carritos().carrito(2).celda(0, kColCantidad), "2,5");

    // A cleared cell isn't a number: the message, and the old value stays.
    ASSERT_TRUE(g.ForceCellEdit(0, 2));
    editor_abierto(g)->clear();
    g.CommitEdit();
    EXPECT_EQ(app.op.lines(),
              QStringList{"error|Error en los Datos|Hay un error en los datos ingresados. El formato "
                          "no es numérico."});
    EXPECT_EQ(g.CellText(0, 2), "600");
    EXPECT_EQ(total(2), "1500");

    // Only quantity and price take typing.
    EXPECT_FALSE(g.ForceCellEdit(0, 1));
    EXPECT_FALSE(g.ForceCellEdit(0, 3));
}

TEST_F(Pantalla, TheCartGridShowsFourColumnsAndSumsTheAmount)
{
    widgets::LynxGrid &g = grilla(3);
    ASSERT_EQ(g.Cols(), kColumnasCarrito);
    EXPECT_EQ(g.ColHeading(2), "Precio Unit. (C/iva)");
    EXPECT_EQ(g.ColHeading(12), "Proveedor");
    for (int col = 0; col < kColumnasCarrito; ++col)
        EXPECT_EQ(g.ColVisible(col), col < 4) << col;
    EXPECT_TRUE(g.ColSummed(3));
    EXPECT_FALSE(g.ColSummed(0));
    EXPECT_EQ(g.TotalsLineCaption(0), "Cant. Art.:");
    EXPECT_EQ(g.TotalsLineCaption(3), "Total:");
    EXPECT_EQ(g.ColFormat(1), "#");
    EXPECT_EQ(grilla(1).ColFormat(1), "");
}

TEST_F(Pantalla, TheCartButtons)
{
    CarritoTab &pagina = *tabs->pagina(4);
    control<QPushButton>(pagina, "c4_agregar")->click();
    control<QPushButton>(pagina, "c4_agregar")->click();
    EXPECT_EQ(grilla(4).Rows(), 2);
    EXPECT_EQ(grilla(4).CellText(0, 0), "1");

    grilla(4).setRow(-1);
    control<QPushButton>(pagina, "c4_eliminar")->click();
    EXPECT_EQ(app.op.shown.back().title, "Carrito de compras.");
    grilla(4).setRow(1);
    control<QPushButton>(pagina, "c4_eliminar")->click();
    EXPECT_EQ(grilla(4).Rows(), 1);

    app.op.answer(true);
    control<QPushButton>(pagina, "c4_vaciar")->click();
    EXPECT_EQ(grilla(4).Rows(), 0);
    EXPECT_EQ(pagina.caja_total()->text(), "");

    app.op.clear();
    control<QPushButton>(pagina, "c_recalcular")->click();
    EXPECT_EQ(app.op.lines(),
              QStringList{"warn|Error al recalcular carrito|El carrito esta vacío. Agregue un "
                          "artículo e intente nuevamente"});
}

TEST_F(Pantalla, FunctionKeysAndOneOrFourCarts)
{
    QSignalSpy cambio(tabs.get(), &TabChangos::cantidad_carritos_cambiada);
    tabs->cambiar_cantidad_carritos(false);
    EXPECT_EQ(cambio.count(), 1);
    EXPECT_FALSE(cambio.last().at(0).toBool());
    EXPECT_EQ(app.ctx().leer_parametro(QStringLiteral("carritos")), "0");
    for (int tab = 2; tab <= 4; ++tab)
        EXPECT_FALSE(tabs->isTabVisible(tab));

    // F2 does nothing with one cart.
    tabs->setCurrentIndex(0);
    EXPECT_FALSE(tabs->tecla_funcion(Qt::Key_F2));
    EXPECT_EQ(tabs->currentIndex(), 0);
    EXPECT_TRUE(tabs->tecla_funcion(Qt::Key_F1));
    EXPECT_EQ(tabs->currentIndex(), 1);
    EXPECT_TRUE(tabs->tecla_funcion(Qt::Key_F5));
    EXPECT_EQ(tabs->currentIndex(), 0);

    tabs->cambiar_cantidad_carritos(true);
    EXPECT_TRUE(tabs->isTabVisible(4));
    EXPECT_TRUE(tabs->tecla_funcion(Qt::Key_F4));
    EXPECT_EQ(tabs->currentIndex(), 4);
}

TEST_F(Pantalla, RenamingOnLeavingTheNameBoxEvenIfCancelled)
{
    ajuste("nombre_carrito_3", "Mayorista");
    TabChangos con_nombres(app.ctx(), new QWidget);
    EXPECT_EQ(con_nombres.tabText(3), "Mayorista");
    EXPECT_EQ(con_nombres.tabText(1), "Carrito 1");

    QSignalSpy renombrado(tabs.get(), &TabChangos::nombre_carrito_cambiado);
    en_el_dialogo([](FrmAgregarArticulo &d) {
        QLineEdit *nombre = control<QLineEdit>(d, "Text_nombre_Carrito");
        EXPECT_EQ(nombre->text(), "Carrito 2");
        EXPECT_TRUE(nombre->isEnabled());
        nombre->setText(QStringLiteral("Mostrador"));
        QFocusEvent salida(QEvent::FocusOut);
        QApplication::sendEvent(nombre, &salida);
        control<QPushButton>(d, "Command2")->click();
    });
    tabs->agregar_desde_lista(2, tornillo());
    EXPECT_EQ(tabs->tabText(2), "Mostrador");
    EXPECT_EQ(renombrado.count(), 1);
    EXPECT_EQ(app.ctx().leer_parametro(QStringLiteral("nombre_carrito_2")), "Mostrador");
    EXPECT_TRUE(grilla(2).Rows() == 0);
    EXPECT_EQ(tabs->currentIndex(), 2);

    // A cart with lines: the box is greyed.
    agregar_con_figuras_del_panel(app.ctx(), tabs->carritos(), 2, tornillo());
    FrmAgregarArticulo dialogo(app.ctx(), tabs->carritos(), 2, tornillo());
    EXPECT_FALSE(control<QLineEdit>(dialogo, "Text_nombre_Carrito")->isEnabled());
    EXPECT_TRUE(control<QCheckBox>(dialogo, "Check_guardar")->isEnabled());
}

TEST_F(Pantalla, TheSearchAddsItsSingleResultToTheFirstCart)
{
    EXPECT_FALSE(tabs->agregar_automaticamente(tornillo()));
    EXPECT_EQ(grilla(1).Rows(), 0);

    ajuste("busqueda_agregar_automaticamente", "1");
    EXPECT_TRUE(tabs->agregar_automaticamente(tornillo()));
    EXPECT_EQ(grilla(1).Rows(), 1);
    EXPECT_EQ(tabs->currentIndex(), 1);
    EXPECT_EQ(log_de("ACT"), QStringList{"Se agregó un artículo de la grilla automáticamente al carrito"});

    // With one cart the search leaves the carts alone.
    ajuste("carritos", "0");
    EXPECT_FALSE(tabs->agregar_automaticamente(tornillo()));
    EXPECT_EQ(grilla(1).CellText(0, 0), "1");
}

TEST_F(Pantalla, ADoubleClickAddsToTheCartLastShown)
{
    tabs->setCurrentIndex(0);
    EXPECT_TRUE(tabs->agregar_con_doble_clic(tornillo()));
    EXPECT_EQ(grilla(1).Rows(), 1);
    EXPECT_EQ(tabs->currentIndex(), 0);

    tabs->setCurrentIndex(3);
    tabs->setCurrentIndex(0);
    EXPECT_TRUE(tabs->agregar_con_doble_clic(tornillo()));
    EXPECT_EQ(grilla(3).Rows(), 1);
    EXPECT_EQ(total(3), "600,00");

    ajuste("carritos", "0");
    EXPECT_FALSE(tabs->agregar_con_doble_clic(tornillo()));
    EXPECT_EQ(grilla(3).Rows(), 1);
}

} // namespace
} // namespace vendrix::screens

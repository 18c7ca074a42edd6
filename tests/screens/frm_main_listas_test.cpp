// The main window on a small shop: the load, the search into the panel and
// the carts, the function keys, one cart, the counter's screen size.
#include "sales/tienda.h"
#include "screens/carts/carrito_tab.h"
#include "screens/carts/tab_changos.h"
#include "screens/configuration/pagina_configuracion.h"
#include "screens/lists/pagina_listas.h"
#include "screens/lists/panel_articulo.h"
#include "screens/lists/tab_listas.h"
#include "screens/main_window/frm_main.h"
#include "screens/pantalla.h"

#include <QHeaderView>
#include <QScrollArea>
#include <QScrollBar>

namespace vendrix::screens {
namespace {

class MainConLista : public test::Tienda {
protected:
    void SetUp() override
    {
        Tienda::SetUp();
        ajuste("carritos", "1");
        ajuste("nombre_carrito_2", "Mostrador");
        // The panel prices with the shop's rules, read before any article.
        regla("Acme", "0", "50");
        window = std::make_unique<FrmMain>(app.ctx());
        window->cargar();
        window->show();
    }

    widgets::LynxGrid &lista() { return *window->pagina_listas()->grilla(); }

    // Types a search and presses Enter, as the operator does.
    void buscar(const char *texto)
    {
        test::escribir(window->busqueda()->textoBuscar(), QString::fromUtf8(texto));
        QTest::keyClick(window->busqueda()->textoBuscar(), Qt::Key_Return);
    }

    // Once the next modal dialog is on screen: types `texto` into its box
    // `caja` and accepts it.
    static void aceptar_dialogo(const char *caja, const char *texto)
    {
        test::en_el_dialogo<QDialog>([caja, texto](QDialog &d) {
            test::escribir(test::hijo(d, caja), QString::fromUtf8(texto));
            test::hijo<QPushButton>(d, "Command1")->click();
        });
    }

    QPushButton *boton(const char *nombre) { return test::hijo<QPushButton>(*window, nombre); }

    std::unique_ptr<FrmMain> window;
};

TEST_F(MainConLista, LoadsInOrderAndFillsTheRulesBeforeAnyArticle)
{
    EXPECT_EQ(app.log_messages(),
              (QStringList{
                  "INICIO - Load form FrmMain.", "TAB Disclaimer inicializado.", "TAB Listas inicializado.",
                  "Carritos de Compra inicializados.", "TAB Novedades inicializado.",
                  "TAB Configuración inicializado.", "TAB Proveedores inicializado.",
                  "TAB Pedidos inicializado.", "TAB Reprotes inicializado.",
                  "TAB Control Precios inicializado.", "TAB Cliente / Proveedores inicializado.",
                  "Se Inicializan las columnas de la grilla 'DataGridViewPagos'.", "TAB Pagos inicializado.",
                  "Se puso el logo de Vendrix correspondiente.", "Web Preview Inicializado.",
                  "Impresora Fiscal inicializada.", "FIN - Load form FrmMain."}));
    EXPECT_EQ(app.op.lines(), QStringList()); // nothing went wrong on the way
    EXPECT_TRUE(window->pagina_configuracion()->check_carritos()->isChecked());
    EXPECT_EQ(boton("Command_add_carrito2")->text(), "Agregar a Mostrador");
    EXPECT_EQ(window->carritos()->tabText(2), "Mostrador");
}

TEST_F(MainConLista, ASearchShowsThePriceAndTheArticleGoesToCartTwoThroughTheDialog)
{
    ajuste("busqueda_cantidad_resultados", "1");
    ajuste("busqueda_cantidad_resultados_combo", "1");
    PanelArticulo &panel = *window->pagina_listas()->panel();
    const QLabel *precio = panel.findChild<QLabel *>(QStringLiteral("lPrecioSolo"));
    // One article and the marker row, which loads nothing; the second press
    // of the button shows all.
    buscar("tornillo");
    ASSERT_EQ(lista().Rows(), 2);
    lista().setRow(1);
    EXPECT_EQ(panel.detalle().id, 1);
    Q_EMIT lista().DblClick();
    EXPECT_EQ(window->carritos()->pagina(1)->grilla()->Rows(), 0);
    EXPECT_EQ(window->busqueda()->botonBuscar()->text(), "Buscar Todos");
    window->busqueda()->botonBuscar()->click();
    EXPECT_EQ(lista().CellText(1, 3), "Tornillo 3/8");

    lista().setRow(0);
    EXPECT_EQ(precio->text(), "$ 900,00");
    aceptar_dialogo("cant_agregar", "3");
    boton("Command_add_carrito2")->click();
    TabChangos &tabs = *window->carritos();
    EXPECT_EQ(tabs.currentIndex(), 2);
    const widgets::LynxGrid &carrito = *tabs.pagina(2)->grilla();
    ASSERT_EQ(carrito.Rows(), 1);
    EXPECT_EQ(carrito.CellText(0, 1), "Tornillo 1/4");
    EXPECT_EQ(tabs.pagina(2)->caja_total()->text(), "2700,00");

    // A double click adds one more at the panel's figures to the cart
    // last shown; the list stays in front.
    tabs.setCurrentIndex(0);
    buscar("3/8");
    Q_EMIT lista().DblClick();
    ASSERT_EQ(carrito.Rows(), 2);
    EXPECT_EQ(carrito.CellText(1, 1), "Tornillo 3/8");
    EXPECT_EQ(tabs.pagina(2)->caja_total()->text(), "4200,00");
    EXPECT_EQ(tabs.currentIndex(), 0);
}

TEST_F(MainConLista, FunctionKeysChooseTheCartsAndOneCartHidesTheRest)
{
    TabChangos &tabs = *window->carritos();
    QTest::keyClick(window.get(), Qt::Key_F3);
    EXPECT_EQ(tabs.currentIndex(), 3);
    QTest::keyClick(window.get(), Qt::Key_F5);
    EXPECT_EQ(tabs.currentIndex(), 0);
    // Wherever the focus is in the window.
    window->pestanas()->setCurrentIndex(FrmMain::kTabConfiguracion);
    window->pagina_configuracion()->check_carritos()->setFocus();
    QTest::keyClick(window->pagina_configuracion()->check_carritos(), Qt::Key_F1);
    EXPECT_EQ(window->pestanas()->currentIndex(), FrmMain::kTabListas);
    EXPECT_EQ(tabs.currentIndex(), 1);

    window->pagina_configuracion()->check_carritos()->setChecked(false);
    EXPECT_EQ(app.ctx().leer_parametro(QStringLiteral("carritos")), "0");
    // F2 to F4 do nothing with one cart: the cart shown stays.
    tabs.setCurrentIndex(1);
    for (Qt::Key tecla : {Qt::Key_F2, Qt::Key_F3, Qt::Key_F4})
        QTest::keyClick(window.get(), tecla);
    EXPECT_EQ(tabs.currentIndex(), 1);
    for (int n = 2; n <= 4; ++n)
        EXPECT_FALSE(tabs.isTabVisible(n)) << n;
    EXPECT_TRUE(boton("Command_add_carrito1")->isHidden());
    EXPECT_FALSE(boton("Command_add_carritoUnico")->isHidden());
    EXPECT_EQ(boton("Command_add_carritoUnico")->text(), "Agregar a Carrito 1");
    // A double click adds nothing with one cart.
    buscar("1/4");
    Q_EMIT lista().DblClick();
    EXPECT_EQ(tabs.pagina(1)->grilla()->Rows(), 0);
}

TEST_F(MainConLista, TheUnitsButtonStoresTheUnitsAndTheSearchRunsAgain)
{
    buscar("1/4");
    PanelArticulo &panel = *window->pagina_listas()->panel();
    const QLabel *unidades = test::hijo<QLabel>(panel, "Label_PListacustomBig");
    // The search runs again with the text of the box when the dialog closes.
    window->busqueda()->textoBuscar()->setText(QStringLiteral("tornillo"));
    aceptar_dialogo("cant_unidades", "6");
    test::hijo<QPushButton>(panel, "Command_unudaddemedida")->click();
    EXPECT_EQ(unidades_guardadas(), QStringList{"Acme|T1|6"});
    EXPECT_EQ(lista().Rows(), 2);
    EXPECT_EQ(unidades->text(), "Precio unitario en base a 6 unidades");
}

// A scanned code goes to the first cart when the shop asked for it; at the
// counter's screen size the cart and the configuration tab show whole.
TEST_F(MainConLista, AScannedCodeGoesToTheFirstCartWhichShowsWholeAt1280x720)
{
    window->resize(1280, 720);
    TabChangos &tabs = *window->carritos();
    buscar("T2");
    EXPECT_EQ(tabs.pagina(1)->grilla()->Rows(), 0);
    ajuste("busqueda_agregar_automaticamente", "1");
    buscar("T2");
    EXPECT_EQ(tabs.currentIndex(), 1);
    ASSERT_EQ(tabs.pagina(1)->grilla()->Rows(), 1);
    EXPECT_EQ(tabs.pagina(1)->caja_total()->text(), "1500,00");
    QCoreApplication::processEvents();
    const QTableView &vista = *window->carritos()->pagina(1)->grilla()->view();
    const QHeaderView &titulos = *vista.horizontalHeader();
    for (int col : {0, 2, 3}) {
        EXPECT_GE(titulos.sectionSize(col), titulos.sectionSizeHint(col)) << col;
        EXPECT_EQ(vista.model()->index(0, col).data(Qt::TextAlignmentRole).toInt() & Qt::AlignRight,
                  Qt::AlignRight);
    }
    EXPECT_EQ(titulos.length(), vista.viewport()->width());

    window->pestanas()->setCurrentIndex(FrmMain::kTabConfiguracion);
    QCoreApplication::processEvents();
    auto *scroll = qobject_cast<QScrollArea *>(window->pestanas()->currentWidget());
    ASSERT_NE(scroll, nullptr);
    EXPECT_FALSE(scroll->horizontalScrollBar()->isVisible());
}

} // namespace
} // namespace vendrix::screens

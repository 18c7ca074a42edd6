// The search box of the main window completing what is typed, turned on from
// the configuration tab as a shop would.
#include "catalogue/support/shop_fixture.h"
#include "screens/configuration/pagina_configuracion.h"
#include "screens/lists/tab_listas.h"
#include "screens/main_window/frm_main.h"
#include "screens/pantalla.h"
#include "widgets/autocomplete_box.h"
#include "widgets/lynx_grid.h"

#include <QListView>

namespace vendrix::screens {
namespace {

class BusquedaAutocompletada : public test::TiendaConLista {
protected:
    void SetUp() override
    {
        TiendaConLista::SetUp();
        test::ejecutar_en_archivo(
            app.ruta(QStringLiteral("Vendrix.vdrxdb")),
            {QStringLiteral("INSERT INTO xls_listas (ID, Proveedor, Grupo, Codigo, "
                            "Descripcion, Marca, Precio, Moneda) VALUES (10, 'Acme', "
                            "'Herramientas', 'M1', 'Martillo', 'Tramontano', '900', '1')")});
        window = std::make_unique<FrmMain>(app.ctx());
        window->cargar();
        window->show();
    }

    std::unique_ptr<FrmMain> window;
};

TEST_F(BusquedaAutocompletada, TramCompletesTramontanoWithTheListAndEnterSearchesIt)
{
    QLineEdit *box = window->busqueda()->textoBuscar();
    const widgets::AutoComplete &completion = window->busqueda()->autocompletado()->logica();
    // Off by default: the keys go in as typed and nothing is read.
    test::escribir(box, QStringLiteral("tr"));
    EXPECT_EQ(box->text(), QStringLiteral("tr"));
    EXPECT_TRUE(completion.GetList().isEmpty());

    window->pestanas()->setCurrentIndex(FrmMain::kTabConfiguracion);
    window->pagina_configuracion()->check_autocompletar()->click();
    window->pagina_configuracion()->check_sugerencias()->click();
    EXPECT_EQ(app.ctx().leer_parametro(QStringLiteral("busqueda_autocompletar")), QStringLiteral("1"));
    EXPECT_EQ(app.ctx().leer_parametro(QStringLiteral("busqueda_sugerencias")), QStringLiteral("1"));
    window->pestanas()->setCurrentIndex(FrmMain::kTabListas);

    test::escribir(box, QStringLiteral("tram"));
    EXPECT_EQ(box->text(), QStringLiteral("tramontano"));
    EXPECT_EQ(box->selectedText(), QStringLiteral("ontano"));
    // Suppliers, groups and brands of the list, each once, sorted; no empty brand.
    EXPECT_EQ(completion.GetList(), QStringList({"Acme", "Caños", "D'Angelo", "Fix", "Herramientas", "Otro",
                                                 "Sur", "Tornillos", "Tramontano", "Tuercas", "Varios"}));
    auto *lista = test::hijo<QListView>(*box, "lstDropDownAutoC1");
    ASSERT_TRUE(lista->isVisible());
    EXPECT_EQ(lista->currentIndex().data().toString(), QStringLiteral("Tramontano"));
    EXPECT_EQ(lista->width(), box->width());
    EXPECT_EQ(lista->geometry().top(), box->mapToGlobal(QPoint(0, box->height())).y());

    // The open list holds the keyboard on a real screen: its keys reach the box.
    QTest::keyClick(lista, Qt::Key_O);
    EXPECT_EQ(box->selectedText(), QStringLiteral("ntano"));

    QTest::keyClick(box, Qt::Key_Return);
    EXPECT_FALSE(lista->isVisible());
    EXPECT_EQ(window->busqueda()->grilla()->Rows(), 1);
    EXPECT_EQ(window->busqueda()->grilla()->CellText(0, 3), QStringLiteral("Martillo"));
}

TEST_F(BusquedaAutocompletada, SuggestionsAloneListTheItemsAndLeaveTheKeysAsTyped)
{
    app.ctx().escribir_parametro(QStringLiteral("busqueda_sugerencias"), QStringLiteral("1"));
    window->pagina_configuracion()->inicializar();
    EXPECT_FALSE(window->pagina_configuracion()->check_autocompletar()->isChecked());
    EXPECT_TRUE(window->pagina_configuracion()->check_sugerencias()->isChecked());
    QLineEdit *box = window->busqueda()->textoBuscar();
    test::escribir(box, QStringLiteral("t"));
    EXPECT_EQ(box->text(), QStringLiteral("t"));
    const auto *lista = test::hijo<QListView>(*box, "lstDropDownAutoC1");
    ASSERT_TRUE(lista->isVisible());
    EXPECT_EQ(lista->model()->rowCount(), 3); // Tornillos, Tramontano, Tuercas
}

} // namespace
} // namespace vendrix::screens

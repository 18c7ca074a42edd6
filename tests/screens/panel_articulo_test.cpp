// The article panel as the operator uses it: rows selected in the list,
// formulas typed, buttons pressed, the two price views.
#include "catalogue/support/shop_fixture.h"
#include "screens/panel_articulo.h"

#include <QFrame>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>

namespace vendrix {
namespace {

class PanelArticuloTest : public test::TiendaConLista {
protected:
    void SetUp() override
    {
        TiendaConLista::SetUp();
        regla("Acme", "General para la lista", "Todos los articulos del grupo", "10+5", "30");
        llenar();
        app.op.clear();
        panel = std::make_unique<PanelArticulo>(app.ctx(), reglas);
        panel->resize(520, 760);
        panel->show();
    }

    template <typename T = QLineEdit> T *w(const char *nombre)
    {
        T *found = panel->findChild<T *>(QString::fromUtf8(nombre));
        EXPECT_NE(found, nullptr) << nombre;
        return found;
    }

    QString texto(const char *nombre) { return w(nombre)->text(); }
    QString etiqueta(const char *nombre) { return w<QLabel>(nombre)->text(); }

    // Replaces the text of a box as typed: select all, then the keys.
    void escribir(const char *nombre, const QString &teclas)
    {
        QLineEdit *box = w(nombre);
        box->setFocus();
        box->selectAll();
        QTest::keyClicks(box, teclas);
    }

    std::unique_ptr<PanelArticulo> panel;
};

TEST_F(PanelArticuloTest, SelectingRowsFillsThePanelAndFollowsTheRate)
{
    panel->cargar_fila(QStringLiteral("1"), QStringLiteral("Acme"));
    EXPECT_EQ(texto("TextBox_ID"), QStringLiteral("1"));
    EXPECT_EQ(texto("TextBox_articulo_1"), QStringLiteral("Tornillo 1/4"));
    EXPECT_EQ(texto("TextBox_articulo_8"), QStringLiteral("Acme"));
    EXPECT_EQ(etiqueta("lPrecioSolo"), QStringLiteral("$ 1344,92"));
    EXPECT_EQ(etiqueta("lPrecioSolotarjeta"), QStringLiteral("$ 1479,41"));
    EXPECT_EQ(etiqueta("Label39"), QStringLiteral("Pago con tarjeta (+10%)"));
    EXPECT_EQ(etiqueta("Label50"), QStringLiteral("(IVA 21%)"));

    panel->cargar_fila(QStringLiteral("2"), QStringLiteral("Acme"));
    EXPECT_EQ(etiqueta("Label50"), QStringLiteral("(IVA 10,5%)"));
    EXPECT_EQ(etiqueta("articulo_label"), QStringLiteral("Precio de Venta con IVA (10,5%)"));
    EXPECT_EQ(texto("TextBox_PTotal_civa"), QStringLiteral("1228,21"));
    EXPECT_EQ(etiqueta("lPrecioSolo"), QStringLiteral("$ 1228,21"));

    // The marker row of more results and a row without an id load nothing.
    panel->cargar_fila(QStringLiteral("3"), QStringLiteral("...VENDRIX..."));
    panel->cargar_fila(QStringLiteral("..."), QStringLiteral("Acme"));
    EXPECT_EQ(panel->detalle().id, 2);
    EXPECT_TRUE(app.op.empty());
}

TEST_F(PanelArticuloTest, RulesNotFilledYetAreFilledBeforeTheFirstArticle)
{
    RuleStore vacias;
    PanelArticulo otro(app.ctx(), vacias);
    otro.cargar_fila(QStringLiteral("1"), QStringLiteral("Acme"));
    EXPECT_EQ(vacias.filas().size(), 3u);
    EXPECT_EQ(otro.detalle().panel[PanelField::TextBox_PTotal_civa].text, QStringLiteral("1344,92"));
}

TEST_F(PanelArticuloTest, ADollarPriceIsColouredApart)
{
    panel->cargar_fila(QStringLiteral("1"), QStringLiteral("Acme"));
    const QColor pesos = w<QLabel>("lPrecioSolo")->palette().color(QPalette::WindowText);
    panel->cargar_fila(QStringLiteral("3"), QStringLiteral("Acme"));
    EXPECT_EQ(w<QLabel>("lPrecioSolo")->palette().color(QPalette::WindowText), QColor(0, 120, 0));
    EXPECT_EQ(w("TextBox_PTotal_civa")->palette().color(QPalette::Text), QColor(0, 120, 0));
    EXPECT_NE(pesos, QColor(0, 120, 0));
}

TEST_F(PanelArticuloTest, TypingAFormulaRecalculatesAtEachKeyThroughTheKeyFilter)
{
    panel->aplicar_detalle_precios(true);
    panel->cargar_fila(QStringLiteral("1"), QStringLiteral("Acme"));
    escribir("TextBox_Ganancia", QStringLiteral("4"));
    EXPECT_EQ(texto("TextBox_PTotal_civa"), QStringLiteral("1075,93")); // 855 * 1.04 * 1.21
    QTest::keyClicks(w("TextBox_Ganancia"), QStringLiteral("0-a"));     // "-" and "a" are refused
    EXPECT_EQ(texto("TextBox_Ganancia"), QStringLiteral("40"));
    EXPECT_EQ(texto("TextBox_PTotal_civa"), QStringLiteral("1448,37")); // 855 * 1.4 * 1.21
    EXPECT_EQ(etiqueta("lPrecioSolo"), QStringLiteral("$ 1448,37"));

    escribir("Textbox_desusr", QStringLiteral("10-5"));
    EXPECT_EQ(texto("Textbox_desusr"), QStringLiteral("10-5"));
    EXPECT_EQ(panel->detalle().panel[PanelField::Textbox_desusr].text, QStringLiteral("10-5"));
    // The calculation runs at each key, so the formula told as wrong is the
    // unfinished "10-".
    EXPECT_EQ(app.op.lines(), (QStringList{"error|Error en el descuento cliente|La formula ingresada para el "
                                           "descuento cliente no es correcta. Por favor corríjala e intente "
                                           "nuevamente."}));
}

TEST_F(PanelArticuloTest, TypedFormulasAreOfferedWhenTheNextRowIsSelected)
{
    panel->cargar_fila(QStringLiteral("1"), QStringLiteral("Acme"));
    escribir("TextBox_Ganancia", QStringLiteral("45"));
    app.op.answers_in_order({true, false});
    panel->cargar_fila(QStringLiteral("9"), QStringLiteral("Otro"));
    ASSERT_EQ(app.op.shown.size(), 2u);
    EXPECT_TRUE(app.op.shown[0].text.startsWith(QStringLiteral(
        "Usted modificó el valor de la ganancia (45) configurada para el artículo 'T1 - Tornillo 1/4'.")));
    EXPECT_EQ(tabla_reglas().last(), QStringLiteral("Acme|Tornillos|T1 - Tornillo 1/4|10+5|45|true"));
    EXPECT_EQ(panel->detalle().id, 9);

    // The new rule applies at once.
    panel->cargar_fila(QStringLiteral("1"), QStringLiteral("Acme"));
    EXPECT_EQ(texto("TextBox_Ganancia"), QStringLiteral("45"));
}

TEST_F(PanelArticuloTest, ARepeatedCodeSaysWhyItCantBeAFavouriteAndCantBeFollowed)
{
    panel->cargar_fila(QStringLiteral("5"), QStringLiteral("Acme"));
    EXPECT_FALSE(w<QPushButton>("Command_testigo_1")->isEnabled());
    QTest::mouseClick(w<QPushButton>("Command_testigo_0"), Qt::LeftButton);
    EXPECT_EQ(app.op.lines(), QStringList{"error|Error al asignar favoritos|El artículo no puede agregarse a "
                                          "Favoritos por que su código está repetido"});
}

TEST_F(PanelArticuloTest, FavouritesAndCommentFromTheButtons)
{
    panel->cargar_fila(QStringLiteral("1"), QStringLiteral("Acme"));
    QTest::mouseClick(w<QPushButton>("Command_testigo_0"), Qt::LeftButton);
    EXPECT_EQ(w<QPushButton>("Command_testigo_0")->text(), QStringLiteral("Eliminar de favoritos"));
    EXPECT_TRUE(w<QLabel>("Picture_testigo_0")->isVisible());

    QString mostrado;
    panel->set_editor_comentario([&](const QString &actual) {
        mostrado = actual;
        return std::optional<QString>(QStringLiteral("Llega los martes"));
    });
    app.op.answer(true);
    QTest::mouseClick(w<QPushButton>("Command_user_comments"), Qt::LeftButton);
    EXPECT_EQ(mostrado, QString());
    EXPECT_EQ(texto("TextBox_articulo_9"), QStringLiteral("Llega los martes"));
    EXPECT_TRUE(w<QLabel>("Picture_comentario")->isVisible());

    panel->limpiar_detalle();
    EXPECT_EQ(texto("TextBox_articulo_9"), QString());
    EXPECT_FALSE(w<QPushButton>("Command_testigo_0")->isEnabled());
    EXPECT_FALSE(w<QLabel>("Picture_testigo_0")->isVisible());
    EXPECT_EQ(etiqueta("lPrecioSolo"), QString());
}

TEST_F(PanelArticuloTest, AListPriceCanBeTypedOnlyWhenTheListHasNone)
{
    panel->aplicar_detalle_precios(true);
    panel->cargar_fila(QStringLiteral("1"), QStringLiteral("Acme"));
    EXPECT_TRUE(w("TextBox_PLista")->isReadOnly());
    // A former price of 0 is offered all the same.
    test::ejecutar_en_archivo(
        app.ruta(QStringLiteral("Vendrix.vdrxdb")),
        {QStringLiteral("INSERT INTO xls_listas_viejos (Proveedor, FechaLista, Codigo, "
                        "Precio, Moneda) VALUES ('D''Angelo', '2026-10-01', 'C2', '0', '1')")});
    app.op.answer(false);
    panel->cargar_fila(QStringLiteral("8"), QStringLiteral("D'Angelo"));
    ASSERT_EQ(app.op.shown.size(), 1u);
    EXPECT_EQ(app.op.shown[0].title, QStringLiteral("Artículo sin precio"));
    EXPECT_TRUE(app.op.shown[0].text.contains(QStringLiteral("Precio de Lista:  $0,00 (Pesos Argentinos)")));
    EXPECT_FALSE(w("TextBox_PLista")->isReadOnly());
    escribir("TextBox_PLista", QStringLiteral("100"));
    EXPECT_EQ(texto("TextBox_PLista"), QStringLiteral("100"));
    EXPECT_EQ(texto("TextBox_PTotal_civa"), QStringLiteral("121,00"));
}

TEST_F(PanelArticuloTest, TheDetailViewWaitsForTheUnlockUnderTheAdministratorLock)
{
    auto *boton = w<QPushButton>("preciodetalle");
    EXPECT_TRUE(w<QFrame>("framepreciosolo")->isVisible());
    EXPECT_FALSE(w<QFrame>("framepreciodetalle")->isVisible());
    QTest::mouseClick(boton, Qt::LeftButton);
    EXPECT_TRUE(panel->muestra_detalle());
    QTest::mouseClick(boton, Qt::LeftButton);
    EXPECT_FALSE(panel->muestra_detalle());

    ajuste("admin_block", "clave");
    QTest::mouseClick(boton, Qt::LeftButton); // no unlock screen: stays locked
    EXPECT_FALSE(panel->muestra_detalle());
    int pedidos = 0;
    bool responde = false;
    panel->set_desbloqueo_precio([&] {
        ++pedidos;
        return responde;
    });
    QTest::mouseClick(boton, Qt::LeftButton);
    EXPECT_FALSE(panel->muestra_detalle());
    responde = true;
    QTest::mouseClick(boton, Qt::LeftButton);
    EXPECT_TRUE(panel->muestra_detalle());
    EXPECT_EQ(pedidos, 2);
}

TEST_F(PanelArticuloTest, ChangedSettingsRefreshThePanelWhenItShowsAgain)
{
    panel->cargar_fila(QStringLiteral("3"), QStringLiteral("Acme"));
    EXPECT_EQ(etiqueta("lPrecioSolo"), QStringLiteral("$ 1344,92"));
    panel->hide();
    ajuste("Valor_Dolar", "200");
    panel->show();
    EXPECT_EQ(etiqueta("lPrecioSolo"), QStringLiteral("$ 2689,83")); // 2689.83 = 2 * 1344.915
    EXPECT_TRUE(app.op.empty());
}

} // namespace
} // namespace vendrix

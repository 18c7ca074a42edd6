// The article panel: rows selected, formulas typed, buttons, the price views.
#include "catalogue/support/shop_fixture.h"
#include "screens/lists/panel_articulo.h"
#include "screens/pantalla.h"

#include <QFrame>

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
        panel->show();
        QApplication::setActiveWindow(panel.get()); // leaving a box takes an active window
    }

    template <typename T = QLineEdit> T *w(const char *nombre) { return test::hijo<T>(*panel, nombre); }
    QString texto(const char *nombre) { return w(nombre)->text(); }
    QString etiqueta(const char *nombre) { return w<QLabel>(nombre)->text(); }
    void escribir(const char *nombre, const QString &teclas) { test::escribir(w(nombre), teclas); }

    std::unique_ptr<PanelArticulo> panel;
};

TEST_F(PanelArticuloTest, SelectingRowsFillsThePanelAndFollowsTheRate)
{
    panel->cargar_fila(QStringLiteral("1"), QStringLiteral("Acme"));
    EXPECT_EQ(QStringList({texto("TextBox_ID"), texto("TextBox_articulo_1"), texto("TextBox_articulo_8")}),
              QStringList({"1", "Tornillo 1/4", "Acme"}));
    EXPECT_EQ(QStringList({etiqueta("lPrecioSolo"), etiqueta("lPrecioSolotarjeta"), etiqueta("Label39"),
                           etiqueta("Label50")}),
              QStringList({"$ 1344,92", "$ 1479,41", "Pago con tarjeta (+10%)", "(IVA 21%)"}));

    panel->cargar_fila(QStringLiteral("2"), QStringLiteral("Acme"));
    EXPECT_EQ(etiqueta("articulo_label"), QStringLiteral("Precio de Venta con IVA (10,5%)"));
    EXPECT_EQ(etiqueta("lPrecioSolo"), QStringLiteral("$ 1228,21"));
    // A dollar price is coloured apart, and follows a new rate when the
    // panel shows again.
    panel->cargar_fila(QStringLiteral("3"), QStringLiteral("Acme"));
    EXPECT_EQ(w<QLabel>("lPrecioSolo")->palette().color(QPalette::WindowText), QColor(0, 120, 0));
    panel->hide();
    ajuste("Valor_Dolar", "200");
    panel->show();
    EXPECT_EQ(etiqueta("lPrecioSolo"), QStringLiteral("$ 2689,83")); // 2 * 1344.915
    EXPECT_TRUE(app.op.empty());
}

TEST_F(PanelArticuloTest, AFormulaIsWorkedOutWhenCompleteAndAnIncompleteOneToldOnLeavingOrEnter)
{
    panel->aplicar_detalle_precios(true);
    panel->cargar_fila(QStringLiteral("1"), QStringLiteral("Acme"));
    escribir("TextBox_Ganancia", QStringLiteral("4"));
    QTest::keyClicks(w("TextBox_Ganancia"), QStringLiteral("0-a"));  // "-" and "a" are refused
    EXPECT_EQ(etiqueta("lPrecioSolo"), QStringLiteral("$ 1448,37")); // 855 * 1.4 * 1.21

    // "10-" is still being typed: no message, the figures stay those of "10".
    escribir("Textbox_desusr", QStringLiteral("10-"));
    EXPECT_EQ(etiqueta("lPrecioSolo"), QStringLiteral("$ 1303,53")); // * 0.9
    QTest::keyClicks(w("Textbox_desusr"), QStringLiteral("5"));
    EXPECT_EQ(etiqueta("lPrecioSolo"), QStringLiteral("$ 1368,71")); // * 0.945
    EXPECT_TRUE(app.op.empty());

    // Leaving the box with "10+": the message, and the discount counts as 0.
    escribir("TextBox_Descuento", QStringLiteral("10+"));
    EXPECT_TRUE(app.op.empty());
    w("TextBox_Ganancia")->setFocus();
    EXPECT_EQ(app.op.lines(), (QStringList{"error|Error en el descuento|La formula ingresada para el "
                                           "descuento no es correcta. Por favor corríjala e intente "
                                           "nuevamente."}));
    EXPECT_EQ(etiqueta("lPrecioSolo"), QStringLiteral("$ 1600,83")); // 1000 * 1.4 * 0.945 * 1.21
    escribir("TextBox_Descuento", QStringLiteral("10+5"));
    EXPECT_EQ(etiqueta("lPrecioSolo"), QStringLiteral("$ 1368,71"));

    // Enter with "2+" tells it once, leaving afterwards doesn't repeat it.
    escribir("Textbox_desusr", QStringLiteral("2+"));
    QTest::keyClick(w("Textbox_desusr"), Qt::Key_Return);
    w("TextBox_Ganancia")->setFocus();
    ASSERT_EQ(app.op.shown.size(), 2u);
    EXPECT_EQ(app.op.shown[1].title, QStringLiteral("Error en el descuento cliente"));
}

TEST_F(PanelArticuloTest, TypedFormulasAreOfferedWhenTheNextRowIsSelected)
{
    panel->cargar_fila(QStringLiteral("1"), QStringLiteral("Acme"));
    escribir("TextBox_Ganancia", QStringLiteral("45"));
    app.op.answers_in_order({true, false});
    panel->cargar_fila(QStringLiteral("9"), QStringLiteral("Otro"));
    ASSERT_EQ(app.op.shown.size(), 2u) << app.op.lines().join("\n").toStdString();
    EXPECT_TRUE(app.op.shown[0].text.startsWith(QStringLiteral(
        "Usted modificó el valor de la ganancia (45) configurada para el artículo 'T1 - Tornillo 1/4'.")));
    EXPECT_EQ(tabla_reglas().last(), QStringLiteral("Acme|Tornillos|T1 - Tornillo 1/4|10+5|45|true"));
    EXPECT_EQ(panel->detalle().id, 9);
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
    EXPECT_FALSE(w<QPushButton>("Command_testigo_1")->isEnabled());
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
    EXPECT_FALSE(w("TextBox_PLista")->isReadOnly());
    escribir("TextBox_PLista", QStringLiteral("100"));
    EXPECT_EQ(texto("TextBox_PLista"), QStringLiteral("100"));
    EXPECT_EQ(texto("TextBox_PTotal_civa"), QStringLiteral("121,00"));
}

TEST_F(PanelArticuloTest, TheDetailViewWaitsForTheUnlockUnderTheAdministratorLock)
{
    auto *boton = w<QPushButton>("preciodetalle");
    ajuste("admin_block", "clave");
    bool responde = false;
    panel->set_desbloqueo_precio([&] { return responde; });
    QTest::mouseClick(boton, Qt::LeftButton);
    EXPECT_FALSE(panel->muestra_detalle());
    responde = true;
    QTest::mouseClick(boton, Qt::LeftButton);
    EXPECT_TRUE(w<QFrame>("framepreciodetalle")->isVisible());
    EXPECT_FALSE(w<QFrame>("framepreciosolo")->isVisible());
    QTest::mouseClick(boton, Qt::LeftButton);
    EXPECT_FALSE(panel->muestra_detalle());
}

} // namespace
} // namespace vendrix

// The configuration tab: the pricing settings and the rules grid.
#include "catalogue/support/shop_fixture.h"
#include "screens/configuration/config_precios.h"
#include "screens/configuration/config_reglas.h"
#include "screens/configuration/pagina_configuracion.h"
#include "screens/pantalla.h"

#include <QSignalSpy>

namespace vendrix {
namespace {

class Configuracion : public test::TiendaConLista {
protected:
    void SetUp() override
    {
        TiendaConLista::SetUp();
        llenar(); // the list rows first, as the program makes them
        regla("Acme", "Tornillos", "Todos los articulos del grupo", "20", "40");
        regla("Acme", "Tornillos", "T1 - Tornillo 1/4", "5", "50");
        ajuste("decimales", "3");
        pagina = std::make_unique<screens::PaginaConfiguracion>(app.ctx(), reglas);
        pagina->show();
        pagina->inicializar();
        pagina->llenar_reglas();
        grilla = pagina->reglas()->grilla();
        app.op.clear();
    }

    template <typename T = QLineEdit> T *w(const char *nombre) { return test::hijo<T>(*pagina, nombre); }
    void escribir(const char *nombre, const char *teclas)
    {
        test::escribir(w(nombre), QString::fromUtf8(teclas));
    }

    // A row of the grid as "Proveedor|Grupo|Articulo|Descuento|Ganancia".
    QString fila(int r) const
    {
        QStringList celdas;
        for (int c = 0; c < grilla->Cols(); ++c)
            celdas << grilla->CellText(r, c);
        return celdas.join(QLatin1Char('|'));
    }

    static QStringList items(QComboBox *c)
    {
        QStringList out;
        for (int i = 0; i < c->count(); ++i)
            out << c->itemText(i);
        return out;
    }

    void editar_celda(int row, int col, const QString &valor)
    {
        ASSERT_TRUE(grilla->ForceCellEdit(row, col));
        test::open_editor(*grilla)->setText(valor);
        grilla->CommitEdit();
    }

    std::unique_ptr<screens::PaginaConfiguracion> pagina;
    widgets::LynxGrid *grilla = nullptr;
};

TEST_F(Configuracion, PriceSettingsAreWrittenAtEachChange)
{
    EXPECT_EQ(QStringList({w("Text_IVA")->text(), w("Text_dolar")->text(), w("Tex_tarjeta")->text()}),
              QStringList({"21", "100", "10"}));
    escribir("Text_dolar", "1x2,5,0");
    EXPECT_EQ(w("Text_dolar")->text(), QStringLiteral("12,50"));
    EXPECT_EQ(app.ctx().leer_parametro(QStringLiteral("Valor_Dolar")), QStringLiteral("12,50"));
    // The card surcharge: the caption at each key, the payment method on
    // leaving the box.
    QSignalSpy leyendas(pagina->precios(), &ConfigPrecios::leyendaTarjetaCambiada);
    const QString recargo =
        QStringLiteral("SELECT Recargo FROM Vendrix_FormasDePago WHERE Forma_de_Pago = 'Tarjeta de Crédito'");
    escribir("Tex_tarjeta", "15");
    EXPECT_EQ(leyendas.last().at(0).toString(), QStringLiteral("Pago con tarjeta (+15%)"));
    EXPECT_EQ(app.db().execQ1(recargo, QStringLiteral("internal")), QStringLiteral("0"));
    QTest::keyClick(w("Tex_tarjeta"), Qt::Key_Return);
    EXPECT_EQ(app.db().execQ1(recargo, QStringLiteral("internal")), QStringLiteral("15"));

    // Rounding: the combos write their keys and enable each other, the icon
    // tells that rounding is on.
    auto *tipo = w<QComboBox>("Combo_tipo_redondeo");
    EXPECT_TRUE(w<QLabel>("Picture_icon_0")->pixmap().isNull());
    Q_EMIT w<QComboBox>("Combo_digitos_significativos")->textActivated(QStringLiteral("Decenas"));
    EXPECT_EQ(app.ctx().leer_parametro(QStringLiteral("decimales")), QStringLiteral("-1"));
    EXPECT_FALSE(w<QComboBox>("Combo_modo_redondeo")->isEnabled());
    EXPECT_TRUE(tipo->isEnabled());
    EXPECT_FALSE(w<QLabel>("Picture_icon_0")->pixmap().isNull());
}

TEST_F(Configuracion, TheRulesGridAddsEditsAndDeletesRules)
{
    ASSERT_EQ(grilla->Rows(), 5);
    // The levels in colour: lists and groups apart, single articles plain.
    EXPECT_EQ(grilla->RowBackColor(0), grilla->RowBackColor(3));
    EXPECT_NE(grilla->RowBackColor(0), grilla->RowBackColor(1));
    EXPECT_FALSE(grilla->RowBackColor(2).isValid());
    EXPECT_EQ(items(w<QComboBox>("Combo_proveedor")), (QStringList{"Acme", test::kDAngelo, "Otro"}));
    w<QComboBox>("Combo_proveedor")->setCurrentText(test::kDAngelo);
    w<QComboBox>("Combo_grupo")->setCurrentText(QStringLiteral("Caños"));
    auto *articulo = w<QComboBox>("Combo_articulo");
    EXPECT_EQ(items(articulo),
              (QStringList{"Todos los articulos del grupo", "C'1 - Caño 1/2' cobre", "C2 - Caño 3/4"}));
    articulo->setCurrentText(QStringLiteral("C2 - Caño 3/4"));
    QTest::keyClicks(w("agregar_Descuento"), QStringLiteral("10+5"));
    QTest::keyClicks(w("agregar_ganancia"), QStringLiteral("3-0")); // "-" refused in a margin
    QTest::mouseClick(w<QPushButton>("Command_agregar_provedor"), Qt::LeftButton);
    EXPECT_EQ(fila(4), QStringLiteral("D'Angelo|Caños|C2 - Caño 3/4|10+5|30"));
    EXPECT_EQ(items(articulo), (QStringList{"Todos los articulos del grupo", "C'1 - Caño 1/2' cobre"}));

    app.op.clear();
    editar_celda(1, 3, QStringLiteral("10++"));
    EXPECT_EQ(grilla->CellText(1, 3), QStringLiteral("20"));
    EXPECT_EQ(app.op.shown.size(), 1u);
    editar_celda(1, 4, QStringLiteral("33"));
    EXPECT_EQ(reglas.tabla().regla_ganancia("Acme", "Tornillos", "T3"), QStringLiteral("33"));
    EXPECT_TRUE(
        tabla_reglas().contains(QStringLiteral("Acme|Tornillos|Todos los articulos del grupo|20|33|true")));
    EXPECT_FALSE(grilla->ForceCellEdit(1, 0)); // names can't be edited

    // Deleting the group row keeps its articles.
    grilla->setRow(1);
    app.op.answer(true);
    QTest::mouseClick(w<QPushButton>("Command_borrar_provedor"), Qt::LeftButton);
    EXPECT_EQ(fila(1), QStringLiteral("Acme|Tornillos|T1 - Tornillo 1/4|5|50"));
    pagina->reglas()->set_bloqueada(true);
    EXPECT_FALSE(w<QPushButton>("Command_borrar_provedor")->isEnabled());
    EXPECT_FALSE(grilla->ForceCellEdit(1, 3));
}

} // namespace
} // namespace vendrix

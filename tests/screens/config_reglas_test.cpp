// The rules part of the configuration tab: the grid as a view of the shop's
// rules, the combos, adding, editing in place and deleting.
#include "catalogue/support/shop_fixture.h"
#include "screens/config_reglas.h"
#include "widgets/lynx_grid.h"

#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>
#include <QTableView>
#include <QTest>

namespace vendrix {
namespace {

using test::kDAngelo;

class ConfigReglasTest : public test::TiendaConLista {
protected:
    void SetUp() override
    {
        TiendaConLista::SetUp();
        llenar(); // the list rows first, as the program makes them
        regla("Acme", "Tornillos", "Todos los articulos del grupo", "20", "40");
        regla("Acme", "Tornillos", "T1 - Tornillo 1/4", "5", "50");
        config = std::make_unique<ConfigReglas>(app.ctx(), reglas);
        config->resize(900, 500);
        config->show();
        config->inicializar();
        grilla = config->grilla();
        app.op.clear();
    }

    template <typename T> T *w(const char *nombre)
    {
        T *found = config->findChild<T *>(QString::fromUtf8(nombre));
        EXPECT_NE(found, nullptr) << nombre;
        return found;
    }

    QStringList filas() const
    {
        QStringList out;
        for (int r = 0; r < grilla->Rows(); ++r) {
            QStringList celdas;
            for (int c = 0; c < grilla->Cols(); ++c)
                celdas << grilla->CellText(r, c);
            out << celdas.join(QLatin1Char('|'));
        }
        return out;
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
        for (QLineEdit *editor : grilla->view()->viewport()->findChildren<QLineEdit *>()) {
            if (!editor->isHidden())
                editor->setText(valor);
        }
        grilla->CommitEdit();
    }

    std::unique_ptr<ConfigReglas> config;
    widgets::LynxGrid *grilla = nullptr;
};

TEST_F(ConfigReglasTest, TheGridShowsTheRulesWithTheLevelsInColour)
{
    EXPECT_EQ(filas(), (QStringList{
                           "Acme|General para la lista|Todos los articulos del grupo||",
                           "Acme|Tornillos|Todos los articulos del grupo|20|40",
                           "Acme|Tornillos|T1 - Tornillo 1/4|5|50",
                           "D'Angelo|General para la lista|Todos los articulos del grupo||",
                           "Otro|General para la lista|Todos los articulos del grupo||",
                       }));
    EXPECT_EQ(grilla->RowBackColor(0), grilla->RowBackColor(3));
    EXPECT_TRUE(grilla->RowBackColor(0).isValid());
    EXPECT_TRUE(grilla->RowBackColor(1).isValid());
    EXPECT_NE(grilla->RowBackColor(0), grilla->RowBackColor(1));
    EXPECT_FALSE(grilla->RowBackColor(2).isValid());
    EXPECT_EQ(items(w<QComboBox>("Combo_proveedor")), (QStringList{"Acme", kDAngelo, "Otro"}));
    EXPECT_EQ(items(w<QComboBox>("Combo_grupo")),
              (QStringList{"General para la lista", "Tornillos", "Tuercas"}));
}

TEST_F(ConfigReglasTest, AddingFromTheCombosShowsTheNewRowAndTakesTheArticleOffTheCombo)
{
    w<QComboBox>("Combo_proveedor")->setCurrentText(kDAngelo);
    w<QComboBox>("Combo_grupo")->setCurrentText(QStringLiteral("Caños"));
    auto *articulo = w<QComboBox>("Combo_articulo");
    EXPECT_EQ(items(articulo),
              (QStringList{"Todos los articulos del grupo", "C'1 - Caño 1/2' cobre", "C2 - Caño 3/4"}));
    articulo->setCurrentText(QStringLiteral("C2 - Caño 3/4"));
    QTest::keyClicks(w<QLineEdit>("agregar_Descuento"), QStringLiteral("10+5"));
    QTest::keyClicks(w<QLineEdit>("agregar_ganancia"), QStringLiteral("3-0")); // "-" refused in a margin
    QTest::mouseClick(w<QPushButton>("Command_agregar_provedor"), Qt::LeftButton);

    ASSERT_EQ(app.op.shown.size(), 1u);
    EXPECT_EQ(app.op.shown[0].title, QStringLiteral("Artículo con ganancia y descuento específicos"));
    EXPECT_EQ(filas()[4], QStringLiteral("D'Angelo|Caños|C2 - Caño 3/4|10+5|30"));
    EXPECT_EQ(items(articulo), (QStringList{"Todos los articulos del grupo", "C'1 - Caño 1/2' cobre"}));
}

TEST_F(ConfigReglasTest, AnInvalidCellEditIsRefusedAndAValidOneStoredAndApplied)
{
    editar_celda(1, 3, QStringLiteral("10++"));
    EXPECT_EQ(grilla->CellText(1, 3), QStringLiteral("20"));
    EXPECT_EQ(app.op.lines(),
              (QStringList{"error|Error en el descuento|Hay un error en la formula del descuento. "
                           "Por favor corríjala e intente nuevamente"}));
    editar_celda(1, 4, QStringLiteral("33"));
    EXPECT_EQ(grilla->CellText(1, 4), QStringLiteral("33"));
    EXPECT_TRUE(
        tabla_reglas().contains(QStringLiteral("Acme|Tornillos|Todos los articulos del grupo|20|33|true")));
    EXPECT_TRUE(tabla_reglas().contains(QStringLiteral("Acme|Tornillos|T1 - Tornillo 1/4|5|50|true")));
    EXPECT_EQ(reglas.tabla().regla_ganancia("Acme", "Tornillos", "T3"), QStringLiteral("33"));
    EXPECT_FALSE(grilla->ForceCellEdit(1, 0)); // names can't be edited
}

TEST_F(ConfigReglasTest, DeletingTheSelectedGroupRowKeepsItsArticles)
{
    grilla->setRow(1);
    app.op.answer(true);
    QTest::mouseClick(w<QPushButton>("Command_borrar_provedor"), Qt::LeftButton);
    EXPECT_EQ(filas(), (QStringList{
                           "Acme|General para la lista|Todos los articulos del grupo||",
                           "Acme|Tornillos|T1 - Tornillo 1/4|5|50",
                           "D'Angelo|General para la lista|Todos los articulos del grupo||",
                           "Otro|General para la lista|Todos los articulos del grupo||",
                       }));
    config->set_bloqueada(true);
    EXPECT_FALSE(w<QPushButton>("Command_borrar_provedor")->isEnabled());
    EXPECT_FALSE(grilla->ForceCellEdit(1, 3));
}

TEST_F(ConfigReglasTest, RulesStoredFromThePanelShowInTheGrid)
{
    regla("Otro", "Varios", "Todos los articulos del grupo", "1", "2");
    reglas.llenar(app.ctx());
    EXPECT_EQ(filas().last(), QStringLiteral("Otro|Varios|Todos los articulos del grupo|1|2"));
}

} // namespace
} // namespace vendrix

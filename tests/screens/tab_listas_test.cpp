#include "screens/grilla_listas.h"
#include "screens/tab_listas.h"

#include "catalogue/pricelist/build/price_file_builder.h"
#include "core/migrations.h"
#include "support/qt_print.h"
#include "support/test_context.h"
#include "widgets/lynx_grid.h"

#include <QLineEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>

#include <gtest/gtest.h>

namespace vendrix::test {
namespace {

QString u(const char *text)
{
    return QString::fromUtf8(text);
}

// Twelve screws of one supplier, IDs 1 to 12.
class TabListasTest : public ::testing::Test {
protected:
    void SetUp() override
    {
        SupplierList list{u("Ñandú Hogar"), u("2026-11-21"), {}, {}, {}};
        for (int i = 1; i <= 12; ++i)
            list.articulos.push_back({u("Bulonería"),
                                      QStringLiteral("T-%1").arg(i),
                                      QStringLiteral("Tornillo %1").arg(i),
                                      u("Fix"),
                                      u("UN"),
                                      u("1.005"),
                                      u("1"),
                                      {}});
        ASSERT_TRUE(
            construir_lista({app.ruta(QLatin1String(Database::kPriceFile)), {}, {}, u("2026-11-23"), {}, {}},
                            {list})
                .ok());
        app.copy_seed(QStringLiteral("clientes.install"), QLatin1String(Database::kShopFile));
        ASSERT_TRUE(ejecutar_migraciones(app.ctx()).fallidas.isEmpty());
        app.ctx().escribir_parametro(QStringLiteral("busqueda_cantidad_resultados"), QStringLiteral("1"));
        app.ctx().escribir_parametro(QStringLiteral("busqueda_cantidad_resultados_combo"),
                                     QStringLiteral("10"));
    }

    void marcar(const char *tipo, const char *codigo)
    {
        ASSERT_TRUE(app.db().execNQ(
            QStringLiteral(
                "INSERT INTO vendrix_articulos_testigo (Proveedor, Codigo, Tipo) VALUES (?, ?, ?)"),
            QStringLiteral("internal"), {u("Ñandú Hogar"), u(codigo), u(tipo)}));
    }

    void escribir_y_enter(const char *text)
    {
        tab.textoBuscar()->setText(u(text));
        QTest::keyClick(tab.textoBuscar(), Qt::Key_Return);
    }

    TestApp app;
    screens::TabListas tab{app.ctx()};
};

TEST_F(TabListasTest, HoldsTheNamedControlsAndColumns)
{
    EXPECT_EQ(tab.findChild<QLineEdit *>(QStringLiteral("TextBox_Buscar")), tab.textoBuscar());
    EXPECT_EQ(tab.findChild<QPushButton *>(QStringLiteral("Btn_BuscarListas")), tab.botonBuscar());
    widgets::LynxGrid *grid = tab.findChild<widgets::LynxGrid *>(QStringLiteral("DataGridViewListas"));
    ASSERT_EQ(grid, tab.grilla());
    QStringList headings;
    for (int col = 0; col < grid->Cols(); ++col)
        headings << grid->ColHeading(col);
    EXPECT_EQ(headings,
              (QStringList{"ID", "Proveedor", "Rubro", u("Descripción"), "Moneda", "Marca", "Precio"}));
    EXPECT_FALSE(grid->ColVisible(0));
    EXPECT_TRUE(grid->ColVisible(1));
    EXPECT_EQ(tab.botonBuscar()->text(), u("Buscar"));
}

TEST_F(TabListasTest, EnterSearchesAndTheSecondPressShowsAll)
{
    QSignalSpy selected(&tab, &screens::TabListas::articuloSeleccionado);
    escribir_y_enter("tornillo");
    widgets::LynxGrid &grid = *tab.grilla();
    ASSERT_EQ(grid.Rows(), 11);
    EXPECT_EQ(grid.CellText(0, 3), u("Tornillo 1"));
    EXPECT_EQ(grid.CellText(0, 6), u("1"));
    EXPECT_EQ(grid.CellText(10, 1), u("...VENDRIX..."));
    EXPECT_EQ(tab.botonBuscar()->text(), u("Buscar Todos"));
    // The first row is selected and loaded.
    EXPECT_EQ(grid.Row(), 0);
    ASSERT_EQ(selected.count(), 1);
    EXPECT_EQ(selected.at(0).at(0).toLongLong(), 1);
    // The marker row is no article.
    grid.setRow(10);
    EXPECT_EQ(selected.count(), 1);

    QTest::mouseClick(tab.botonBuscar(), Qt::LeftButton);
    EXPECT_EQ(grid.Rows(), 12);
    EXPECT_EQ(tab.botonBuscar()->text(), u("Buscar"));
}

TEST_F(TabListasTest, MarkedRowsTakeTheirColourAndFavouritesTheStar)
{
    marcar("F", "T-5");
    marcar("C", "T-2");
    marcar("T", "T-3");
    escribir_y_enter("tornillo");
    const widgets::LynxGrid &grid = *tab.grilla();
    EXPECT_EQ(grid.CellText(0, 0), u("5"));
    EXPECT_FALSE(grid.CellImage(0, 1).isNull());
    EXPECT_TRUE(grid.CellImage(1, 1).isNull());
    EXPECT_EQ(grid.RowBackColor(2), screens::color_marca(RowColour::centinela)); // T-2
    EXPECT_EQ(grid.RowBackColor(3), screens::color_marca(RowColour::testigo));   // T-3
    EXPECT_FALSE(grid.RowBackColor(1).isValid());
}

TEST_F(TabListasTest, AnEmptyTextIsRefusedWithItsMessage)
{
    escribir_y_enter("");
    EXPECT_EQ(
        app.op.lines(),
        QStringList{u("inform|Búsqueda de Artículos|Por favor ingrese al menos un término en la búsqueda.")});
    EXPECT_EQ(tab.grilla()->Rows(), 0);
}

} // namespace
} // namespace vendrix::test

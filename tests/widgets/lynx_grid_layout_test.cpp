#include "support/grid_fixture.h"

#include <QHeaderView>
#include <QSettings>
#include <QTableView>
#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace vendrix::widgets;
using vendrix::test::make_grid;

namespace {

struct LayoutFixture : ::testing::Test {
    QTemporaryDir dir;
    QSettings store{dir.filePath("usuario.ini"), QSettings::IniFormat};
};

std::vector<int> screen_order(const LynxGrid &grid)
{
    std::vector<int> order;
    for (int place = 0; place < grid.Cols(); ++place)
        order.push_back(grid.view()->horizontalHeader()->logicalIndex(place));
    return order;
}

} // namespace

// Order under P<column>, widths in twips under W<column>, and the count.
TEST_F(LayoutFixture, OrderAndWidthsRoundTripThroughTheStore)
{
    auto saved = make_grid({"A", "B", "C", "D"});
    QHeaderView *header = saved->view()->horizontalHeader();
    header->moveSection(3, 0); // D A B C
    header->moveSection(2, 3); // D A C B
    saved->setColWidth(0, 2000);
    saved->setColWidth(2, 0);
    saved->ColOrderSave(store, "Listas");
    saved->ColWidthsSave(store, "Listas");
    EXPECT_EQ(QStringList({store.value("Listas/Count").toString(), store.value("Listas/P3").toString(),
                           store.value("Listas/W0").toString(), store.value("Listas/W1").toString()}),
              QStringList({"4", "0", "2000", "1000"}));

    auto loaded = make_grid({"A", "B", "C", "D"});
    loaded->ColOrderLoad(store, "Listas");
    loaded->ColWidthsLoad(store, "Listas");
    EXPECT_EQ(screen_order(*loaded), std::vector<int>({3, 0, 2, 1}));
    EXPECT_EQ(QList<int>({loaded->ColWidth(0), loaded->ColWidth(1), loaded->ColWidth(2)}),
              QList<int>({2000, 1000, 0}));
    EXPECT_TRUE(loaded->view()->horizontalHeader()->isSectionHidden(2));
    EXPECT_EQ(loaded->view()->horizontalHeader()->sectionSize(0),
              qRound(2000 * loaded->logicalDpiX() / 1440.0));
}

TEST_F(LayoutFixture, ALayoutOfAnotherColumnCountOrBrokenPlacesIsIgnored)
{
    auto saved = make_grid({"A", "B", "C"});
    saved->view()->horizontalHeader()->moveSection(2, 0);
    saved->setColWidth(0, 3000);
    saved->ColOrderSave(store, "Tres");
    saved->ColWidthsSave(store, "Tres");

    auto four = make_grid({"A", "B", "C", "D"});
    four->ColOrderLoad(store, "Tres");
    four->ColWidthsLoad(store, "Tres");
    EXPECT_EQ(screen_order(*four), std::vector<int>({0, 1, 2, 3}));
    EXPECT_EQ(four->ColWidth(0), 1000);

    store.setValue("Tres/P0", 2); // two columns at place 2
    auto three = make_grid({"A", "B", "C"});
    three->ColOrderLoad(store, "Tres");
    EXPECT_EQ(screen_order(*three), std::vector<int>({0, 1, 2}));
}

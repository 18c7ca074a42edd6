// The price list searched as the operator types: the capped rows of the
// typed text on the grid, only the newest text painted, nothing else touched;
// Enter and the button still run the whole search.
#include "sales/tienda.h"
#include "screens/lists/tab_listas.h"
#include "screens/pantalla.h"
#include "widgets/lynx_grid.h"

#include <QSignalSpy>

namespace vendrix::screens {
namespace {

class BusquedaAlEscribir : public test::Tienda {
protected:
    // Eight screws (IDs 1 to 8) and four nuts (IDs 9 to 12).
    QStringList articulos() const override
    {
        QStringList out;
        for (int id = 1; id <= 12; ++id)
            out << QStringLiteral("(%1, 'Acme', 'Varios', 'C%1', '%2 %1', '%1', '1')")
                       .arg(id)
                       .arg(id <= 8 ? "Tornillo" : "Tuerca");
        return out;
    }

    void SetUp() override
    {
        Tienda::SetUp();
        ajuste("busqueda_cantidad_resultados", "1");
        ajuste("busqueda_cantidad_resultados_combo", "3");
        tab = std::make_unique<TabListas>(app.ctx());
        tab->show();
        pintadas = std::make_unique<QSignalSpy>(tab.get(), &TabListas::vistaPreviaPintada);
    }

    // The IDs and descriptions of the grid's rows, "ID Descripción".
    QStringList filas() const
    {
        QStringList out;
        for (int r = 0; r < tab->grilla()->Rows(); ++r)
            out << tab->grilla()->CellText(r, 0) + ' ' + tab->grilla()->CellText(r, 3);
        return out;
    }

    // Types the keys one by one with the event loop held back, as a fast
    // operator's keys queue up, then waits for a painted text.
    bool escribir_y_esperar(const char *teclas)
    {
        QTest::keyClicks(tab->textoBuscar(), QString::fromUtf8(teclas));
        return pintadas->wait(5000);
    }

    // Lets the worker and the event loop run: whatever was going to be
    // painted has been.
    static void dejar_correr() { QTest::qWait(200); }

    const QString marcador = "...VENDRIX... ... Haga click aquí para ver mas resultados ...";
    std::unique_ptr<TabListas> tab;
    std::unique_ptr<QSignalSpy> pintadas;
};

TEST_F(BusquedaAlEscribir, TypingPaintsTheCappedRowsAndNothingElse)
{
    ASSERT_TRUE(escribir_y_esperar("tuer"));
    EXPECT_EQ(filas(), QStringList({"9 Tuerca 9", "10 Tuerca 10", "11 Tuerca 11", marcador}));
    EXPECT_EQ(pintadas->takeFirst().at(0).toString(), "tuer");
    // A preview: the caption, the selection, the log, the busy state and the
    // operator's messages are those of before.
    EXPECT_EQ(tab->botonBuscar()->text(), "Buscar");
    EXPECT_EQ(tab->grilla()->Row(), -1);
    EXPECT_EQ(app.log_messages(), QStringList());
    EXPECT_TRUE(app.status.busy_changes.empty());
    EXPECT_EQ(app.op.lines(), QStringList());

    // A text with fewer matches than the cap has no marker row.
    ASSERT_TRUE(escribir_y_esperar("ca 1"));
    EXPECT_EQ(filas(), QStringList({"10 Tuerca 10", "11 Tuerca 11", "12 Tuerca 12"}));
}

TEST_F(BusquedaAlEscribir, FastTypingPaintsOnlyTheLastText)
{
    ASSERT_TRUE(escribir_y_esperar("tornillo 7"));
    dejar_correr();
    // Ten edits, one painted: the searches of the texts overtaken by the
    // next key never reach the grid.
    ASSERT_EQ(pintadas->size(), 1);
    EXPECT_EQ(pintadas->at(0).at(0).toString(), "tornillo 7");
    EXPECT_EQ(filas(), QStringList({"7 Tornillo 7"}));
}

TEST_F(BusquedaAlEscribir, EnterStillRunsTheWholeSearchAndNoPreviewPaintsOverIt)
{
    QTest::keyClicks(tab->textoBuscar(), QStringLiteral("tornillo"));
    QTest::keyClick(tab->textoBuscar(), Qt::Key_Return);
    dejar_correr();
    EXPECT_EQ(pintadas->size(), 0);
    EXPECT_EQ(filas(), QStringList({"1 Tornillo 1", "2 Tornillo 2", "3 Tornillo 3", marcador}));
    EXPECT_EQ(tab->botonBuscar()->text(), "Buscar Todos");
    EXPECT_EQ(tab->grilla()->Row(), 0);
    EXPECT_EQ(app.log_messages(), QStringList({"Listas - se busco el término: tornillo."}));

    // The second press lifts the cap.
    tab->botonBuscar()->click();
    EXPECT_EQ(filas().size(), 8);
    EXPECT_EQ(tab->botonBuscar()->text(), "Buscar");
}

TEST_F(BusquedaAlEscribir, ShortTextsTheSettingOffAndAMissingListPaintNothingAndSayNothing)
{
    ajuste("busqueda_limite_caracteres", "1");
    ajuste("busqueda_limite_caracteres_combo", "4");
    QTest::keyClicks(tab->textoBuscar(), QStringLiteral("tor"));
    dejar_correr();
    EXPECT_EQ(pintadas->size(), 0);
    // Emptying the box searches nothing either.
    for (int i = 0; i < 3; ++i)
        QTest::keyClick(tab->textoBuscar(), Qt::Key_Backspace);
    dejar_correr();
    EXPECT_EQ(pintadas->size(), 0);

    ajuste("busqueda_al_escribir", "0");
    QTest::keyClicks(tab->textoBuscar(), QStringLiteral("tornillo"));
    dejar_correr();
    EXPECT_EQ(pintadas->size(), 0);
    EXPECT_EQ(filas(), QStringList());

    // Without the list the search of a typed text fails quietly; Enter is
    // what tells the operator.
    ajuste("busqueda_al_escribir", "1");
    ASSERT_TRUE(QFile::rename(app.ruta("Vendrix.vdrxdb"), app.ruta("otra.vdrxdb")));
    QTest::keyClicks(tab->textoBuscar(), QStringLiteral(" 2"));
    dejar_correr();
    EXPECT_EQ(pintadas->size(), 0);
    EXPECT_EQ(app.op.lines(), QStringList());
    EXPECT_EQ(app.log_messages(), QStringList());
}

TEST_F(BusquedaAlEscribir, TheWorkerEndsWithTheTabWhileASearchWaits)
{
    ASSERT_TRUE(escribir_y_esperar("tuerca"));
    // Keys whose searches are still queued or running when the tab goes.
    QTest::keyClicks(tab->textoBuscar(), QStringLiteral(" 1"));
    pintadas.reset();
    tab.reset();
    dejar_correr();
    SUCCEED();
}

} // namespace
} // namespace vendrix::screens

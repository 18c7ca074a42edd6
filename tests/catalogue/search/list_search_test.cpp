#include "catalogue/search/index_at_startup.h"
#include "catalogue/search/list_search.h"
#include "catalogue/support/list_fixture.h"
#include "catalogue/support/search_fixture.h"

#include <QFile>

#include <gtest/gtest.h>

namespace vendrix::test {
namespace {

QString u(const char *text)
{
    return QString::fromUtf8(text);
}

ListArticle art(const char *codigo, const char *descripcion, const char *precio = "1",
                  const char *moneda = "1")
{
    return articulo(u(codigo), u(descripcion), u(precio), u(moneda));
}

// Sanitarios O'Higgins sorts before Ñandú Hogar: its articles are IDs 1 to 7,
// the eleven screws of Ñandú Hogar 8 to 18, its kettle 19.
std::vector<SupplierList> listas()
{
    SupplierList sanitarios{u("Sanitarios O'Higgins"), u("2026-11-20"), {}, {}, {}};
    sanitarios.articulos = {art("A-1", "Caño de cobre 1/2\"", "10.125", "1"),
                            art("A-2", "Caño cobre 3/4\"", "1344.915", "2"),
                            art("A-3", "Llave 100%", "2.675", "101"),
                            art("", "Codo sin código", "5", "102"),
                            art("A-5", "Tubería [especial]", "7", "7"),
                            art("A-6", "Llave 1000", "abc"),
                            art("A-7", "Cinta", "3")};
    SupplierList nandu{u("Ñandú Hogar"), u("2026-11-21"), {}, {}, {}};
    for (int i = 1; i <= 11; ++i)
        nandu.articulos.push_back(articulo(QStringLiteral("T-%1").arg(i),
                                           QStringLiteral("Tornillo %1").arg(i), QStringLiteral("1")));
    nandu.articulos.push_back(art("P-1", "Pava acero"));
    return {sanitarios, nandu};
}

class BuscarArticulosTest : public ::testing::Test {
protected:
    SearchResult buscar(const char *text)
    {
        grilla.filas.clear();
        return buscar_articulos(f.ctx(), u(text), boton, grilla, acciones);
    }

    QStringList buscar_ids(const char *text)
    {
        buscar(text);
        return grilla.ids();
    }

    // The log messages that start so.
    QStringList log(const char *start) const
    {
        QStringList lines;
        for (const QString &line : f.app.log_messages()) {
            if (line.startsWith(u(start)))
                lines << line;
        }
        return lines;
    }

    // The message of a failed load, its error line in the log, the busy
    // state released.
    void fallo_avisado(const QString &message, const QString &line) const
    {
        EXPECT_EQ(f.app.op.lines(), QStringList{u("error|Error al intentar cargar las Grillas.|") + message});
        EXPECT_EQ(log(line.left(8).toUtf8().constData()), QStringList{line});
        EXPECT_EQ(f.app.status.busy_changes.back(), false);
        EXPECT_TRUE(f.app.status.keywords.contains(QStringLiteral("bug_on")));
    }

    CarpetaBusqueda f{listas()};
    GrillaRecogida grilla;
    QString boton = QStringLiteral("Buscar");
    ListActions acciones;
};

TEST_F(BuscarArticulosTest, RefusesAnEmptyOrShortText)
{
    int cleared = 0;
    acciones.limpiar_detalle = [&cleared] { ++cleared; };
    EXPECT_EQ(buscar(""), SearchResult::rechazada);
    f.opcion("busqueda_limite_caracteres", QStringLiteral("1"));
    f.opcion("busqueda_limite_caracteres_combo", QStringLiteral("4"));
    EXPECT_EQ(buscar("caño"), SearchResult::hecha);
    EXPECT_EQ(buscar("cañ"), SearchResult::rechazada);
    EXPECT_EQ(
        f.app.op.lines(),
        (QStringList{u("inform|Búsqueda de Artículos|Por favor ingrese al menos un término en la búsqueda."),
                     u("inform|Búsqueda de Artículos|El texto a buscar es muy corto. Por favor ingrese un "
                       "texto de más de 4 caracteres.")}));
    EXPECT_EQ(cleared, 1);
    EXPECT_EQ(grilla.limpiezas, 1);
    EXPECT_EQ(log("Listas - se busco"), QStringList{u("Listas - se busco el término: caño.")});
}

TEST_F(BuscarArticulosTest, GridRowsHoldTheSevenColumnsWithThePriceRounded)
{
    EXPECT_EQ(buscar("sanitarios"), SearchResult::hecha);
    EXPECT_EQ(grilla.celdas(),
              (QStringList{u("1|Sanitarios O'Higgins|Grupo|Caño de cobre 1/2\"|Pesos|Marca|10,12"),
                           u("2|Sanitarios O'Higgins|Grupo|Caño cobre 3/4\"|Dolares|Marca|1344,92"),
                           u("3|Sanitarios O'Higgins|Grupo|Llave 100%|Pesos|Marca|2,68"),
                           u("4|Sanitarios O'Higgins|Grupo|Codo sin código|Dolares|Marca|5"),
                           u("5|Sanitarios O'Higgins|Grupo|Tubería [especial]|7|Marca|7"),
                           u("6|Sanitarios O'Higgins|Grupo|Llave 1000|Pesos|Marca|0"),
                           u("7|Sanitarios O'Higgins|Grupo|Cinta|Pesos|Marca|3")}));
    EXPECT_EQ(grilla.redibujos, (std::vector<bool>{false, true}));
    const std::vector<bool> &busy = f.app.status.busy_changes;
    EXPECT_EQ(std::vector<bool>(busy.end() - 2, busy.end()), (std::vector<bool>{true, false}));
    EXPECT_EQ(columnas_listas(),
              (QStringList{"ID", "Proveedor", "Rubro", u("Descripción"), "Moneda", "Marca", "Precio"}));
}

TEST_F(BuscarArticulosTest, SpecialCharactersAreLiterals)
{
    EXPECT_EQ(buscar_ids("100%"), QStringList{"3"});
    EXPECT_EQ(buscar_ids("%"), QStringList{"3"});
    EXPECT_EQ(buscar_ids("o'higgins cinta"), QStringList{"7"});
    EXPECT_EQ(buscar_ids("especial]"), QStringList{"5"});
    EXPECT_EQ(buscar_ids("1/2\""), QStringList{"1"});
    // The "]" of the escaped "[" is escaped in its turn: "[" looks for "[]".
    EXPECT_EQ(buscar_ids("[especial]"), QStringList{});
    EXPECT_EQ(buscar_ids("["), QStringList{});
    EXPECT_TRUE(f.app.op.empty());
}

TEST_F(BuscarArticulosTest, PrepositionsAndSimilarTerms)
{
    f.opcion("busqueda_ignorarPreposiciones", QStringLiteral("1"));
    EXPECT_EQ(buscar_ids("CAÑO DE COBRE"), (QStringList{"1", "2"}));
    EXPECT_EQ(log("Listas - se busco").last(), u("Listas - se busco el término: CAÑO COBRE."));
    f.opcion("busqueda_ignorarPreposiciones", QStringLiteral("0"));
    EXPECT_EQ(buscar_ids("CAÑO DE COBRE"), QStringList{"1"});
    f.opcion("busqueda_terminos_similares", QStringLiteral("1"));
    EXPECT_EQ(buscar_ids("pavas aceros"), QStringList{"19"});
}

TEST_F(BuscarArticulosTest, CaseIgnoredAccentsKept)
{
    EXPECT_EQ(buscar_ids("ñANDÚ pava"), QStringList{"19"});
    EXPECT_EQ(buscar_ids("nandu pava"), QStringList{});
    EXPECT_EQ(buscar_ids("tuberia"), QStringList{});
    EXPECT_EQ(buscar_ids("TUBERÍA"), QStringList{"5"});
    // Two characters, one of them outside ASCII: tested on every row.
    EXPECT_EQ(buscar_ids("dú pa"), QStringList{"19"});
}

TEST_F(BuscarArticulosTest, UnderscoreIsOneCharacterAlsoBetweenFields)
{
    // Group, empty observations, description: "GRUPO  CAÑO".
    EXPECT_EQ(buscar_ids("upo__caño"), (QStringList{"1", "2"}));
    EXPECT_EQ(buscar_ids("upo_caño"), QStringList{});
    // The code is followed by a blank.
    EXPECT_EQ(buscar_ids("a-1_"), QStringList{"1"});
    EXPECT_EQ(buscar_ids("a-1__"), QStringList{});
    EXPECT_EQ(buscar_ids("t-1_"), (QStringList{"8", "17", "18"}));
}

TEST_F(BuscarArticulosTest, CapShowsTheMarkerAndTheSecondPressShowsAll)
{
    f.opcion("busqueda_cantidad_resultados", QStringLiteral("1"));
    f.opcion("busqueda_cantidad_resultados_combo", QStringLiteral("10"));
    EXPECT_EQ(buscar_ids("tornillo"),
              (QStringList{"8", "9", "10", "11", "12", "13", "14", "15", "16", "17", "...VENDRIX..."}));
    EXPECT_EQ(grilla.filas.back(), fila_marcador());
    EXPECT_EQ(
        grilla.celdas().last(),
        u("...VENDRIX...|...VENDRIX...|...|... Haga click aquí para ver mas resultados ...|...|...|..."));
    EXPECT_EQ(boton, u("Buscar Todos"));
    EXPECT_EQ(buscar_ids("tornillo").size(), 11);
    EXPECT_FALSE(grilla.filas.back().marcador);
    EXPECT_EQ(boton, u("Buscar"));
    // Ten matches fit: no marker, and the caption goes back.
    EXPECT_EQ(buscar_ids("tornillo 1").size(), 3); // 1, 10, 11
    EXPECT_EQ(boton, u("Buscar"));
    f.opcion("busqueda_cantidad_resultados_combo", QStringLiteral("2"));
    EXPECT_EQ(buscar_ids("tornillo 1"), (QStringList{"8", "17", "...VENDRIX..."}));
    f.opcion("busqueda_cantidad_resultados_combo", QStringLiteral("diez"));
    EXPECT_EQ(buscar_ids("tornillo").size(), 11);
    EXPECT_EQ(boton, u("Buscar"));
}

TEST_F(BuscarArticulosTest, FavouritesComeFirstOnceAndNeedACode)
{
    f.marcar(QStringLiteral("F"), u("Ñandú Hogar"), QStringLiteral("T-7"));
    f.marcar(QStringLiteral("f"), u("ÑANDÚ HOGAR"), QStringLiteral("t-3")); // case ignored, Ñ too
    f.marcar(QStringLiteral("F"), u("Sanitarios O'Higgins"), u(""));        // no code: no favourite
    f.marcar(QStringLiteral("F"), u("Otro"), QStringLiteral("T-5"));
    f.opcion("busqueda_cantidad_resultados", QStringLiteral("1"));
    f.opcion("busqueda_cantidad_resultados_combo", QStringLiteral("4"));
    EXPECT_EQ(buscar_ids("tornillo"), (QStringList{"10", "14", "8", "9", "...VENDRIX..."}));
    EXPECT_TRUE(grilla.filas[0].marcas.favorito && grilla.filas[1].marcas.favorito);
    EXPECT_FALSE(grilla.filas[2].marcas.favorito);
    EXPECT_EQ(buscar_ids("tornillo").size(), 11);
    EXPECT_EQ(grilla.ids().mid(0, 4), (QStringList{"10", "14", "8", "9"}));
    boton = QStringLiteral("Buscar");
    EXPECT_EQ(buscar_ids("codo sin"), QStringList{"4"});
    EXPECT_FALSE(grilla.filas[0].marcas.favorito);
}

TEST_F(BuscarArticulosTest, OnlyFavourites)
{
    f.opcion("mostrar_solo_favoritos", QStringLiteral("1"));
    f.opcion("busqueda_cantidad_resultados", QStringLiteral("1"));
    f.opcion("busqueda_cantidad_resultados_combo", QStringLiteral("10"));
    EXPECT_EQ(buscar_ids("tornillo"), QStringList{});
    EXPECT_EQ(boton, u("Buscar"));
    f.marcar(QStringLiteral("F"), u("Ñandú Hogar"), QStringLiteral("T-2"));
    f.marcar(QStringLiteral("C"), u("Ñandú Hogar"), QStringLiteral("T-2"));
    EXPECT_EQ(buscar_ids("tornillo"), QStringList{"9"});
    EXPECT_EQ(grilla.filas[0].marcas, (RowMarks{true, 0, 0, 0, 0}));
}

TEST_F(BuscarArticulosTest, RowsCarryTheShopsMarks)
{
    f.marcar(QStringLiteral("C"), u("sanitarios o'higgins"), QStringLiteral("a-1"));
    f.marcar(QStringLiteral("T"), u("Sanitarios O'Higgins"), QStringLiteral("A-2"));
    f.marcar(QStringLiteral("T"), u("Sanitarios O'Higgins"), QStringLiteral("A-2"));
    f.pedir(u("caño DE COBRE 1/2\""), QStringLiteral("grupo"), QStringLiteral("Pedido Pendiente"));
    f.pedir(u("Caño cobre 3/4\""), QStringLiteral("Grupo"), QStringLiteral("pedido"));
    f.pedir(u("Caño cobre 3/4\""), QStringLiteral("Grupo"), QStringLiteral("Recibido"));
    f.pedir(u("Codo sin código"), QStringLiteral("Otro grupo"), QStringLiteral("Pedido"));
    buscar("caño");
    ASSERT_EQ(grilla.filas.size(), 2u);
    EXPECT_EQ(grilla.filas[0].marcas, (RowMarks{false, 1, 0, 1, 0}));
    EXPECT_EQ(grilla.filas[1].marcas, (RowMarks{false, 0, 2, 0, 1}));
    EXPECT_EQ(buscar_ids("codo"), QStringList{"4"});
    EXPECT_EQ(grilla.filas[0].marcas, RowMarks{});
}

TEST_F(BuscarArticulosTest, CommentsBranchTakesTheWholeText)
{
    f.marcar(QStringLiteral("U"), u("Sanitarios O'Higgins"), QStringLiteral("A-3"),
             u("Oferta especial de invierno"));
    f.marcar(QStringLiteral("U"), u("Sanitarios O'Higgins"), u(""), u("Pedir al depósito"));
    EXPECT_EQ(buscar_ids("oferta especial"), QStringList{});
    f.opcion("busqueda_buscar_en_comentarios", QStringLiteral("1"));
    EXPECT_EQ(buscar_ids("oferta especial"), QStringList{"3"});
    EXPECT_EQ(buscar_ids("depósito"), QStringList{"4"}); // an article without code has its comment too
    EXPECT_EQ(buscar_ids("invierno oferta"), QStringList{});
    // With spelling variants each term is also looked for in the comment.
    f.opcion("busqueda_ortografia", QStringLiteral("1"));
    EXPECT_EQ(buscar_ids("invierno oferta"), QStringList{"3"});
    EXPECT_EQ(buscar_ids("inbierno llave"), QStringList{"3"});
}

TEST_F(BuscarArticulosTest, SpellingVariants)
{
    f.opcion("busqueda_ortografia", QStringLiteral("1"));
    EXPECT_EQ(buscar_ids("pava azero"), QStringList{"19"});
    EXPECT_EQ(buscar_ids("yave 100"), (QStringList{"3", "6"}));
    EXPECT_EQ(buscar_ids("sinta"), QStringList{"7"});
}

TEST_F(BuscarArticulosTest, ASingleResultGoesToTheCartWhenAsked)
{
    int shown = 0;
    QStringList added;
    bool carts = true;
    acciones.mostrar_primera = [&shown] { ++shown; };
    acciones.carritos_marcados = [&carts] { return carts; };
    acciones.agregar_al_carrito = [&added](const ListGridRow &fila) {
        added << fila.celdas.value(0);
        return true;
    };
    buscar("cinta");
    EXPECT_TRUE(added.isEmpty());
    f.opcion("busqueda_agregar_automaticamente", QStringLiteral("1"));
    buscar("cinta");
    buscar("caño");
    carts = false;
    buscar("pava");
    buscar("nada de esto");
    EXPECT_EQ(added, QStringList{"7"});
    EXPECT_EQ(shown, 4);
    EXPECT_EQ(log("Se agreg"),
              QStringList{u("Se agregó un artículo de la grilla automáticamente al carrito.")});
}

TEST_F(BuscarArticulosTest, AFailedLoadIsToldAndLogged)
{
    f.en_precios({QStringLiteral("DROP TABLE xls_busqueda"), QStringLiteral("DROP TABLE xls_listas")});
    EXPECT_EQ(buscar("caño"), SearchResult::fallida);
    fallo_avisado(
        u("ER GRA01: Se produjo un error al cargar la información en la Grilla de Artículos. Cierre "
          "Vendrix e intente nuevamente."),
        u("ER GRA01 - 1 no such table: xls_listas 0 cargar_grilla_listas."));
    EXPECT_TRUE(f.app.status.keywords.contains(QStringLiteral("bug_on")));
    EXPECT_EQ(log("Listas - se busco"), QStringList{u("Listas - se busco el término: caño.")});
}

TEST_F(BuscarArticulosTest, HighDetailLogsTheQueryAndItsTime)
{
    f.app.log().set_detalle(QStringLiteral("High"));
    f.opcion("busqueda_cantidad_resultados", QStringLiteral("1"));
    f.opcion("busqueda_cantidad_resultados_combo", QStringLiteral("10"));
    buscar("tornillo 1");
    EXPECT_EQ(
        log("Listas - SELECT"),
        QStringList{u("Listas - SELECT rowid FROM xls_busqueda WHERE xls_busqueda MATCH '((\"TORNILLO\"))' - "
                      "límite 11.")});
    EXPECT_EQ(log("Tiempo de ejecución"), QStringList{u("Tiempo de ejecución de la query: 0.")});
}

TEST_F(BuscarArticulosTest, GenericFillerAndItsFailure)
{
    EXPECT_TRUE(llenar_grilla(f.ctx(), grilla,
                              QStringLiteral("SELECT Proveedor, count(*) FROM xls_listas WHERE Precio <> ? "
                                             "GROUP BY Proveedor ORDER BY 1"),
                              QStringLiteral("external"), {QStringLiteral("7")}));
    EXPECT_EQ(grilla.celdas(), (QStringList{u("Sanitarios O'Higgins|6"), u("Ñandú Hogar|12")}));
    EXPECT_TRUE(llenar_grilla(
        f.ctx(), grilla,
        QStringLiteral("SELECT Codigo FROM xls_listas WHERE Codigo LIKE 'A-%' ORDER BY ID LIMIT 2"),
        QStringLiteral("external"), {}, [](const Cursor &row) {
            return ListGridRow{{row.texto(0).toLower()}, {false, 1, 0, 0, 0}, false};
        }));
    EXPECT_EQ(grilla.celdas(), (QStringList{"a-1", "a-2"}));
    EXPECT_EQ(grilla.filas[0].marcas.centinela, 1);
    EXPECT_EQ(grilla.limpiezas, 2);

    EXPECT_FALSE(llenar_grilla(f.ctx(), grilla, QStringLiteral("SELECT nada FROM xls_listas"),
                               QStringLiteral("external")));
    fallo_avisado(u("ER GR001: Se produjo un error al cargar la información en las Grillas. Cierre Vendrix e "
                    "intente nuevamente."),
                  u("ER GR001 - 1 no such column: nada 0 llenar_grilla."));
    EXPECT_TRUE(grilla.filas.empty());
}

TEST_F(BuscarArticulosTest, StartUpAddsAMissingIndexOnce)
{
    f.en_precios({QStringLiteral("DROP TABLE xls_busqueda")});
    EXPECT_TRUE(preparar_indice_busqueda(f.ctx()));
    EXPECT_TRUE(preparar_indice_busqueda(f.ctx())); // nothing left to do
    EXPECT_EQ(log("Listas - "),
              (QStringList{u("Listas - la base de precios no tiene el índice de búsqueda al día: se crea."),
                           u("Listas - se creó el índice de búsqueda de la base de precios.")}));
    EXPECT_EQ(valor(f.app.ruta(QLatin1String(Database::kPriceFile)), "SELECT count(*) FROM xls_busqueda"),
              QStringLiteral("19"));
    EXPECT_EQ(buscar_ids("pava"), QStringList{"19"});
    // The price connection is read-only again.
    EXPECT_FALSE(f.app.db().execNQ(QStringLiteral("DELETE FROM xls_listas"), QStringLiteral("external")));
}

TEST_F(BuscarArticulosTest, StartUpToldWhenTheIndexCantBeMade)
{
    f.en_precios(
        {QStringLiteral("DROP TABLE xls_busqueda"), QStringLiteral("ALTER TABLE xls_listas RENAME TO otra")});
    EXPECT_FALSE(preparar_indice_busqueda(f.ctx()));
    const QStringList errors = log("ER IDX01 - ");
    ASSERT_EQ(errors.size(), 1);
    EXPECT_TRUE(
        errors[0].startsWith(u("ER IDX01 - No se pudo crear el índice de búsqueda de la base de precios: ")));
    EXPECT_TRUE(errors[0].endsWith(u(" preparar_indice_busqueda.")));
    QFile::remove(f.app.ruta(QLatin1String(Database::kPriceFile)));
    f.app.db().cerrar();
    EXPECT_FALSE(preparar_indice_busqueda(f.ctx())); // no price file: the start-up tells that itself
    EXPECT_EQ(log("ER IDX01 - ").size(), 1);
}

TEST(RowColour, OnlyACountOfOneColoursAndOrdersComeFirst)
{
    EXPECT_EQ(color_de_fila({}), RowColour::ninguno);
    EXPECT_EQ(color_de_fila({true, 0, 0, 0, 0}), RowColour::ninguno);
    EXPECT_EQ(color_de_fila({false, 1, 1, 0, 0}), RowColour::centinela);
    EXPECT_EQ(color_de_fila({false, 0, 1, 0, 0}), RowColour::testigo);
    EXPECT_EQ(color_de_fila({false, 1, 1, 1, 1}), RowColour::pedido_pendiente);
    EXPECT_EQ(color_de_fila({false, 1, 0, 2, 1}), RowColour::pedido);
    EXPECT_EQ(color_de_fila({false, 2, 2, 2, 2}), RowColour::ninguno);
}

} // namespace
} // namespace vendrix::test

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
// the eleven screws of Ñandú Hogar 8 to 18, its kettle 19, its kit 20.
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
    nandu.articulos.push_back(art("K-1", "Kit [X] de prueba a_b 50%"));
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
        return grilla.celdas(0);
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
    f.opcion("busqueda_limite_caracteres", "1");
    f.opcion("busqueda_limite_caracteres_combo", "4");
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
}

struct CasoBusqueda {
    const char *opciones; // P prepositions ignored, S similar terms, O spelling variants
    const char *texto;
    QStringList ids;
};

TEST_F(BuscarArticulosTest, EveryCharacterTypedStandsForItself)
{
    const CasoBusqueda casos[] = {
        {"", "100%", {"3"}},
        {"", "%", {"3", "20"}},
        {"", "o'higgins cinta", {"7"}},
        {"", "1/2\"", {"1"}},
        {"", "[x] de", {"20"}},
        {"P", "[X] DE", {"20"}}, // a preposition at the end stays
        {"", "a_b", {"20"}},
        {"", "upo__caño", {}}, // no wildcard, not even across fields
        {"", "ñANDÚ pava", {"19"}},
        {"", "nandu pava", {}},
        {"", "dú pa", {"19"}}, // two characters, one outside ASCII: tested on every row
        {"P", "CAÑO DE COBRE", {"1", "2"}},
        {"", "CAÑO DE COBRE", {"1"}},
        {"S", "pavas aceros", {"19"}},
        {"O", "pava azero", {"19"}},
        {"O", "yave 100", {"3", "6"}},
    };
    for (const CasoBusqueda &c : casos) {
        const QString options = QString::fromLatin1(c.opciones);
        f.opcion("busqueda_ignorarPreposiciones", options.contains(QLatin1Char('P')) ? "1" : "0");
        f.opcion("busqueda_terminos_similares", options.contains(QLatin1Char('S')) ? "1" : "0");
        f.opcion("busqueda_ortografia", options.contains(QLatin1Char('O')) ? "1" : "0");
        EXPECT_EQ(buscar_ids(c.texto), c.ids) << c.opciones << " " << c.texto;
    }
    EXPECT_TRUE(f.app.op.empty());
    // The log shows the text in its escaped form, after the option steps.
    const QStringList logged = log("Listas - se busco");
    EXPECT_TRUE(logged.contains(u("Listas - se busco el término: [[[]]X[]] DE.")))
        << logged.join(QLatin1Char('\n')).toStdString();
    EXPECT_TRUE(logged.contains(u("Listas - se busco el término: CAÑO COBRE.")));
}

TEST_F(BuscarArticulosTest, CapShowsTheMarkerAndTheSecondPressShowsAll)
{
    f.opcion("busqueda_cantidad_resultados", "1");
    f.opcion("busqueda_cantidad_resultados_combo", "10");
    EXPECT_EQ(buscar_ids("tornillo"),
              (QStringList{"8", "9", "10", "11", "12", "13", "14", "15", "16", "17", "...VENDRIX..."}));
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
    f.opcion("busqueda_cantidad_resultados_combo", "2");
    EXPECT_EQ(buscar_ids("tornillo 1"), (QStringList{"8", "17", "...VENDRIX..."}));
    f.opcion("busqueda_cantidad_resultados_combo", "diez");
    EXPECT_EQ(buscar_ids("tornillo").size(), 11);
    EXPECT_EQ(boton, u("Buscar"));
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
    f.opcion("busqueda_agregar_automaticamente", "1");
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
    EXPECT_EQ(log("Listas - se busco"), QStringList{u("Listas - se busco el término: caño.")});
}

TEST_F(BuscarArticulosTest, HighDetailLogsTheQueryAndItsTime)
{
    f.app.log().set_detalle(QStringLiteral("High"));
    f.opcion("busqueda_cantidad_resultados", "1");
    f.opcion("busqueda_cantidad_resultados_combo", "10");
    buscar("tornillo 1");
    EXPECT_EQ(log("Listas - SELECT"),
              QStringList{
                  u("Listas - SELECT rowid FROM xls_busqueda WHERE xls_busqueda MATCH '(\"TOR\" AND \"ORN\" "
                    "AND \"RNI\" AND \"NIL\" AND \"ILL\" AND \"LLO\")' - límite 11.")});
    EXPECT_EQ(log("Tiempo de ejecución"), QStringList{u("Tiempo de ejecución de la query: 0.")});
}

TEST_F(BuscarArticulosTest, GenericFillerAndItsFailure)
{
    EXPECT_TRUE(
        llenar_grilla(f.ctx(), grilla,
                      QStringLiteral("SELECT Codigo FROM xls_listas WHERE Codigo LIKE ? ORDER BY ID LIMIT 2"),
                      QStringLiteral("external"), {QStringLiteral("A-%")}, [](const Cursor &row) {
                          return ListGridRow{{row.texto(0).toLower()}, {false, 1, 0, 0, 0}, false};
                      }));
    EXPECT_EQ(grilla.celdas(), (QStringList{"a-1", "a-2"}));
    EXPECT_EQ(grilla.filas[0].marcas.centinela, 1);
    EXPECT_FALSE(llenar_grilla(f.ctx(), grilla, QStringLiteral("SELECT nada FROM xls_listas"),
                               QStringLiteral("external")));
    fallo_avisado(u("ER GR001: Se produjo un error al cargar la información en las Grillas. Cierre Vendrix e "
                    "intente nuevamente."),
                  u("ER GR001 - 1 no such column: nada 0 llenar_grilla."));
    EXPECT_EQ(grilla.limpiezas, 2);
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
    EXPECT_EQ(
        valor(f.app.ruta(QLatin1String(Database::kPriceFile)), "SELECT ultimo_id FROM xls_busqueda_estado"),
        QStringLiteral("20"));
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

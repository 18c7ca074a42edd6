// The cart's own operations: blank lines, deleting, emptying, amounts and
// total, cell edits, the same-article rule, names and the function keys.
#include "sales/carritos.h"
#include "sales/operar_carrito.h"
#include "tienda.h"

namespace vendrix {
namespace {

using test::Tienda;

class CarritoTest : public Tienda {
protected:
    Carrito carrito{3};

    // An article line: quantity, description, unit price, id, group.
    void articulo(const char *cantidad, const char *descripcion, const char *precio, const char *id = "1",
                  const char *grupo = "Tornillos")
    {
        carrito.agregar_linea(linea(
            {cantidad, descripcion, precio, "0", "21", id, "30", "10", "0", "500", "T1", grupo, "Acme"}));
    }
};

TEST_F(CarritoTest, BlankLineTakesTheShopRate)
{
    ajuste("iva", "21");
    EXPECT_TRUE(operar_carrito(app.ctx(), carrito, VerboCarrito::agregar, false));
    ASSERT_EQ(carrito.filas(), 1);
    EXPECT_EQ(celdas(carrito, 0), (QStringList{"1", "", "0", "0", "21", "0", "0", "0", "0", "", "", "", ""}));
    EXPECT_EQ(log_de("ACT"), QStringList{"Carrito - Se agrego un elemento"});
    EXPECT_TRUE(app.op.empty());
}

TEST_F(CarritoTest, DeletingNeedsASelectedLine)
{
    EXPECT_FALSE(operar_carrito(app.ctx(), carrito, VerboCarrito::borrar, false, -1));
    articulo("1", "Tornillo", "10");
    EXPECT_FALSE(operar_carrito(app.ctx(), carrito, VerboCarrito::borrar, false, -1));
    carrito.quitar_lineas();
    // A selection left over in an emptied cart.
    EXPECT_FALSE(operar_carrito(app.ctx(), carrito, VerboCarrito::borrar, false, 0));
    const QString sin_seleccion =
        QStringLiteral("warn|Carrito de compras.|No hay elementos seleccionados. Seleccione "
                       "el elemento a eliminar del carrito e intente nuevamente.");
    EXPECT_EQ(app.op.lines(),
              (QStringList{sin_seleccion, sin_seleccion,
                           "warn|Carrito de compras vácio.|El Carrito de compras está vácio."}));
    EXPECT_TRUE(log_de("ACT").isEmpty());
}

TEST_F(CarritoTest, DeletingRewritesTheCartOwnTotal)
{
    articulo("2", "Tornillo", "10");
    articulo("1", "Tuerca", "2,5");
    actualizar_total_carrito(carrito);
    ASSERT_EQ(carrito.texto_total(), "22,5");
    EXPECT_TRUE(operar_carrito(app.ctx(), carrito, VerboCarrito::borrar, false, 0));
    ASSERT_EQ(carrito.filas(), 1);
    EXPECT_EQ(carrito.celda(0, kColArticulo), "Tuerca");
    EXPECT_EQ(carrito.texto_total(), "2,5");
    EXPECT_EQ(log_de("ACT"), QStringList{"Carrito - Se elimino un elemento"});
}

TEST_F(CarritoTest, EmptyingAsksAndClearsTheSavedMark)
{
    articulo("2", "Tornillo", "10");
    actualizar_total_carrito(carrito);
    carrito.set_marca_guardado(kPrefijoCarritoGuardado + "261123-103000");
    carrito.set_leyenda_extra(QStringLiteral("x"));
    EXPECT_EQ(carrito.referencia_guardada(), "261123-103000");

    app.op.answer(false);
    EXPECT_FALSE(operar_carrito(app.ctx(), carrito, VerboCarrito::vaciar, true));
    EXPECT_EQ(carrito.filas(), 1);
    EXPECT_EQ(app.op.lines(), QStringList{"ask|Vendrix|¿Está seguro de vaciar el carrito de compras?"});

    app.op.answer(true);
    EXPECT_TRUE(operar_carrito(app.ctx(), carrito, VerboCarrito::vaciar, true));
    EXPECT_TRUE(carrito.vacio());
    EXPECT_EQ(carrito.texto_total(), "");
    EXPECT_EQ(carrito.marca_guardado(), "");
    EXPECT_EQ(carrito.leyenda_extra(), "");
    EXPECT_EQ(carrito.referencia_guardada(), "");
    EXPECT_EQ(log_de("ACT"), QStringList{"Carrito - se vacio el carrito"});

    // After a sale the cart empties without a question.
    articulo("1", "Tornillo", "10");
    app.op.clear();
    EXPECT_TRUE(operar_carrito(app.ctx(), carrito, VerboCarrito::vaciar, false));
    EXPECT_TRUE(carrito.vacio());
    EXPECT_TRUE(app.op.empty());
}

TEST_F(CarritoTest, AmountsUnroundedTotalToTwoPlaces)
{
    struct Caso {
        const char *cantidad;
        const char *precio;
        const char *importe;
    };
    const Caso casos[] = {
        {"3", "10,125", "30,375"},
        {"1,5", "0,334", "0,501"},
        {"2", "", "0"},
        {"x", "10", "0"},
    };
    for (const Caso &c : casos)
        articulo(c.cantidad, "A", c.precio);
    actualizar_total_carrito(carrito);
    for (int fila = 0; fila < 4; ++fila)
        EXPECT_EQ(carrito.celda(fila, kColImporte), QString::fromUtf8(casos[fila].importe)) << fila;
    // The total rounded at two places, in the plain number form.
    EXPECT_EQ(carrito.texto_total(), "30,88");
    EXPECT_DOUBLE_EQ(carrito.total(), 30.876);
}

TEST_F(CarritoTest, EditsOfQuantityAndPriceOnly)
{
    articulo("2", "Tornillo", "10");
    articulo("1", "Tuerca", "5");
    actualizar_total_carrito(carrito);

    EXPECT_TRUE(editar_celda_carrito(app.ctx(), carrito, 0, kColCantidad, QStringLiteral("3,5")));
    EXPECT_EQ(carrito.celda(0, kColImporte), "35");
    EXPECT_EQ(carrito.texto_total(), "40");
    EXPECT_TRUE(editar_celda_carrito(app.ctx(), carrito, 1, kColPrecioUnitario, QStringLiteral("7.25")));
    EXPECT_EQ(carrito.celda(1, kColImporte), "7,25");
    EXPECT_EQ(carrito.texto_total(), "42,25");
    EXPECT_TRUE(app.op.empty());

    for (const char *malo : {"", "abc", "1,2,3", "12a"}) {
        EXPECT_FALSE(editar_celda_carrito(app.ctx(), carrito, 0, kColCantidad, QString::fromUtf8(malo)))
            << malo;
        EXPECT_EQ(carrito.celda(0, kColCantidad), "3,5");
    }
    EXPECT_EQ(app.op.shown.size(), 4u);
    EXPECT_EQ(app.op.lines().front(),
              "error|Error en los Datos|Hay un error en los datos ingresados. El formato no es numérico.");
    EXPECT_EQ(carrito.texto_total(), "42,25");

    // Other columns don't take typing at all.
    app.op.clear();
    EXPECT_FALSE(editar_celda_carrito(app.ctx(), carrito, 0, kColArticulo, QStringLiteral("Otro")));
    EXPECT_FALSE(editar_celda_carrito(app.ctx(), carrito, 5, kColCantidad, QStringLiteral("1")));
    EXPECT_EQ(carrito.celda(0, kColArticulo), "Tornillo");
    EXPECT_TRUE(app.op.empty());
}

TEST(CarritoColumnas, NumericTestAppliesToQuantityAndPrice)
{
    struct Caso {
        const char *valor;
        int col;
        bool numerica;
    };
    const Caso casos[] = {
        {"1", 0, true},     {"1,5", 0, true}, {"1.5", 2, true}, {"", 0, false},  {"abc", 2, false},
        {"1,5,", 0, false}, {"abc", 1, true}, {"", 3, true},    {"x", 12, true},
    };
    for (const Caso &c : casos)
        EXPECT_EQ(es_columna_numerica(QString::fromUtf8(c.valor), c.col), c.numerica)
            << c.valor << " " << c.col;
}

TEST_F(CarritoTest, MixedRatesNeedTwoLines)
{
    EXPECT_FALSE(carrito_con_ivas_distintos(carrito));
    articulo("1", "A", "10");
    EXPECT_FALSE(carrito_con_ivas_distintos(carrito));
    articulo("1", "B", "10");
    EXPECT_FALSE(carrito_con_ivas_distintos(carrito));
    carrito.set_celda(1, kColIva, QStringLiteral("10,5"));
    EXPECT_TRUE(carrito_con_ivas_distintos(carrito));
}

TEST_F(CarritoTest, SameArticleAtTheSamePriceJoinsItsLine)
{
    EXPECT_EQ(buscar_articulo_en_carrito(app.ctx(), carrito, "Tornillo", "1", "0", "Tornillos", 600), -1);
    articulo("1", "Tuerca", "600");
    articulo("1", "Tornillo", "600");
    articulo("1", "Tornillo", "700");
    EXPECT_TRUE(app.op.empty());

    // The line holds "600", the display price is "600,00": the same price.
    EXPECT_EQ(buscar_articulo_en_carrito(app.ctx(), carrito, "Tornillo", "1", "0", "Tornillos", 600), 1);
    // Only the first line of the article is looked at: 700 is never reached.
    EXPECT_EQ(buscar_articulo_en_carrito(app.ctx(), carrito, "Tornillo", "1", "0", "Tornillos", 700), -1);
    // Rounded for display before the comparison.
    EXPECT_EQ(buscar_articulo_en_carrito(app.ctx(), carrito, "Tornillo", "1", "0", "Tornillos", 600.004), 1);
    EXPECT_EQ(app.op.lines(),
              (QStringList{
                  "inform|Vendrix|El artículo está presente en el carrito. Se incrementa la cantidad "
                  "anterior.",
                  "inform|Vendrix|El artículo está presente en el carrito con un precio de venta distinto. "
                  "Se agrega al carrito como un nuevo artículo.",
                  "inform|Vendrix|El artículo está presente en el carrito. Se incrementa la cantidad "
                  "anterior."}));

    // No price to compare: the line matches without a word.
    app.op.clear();
    EXPECT_EQ(buscar_articulo_en_carrito(app.ctx(), carrito, "Tornillo", "1", "0", "Tornillos", 0), 1);
    EXPECT_EQ(buscar_articulo_en_carrito(app.ctx(), carrito, "Tornillo", "1", "0", "Tornillos", -5), 1);
    EXPECT_TRUE(app.op.empty());

    // Description, id and group must all be equal; a restored line has "-1".
    EXPECT_EQ(buscar_articulo_en_carrito(app.ctx(), carrito, "tornillo", "1", "0", "Tornillos", 0), -1);
    EXPECT_EQ(buscar_articulo_en_carrito(app.ctx(), carrito, "Tornillo", "2", "0", "Tornillos", 0), -1);
    EXPECT_EQ(buscar_articulo_en_carrito(app.ctx(), carrito, "Tornillo", "1", "0", "-1", 0), -1);
}

TEST_F(CarritoTest, NamesComeFromTheSettings)
{
    EXPECT_EQ(nombre_carrito(app.ctx(), 1), "Carrito 1");
    ajuste("nombre_carrito_4", "Mayorista");
    EXPECT_EQ(nombre_carrito(app.ctx(), 4), "Mayorista");
    EXPECT_EQ(texto_boton_agregar(nombre_carrito(app.ctx(), 4)), "Agregar a Mayorista");
}

TEST_F(CarritoTest, RenamingIsRefusedForACartWithLines)
{
    articulo("1", "Tornillo", "10");
    EXPECT_FALSE(renombrar_carrito(app.ctx(), carrito, QStringLiteral("Mostrador")));
    EXPECT_EQ(app.ctx().leer_parametro(QStringLiteral("nombre_carrito_3")), "");
    EXPECT_TRUE(log_de("ACT").isEmpty());

    carrito.quitar_lineas();
    EXPECT_TRUE(renombrar_carrito(app.ctx(), carrito, QStringLiteral("Mostrador")));
    EXPECT_EQ(nombre_carrito(app.ctx(), 3), "Mostrador");
    EXPECT_EQ(log_de("ACT"), QStringList{"Agregar Artículo - Modificó el nombre del carrito 3 a Mostrador"});
}

TEST_F(CarritoTest, OneOrFourCarts)
{
    ajuste("carritos", "");
    EXPECT_FALSE(cuatro_carritos(app.ctx()));
    cambiar_cantidad_carritos(app.ctx(), true);
    EXPECT_EQ(app.ctx().leer_parametro(QStringLiteral("carritos")), "1");
    EXPECT_TRUE(cuatro_carritos(app.ctx()));
    cambiar_cantidad_carritos(app.ctx(), false);
    EXPECT_EQ(app.ctx().leer_parametro(QStringLiteral("carritos")), "0");
    EXPECT_EQ(log_de("ACT"), (QStringList{"Configuración - se cambio la cantidad de carritos a mostrar",
                                          "Configuración - se cambio la cantidad de carritos a mostrar"}));
}

TEST(CarritoTeclas, FunctionKeysSelectTabs)
{
    struct Caso {
        int tecla;
        bool cuatro;
        std::optional<int> pestana;
    };
    const Caso casos[] = {
        {Qt::Key_F1, false, 1},
        {Qt::Key_F5, false, 0},
        {Qt::Key_F2, false, std::nullopt},
        {Qt::Key_F3, false, std::nullopt},
        {Qt::Key_F4, false, std::nullopt},
        {Qt::Key_F2, true, 2},
        {Qt::Key_F3, true, 3},
        {Qt::Key_F4, true, 4},
        {Qt::Key_F6, true, std::nullopt},
        {Qt::Key_A, true, std::nullopt},
    };
    for (const Caso &c : casos)
        EXPECT_EQ(pestana_por_tecla(c.tecla, c.cuatro), c.pestana) << c.tecla << " " << c.cuatro;
}

} // namespace
} // namespace vendrix

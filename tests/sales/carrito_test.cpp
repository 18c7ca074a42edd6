// The cart's own operations: blank lines, deleting, emptying, amounts and
// total, cell edits, the same-article rule and the count of carts.
#include "sales/carritos.h"
#include "sales/operar_carrito.h"
#include "tienda.h"

namespace vendrix {
namespace {

class CarritoTest : public test::Tienda {
protected:
    // An article line: quantity, description, unit price (id 1, group Tornillos).
    void articulo(const char *cantidad, const char *descripcion, const char *precio)
    {
        carrito.agregar_linea(
            linea(QStringList{cantidad, descripcion, precio, "0|21|1|30|10|0|500|T1|Tornillos|Acme"}.join(
                QLatin1Char('|'))));
    }

    bool operar(VerboCarrito verbo, int fila = -1, bool preguntar = true)
    {
        return operar_carrito(app.ctx(), carrito, verbo, preguntar, fila);
    }

    Carrito carrito{3};
};

TEST_F(CarritoTest, BlankLinesDeletingAndEmptying)
{
    ajuste("iva", "21");
    EXPECT_FALSE(operar(VerboCarrito::borrar, 0));
    EXPECT_TRUE(operar(VerboCarrito::agregar));
    EXPECT_EQ(celdas(carrito, 0), "1||0|0|21|0|0|0|0||||");
    EXPECT_FALSE(operar(VerboCarrito::borrar, -1));
    articulo("2", "Tuerca", "2,5");
    // Deleting rewrites the cart's own total.
    EXPECT_TRUE(operar(VerboCarrito::borrar, 0));
    EXPECT_EQ(carrito.celda(0, kColArticulo) + " " + carrito.texto_total(), "Tuerca 5");

    carrito.set_marca_guardado(kPrefijoCarritoGuardado + "261123-103000");
    carrito.set_leyenda_extra("x");
    app.op.answers_in_order({false, true});
    EXPECT_FALSE(operar(VerboCarrito::vaciar));
    EXPECT_TRUE(operar(VerboCarrito::vaciar));
    EXPECT_EQ(carrito.texto_total() + carrito.marca_guardado() + carrito.leyenda_extra(), "");
    // After a sale the cart empties without a question.
    articulo("1", "Tornillo", "10");
    EXPECT_TRUE(operar(VerboCarrito::vaciar, -1, false));
    EXPECT_TRUE(carrito.vacio());
    cambiar_cantidad_carritos(app.ctx(), false);
    EXPECT_EQ(app.ctx().leer_parametro("carritos"), "0");
    EXPECT_EQ(app.op.lines().join('\n'), R"(warn|Carrito de compras vácio.|El Carrito de compras está vácio.
warn|Carrito de compras.|No hay elementos seleccionados. Seleccione el elemento a eliminar del carrito e intente nuevamente.
ask|Vendrix|¿Está seguro de vaciar el carrito de compras?
ask|Vendrix|¿Está seguro de vaciar el carrito de compras?)");
    EXPECT_EQ(log_de("ACT").join('\n'), R"(Carrito - Se agrego un elemento
Carrito - Se elimino un elemento
Carrito - se vacio el carrito
Carrito - se vacio el carrito
Configuración - se cambio la cantidad de carritos a mostrar)");
}

TEST_F(CarritoTest, AmountsUnroundedTotalToTwoPlacesAndEdits)
{
    const char *casos[][3] = {
        {"3", "10,125", "30,375"}, {"1,5", "0,334", "0,501"}, {"2", "", "0"}, {"x", "10", "0"}};
    for (const auto &c : casos)
        articulo(c[0], "A", c[1]);
    actualizar_total_carrito(carrito);
    for (int fila = 0; fila < 4; ++fila)
        EXPECT_EQ(carrito.celda(fila, kColImporte), casos[fila][2]) << fila;
    EXPECT_EQ(carrito.texto_total(), "30,88");

    EXPECT_TRUE(editar_celda_carrito(app.ctx(), carrito, 0, kColCantidad, "3,5"));
    EXPECT_TRUE(editar_celda_carrito(app.ctx(), carrito, 1, kColPrecioUnitario, "7.25"));
    EXPECT_EQ(carrito.celda(0, kColImporte) + " " + carrito.celda(1, kColImporte), "35,4375 10,875");
    EXPECT_EQ(carrito.texto_total(), "46,31");
    for (const char *malo : {"", "abc", "1,2,3", "12a"})
        EXPECT_FALSE(editar_celda_carrito(app.ctx(), carrito, 0, kColCantidad, malo)) << malo;
    EXPECT_EQ(carrito.celda(0, kColCantidad), "3,5");
    // Other columns don't take typing at all, and are no number test's business.
    EXPECT_FALSE(editar_celda_carrito(app.ctx(), carrito, 0, kColArticulo, "Otro"));
    EXPECT_FALSE(editar_celda_carrito(app.ctx(), carrito, 5, kColCantidad, "1"));
    EXPECT_EQ(app.op.lines(), QStringList(4, "error|Error en los Datos|Hay un error en los datos ingresados. "
                                             "El formato no es numérico."));

    EXPECT_FALSE(carrito_con_ivas_distintos(carrito));
    carrito.set_celda(1, kColIva, "10,5");
    EXPECT_TRUE(carrito_con_ivas_distintos(carrito));
}

TEST_F(CarritoTest, SameArticleAtTheSamePriceJoinsItsLine)
{
    auto buscar = [this](const char *desc, const char *id, const char *grupo, double precio) {
        return buscar_articulo_en_carrito(app.ctx(), carrito, desc, id, "0", grupo, precio);
    };
    EXPECT_EQ(buscar("Tornillo", "1", "Tornillos", 600), -1);
    articulo("1", "Tuerca", "600");
    articulo("1", "Tornillo", "600");
    articulo("1", "Tornillo", "700");
    // Only the first line of the article counts, its price rounded for display.
    EXPECT_EQ(buscar("Tornillo", "1", "Tornillos", 600.004), 1);
    EXPECT_EQ(buscar("Tornillo", "1", "Tornillos", 700), -1);
    // No price to compare: the line matches without a word. Description, id
    // and group must all be equal; a restored line has group "-1".
    EXPECT_EQ(buscar("Tornillo", "1", "Tornillos", -5), 1);
    for (const auto &[desc, id, grupo] :
         {std::tuple{"tornillo", "1", "Tornillos"}, {"Tornillo", "2", "Tornillos"}, {"Tornillo", "1", "-1"}})
        EXPECT_EQ(buscar(desc, id, grupo, 0), -1) << desc << id << grupo;
    // Its two notices are read in the add dialog's tests.
}

} // namespace
} // namespace vendrix

// The add-article dialog's logic: what it shows at opening, the live unit
// price and total, the refusals, merging with a line or adding a new one,
// the units memory; adding with the panel's figures.
#include "catalogue/pricing/price_panel.h"
#include "sales/agregar_articulo.h"
#include "sales/agregar_udem.h"
#include "sales/carritos.h"
#include "tienda.h"

namespace vendrix {
namespace {

class Agregar : public test::Tienda {
protected:
    // The dialog on article 1 at `precio` for cart `carrito`: the boxes typed,
    // optionally the units box ticked, then the add button.
    ResultadoAgregar agregar(const char *cantidad, const char *unidades = "1", int carrito = 2,
                             std::optional<bool> guardar = {}, const char *precio = "600")
    {
        AgregarArticulo dialogo(app.ctx(), carritos, carrito, tornillo(precio));
        dialogo.set_cant_agregar(cantidad);
        dialogo.set_cant_unidades(unidades);
        if (guardar)
            dialogo.set_guardar(*guardar);
        return dialogo.agregar();
    }

    Carritos carritos;
};

TEST_F(Agregar, OpeningAndTheLiveFigures)
{
    AgregarArticulo dialogo(app.ctx(), carritos, 2, tornillo("1344.915"));
    const VistaAgregarArticulo &v = dialogo.vista();
    EXPECT_EQ(
        QStringList({v.text_articulos, v.Text_pventa, v.Text_pventa_display, v.cant_agregar, v.cant_unidades,
                     v.Text_cantxprecio, v.Text_cantxprecio_tag, v.total_por_articulos})
            .join('|'),
        "T1|1344.915|1344,92|1|1|1344,92 c/u|1344,915 c/u|1344,92");
    EXPECT_TRUE(!v.Check_guardar && v.Check_guardar_habilitado && v.Text_nombre_Carrito == "Carrito 2");

    AgregarArticulo mil(app.ctx(), carritos, 2, tornillo("1000"));
    mil.set_cant_unidades("3");
    mil.set_cant_agregar("3");
    // The total is of the rounded unit price.
    EXPECT_EQ(mil.vista().Text_cantxprecio_tag + " " + mil.vista().total_por_articulos + " " +
                  mil.vista().total_por_articulos_tooltip,
              "333,333333333333 c/u 999,99 1000");
    // A box that isn't a number goes back to 1.
    mil.set_cant_agregar("2x");
    mil.set_cant_unidades("");
    EXPECT_EQ(QStringList({mil.vista().cant_agregar, mil.vista().cant_unidades, mil.vista().Text_cantxprecio})
                  .join('|'),
              "1|1|1000,00 c/u");

    // A dollar article with no rate warns, and the dialog still opens.
    ArticuloParaCarrito dolar = tornillo();
    dolar.moneda = "2";
    ajuste("Valor_Dolar", "0");
    AgregarArticulo(app.ctx(), carritos, 2, dolar);
    EXPECT_EQ(app.op.lines().join(""),
              "warn|Vendrix|El valor de la cotización del dolar esta vacío. Por favor configurela.");
}

TEST_F(Agregar, RefusalsNewLinesMergesAndUnitsPerPrice)
{
    EXPECT_FALSE(agregar("1", "0").agregado);
    AgregarUdeM unidades(app.ctx(), tornillo()); // the units dialog refuses as well
    unidades.set_cant_unidades("0");
    EXPECT_FALSE(unidades.guardar().guardado);
    EXPECT_FALSE(agregar("0").agregado);
    const ResultadoAgregar r = agregar("2");
    EXPECT_TRUE(r.agregado && !r.recargar_panel);
    const Carrito &carrito2 = carritos.carrito(2), &carrito3 = carritos.carrito(3);
    EXPECT_EQ(celdas(carrito2, 0), "2|Tornillo 1/4|600|1200|21|1|30|10+5|0|384,62|T1|Tornillos|Acme");
    agregar("1");
    agregar("1", "1", 2, {}, "650"); // at another price, a second line
    EXPECT_EQ(carrito2.celda(0, kColImporte) + " " + carrito2.texto_total(), "1800 2450,00");
    // Six units of a 600 pack make a line of 100, which the pack's 600 never matches.
    agregar("4", "6", 3);
    agregar("1", "6", 3);
    EXPECT_EQ(celdas(carrito3, 0), "4|Tornillo 1/4|100|400|21|1|30|10+5|0|384,62|T1|Tornillos|Acme");
    EXPECT_EQ(carrito3.filas(), 2);
    EXPECT_EQ(
        app.op.lines().join('\n'),
        R"(warn|Error en los datos ingresados|El valor del campo "Cantidad de Unidades por Precio" no puede ser cero o menor que cero.
warn|Error en los datos ingresados|El valor del campo "Cantidad de Unidades por Precio" no puede ser cero o menor que cero.
warn|Error en los datos ingresados|El valor del campo "Cantidad a agregar" no puede ser cero o menor que cero.
inform|Vendrix|El artículo está presente en el carrito. Se incrementa la cantidad anterior.
inform|Vendrix|El artículo está presente en el carrito con un precio de venta distinto. Se agrega al carrito como un nuevo artículo.
inform|Vendrix|El artículo está presente en el carrito con un precio de venta distinto. Se agrega al carrito como un nuevo artículo.)");

    // The line's old quantity counts as a whole number, half to even.
    const char *casos[][3] = {{"1,5", "1", "3"}, {"2,5", "1", "3"}, {"1,4", "1", "2"}, {"2", "0,5", "2,5"}};
    for (const auto &c : casos) {
        carritos.carrito(2).set_celda(0, kColCantidad, c[0]);
        agregar(c[1]);
        EXPECT_EQ(carrito2.celda(0, kColCantidad), c[2]) << c[0];
    }
}

TEST_F(Agregar, TheUnitsMemoryEvenUnderTheAdministratorLock)
{
    EXPECT_FALSE(agregar("1", "1", 2, true).recargar_panel); // no row and one unit: nothing to remember
    EXPECT_TRUE(agregar("1", "2,5", 2, true).recargar_panel);
    EXPECT_EQ(unidades_guardadas(), QStringList{"Acme|T1|2.5"});
    EXPECT_FALSE(agregar("1", "3", 2, false).recargar_panel); // left unticked, the memory stays
    const VistaAgregarArticulo v = AgregarArticulo(app.ctx(), carritos, 2, tornillo()).vista();
    EXPECT_TRUE(v.cant_unidades == "2,5" && v.Check_guardar && v.unidades_guardadas);
    EXPECT_TRUE(agregar("1", "12").recargar_panel);
    EXPECT_EQ(unidades_guardadas(), QStringList{"Acme|T1|12"});
    // The lock greys the box, but a ticked box still counts.
    ajuste("admin_block", "clave");
    EXPECT_FALSE(AgregarArticulo(app.ctx(), carritos, 2, tornillo()).vista().Check_guardar_habilitado);
    EXPECT_TRUE(agregar("1", "1").recargar_panel);
    EXPECT_TRUE(unidades_guardadas().isEmpty());
    EXPECT_EQ(log_de("ACT").join('\n'),
              R"(Agregar Artículo - Se guardo la cantidad de unidades por precio para el artículo Tornillo 1/4
Agregar Artículo - Se actualizo la cantidad de unidades por precio para el artículo Tornillo 1/4
Agregar Artículo - Se actualizo la cantidad de unidades por precio para el artículo Tornillo 1/4)");
}

TEST_F(Agregar, WithoutTheDialogOneUnitAtThePanelFigures)
{
    agregar("1", "6", 2, true);
    EXPECT_FALSE(AgregarArticulo(app.ctx(), carritos, 2, tornillo()).vista().Text_nombre_Carrito_habilitado);
    EXPECT_TRUE(agregar_con_figuras_del_panel(app.ctx(), carritos, 1, tornillo()).agregado);
    EXPECT_TRUE(agregar_con_figuras_del_panel(app.ctx(), carritos, 1, tornillo()).agregado);
    EXPECT_EQ(carritos.carrito(1).filas(), 2);
    EXPECT_EQ(celdas(carritos.carrito(1), 0),
              "1|Tornillo 1/4|100|100|21|1|30|10+5|0|384,62|T1|Tornillos|Acme");
    EXPECT_EQ(unidades_guardadas(), QStringList{"Acme|T1|6"});
    EXPECT_EQ(log_de("ACT").size(), 1);
    // The panel's figures go with the article read from the list.
    PricePanel panel;
    panel[PanelField::TextBox_Costo].text = "100";
    panel[PanelField::Textbox_desusr].text = "2";
    const auto a = leer_articulo_para_carrito(app.ctx(), 1, "Tornillos", panel);
    EXPECT_EQ(a ? QStringList({a->codigo, a->descripcion, a->costo, a->descuento_cliente}).join('|') : "",
              "T1|Tornillo 1/4|100|2");
    EXPECT_FALSE(leer_articulo_para_carrito(app.ctx(), 99, {}, panel).has_value());
}

} // namespace
} // namespace vendrix

// The add-article dialog's logic: what it shows at opening, the live unit
// price and total, the refusals, merging with a line or adding a new one,
// the units memory and renaming the cart.
#include "catalogue/pricing/article_record.h"
#include "catalogue/pricing/price_panel.h"
#include "catalogue/pricing/rules.h"
#include "sales/agregar_articulo.h"
#include "sales/carritos.h"
#include "tienda.h"

namespace vendrix {
namespace {

using test::Tienda;

class Agregar : public Tienda {
protected:
    ResultadoAgregar agregar(const ArticuloParaCarrito &a, const char *cantidad,
                             const char *unidades = nullptr, int carrito = 2)
    {
        AgregarArticulo dialogo(app.ctx(), carritos, carrito, a);
        dialogo.set_cant_agregar(QString::fromUtf8(cantidad));
        if (unidades)
            dialogo.set_cant_unidades(QString::fromUtf8(unidades));
        return dialogo.agregar();
    }

    void guardar_unidades(const char *unidades)
    {
        ASSERT_TRUE(
            app.db().execNQ(QStringLiteral("INSERT INTO vendrix_unidades_articulo (Proveedor, Codigo, "
                                           "Unidades) VALUES ('Acme', 'T1', ?)"),
                            QStringLiteral("cliente"), {QString::fromUtf8(unidades)}));
    }

    const Carrito &carrito2() const { return carritos.carrito(2); }

    Carritos carritos;
    const QString kSeIncrementa = QStringLiteral("inform|Vendrix|El artículo está presente en el carrito. Se "
                                                 "incrementa la cantidad anterior.");
    const QString kDistinto =
        QStringLiteral("inform|Vendrix|El artículo está presente en el carrito con un precio "
                       "de venta distinto. Se agrega al carrito como un nuevo artículo.");
};

TEST_F(Agregar, OpeningShowsTheArticleAndItsFigures)
{
    AgregarArticulo dialogo(app.ctx(), carritos, 2, tornillo("1344.915"));
    const VistaAgregarArticulo &v = dialogo.vista();
    EXPECT_EQ(v.text_articulos, "T1");
    EXPECT_EQ(v.Text_artdesc, "Tornillo 1/4");
    EXPECT_EQ(v.Text_marc, "Fixa");
    EXPECT_EQ(v.Text_UM, "Caja");
    EXPECT_EQ(v.Text_pventa, "1344.915");
    EXPECT_EQ(v.Text_pventa_display, "1344,92");
    EXPECT_EQ(v.Label_Dolares, "");
    EXPECT_EQ(v.cant_agregar, "1");
    EXPECT_EQ(v.cant_unidades, "1");
    EXPECT_FALSE(v.unidades_guardadas);
    EXPECT_FALSE(v.Check_guardar);
    EXPECT_TRUE(v.Check_guardar_habilitado);
    EXPECT_EQ(v.Text_cantxprecio, "1344,92 c/u");
    EXPECT_EQ(v.Text_cantxprecio_tag, "1344,915 c/u");
    EXPECT_EQ(v.total_por_articulos, "1344,92");
    EXPECT_EQ(v.Text_nombre_Carrito, "Carrito 2");
    EXPECT_TRUE(v.Text_nombre_Carrito_habilitado);
    EXPECT_TRUE(app.op.empty());
}

TEST_F(Agregar, LiveUnitPriceAndTotal)
{
    AgregarArticulo dialogo(app.ctx(), carritos, 2, tornillo("1000"));
    dialogo.set_cant_unidades(QStringLiteral("3"));
    EXPECT_EQ(dialogo.vista().Text_cantxprecio, "333,33 c/u");
    EXPECT_EQ(dialogo.vista().Text_cantxprecio_tag, "333,333333333333 c/u");
    dialogo.set_cant_agregar(QStringLiteral("3"));
    // The total is of the rounded unit price.
    EXPECT_EQ(dialogo.vista().total_por_articulos, "999,99");
    EXPECT_EQ(dialogo.vista().total_por_articulos_tooltip, "1000");

    // A box that isn't a number goes back to 1.
    for (const char *malo : {"", "abc", "2x"}) {
        dialogo.set_cant_agregar(QString::fromUtf8(malo));
        EXPECT_EQ(dialogo.vista().cant_agregar, "1") << malo;
    }
    EXPECT_EQ(dialogo.vista().total_por_articulos, "333,33");
    dialogo.set_cant_unidades(QString());
    EXPECT_EQ(dialogo.vista().cant_unidades, "1");
    EXPECT_EQ(dialogo.vista().Text_cantxprecio, "1000,00 c/u");
}

TEST_F(Agregar, ZeroOrLessIsRefusedAndTheDialogStays)
{
    EXPECT_FALSE(agregar(tornillo(), "1", "0").agregado);
    EXPECT_FALSE(agregar(tornillo(), "0").agregado);
    EXPECT_FALSE(agregar(tornillo(), "0", "-2").agregado);
    EXPECT_EQ(app.op.lines(),
              (QStringList{
                  "warn|Error en los datos ingresados|El valor del campo \"Cantidad de Unidades por "
                  "Precio\" no puede ser cero o menor que cero.",
                  "warn|Error en los datos ingresados|El valor del campo \"Cantidad a agregar\" no puede ser "
                  "cero o menor que cero.",
                  "warn|Error en los datos ingresados|El valor del campo \"Cantidad de Unidades por "
                  "Precio\" no puede ser cero o menor que cero."}));
    EXPECT_TRUE(carrito2().vacio());
}

TEST_F(Agregar, ANewLineHoldsTheArticle)
{
    const ResultadoAgregar r = agregar(tornillo(), "2");
    EXPECT_TRUE(r.agregado);
    EXPECT_FALSE(r.recargar_panel);
    EXPECT_EQ(r.fila, 0);
    ASSERT_EQ(carrito2().filas(), 1);
    EXPECT_EQ(celdas(carrito2(), 0), (QStringList{"2", "Tornillo 1/4", "600", "1200", "21", "1", "30", "10+5",
                                                  "0", "384,62", "T1", "Tornillos", "Acme"}));
    EXPECT_EQ(carrito2().texto_total(), "1200,00");
    EXPECT_TRUE(carritos.carrito(1).vacio());
    EXPECT_TRUE(app.op.empty());
}

TEST_F(Agregar, SixUnitsPerPriceOfSixHundredGiveALineOfOneHundred)
{
    agregar(tornillo(), "4", "6");
    ASSERT_EQ(carrito2().filas(), 1);
    EXPECT_EQ(carrito2().celda(0, kColPrecioUnitario), "100");
    EXPECT_EQ(carrito2().celda(0, kColImporte), "400");

    // The pack's price 600 is compared with the line's 100: never the same.
    agregar(tornillo(), "1", "6");
    ASSERT_EQ(carrito2().filas(), 2);
    EXPECT_EQ(carrito2().celda(1, kColPrecioUnitario), "100");
    EXPECT_EQ(app.op.lines(), QStringList{kDistinto});
}

TEST_F(Agregar, TheSameArticleAtTheSamePriceRaisesTheQuantity)
{
    agregar(tornillo(), "1");
    agregar(tornillo(), "2");
    ASSERT_EQ(carrito2().filas(), 1);
    EXPECT_EQ(carrito2().celda(0, kColCantidad), "3");
    EXPECT_EQ(carrito2().celda(0, kColImporte), "1800");
    EXPECT_EQ(carrito2().texto_total(), "1800,00");
    EXPECT_EQ(app.op.lines(), QStringList{kSeIncrementa});

    // At another price a second line appears.
    app.op.clear();
    agregar(tornillo("650"), "1");
    ASSERT_EQ(carrito2().filas(), 2);
    EXPECT_EQ(carrito2().celda(1, kColPrecioUnitario), "650");
    EXPECT_EQ(carrito2().texto_total(), "2450,00");
    EXPECT_EQ(app.op.lines(), QStringList{kDistinto});
}

TEST_F(Agregar, AnOldFractionalQuantityIsRoundedHalfToEvenFirst)
{
    struct Caso {
        const char *en_linea;
        const char *agregado;
        const char *resultado;
    };
    const Caso casos[] = {
        {"1,5", "1", "3"}, {"2,5", "1", "3"}, {"3,5", "1", "5"}, {"1,4", "1", "2"}, {"2", "0,5", "2,5"},
    };
    for (const Caso &c : casos) {
        carritos.carrito(2).quitar_lineas();
        agregar(tornillo(), "1");
        carritos.carrito(2).set_celda(0, kColCantidad, QString::fromUtf8(c.en_linea));
        agregar(tornillo(), c.agregado);
        EXPECT_EQ(carrito2().celda(0, kColCantidad), QString::fromUtf8(c.resultado)) << c.en_linea;
    }
}

TEST_F(Agregar, ADollarArticleWithNoRateStillAdds)
{
    ArticuloParaCarrito a = tornillo("1344.915");
    a.moneda = QStringLiteral("2");
    for (const char *cotizacion : {"", "0"}) {
        ajuste("Valor_Dolar", cotizacion);
        app.op.clear();
        AgregarArticulo dialogo(app.ctx(), carritos, 2, a);
        EXPECT_EQ(app.op.lines(),
                  QStringList{"warn|Vendrix|El valor de la cotización del dolar esta vacío. Por favor "
                              "configurela."});
        EXPECT_EQ(dialogo.vista().Label_Dolares, "El precio original en dólares. Tipo de cambio 1 USD = 1");
        // The panel's price is already in pesos: it is only rounded.
        EXPECT_EQ(dialogo.vista().Text_pventa, "1344,92");
    }
    ajuste("Valor_Dolar", "1250");
    app.op.clear();
    AgregarArticulo dialogo(app.ctx(), carritos, 2, a);
    EXPECT_TRUE(app.op.empty());
    EXPECT_EQ(dialogo.vista().Label_Dolares, "El precio original en dólares. Tipo de cambio 1 USD = 1250");
    EXPECT_TRUE(dialogo.agregar().agregado);
    EXPECT_EQ(carrito2().celda(0, kColPrecioUnitario), "1344,92");
}

TEST_F(Agregar, StoredUnitsShowCheckedAndOneDeletesTheRow)
{
    guardar_unidades("6");
    {
        AgregarArticulo dialogo(app.ctx(), carritos, 2, tornillo());
        EXPECT_EQ(dialogo.vista().cant_unidades, "6");
        EXPECT_TRUE(dialogo.vista().unidades_guardadas);
        EXPECT_TRUE(dialogo.vista().Check_guardar);
        EXPECT_EQ(dialogo.vista().Text_cantxprecio, "100,00 c/u");
        dialogo.set_cant_unidades(QStringLiteral("1"));
        const ResultadoAgregar r = dialogo.agregar();
        EXPECT_TRUE(r.recargar_panel);
    }
    EXPECT_TRUE(unidades_guardadas().isEmpty());
    EXPECT_EQ(log_de("ACT"),
              QStringList{"Agregar Artículo - Se actualizo la cantidad de unidades por precio para el "
                          "artículo Tornillo 1/4"});
}

TEST_F(Agregar, TheUnitsMemoryIsInsertedAndUpdated)
{
    // No row and one unit: nothing to remember.
    {
        AgregarArticulo dialogo(app.ctx(), carritos, 2, tornillo());
        dialogo.set_guardar(true);
        EXPECT_FALSE(dialogo.agregar().recargar_panel);
    }
    EXPECT_TRUE(unidades_guardadas().isEmpty());
    {
        AgregarArticulo dialogo(app.ctx(), carritos, 2, tornillo());
        dialogo.set_cant_unidades(QStringLiteral("2,5"));
        dialogo.set_guardar(true);
        EXPECT_TRUE(dialogo.agregar().recargar_panel);
    }
    EXPECT_EQ(unidades_guardadas(), QStringList{"Acme|T1|2.5"});
    {
        AgregarArticulo dialogo(app.ctx(), carritos, 2, tornillo());
        EXPECT_EQ(dialogo.vista().cant_unidades, "2,5");
        dialogo.set_cant_unidades(QStringLiteral("12"));
        EXPECT_TRUE(dialogo.agregar().recargar_panel);
    }
    EXPECT_EQ(unidades_guardadas(), QStringList{"Acme|T1|12"});
    // Left unticked, the memory stays as it is.
    {
        AgregarArticulo dialogo(app.ctx(), carritos, 2, tornillo());
        dialogo.set_guardar(false);
        dialogo.set_cant_unidades(QStringLiteral("3"));
        EXPECT_FALSE(dialogo.agregar().recargar_panel);
    }
    EXPECT_EQ(unidades_guardadas(), QStringList{"Acme|T1|12"});
    EXPECT_EQ(log_de("ACT"),
              (QStringList{"Agregar Artículo - Se guardo la cantidad de unidades por precio para el "
                           "artículo Tornillo 1/4",
                           "Agregar Artículo - Se actualizo la cantidad de unidades por precio para el "
                           "artículo Tornillo 1/4"}));
}

TEST_F(Agregar, TheAdministratorLockKeepsTheMemory)
{
    guardar_unidades("6");
    ajuste("admin_block", "clave");
    AgregarArticulo dialogo(app.ctx(), carritos, 2, tornillo());
    EXPECT_TRUE(dialogo.vista().Check_guardar);
    EXPECT_FALSE(dialogo.vista().Check_guardar_habilitado);
    dialogo.set_cant_unidades(QStringLiteral("1"));
    EXPECT_FALSE(dialogo.agregar().recargar_panel);
    EXPECT_EQ(unidades_guardadas(), QStringList{"Acme|T1|6"});
}

TEST_F(Agregar, TheCartIsRenamedOnlyWhileEmpty)
{
    {
        AgregarArticulo dialogo(app.ctx(), carritos, 2, tornillo());
        dialogo.set_nombre_carrito(QStringLiteral("Mostrador"));
        EXPECT_TRUE(dialogo.salir_nombre_carrito());
        dialogo.agregar();
    }
    EXPECT_EQ(app.ctx().leer_parametro(QStringLiteral("nombre_carrito_2")), "Mostrador");
    EXPECT_EQ(log_de("ACT"), QStringList{"Agregar Artículo - Modificó el nombre del carrito 2 a Mostrador"});

    AgregarArticulo dialogo(app.ctx(), carritos, 2, tornillo());
    EXPECT_EQ(dialogo.vista().Text_nombre_Carrito, "Mostrador");
    EXPECT_FALSE(dialogo.vista().Text_nombre_Carrito_habilitado);
    dialogo.set_nombre_carrito(QStringLiteral("Otro"));
    EXPECT_FALSE(dialogo.salir_nombre_carrito());
    EXPECT_EQ(nombre_carrito(app.ctx(), 2), "Mostrador");
}

TEST_F(Agregar, WithoutTheDialogOneUnitAtThePanelFigures)
{
    guardar_unidades("6");
    EXPECT_TRUE(agregar_con_figuras_del_panel(app.ctx(), carritos, 1, tornillo()).agregado);
    EXPECT_TRUE(agregar_con_figuras_del_panel(app.ctx(), carritos, 1, tornillo()).agregado);
    const Carrito &primero = carritos.carrito(1);
    ASSERT_EQ(primero.filas(), 2);
    EXPECT_EQ(primero.celda(0, kColCantidad), "1");
    EXPECT_EQ(primero.celda(0, kColPrecioUnitario), "100");
    EXPECT_EQ(unidades_guardadas(), QStringList{"Acme|T1|6"});
    EXPECT_TRUE(log_de("ACT").isEmpty());
}

TEST_F(Agregar, TheSearchAddsItsSingleResultOnlyWhenTheShopAskedForIt)
{
    ajuste("carritos", "1");
    EXPECT_FALSE(agregar_automaticamente(app.ctx(), carritos, tornillo()).agregado);
    ajuste("busqueda_agregar_automaticamente", "1");
    ajuste("carritos", "0");
    EXPECT_FALSE(agregar_automaticamente(app.ctx(), carritos, tornillo()).agregado);
    EXPECT_EQ(carritos.carrito(1).filas(), 0);
    ajuste("carritos", "1");
    EXPECT_TRUE(agregar_automaticamente(app.ctx(), carritos, tornillo()).agregado);
    EXPECT_EQ(carritos.carrito(1).filas(), 1);
    EXPECT_EQ(log_de("ACT"), QStringList{"Se agregó un artículo de la grilla automáticamente al carrito"});
}

TEST_F(Agregar, TheArticleIsReadFromTheListWithThePanelFigures)
{
    test::ejecutar_en_archivo(
        app.ruta(QStringLiteral("Vendrix.vdrxdb")),
        {QStringLiteral("UPDATE xls_listas SET Marca = 'Fixa', UnidadDeMedida = 'Caja' WHERE "
                        "ID = 1")});
    ajuste("iva", "21");
    const ArticleRead lectura = leer_articulo(app.ctx(), 1);
    ASSERT_TRUE(lectura.encontrado);
    const PricePanel panel =
        cargar_panel(lectura.articulo, 6.0, RuleTable(), PriceSettings::leer(app.ctx()));

    std::optional<ArticuloParaCarrito> a =
        leer_articulo_para_carrito(app.ctx(), 1, QStringLiteral("Tornillos"), panel);
    ASSERT_TRUE(a.has_value());
    EXPECT_EQ(a->proveedor, "Acme");
    EXPECT_EQ(a->codigo, "T1");
    EXPECT_EQ(a->descripcion, "Tornillo 1/4");
    EXPECT_EQ(a->marca, "Fixa");
    EXPECT_EQ(a->unidad, "Caja");
    EXPECT_EQ(a->moneda, "1");
    EXPECT_EQ(a->precio_lista, "726");
    EXPECT_EQ(a->precio_con_iva, "121,00");
    EXPECT_EQ(a->costo, "100");
    EXPECT_EQ(a->ganancia, "0");
    EXPECT_EQ(a->descuento, "0");
    EXPECT_EQ(a->descuento_cliente, "0");
    EXPECT_DOUBLE_EQ(a->iva, 21);

    ajuste("IF_desc_art", "Grupo + Descripción");
    EXPECT_EQ(leer_articulo_para_carrito(app.ctx(), 1, {}, panel)->descripcion, "Tornillos Tornillo 1/4");
    EXPECT_FALSE(leer_articulo_para_carrito(app.ctx(), 99, {}, panel).has_value());
}

} // namespace
} // namespace vendrix

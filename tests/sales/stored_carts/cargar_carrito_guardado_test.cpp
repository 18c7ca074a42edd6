// A stored document back into a cart: the prices without the discount and
// today's card surcharge, the links to the price list, the saved-cart mark,
// and what a failure leaves.
#include "sales/stored_carts/cargar_carrito_guardado.h"
#include "sales/stored_carts/documento_guardado.h"
#include "sales/tienda.h"

namespace vendrix {
namespace {

class CarritoGuardado : public test::Tienda {
protected:
    explicit CarritoGuardado(bool failing = false) : Tienda(failing) {}

    QString documento(const QString &tipo, const QString &referencia, double descuento, const QString &forma,
                      const std::vector<test::ItemGuardado> &items)
    {
        return test::guardar_documento(app.db(), {tipo, referencia, "Juana Paz", descuento, forma, 0}, items);
    }

    bool cargar(const QString &id) { return cargar_carrito_guardado(app.ctx(), carrito, id); }

    // The info lines logged, with the log's commas back.
    QStringList informacion() const { return log_de("INF").replaceInStrings(";;", ","); }

    Carrito carrito{3};
};

TEST_F(CarritoGuardado, PricesComeBackWithoutTheDiscountAndTodaysCardSurcharge)
{
    struct Caso {
        double descuento;
        const char *forma;
        const char *recargo_hoy;
        const char *decimales;
        double cantidad;
        double precio_final;
        const char *celdas; // quantity, unit price, amount
        const char *factor_recargo;
    } casos[] = {
        {0, "Efectivo", "10", "2", 2, 1200, "2 600 1200", "1"},
        {0, "Efectivo", "10", "2", 1.5, 150, "1,5 100 150", "1"},
        {12.5, "Efectivo", "10", "3", 1, 87.5, "1 100 100", "1"},
        // 1 / 0.9 / 1.1 on 94.5 and 189.
        {10, "Tarjeta", "10", "2", 2, 189, "2 95,45 190,91", "0,909090909090909"},
        // Sold with 10 %, today's setting is 25 %.
        {0, "Tarjeta", "25", "2", 1, 110, "1 88 88", "0,8"},
        {0, "Tarjeta (Con recargo del 10%)", "10", "2", 1, 110, "1 110 110", "1"},
        {0, "Tarjeta", "-5", "2", 1, 110, "1 110 110", "1"},
        // Whole numbers, half to even.
        {0, "Efectivo", "", "0", 2, 5, "2 2 5", "1"},
        {0, "Efectivo", "", "-1", 1, 3.5, "1 4 4", "1"},
        {0, "Efectivo", "", "dos", 1, 2.4, "1 2 2", "1"},
    };
    for (const Caso &c : casos) {
        SCOPED_TRACE(testing::Message() << c.forma << " " << c.descuento << " " << c.precio_final);
        ajuste("recargo_tarjeta", c.recargo_hoy);
        ajuste("decimales", c.decimales);
        QFile::remove(app.ruta("vendrix.log"));
        const QString id = documento("Carrito", "261120-091500", c.descuento, c.forma,
                                     {{"Acme", "T1", "Tornillo 1/4", c.cantidad, c.precio_final}});
        ASSERT_TRUE(cargar(id));
        ASSERT_EQ(carrito.filas(), 1);
        EXPECT_EQ(QStringList({carrito.celda(0, kColCantidad), carrito.celda(0, kColPrecioUnitario),
                               carrito.celda(0, kColImporte)})
                      .join(' '),
                  c.celdas);
        EXPECT_TRUE(
            informacion().contains(QStringLiteral("Se aplica el recargo con tarjeta de=") + c.factor_recargo))
            << qPrintable(informacion().join('\n'));
    }
}

TEST_F(CarritoGuardado, LinesAreLinkedToThePriceListAgain)
{
    const QString id = documento("Carrito", "261120-091500", 0, "Efectivo",
                                 {{"Acme", "T1", "Tornillo 1/4", 2, 1200},
                                  {"Acme", "T9", "Tornillo viejo", 1, 50},
                                  {"", "X", "Bulón a medida", 1, 70},
                                  {"Otro", "X", "Taco", 1, 5},
                                  {"", "T2", "Tornillo 3/8", 1, 1000}});
    ASSERT_TRUE(cargar(id));
    QStringList lineas;
    for (int fila = 0; fila < carrito.filas(); ++fila)
        lineas << celdas(carrito, fila);
    EXPECT_EQ(lineas, QStringList({"2|Tornillo 1/4|600|1200|21|1|30|10|0|384,62|T1|-1|Acme",
                                   "1|Tornillo viejo|50|50|21|0|30|10|0|384,62|T9|-1|Acme",
                                   "1|Bulón a medida|70|70|21|X|30|10|0|384,62|X|-1|",
                                   "1|Taco|5|5|21|X|30|10|0|384,62|X|-1|Otro",
                                   "1|Tornillo 3/8|1000|1000|21|X|30|10|0|384,62|T2|-1|"}));
    const QStringList log = informacion();
    for (const char *linea :
         {"Se encontró el código del artículo guardado en el carrito con proveedor: Acme y código de "
          "proveedor: T1",
          "No se encontro el código del artículo guardado en el carrito con proveedor: Acme y código de "
          "proveedor: T9. Se lo cargará como un artículo ingresado a mano.",
          "El artículo guardado en el carrito con descripción: Bulón a medida (escrito) fue ingresado "
          "manualmente y por lo tanto no puede recuperarse su correspectivo ID en la lista actual.",
          "1) El artículo con proveedor: Acme y código: T1, está disponible y se prodrá actualizar su precio."
          "2) El artículo con proveedor: Acme y código: T9, no está disponible. Se lo cargará como un "
          "artículo ingresado a mano."
          "3) El artículo con descripción: Bulón a medida (escrito) fue ingresado manualmente y se lo "
          "cargará "
          "de la misma manera."
          "4) El artículo con descripción: Taco (escrito) fue ingresado manualmente y se lo cargará de la "
          "misma manera."
          "5) El artículo con descripción: Tornillo 3/8 (escrito) fue ingresado manualmente y se lo cargará "
          "de la misma manera.",
          "El campo precio unit es '600' en version string y '600' en version numerica."})
        EXPECT_TRUE(log.contains(QString::fromUtf8(linea))) << linea;
}

TEST_F(CarritoGuardado, OnlyADocumentWithAReferenceThatIsNotASaleMarksTheCart)
{
    struct Caso {
        const char *tipo;
        const char *referencia;
        const char *marca;
        bool error;
    } casos[] = {
        {"Carrito", "261120-091500", "Carrito guardado: 261120-091500", false},
        {"Factura a emitir", "261120-091500", "Carrito guardado: 261120-091500", false},
        {"Factura", "261120-091500", "", false},
        {"Carrito", "", "", true},
    };
    for (const Caso &c : casos) {
        SCOPED_TRACE(c.tipo);
        QFile::remove(app.ruta("vendrix.log"));
        carrito.agregar_linea(linea("9|Viejo|1|9|21|0|0|0|0|0||0|"));
        carrito.set_marca_guardado("Carrito guardado: 251231-235959");
        carrito.set_leyenda_extra("nota");
        app.status.busy_changes.clear();
        ASSERT_TRUE(cargar(
            documento(c.tipo, c.referencia, 0, "Efectivo", {{"Acme", "T1", "Tornillo 1/4", 2, 1200.5}})));
        EXPECT_EQ(carrito.filas(), 1); // the lines it held are gone
        EXPECT_EQ(carrito.marca_guardado(), c.marca);
        EXPECT_EQ(carrito.leyenda_extra(), "");
        EXPECT_EQ(carrito.texto_total(), "1200,50");
        EXPECT_EQ(app.status.busy_changes, std::vector<bool>({true, false}));
        EXPECT_EQ(log_de("ERR").size(), c.error ? 1 : 0);
    }
    EXPECT_EQ(
        log_de("ERR").value(0),
        "Se intento cargar un carrito que por algun motivo NO TIENE nro_referencia. Se cargan los items "
        "como si fuera un carrito que viene de una factura;; perdiendo los datos del cliente asociado.");
    EXPECT_TRUE(app.op.empty());
}

class CarritoGuardadoFalla : public CarritoGuardado {
protected:
    CarritoGuardadoFalla() : CarritoGuardado(true) {}
};

TEST_F(CarritoGuardadoFalla, AFailureKeepsTheLinesLoadedAndSaysSo)
{
    const QString entera =
        documento("Carrito", "261120-091500", 100, "Efectivo", {{"", "X", "Clavo", 1, 10}});
    const QString partida = documento("Carrito", "261120-091600", 0, "Efectivo",
                                      {{"", "X", "Clavo", 1, 10}, {"Acme", "T1", "Tornillo 1/4", 1, 600}});
    struct Caso {
        QString id;
        const char *falla; // SQL that fails
        int lineas;
        const char *error;
    } casos[] = {
        {entera, "", 0, "11 División por cero"},
        {partida, "xls_listas", 1, "1 No se pudo leer el documento guardado"},
        {partida, "vendrix_factura_items", 0, "1 No se pudo leer el documento guardado"},
    };
    for (const Caso &c : casos) {
        SCOPED_TRACE(c.error);
        app.failing_db().fail_matching(c.falla);
        carrito.set_marca_guardado("Carrito guardado: 251231-235959");
        app.op.clear();
        app.status.busy_changes.clear();
        QFile::remove(app.ruta("vendrix.log"));
        EXPECT_FALSE(cargar(c.id));
        app.failing_db().heal();
        EXPECT_EQ(carrito.filas(), c.lineas);
        EXPECT_EQ(carrito.marca_guardado(), "");
        EXPECT_EQ(carrito.texto_total(), c.lineas ? "10,00" : "0,00");
        EXPECT_EQ(app.status.busy_changes.back(), false);
        EXPECT_EQ(app.op.lines(),
                  QStringList({"error|Error al intentar cargar la Grilla.|ER BUS002: Se produjo "
                               "un error al cargar la información del Carrito guardado. Cierre "
                               "Vendrix e intente nuevamente."}));
        EXPECT_TRUE(
            log_de("ERR").contains(QStringLiteral("ER BUS002 - ") + c.error + " cargar_carrito_guardado"))
            << qPrintable(log_de("ERR").join('\n'));
    }
}

} // namespace
} // namespace vendrix

// A stored document back into a cart: the prices without the discount and
// today's card surcharge, the links to the price list, the saved-cart mark,
// and what a failure leaves.
#include "sales/recording/document_store.h"
#include "sales/stored_carts/cargar_carrito_guardado.h"
#include "sales/tienda.h"

namespace vendrix {
namespace {

// A line: supplier, code, description, quantity, amount. The operator's own
// description is the catalogue's with " (escrito)".
struct ItemGuardado {
    const char *proveedor, *codigo, *descripcion;
    double cantidad, precio_final;
};

// Stores a document of a customer without a business name, by the sale
// recorder's own store; its ID.
QString guardar_documento(Context &ctx, const QString &tipo, const QString &referencia, double descuento,
                          const QString &forma, const std::vector<ItemGuardado> &items)
{
    DocumentoVenta doc;
    CabeceraFactura &c = doc.cabecera;
    c.fecha = QDateTime(QDate(2026, 11, 20), QTime(9, 15));
    c.letra = "B";
    c.tipo = tipo;
    c.cliente = "F - CONSUMIDOR FINAL";
    c.total = c.total_facturado = items.at(0).precio_final;
    c.descuento_habitual = descuento;
    c.forma_de_pago = forma;
    c.nro_referencia = referencia;
    for (const ItemGuardado &i : items)
        doc.items.push_back({i.proveedor, i.codigo, i.descripcion, 384.62, 0, i.cantidad, 21, i.precio_final,
                             QString::fromUtf8(i.descripcion) + " (escrito)", 30, 10});
    return QString::number(vendrix::guardar_documento(ctx, doc));
}

class CarritoGuardado : public test::Tienda {
protected:
    // Its database fails only when told.
    CarritoGuardado() : Tienda(true) {}

    bool cargar(const QString &tipo, const QString &referencia, double descuento, const QString &forma,
                const std::vector<ItemGuardado> &items)
    {
        QFile::remove(app.ruta("vendrix.log"));
        app.op.clear();
        app.status.busy_changes.clear();
        carrito.agregar_linea(linea("9|Viejo|1|9|21|0|0|0|0|0||0|"));
        carrito.set_marca_guardado("Carrito guardado: 251231-235959");
        return cargar_carrito_guardado(
            app.ctx(), carrito, guardar_documento(app.ctx(), tipo, referencia, descuento, forma, items));
    }

    Carrito carrito{3};
};

TEST_F(CarritoGuardado, PricesComeBackWithoutDiscountAndTodaysSurchargeAndTheMarkOnlyFromNonSales)
{
    // type|reference|discount|payment|card surcharge today|decimals|quantity|amount
    //   => quantity, unit price, amount|mark|total box
    for (const char *caso : {
             "Carrito|261120-091500|0|Efectivo|10|2|1.5|150 => 1,5 100 150|Carrito guardado: "
             "261120-091500|150,00",
             "Factura a emitir|A1|12.5|Efectivo|10|3|1|87.5 => 1 100 100|Carrito guardado: A1|100,000",
             "Factura|A1|10|Tarjeta|10|2|2|189 => 2 95,45 190,91||190,91", // 1 / 0.9 / 1.1
             "Carrito||0|Tarjeta|25|2|1|110 => 1 88 88||88,00",            // sold at 10 %, 25 % today
             "Factura|A1|0|Tarjeta (Con recargo del 10%)|10|2|1|110 => 1 110 110||110,00",
             "Factura|A1|0|Tarjeta|-5|2|1|110 => 1 110 110||110,00",
             "Factura|A1|0|Efectivo||0|2|5 => 2 2 5||5", // half to even
         }) {
        SCOPED_TRACE(caso);
        const QStringList partes = QString::fromUtf8(caso).split(" => ");
        const QStringList d = partes[0].split('|');
        ajuste("recargo_tarjeta", d[4]);
        ajuste("decimales", d[5]);
        ASSERT_TRUE(cargar(d[0], d[1], d[2].toDouble(), d[3],
                           {{"Acme", "T1", "T", d[6].toDouble(), d[7].toDouble()}}));
        EXPECT_EQ(carrito.celda(0, 0) + " " + carrito.celda(0, 2) + " " + carrito.celda(0, 3) + "|" +
                      carrito.marca_guardado() + "|" + carrito.texto_total(),
                  partes[1]);
        EXPECT_EQ(app.status.busy_changes, std::vector<bool>({true, false}));
        EXPECT_EQ(log_de("ERR").size(), d[1].isEmpty() && d[0] != "Factura" ? 1 : 0);
    }
}

TEST_F(CarritoGuardado, LinesAreLinkedToThePriceListAgain)
{
    ASSERT_TRUE(cargar("Carrito", "1", 0, "Efectivo",
                       {{"Acme", "T1", "Tornillo", 2, 1200},
                        {"Acme", "T9", "Viejo", 1, 50},
                        {"Otro", "X", "Taco", 1, 5},
                        {"", "T2", "Tuerca", 1, 1000}}));
    QStringList codigos;
    for (int fila = 0; fila < carrito.filas(); ++fila)
        codigos << carrito.celda(fila, kColCodigo);
    EXPECT_EQ(codigos.join(' ') + " " + celdas(carrito, 0),
              "1 0 X X 2|Tornillo|600|1200|21|1|30|10|0|384,62|T1|-1|Acme");
    // The report is one log line; the log turns its commas into ";;".
    EXPECT_TRUE(log_de("INF").contains(
        "1) El artículo con proveedor: Acme y código: T1;; está disponible y se prodrá "
        "actualizar su precio.2) El artículo con proveedor: Acme y código: T9;; no está "
        "disponible. Se lo cargará como un artículo ingresado a mano.3) El artículo con "
        "descripción: Taco (escrito) fue ingresado manualmente y se lo cargará de la misma "
        "manera.4) El artículo con descripción: Tuerca (escrito) fue ingresado manualmente y "
        "se lo cargará de la misma manera."));
}

TEST_F(CarritoGuardado, AFailureKeepsTheLinesLoadedAndSaysSo)
{
    // discount|what the failing SQL contains => lines left|error line
    for (const char *caso :
         {"100| => 0|11 División por cero", "0|xls_listas => 1|1 No se pudo leer el documento guardado"}) {
        const QStringList c = QString::fromUtf8(caso).replace(" => ", "|").split('|');
        app.failing_db().fail_matching(c[1]);
        EXPECT_FALSE(cargar("Carrito", "1", c[0].toDouble(), "Efectivo",
                            {{"", "X", "Clavo", 1, 10}, {"Acme", "T1", "T", 1, 6}}));
        app.failing_db().heal();
        EXPECT_EQ(QString::number(carrito.filas()) + carrito.marca_guardado(), c[2]);
        EXPECT_EQ(app.status.busy_changes.back(), false);
        EXPECT_EQ(app.op.texts(), QStringList({"ER BUS002: Se produjo un error al cargar la información del "
                                               "Carrito guardado. Cierre Vendrix e intente nuevamente."}));
        EXPECT_TRUE(log_de("ERR").contains("ER BUS002 - " + c[3] + " cargar_carrito_guardado"));
    }
}

} // namespace
} // namespace vendrix

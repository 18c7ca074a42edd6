#include "sales/operar_carrito.h"

#include "catalogue/pricing/rounding.h"
#include "core/context.h"
#include "core/numeric.h"

namespace vendrix {

namespace {

void agregar_linea_en_blanco(Context &ctx, Carrito &carrito)
{
    const QString cero = QStringLiteral("0");
    LineaCarrito linea;
    linea[kColCantidad] = QStringLiteral("1");
    linea[kColPrecioUnitario] = cero;
    linea[kColImporte] = cero;
    linea[kColIva] = ctx.leer_parametro(QStringLiteral("iva"));
    // Codigo "0" marks the line as typed by hand for good.
    for (int col : {kColCodigo, kColGanancia, kColDescuento, kColDescuentoCliente})
        linea[static_cast<size_t>(col)] = cero;
    carrito.agregar_linea(linea);
    ctx.escribir_log(QStringLiteral("Carrito - Se agrego un elemento"), QStringLiteral("A"));
}

bool borrar_linea(Context &ctx, Carrito &carrito, int fila)
{
    const auto sin_seleccion = [&ctx] {
        ctx.op().warn(QStringLiteral("Carrito de compras."),
                      QStringLiteral("No hay elementos seleccionados. Seleccione el elemento a eliminar del "
                                     "carrito e intente nuevamente."));
        return false;
    };
    if (fila < 0)
        return sin_seleccion();
    if (carrito.vacio()) {
        ctx.op().warn(QStringLiteral("Carrito de compras vácio."),
                      QStringLiteral("El Carrito de compras está vácio."));
        return false;
    }
    if (!carrito.tiene_fila(fila))
        return sin_seleccion();
    carrito.borrar_linea(fila);
    actualizar_total_carrito(carrito);
    ctx.escribir_log(QStringLiteral("Carrito - Se elimino un elemento"), QStringLiteral("A"));
    return true;
}

bool vaciar(Context &ctx, Carrito &carrito, bool preguntar)
{
    if (preguntar &&
        !ctx.op().ask(kTituloPrograma, QStringLiteral("¿Está seguro de vaciar el carrito de compras?")))
        return false;
    carrito.set_marca_guardado({});
    carrito.set_leyenda_extra({});
    carrito.quitar_lineas();
    carrito.set_texto_total({});
    ctx.escribir_log(QStringLiteral("Carrito - se vacio el carrito"), QStringLiteral("A"));
    return true;
}

} // namespace

bool operar_carrito(Context &ctx, Carrito &carrito, VerboCarrito verbo, bool preguntar, int fila_seleccionada)
{
    Carrito::Lote lote(carrito);
    switch (verbo) {
    case VerboCarrito::agregar:
        agregar_linea_en_blanco(ctx, carrito);
        return true;
    case VerboCarrito::borrar:
        return borrar_linea(ctx, carrito, fila_seleccionada);
    case VerboCarrito::vaciar:
        return vaciar(ctx, carrito, preguntar);
    }
    return false;
}

void actualizar_total_carrito(Carrito &carrito)
{
    Carrito::Lote lote(carrito);
    for (int fila = 0; fila < carrito.filas(); ++fila) {
        const double importe = valor_texto(carrito.celda(fila, kColCantidad)) *
                               valor_texto(carrito.celda(fila, kColPrecioUnitario));
        carrito.set_celda(fila, kColImporte, texto_numero(importe));
    }
    carrito.set_texto_total(texto_numero(redondear(carrito.total(), 2)));
}

int buscar_articulo_en_carrito(Context &ctx, const Carrito &carrito, const QString &descripcion,
                               const QString &id, const QString &reservado, const QString &grupo,
                               double precio)
{
    Q_UNUSED(reservado);
    int fila = -1;
    for (int i = 0; i < carrito.filas() && fila < 0; ++i) {
        const LineaCarrito &l = carrito.linea(i);
        if (l[kColArticulo] == descripcion && l[kColCodigo] == id && l[kColGrupoProveedor] == grupo)
            fila = i;
    }
    if (fila < 0 || precio <= 0)
        return fila;
    // The prices are compared as numbers: the line holds the plain number
    // and the display text may carry trailing decimals ("600" and "600,00").
    const double mostrado = valor_texto(redondear_precio(ctx, precio));
    if (valor_texto(carrito.celda(fila, kColPrecioUnitario)) == mostrado) {
        ctx.op().inform(kTituloPrograma,
                        QStringLiteral("El artículo está presente en el carrito. Se incrementa la "
                                       "cantidad anterior."));
        return fila;
    }
    ctx.op().inform(
        kTituloPrograma,
        QStringLiteral("El artículo está presente en el carrito con un precio de venta distinto. Se "
                       "agrega al carrito como un nuevo artículo."));
    return -1;
}

bool es_columna_editable(int col)
{
    return col == kColCantidad || col == kColPrecioUnitario;
}

bool es_columna_numerica(const QString &value, int col)
{
    return !es_columna_editable(col) || es_numerico(value);
}

bool editar_celda_carrito(Context &ctx, Carrito &carrito, int fila, int col, const QString &value)
{
    if (!carrito.tiene_fila(fila) || !es_columna_editable(col))
        return false;
    if (!es_columna_numerica(value, col)) {
        ctx.op().error(QStringLiteral("Error en los Datos"),
                       QStringLiteral("Hay un error en los datos ingresados. El formato no es numérico."));
        return false;
    }
    Carrito::Lote lote(carrito);
    carrito.set_celda(fila, col, value);
    actualizar_total_carrito(carrito);
    return true;
}

bool carrito_con_ivas_distintos(const Carrito &carrito)
{
    if (carrito.filas() < 2)
        return false;
    const double primera = valor_texto(carrito.celda(0, kColIva));
    for (int fila = 1; fila < carrito.filas(); ++fila) {
        if (valor_texto(carrito.celda(fila, kColIva)) != primera)
            return true;
    }
    return false;
}

} // namespace vendrix

#include "sales/agregar_articulo.h"

#include "catalogue/pricing/currency.h"
#include "catalogue/pricing/rounding.h"
#include "core/context.h"
#include "core/numeric.h"
#include "sales/carritos.h"
#include "sales/operar_carrito.h"
#include "sales/unidades_articulo.h"

namespace vendrix {

namespace {

const QString kPorUnidad = QStringLiteral(" c/u");
const QString kTituloDatos = QStringLiteral("Error en los datos ingresados");

bool positivo(const QString &text)
{
    return es_numerico(text) && valor_texto(text) > 0;
}

void uno_si_no_es_numero(QString &text)
{
    if (!es_numerico(text))
        text = QStringLiteral("1");
}

} // namespace

AgregarArticulo::AgregarArticulo(Context &ctx, Carritos &carritos, int carrito_origen,
                                 ArticuloParaCarrito articulo)
    : ctx_(ctx), carritos_(carritos),
      carrito_origen_(Carritos::es_numero(carrito_origen) ? carrito_origen : 1),
      articulo_(std::move(articulo))
{
    cargar_vista_articulo(ctx_, articulo_, vista_);
    if (es_moneda_dolar(articulo_.moneda))
        cargar_dolar();
    vista_.Check_guardar = vista_.unidades_guardadas;
    // Under the administrator's lock the staff can't change what the shop
    // remembers.
    vista_.Check_guardar_habilitado = ctx_.leer_parametro(QStringLiteral("admin_block")).isEmpty();

    const Carrito &carrito = carritos_.carrito(carrito_origen_);
    vista_.Text_nombre_Carrito = nombre_carrito(ctx_, carrito_origen_);
    vista_.Text_nombre_Carrito_habilitado = carrito.vacio();
    calcular_figuras();
}

// The panel has already turned the dollars into pesos: the dialog only says
// the rate, and rounds the price for display.
void AgregarArticulo::cargar_dolar()
{
    vista_.Label_Dolares = leyenda_dolares(cotizacion_para_dialogo(ctx_));
    vista_.Text_pventa = redondear_precio(ctx_, valor_texto(vista_.Text_pventa));
    vista_.Text_pventa_tag = vista_.Text_pventa;
}

void AgregarArticulo::set_cant_agregar(const QString &text)
{
    vista_.cant_agregar = text;
    calcular_figuras();
}

void AgregarArticulo::set_cant_unidades(const QString &text)
{
    vista_.cant_unidades = text;
    calcular_figuras();
}

void AgregarArticulo::calcular_figuras()
{
    uno_si_no_es_numero(vista_.cant_unidades);
    uno_si_no_es_numero(vista_.cant_agregar);
    if (!positivo(vista_.cant_unidades))
        return;
    const double por_unidad = valor_texto(vista_.Text_pventa) / valor_texto(vista_.cant_unidades);
    const QString mostrado = redondear_precio(ctx_, por_unidad);
    vista_.Text_cantxprecio = mostrado + kPorUnidad;
    vista_.Text_cantxprecio_tag = texto_numero(por_unidad) + kPorUnidad;
    if (!positivo(vista_.cant_agregar))
        return;
    const double cantidad = valor_texto(vista_.cant_agregar);
    vista_.total_por_articulos = redondear_precio(ctx_, cantidad * valor_texto(mostrado));
    vista_.total_por_articulos_tooltip = texto_numero(cantidad * por_unidad);
}

bool AgregarArticulo::salir_nombre_carrito()
{
    if (!vista_.Text_nombre_Carrito_habilitado)
        return false;
    return renombrar_carrito(ctx_, carritos_.carrito(carrito_origen_), vista_.Text_nombre_Carrito);
}

ResultadoAgregar AgregarArticulo::agregar()
{
    ResultadoAgregar resultado;
    if (valor_texto(vista_.cant_unidades) <= 0) {
        ctx_.op().warn(kTituloDatos,
                       QStringLiteral("El valor del campo \"Cantidad de Unidades por Precio\" no "
                                      "puede ser cero o menor que cero."));
        return resultado;
    }
    if (valor_texto(vista_.cant_agregar) <= 0) {
        ctx_.op().warn(kTituloDatos,
                       QStringLiteral("El valor del campo \"Cantidad a agregar\" no puede ser cero o "
                                      "menor que cero."));
        return resultado;
    }
    // The line and the new total reach the cart's listener together.
    Carrito::Lote lote(carritos_.carrito(carrito_origen_));
    // The whole pack's price is what is compared: with several units per
    // price the line holds the unit price and never matches.
    const int fila = buscar_articulo_en_carrito(ctx_, carritos_.carrito(carrito_origen_), vista_.Text_artdesc,
                                                QString::number(articulo_.id), QStringLiteral("0"),
                                                articulo_.grupo, valor_texto(vista_.Text_pventa));
    if (fila < 0) {
        resultado.fila = agregar_linea_nueva();
    } else {
        sumar_a_linea(fila);
        resultado.fila = fila;
    }
    resultado.agregado = true;
    // The lock only greys the box: a remembered value keeps it ticked, and
    // the units typed are remembered all the same.
    if (vista_.Check_guardar) {
        resultado.recargar_panel =
            guardar_unidades_articulo(ctx_, articulo_.proveedor, articulo_.codigo, vista_.unidades_guardadas,
                                      valor_texto(vista_.cant_unidades), vista_.Text_artdesc);
    }
    return resultado;
}

int AgregarArticulo::agregar_linea_nueva()
{
    double unitario = 0.0;
    if (es_numerico(vista_.Text_pventa) && valor_texto(vista_.cant_unidades) > 0)
        unitario = valor_texto(
            redondear_precio(ctx_, valor_texto(vista_.Text_pventa) / valor_texto(vista_.cant_unidades)));
    LineaCarrito linea{vista_.cant_agregar,         vista_.Text_artdesc,
                       texto_numero(unitario),      texto_numero(valor_texto(vista_.cant_agregar) * unitario),
                       texto_numero(articulo_.iva), QString::number(articulo_.id),
                       articulo_.ganancia,          articulo_.descuento,
                       articulo_.descuento_cliente, articulo_.costo,
                       vista_.text_articulos,       articulo_.grupo,
                       articulo_.proveedor};
    Carrito &carrito = carritos_.carrito(carrito_origen_);
    const int fila = carrito.agregar_linea(linea);
    carrito.set_texto_total(redondear_precio(ctx_, carrito.total()));
    return fila;
}

// The line's old quantity counts as a whole number (half to even) before the
// new one is added: 1.5 and 1 make 3.
void AgregarArticulo::sumar_a_linea(int fila)
{
    Carrito &carrito = carritos_.carrito(carrito_origen_);
    const double cantidad =
        valor_texto(vista_.cant_agregar) + redondear(valor_texto(carrito.celda(fila, kColCantidad)), 0);
    carrito.set_celda(fila, kColCantidad, texto_numero(cantidad));
    carrito.set_celda(fila, kColImporte,
                      texto_numero(cantidad * valor_texto(carrito.celda(fila, kColPrecioUnitario))));
    carrito.set_texto_total(redondear_precio(ctx_, carrito.total()));
}

ResultadoAgregar agregar_con_figuras_del_panel(Context &ctx, Carritos &carritos, int carrito,
                                               const ArticuloParaCarrito &articulo)
{
    AgregarArticulo dialogo(ctx, carritos, carrito, articulo);
    dialogo.set_guardar(false);
    return dialogo.agregar();
}

ResultadoAgregar agregar_automaticamente(Context &ctx, Carritos &carritos,
                                         const ArticuloParaCarrito &articulo)
{
    if (ctx.leer_parametro(QStringLiteral("busqueda_agregar_automaticamente")) != QLatin1String("1") ||
        !cuatro_carritos(ctx))
        return {};
    ResultadoAgregar resultado = agregar_con_figuras_del_panel(ctx, carritos, 1, articulo);
    if (resultado.agregado)
        ctx.escribir_log(QStringLiteral("Se agregó un artículo de la grilla automáticamente al carrito"),
                         QStringLiteral("A"));
    return resultado;
}

} // namespace vendrix

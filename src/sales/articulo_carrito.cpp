#include "sales/articulo_carrito.h"

#include "catalogue/pricing/price_panel.h"
#include "catalogue/pricing/rounding.h"
#include "core/context.h"
#include "core/numeric.h"
#include "sales/carrito.h"
#include "sales/unidades_articulo.h"

namespace vendrix {

void cargar_vista_articulo(Context &ctx, const ArticuloParaCarrito &articulo, VistaArticulo &vista)
{
    vista.text_articulos = articulo.codigo;
    vista.Text_artdesc = articulo.descripcion;
    vista.Text_marc = articulo.marca;
    vista.Text_UM = articulo.unidad;
    vista.Text_pventa = articulo.precio_lista;
    vista.Text_pventa_tag = articulo.precio_lista;
    vista.Text_pventa_display = redondear_precio(ctx, valor_texto(articulo.precio_lista));
    if (const std::optional<QString> unidades =
            leer_unidades_guardadas(ctx, articulo.proveedor, articulo.codigo)) {
        vista.cant_unidades = *unidades;
        vista.unidades_guardadas = true;
    }
}

void tomar_figuras_del_panel(ArticuloParaCarrito &articulo, const PricePanel &panel)
{
    using C = PanelField;
    articulo.precio_lista = panel[C::TextBox_PLista_original].text;
    articulo.ganancia = panel[C::TextBox_Ganancia].text;
    articulo.descuento = panel[C::TextBox_Descuento].text;
    articulo.descuento_cliente = panel[C::Textbox_desusr].text;
    articulo.costo = panel[C::TextBox_Costo].text;
    articulo.precio_con_iva = panel[C::TextBox_PTotal_civa].text;
    articulo.precio_sin_iva = panel[C::TextBox_PTotal].text;
    articulo.iva = panel.iva;
}

QString descripcion_para_carrito(const Context &ctx, const QString &grupo, const QString &descripcion)
{
    if (ctx.leer_parametro(QStringLiteral("IF_desc_art")) == QStringLiteral("Descripción"))
        return descripcion;
    return grupo + QLatin1Char(' ') + descripcion;
}

std::optional<ArticuloParaCarrito> leer_articulo_para_carrito(Context &ctx, qint64 id, const QString &grupo,
                                                              const PricePanel &panel)
{
    const auto cursor = ctx.db().execQ(QStringLiteral("SELECT Proveedor, Grupo, Codigo, Descripcion, Marca, "
                                                      "UnidadDeMedida, Moneda FROM xls_listas WHERE ID = ?"),
                                       QStringLiteral("external"), {id});
    if (!cursor || cursor->eof())
        return std::nullopt;
    ArticuloParaCarrito a;
    a.id = id;
    a.grupo = grupo;
    a.proveedor = cursor->texto(0);
    a.codigo = cursor->texto(2);
    a.descripcion = descripcion_para_carrito(ctx, cursor->texto(1), cursor->texto(3));
    a.marca = cursor->texto(4);
    a.unidad = cursor->texto(5);
    a.moneda = cursor->texto(6);
    tomar_figuras_del_panel(a, panel);
    return a;
}

bool codigo_unico_en_lista(Context &ctx, qint64 id)
{
    const QString cuenta = ctx.db().execQ1(
        QStringLiteral(
            "SELECT count(*) FROM xls_listas WHERE Proveedor || Codigo = (SELECT Proveedor || Codigo "
            "FROM xls_listas WHERE ID = ?)"),
        QStringLiteral("external"), {id});
    return cuenta == QLatin1String("1");
}

QString cotizacion_para_dialogo(Context &ctx)
{
    const QString cotizacion = ctx.leer_parametro(QStringLiteral("Valor_Dolar"));
    if (!cotizacion.isEmpty() && cotizacion != QLatin1String("0"))
        return cotizacion;
    ctx.op().warn(kTituloPrograma,
                  QStringLiteral("El valor de la cotización del dolar esta vacío. Por favor configurela."));
    return QStringLiteral("1");
}

QString leyenda_dolares(const QString &cotizacion)
{
    return QStringLiteral("El precio original en dólares. Tipo de cambio 1 USD = ") + cotizacion;
}

} // namespace vendrix

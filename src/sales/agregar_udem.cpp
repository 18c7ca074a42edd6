#include "sales/agregar_udem.h"

#include "catalogue/pricing/currency.h"
#include "catalogue/pricing/rounding.h"
#include "core/context.h"
#include "core/numeric.h"
#include "sales/unidades_articulo.h"

namespace vendrix {

namespace {

const QString kPorUnidad = QStringLiteral(" c/u");

} // namespace

AgregarUdeM::AgregarUdeM(Context &ctx, ArticuloParaCarrito articulo)
    : ctx_(ctx), articulo_(std::move(articulo))
{
    cargar_vista_articulo(ctx_, articulo_, vista_);
    if (es_moneda_dolar(articulo_.moneda)) {
        const QString cotizacion = cotizacion_para_dialogo(ctx_);
        vista_.Label_Dolares = leyenda_dolares(cotizacion);
        const double precio = valor_texto(articulo_.precio_lista) * valor_texto(cotizacion);
        vista_.Text_pventa = redondear_precio(ctx_, precio);
        vista_.Text_pventa_tag = texto_numero(precio);
    }
    calcular_por_unidad();
}

void AgregarUdeM::set_cant_unidades(const QString &text)
{
    vista_.cant_unidades = text;
    calcular_por_unidad();
}

void AgregarUdeM::calcular_por_unidad()
{
    if (!es_numerico(vista_.cant_unidades))
        vista_.cant_unidades = QStringLiteral("1");
    const double unidades = valor_texto(vista_.cant_unidades);
    if (unidades <= 0)
        return;
    const double por_unidad = valor_texto(vista_.Text_pventa_tag) / unidades;
    vista_.Text_cantxprecio = redondear_precio(ctx_, por_unidad) + kPorUnidad;
    vista_.Text_cantxprecio_tag = texto_numero(por_unidad) + kPorUnidad;
}

ResultadoUdeM AgregarUdeM::guardar()
{
    const double unidades = valor_texto(vista_.cant_unidades);
    if (unidades <= 0) {
        ctx_.op().warn(
            QStringLiteral("Error en los datos ingresados"),
            QStringLiteral("El valor del campo \"Cantidad de Unidades por Precio\" no puede ser cero o "
                           "menor que cero."));
        return {};
    }
    guardar_unidades_articulo(ctx_, articulo_.proveedor, articulo_.codigo, vista_.unidades_guardadas,
                              unidades, vista_.Text_artdesc);
    return {true, true};
}

} // namespace vendrix

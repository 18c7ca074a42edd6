#include "catalogue/pricing/price_by_id.h"

#include "catalogue/pricing/currency.h"
#include "catalogue/pricing/formula.h"
#include "catalogue/pricing/price_settings.h"
#include "catalogue/pricing/rules.h"
#include "core/context.h"
#include "core/numeric.h"

namespace vendrix {

namespace {

double fallo_por_id(Context &ctx, qint64 id)
{
    ctx.op().error(QStringLiteral("Error al recalcular precio."),
                   QStringLiteral("ER PREART001: Se produjo un error al intentar recalcular el precio del "
                                  "artículo con ID=") +
                       QString::number(id) + QStringLiteral(". Cierre Vendrix e intente nuevamente."));
    ctx.escribir_log(QStringLiteral("ER PREART001 - 1 No se pudo leer el artículo o sus reglas 0 Vendrix"),
                     QStringLiteral("E"));
    ctx.estado().marcar_ocupado(false);
    return -1;
}

} // namespace

double precio_final(const PricedArticle &articulo, const RuleTable &reglas, const PriceSettings &ajustes)
{
    const ArticleRules formulas = reglas.reglas(articulo.proveedor, articulo.grupo, articulo.descripcion);
    const double g = formula_a_porcentaje(formulas.ganancia, u"ganancia");
    const double d = formula_a_porcentaje(formulas.descuento, u"descuento");
    double precio = valor_texto(articulo.precio);
    if (es_moneda_dolar(articulo.moneda))
        precio *= cotizacion_dolar(ajustes.valor_dolar);
    const double costo = precio * (1 - d / 100);
    const double neto = costo * (1 + g / 100);
    return (tasa_iva(articulo.moneda, ajustes.iva) / 100 + 1) * neto;
}

double calcular_precio_por_id(Context &ctx, qint64 id)
{
    const ArticleRead lectura = leer_articulo(ctx, id);
    if (!lectura.ok)
        return fallo_por_id(ctx, id);
    const std::optional<RuleTable> reglas = leer_reglas_proveedor(ctx, lectura.articulo.proveedor);
    if (!reglas)
        return fallo_por_id(ctx, id);
    return precio_final(lectura.articulo, *reglas, PriceSettings::leer(ctx));
}

} // namespace vendrix

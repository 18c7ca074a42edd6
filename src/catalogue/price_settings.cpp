#include "catalogue/price_settings.h"

#include "core/context.h"

namespace vendrix {

AjustesPrecio AjustesPrecio::leer(const Context &ctx)
{
    return {ctx.leer_parametro(QStringLiteral("iva")), ctx.leer_parametro(QStringLiteral("Valor_Dolar")),
            ctx.leer_parametro(QStringLiteral("recargo_tarjeta")), AjustesRedondeo::leer(ctx)};
}

} // namespace vendrix

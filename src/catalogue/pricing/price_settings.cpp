#include "catalogue/pricing/price_settings.h"

#include "core/context.h"

namespace vendrix {

PriceSettings PriceSettings::leer(const Context &ctx)
{
    return {ctx.leer_parametro(QStringLiteral("iva")), ctx.leer_parametro(QStringLiteral("Valor_Dolar")),
            ctx.leer_parametro(QStringLiteral("recargo_tarjeta")), RoundingSettings::leer(ctx)};
}

} // namespace vendrix

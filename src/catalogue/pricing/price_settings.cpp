#include "catalogue/pricing/price_settings.h"

#include "core/context.h"
#include "core/settings_read.h"

namespace vendrix {

PriceSettings PriceSettings::leer(const Context &ctx)
{
    // One pass over the settings file for the seven keys.
    const QStringList v =
        leer_parametros(ctx.config(), {QStringLiteral("iva"), QStringLiteral("Valor_Dolar"),
                                       QStringLiteral("recargo_tarjeta"), QStringLiteral("decimales"),
                                       QStringLiteral("redondeo"), QStringLiteral("redondeo_tipo"),
                                       QStringLiteral("redondeo_tolerancia")});
    return {v[0], v[1], v[2], {v[3], v[4], v[5], v[6]}};
}

} // namespace vendrix

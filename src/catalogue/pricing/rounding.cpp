#include "catalogue/pricing/rounding.h"

#include "core/context.h"
#include "core/numeric.h"
#include "core/settings_read.h"

#include <cmath>

namespace vendrix {

RoundingSettings RoundingSettings::leer(const Context &ctx)
{
    const QStringList v = leer_parametros(
        ctx.config(), {QStringLiteral("decimales"), QStringLiteral("redondeo"),
                       QStringLiteral("redondeo_tipo"), QStringLiteral("redondeo_tolerancia")});
    return {v[0], v[1], v[2], v[3]};
}

Rounder::Rounder(const RoundingSettings &ajustes)
{
    static constexpr struct {
        const char16_t *texto;
        int digitos;
        double offset;
    } kDigitos[] = {{u"-2", -2, 49.999999},
                    {u"-1", -1, 4.9999999},
                    {u"0", 0, 0.49999999},
                    {u"1", 1, 0.04999999},
                    {u"2", 2, 0.00499999}};
    for (const auto &d : kDigitos) {
        if (ajustes.decimales == QStringView(d.texto)) {
            digitos_ = d.digitos;
            offset_ = d.offset;
        }
    }
    if (ajustes.redondeo == QLatin1String("0"))
        offset_ = -offset_;
    else if (ajustes.redondeo == QLatin1String("1"))
        offset_ = 0.0;
    de_5_en_5_ = ajustes.redondeo_tipo == QLatin1String("De 5 en 5");
    if (es_numerico(ajustes.redondeo_tolerancia)) {
        con_tolerancia_ = true;
        tolerancia_ = valor_texto(ajustes.redondeo_tolerancia);
    }
}

QString Rounder::aplicar(double precio) const
{
    if (digitos_ == 3)
        return formatear(precio, u"####0.000");

    double redondeado = 0.0;
    if (digitos_ > 0) {
        redondeado = redondear(precio + offset_, digitos_);
    } else {
        // Steps of 1, 10 or 100, or of 5, 50 or 500; the mode doesn't apply.
        const double paso = (digitos_ == 0 ? 1.0 : digitos_ == -1 ? 10.0 : 100.0) * (de_5_en_5_ ? 5.0 : 1.0);
        redondeado = paso * redondear(precio / paso, 0);
    }

    double mostrado = redondeado;
    if (redondeado == 0.0)
        mostrado = precio;
    else if (con_tolerancia_ && std::fabs(redondeado - precio) / precio > tolerancia_)
        mostrado = precio;

    switch (digitos_) {
    case 1:
        return formatear(mostrado, u"####0.0");
    case 2:
        return formatear(mostrado, u"####0.00");
    default:
        return formatear(mostrado, u"####0");
    }
}

QString redondear_precio(double precio, const RoundingSettings &ajustes)
{
    return Rounder(ajustes).aplicar(precio);
}

QString redondear_precio(const Context &ctx, double precio)
{
    return redondear_precio(precio, RoundingSettings::leer(ctx));
}

} // namespace vendrix

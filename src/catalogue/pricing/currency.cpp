#include "catalogue/pricing/currency.h"

#include "core/numeric.h"

namespace vendrix {

QString nombre_moneda(QStringView code)
{
    if (code == u"1" || code == u"101")
        return QStringLiteral("Pesos Argentinos (ARS)");
    if (code == u"2" || code == u"102")
        return QStringLiteral("Dolares (U$D)");
    return {};
}

bool es_moneda_dolar(QStringView code)
{
    return code == u"2" || code == u"102";
}

bool es_iva_reducido(QStringView code)
{
    return valor_texto(code) >= 100.0;
}

double tasa_iva(QStringView code, QStringView iva)
{
    const double shop = valor_texto(iva);
    return es_iva_reducido(code) ? redondear(shop / 2.0, 2) : redondear(shop, 0);
}

double cotizacion_dolar(QStringView valor_dolar)
{
    return es_numerico(valor_dolar) ? valor_texto(valor_dolar) : 0.0;
}

} // namespace vendrix

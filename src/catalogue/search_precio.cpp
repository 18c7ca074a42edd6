#include "catalogue/search_precio.h"

#include "catalogue/lista_formato.h"

#include <cmath>

namespace vendrix {

namespace {

// TODO(numeric): replace these two with `redondear` and `texto_numero` of
// core/numeric.h once it is on main; they follow the same rules.
double redondear_dos(double value)
{
    // Scaled in double precision, then rounded half to even (the default
    // rounding mode of nearbyint).
    return std::nearbyint(value * 100.0) / 100.0;
}

QString texto_decimal(double value)
{
    QString text = QString::number(value, 'g', 15);
    text.replace(QLatin1Char('.'), QLatin1Char(','));
    return text;
}

} // namespace

QString precio_grilla(const QString &precio)
{
    return texto_decimal(redondear_dos(valor_precio(precio)));
}

} // namespace vendrix

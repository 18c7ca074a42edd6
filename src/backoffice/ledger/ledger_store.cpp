#include "backoffice/ledger/ledger_store.h"

#include <cmath>

namespace vendrix {

double total_factura(const DatosFactura &f)
{
    return f.neto + f.iva + f.otros_impuestos - f.descuentos;
}

QString estado_de_deuda(double total, double pagado)
{
    // At the cent: sums of doubles such as 0.29 + 0.29 + 0.30 miss 0.88 by a hair.
    const auto cents = [](double v) { return std::llround(v * 100.0); };
    if (cents(pagado) == 0)
        return QStringLiteral("No");
    return cents(pagado) >= cents(total) ? QStringLiteral("Si") : QStringLiteral("Parcialmente");
}

QString fecha_guardada(const QDate &fecha)
{
    return fecha.toString(QStringLiteral("yyyy-MM-dd"));
}

QString fecha_mostrada(const QString &guardada)
{
    const QDate date = QDate::fromString(guardada.left(10), QStringLiteral("yyyy-MM-dd"));
    return date.isValid() ? date.toString(QStringLiteral("dd/MM/yyyy")) : guardada;
}

} // namespace vendrix

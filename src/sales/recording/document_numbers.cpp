#include "sales/recording/document_numbers.h"

#include "core/context.h"
#include "core/numeric.h"

#include <cmath>

namespace vendrix {

LetraComprobante letra_comprobante(const Context &ctx, const QString &condicion_iva)
{
    if (ctx.leer_parametro(QStringLiteral("IF_tipo_IVA")).left(1) == QLatin1String("M"))
        return {QStringLiteral("C"), false};
    const QString comprador = condicion_iva.left(1);
    if (comprador == QLatin1String("I") || comprador == QLatin1String("M"))
        return {QStringLiteral("A"), true};
    return {QStringLiteral("B"), false};
}

qint64 proximo_nro_ticket(const Context &ctx, const QString &letra, const QString &tipo)
{
    // The Epson printers number their own documents; their driver is to hand
    // its number here once it exists.
    QString clave;
    if (tipo == QLatin1String("Factura"))
        clave = QStringLiteral("IF_ticket_") + letra;
    else if (tipo == QLatin1String("Nota de Credito"))
        clave = QStringLiteral("IF_nc_") + letra;
    if (clave.isEmpty())
        return 1;
    const QString texto = ctx.leer_parametro(clave);
    const qint64 numero = texto.isEmpty() ? 1 : std::llround(valor_texto(texto));
    ctx.escribir_parametro(clave, QString::number(numero + 1));
    return numero;
}

} // namespace vendrix

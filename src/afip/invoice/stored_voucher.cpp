#include "afip/invoice/stored_voucher.h"

#include "core/context.h"

namespace vendrix {

namespace {

Matrix leer(Context &ctx, const QString &condicion, const QVariant &valor)
{
    return ctx.db().execQ_matriz(
        QStringLiteral(
            "SELECT Letra, tipo, FE_CAE_ID, fecha, razon_social, domicilio, provincia, cliente, cuit, "
            "Forma_de_pago, abs(total_neto), abs(total_iva), abs(total), FE_CAE_numero, "
            "FE_CAE_fechaVencimiento, id, insert_timestamp, tipo_doc FROM Vendrix_Facturas WHERE ") +
            condicion + QStringLiteral(" LIMIT 1"),
        QStringLiteral("clientes"), {valor});
}

} // namespace

Matrix leer_comprobante_por_id(Context &ctx, qint64 id)
{
    return leer(ctx, QStringLiteral("ID = ?"), id);
}

Matrix leer_comprobante_por_cae(Context &ctx, const QString &cae)
{
    return leer(ctx, QStringLiteral("FE_CAE_numero = ?"), cae);
}

} // namespace vendrix

#include "backoffice/ledger/payment_history.h"

#include "backoffice/ledger/ledger_store.h"
#include "core/context.h"
#include "core/numeric.h"

namespace vendrix {

PaymentHistory::PaymentHistory(Context &ctx, qint64 id_deuda) : ctx_(ctx), id_deuda_(id_deuda)
{
}

QStringList PaymentHistory::columnas()
{
    return {QStringLiteral("ID"),    QStringLiteral("Fecha"),           QStringLiteral("Forma de Pago"),
            QStringLiteral("Monto"), QStringLiteral("Destino de Pago"), QStringLiteral("Notas")};
}

std::vector<QStringList> PaymentHistory::filas()
{
    const Matrix m = ctx_.db().execQ_matriz(
        QStringLiteral(
            "SELECT ID, Fecha, Medio_de_pago, Total_Pago, destino_de_pago, Notas FROM Vendrix_Pagos "
            "WHERE ID_Factura_pagos = ? ORDER BY Fecha DESC, ID DESC"),
        QStringLiteral("Internal"), {id_deuda_});
    std::vector<QStringList> filas;
    for (int r = 0; r < m.filas(); ++r)
        filas.push_back({m.at(0, r), fecha_mostrada(m.at(1, r)), m.at(2, r),
                         texto_numero(-valor_texto(m.at(3, r))), m.at(4, r), m.at(5, r)});
    return filas;
}

QString PaymentHistory::titulo()
{
    // The stored date sorts as a date; it is shown as the operator reads it.
    const QString titulo = ctx_.db().execQ1(
        QStringLiteral(
            "SELECT MAX(IIF(TRIM(IFNULL(Proveedor, '')) <> '', Proveedor || ' - ', '') || "
            "IIF(TIPO = 'FACTURA', 'Factura nro.: ' || ID_Factura_pagos, 'Pago ') || ' - ' || Fecha) "
            "FROM Vendrix_Pagos WHERE ID_Factura_pagos = ?"),
        QStringLiteral("Internal"), {id_deuda_});
    const qsizetype fin = titulo.lastIndexOf(QStringLiteral(" - "));
    if (fin < 0)
        return titulo;
    return titulo.left(fin + 3) + fecha_mostrada(titulo.mid(fin + 3));
}

bool PaymentHistory::eliminar(qint64 id_pago)
{
    if (!ctx_.op().ask(QStringLiteral("Eliminar Pago"),
                       QStringLiteral("¿Desea eliminar el pago seleccionado?")))
        return false;
    if (!eliminar_pago_del_historial(ctx_, id_pago, id_deuda_))
        return false;
    cambios_ = true;
    return true;
}

} // namespace vendrix

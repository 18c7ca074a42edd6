#include "fiscal/front/old_sales_eraser.h"

#include "core/context.h"

#include <QDate>

namespace vendrix {

namespace {

// `fecha` is text "dd/mm/yyyy hh:nn:ss" (older sales have a one-digit
// hour): it is turned into "yyyy-mm-dd hh:nn:ss", which sorts as a date.
// Rows of another shape are never taken for old ones.
const char *const kBorrarVentas =
    "DELETE FROM vendrix_facturas "
    "WHERE fecha GLOB '[0-9][0-9]/[0-9][0-9]/[0-9][0-9][0-9][0-9]*' "
    "AND substr(fecha, 7, 4) || '-' || substr(fecha, 4, 2) || '-' || substr(fecha, 1, 2) || ' ' || "
    "substr('0' || trim(substr(fecha, 11)), -8) <= ?";
const char *const kBorrarLineas =
    "DELETE FROM vendrix_factura_items WHERE factura_id NOT IN (SELECT id FROM vendrix_facturas)";

} // namespace

bool borrar_ventas_anteriores(Context &ctx, const QDate &fecha)
{
    const QString dia = fecha.toString(QStringLiteral("dd/MM/yyyy"));
    if (!ctx.op().ask(QStringLiteral("Eliminar Datos historicos"),
                      QStringLiteral("Está seguro de eliminar los datos de facturación anteriores al ") +
                          dia +
                          QStringLiteral("?. Los datos almacenados en el controlador fiscal no se veran "
                                         "afectados por este procedimiento.")))
        return false;

    const QString destino = QStringLiteral("internal");
    Database &db = ctx.db();
    Transaction tx(db, destino);
    if (!tx.activa() ||
        !db.execNQ(QString::fromLatin1(kBorrarVentas), destino,
                   {fecha.toString(QStringLiteral("yyyy-MM-dd")) + QStringLiteral(" 00:00:00")}) ||
        !db.execNQ(QString::fromLatin1(kBorrarLineas), destino) || !tx.commit())
        return false;

    ctx.op().inform(
        QStringLiteral("Infromación eliminada correctamente"),
        QStringLiteral("La información de facturación fue eliminada correctamente de Vendrix. "
                       "Recuerde que si tiene configurado un controlador fiscal, los datos de dicho "
                       "controlador no se ven afectados por este procedimiento."));
    return true;
}

} // namespace vendrix

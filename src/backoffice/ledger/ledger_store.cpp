#include "backoffice/ledger/ledger_store.h"

#include "core/context.h"
#include "core/database.h"
#include "core/numeric.h"

#include <cmath>

namespace vendrix {

namespace {

const QString kInternal = QStringLiteral("Internal");

// The entry and exit lines of a storage operation. `dentro` is the name
// inside the quotes: the edits log the name of the matching addition, as
// they always did.
class Registro {
public:
    Registro(Context &ctx, const char *nombre, const char *dentro = nullptr)
        : ctx_(ctx), nombre_(QLatin1String(nombre)), dentro_(QLatin1String(dentro ? dentro : nombre))
    {
        ctx_.escribir_log(nombre_ + QStringLiteral(" - inicia la funcion '") + dentro_ + QStringLiteral("'."),
                          QStringLiteral("I"));
    }
    void terminar(bool ok)
    {
        ctx_.escribir_log(nombre_ + QStringLiteral(" - termino la funcion '") + dentro_ +
                              (ok ? QStringLiteral("' correctamente.") : QStringLiteral("' con errores.")),
                          QStringLiteral("I"));
    }

private:
    Context &ctx_;
    QString nombre_, dentro_;
};

// A date for a column that may hold NULL.
QVariant fecha_o_nulo(const QDate &fecha)
{
    return fecha.isValid() ? QVariant(fecha_guardada(fecha)) : QVariant();
}

// The stored text of an amount; never "-0".
QString importe(double value)
{
    return texto_de_real(value == 0.0 ? 0.0 : value);
}

// The first field of a query's first row ("" with no row, or NULL);
// nothing when the query failed, so that a change doesn't go on as if the
// row weren't there.
std::optional<QString> leer(Database &db, const QString &sql, const SqlParams &params)
{
    const std::unique_ptr<Cursor> row = db.execQ(sql, kInternal, params);
    if (!row)
        return std::nullopt;
    return row->eof() ? QString() : row->texto(0);
}

// The payment's row and the debt's next due date; the caller's transaction
// (or this one's) keeps them together.
QString escribir_pago(Context &ctx, const DatosPago &p)
{
    Database &db = ctx.db();
    Transaction tx(db, kInternal);
    const QString due =
        fecha_guardada(p.proximo_vencimiento.isValid() ? p.proximo_vencimiento : ctx.reloj().now().date());
    const bool written =
        tx.activa() &&
        db.execNQ(
            QStringLiteral("INSERT INTO Vendrix_Pagos (ID_Factura_pagos, Fecha, Proveedor, Medio_de_pago, "
                           "Destino_de_pago, Pagado, Notas, Total_Pago, Tipo, Proximo_Vencimiento) VALUES "
                           "(?, ?, ?, ?, ?, 'Si', ?, ?, 'PAGO', ?)"),
            kInternal,
            {p.id_deuda, fecha_guardada(p.fecha), p.proveedor, p.medio, p.destino, p.notas,
             importe(-1.0 * p.monto), due});
    if (!written)
        return ctx.db().ultimo_error(kInternal);
    if (!db.execNQ(QStringLiteral("UPDATE Vendrix_Pagos SET Proximo_Vencimiento = ? WHERE ID = ?"), kInternal,
                   {due, p.id_deuda}))
        return ctx.db().ultimo_error(kInternal);
    ctx.escribir_log(
        QStringLiteral("agregar_pago - se actualizaron las fechas de proximo vencimiento para el "
                       "GASTO o FACTURA  ID =") +
            QString::number(p.id_deuda) + QLatin1Char('.'),
        QStringLiteral("I"));
    return tx.commit() ? QString() : ctx.db().ultimo_error(kInternal);
}

// The whole of a debt paid at once with a method, on the debt's date.
DatosPago pago_total(qint64 id, const QDate &fecha, const QString &destino, const QString &proveedor,
                     const QString &medio, const QString &notas, double total, const QDate &vencimiento)
{
    return {id, fecha, destino, proveedor, medio, notas, total, vencimiento};
}

// Inserts a debt's row and, when it is paid at once, its payment: the new
// ID, 0 on failure with nothing written.
qint64 escribir_deuda(Context &ctx, const QString &sql, const SqlParams &params,
                      const std::optional<DatosPago> &pago)
{
    Database &db = ctx.db();
    Transaction tx(db, kInternal);
    if (!tx.activa() || !db.execNQ(sql, kInternal, params))
        return 0;
    const qint64 id = db.ultimo_id(kInternal);
    if (pago) {
        DatosPago full = *pago;
        full.id_deuda = id;
        if (!escribir_pago(ctx, full).isEmpty())
            return 0;
    }
    return tx.commit() ? id : 0;
}

} // namespace

double total_factura(const DatosFactura &f)
{
    return f.neto + f.iva + f.otros_impuestos - f.descuentos;
}

QString agregar_pago(Context &ctx, const DatosPago &pago)
{
    Registro registro(ctx, "agregar_pago");
    const QString error = escribir_pago(ctx, pago);
    registro.terminar(error.isEmpty());
    return error;
}

QString agregar_gasto(Context &ctx, const DatosGasto &g, const std::optional<QString> &pagado_con)
{
    Registro registro(ctx, "agregar_gasto");
    std::optional<DatosPago> pago;
    if (pagado_con)
        pago = pago_total(0, g.fecha, g.destino, g.proveedor, *pagado_con, g.notas, g.total,
                          g.proximo_vencimiento);
    const qint64 id = escribir_deuda(
        ctx,
        QStringLiteral(
            "INSERT INTO Vendrix_Pagos (Fecha, Destino_de_pago, Proveedor, Medio_de_pago, Notas, "
            "Total_Pago, Proximo_Vencimiento, Pagado, Tipo) VALUES (?, ?, ?, ?, ?, ?, ?, ?, 'GASTO')"),
        {fecha_guardada(g.fecha), g.destino, g.proveedor, g.medio, g.notas, importe(g.total),
         fecha_o_nulo(g.proximo_vencimiento), g.pagado},
        pago);
    registro.terminar(id > 0);
    return QString::number(id);
}

QString agregar_factura(Context &ctx, const DatosFactura &f, const std::optional<QString> &pagado_con)
{
    Registro registro(ctx, "agregar_factura");
    const double total = total_factura(f);
    std::optional<DatosPago> pago;
    if (pagado_con)
        pago = pago_total(0, f.fecha, f.destino, f.proveedor, *pagado_con, f.notas, total,
                          f.proximo_vencimiento);
    const qint64 id = escribir_deuda(
        ctx,
        QStringLiteral(
            "INSERT INTO Vendrix_Pagos (Fecha, Proveedor, Notas, Factura_neto, Factura_iva, "
            "Factura_otrosImpuestos, Factura_Descuentos, Total_Pago, factura_letra, Factura_sucursal, "
            "factura_numero, Destino_de_pago, Medio_de_pago, Proximo_Vencimiento, Pagado, Tipo) "
            "VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, 'No', 'FACTURA')"),
        {fecha_guardada(f.fecha), f.proveedor, f.notas, f.neto, f.iva, f.otros_impuestos, f.descuentos,
         importe(total), f.letra, f.sucursal, f.numero, f.destino, f.medio,
         fecha_o_nulo(f.proximo_vencimiento)},
        pago);
    registro.terminar(id > 0);
    return QString::number(id);
}

QString modificar_gasto(Context &ctx, qint64 id, const DatosGasto &g)
{
    Registro registro(ctx, "modificar_gasto", "agregar_gasto");
    const bool ok = ctx.db().execNQ(
        QStringLiteral(
            "UPDATE Vendrix_Pagos SET Fecha = ?, Medio_de_pago = ?, Proveedor = ?, Destino_de_pago = ?, "
            "Notas = ?, Total_Pago = ?, Proximo_Vencimiento = ? WHERE ID = ?"),
        kInternal,
        {fecha_guardada(g.fecha), g.medio, g.proveedor, g.destino, g.notas, importe(g.total),
         fecha_o_nulo(g.proximo_vencimiento), id});
    registro.terminar(ok);
    return ok ? QString() : QStringLiteral("ERROR");
}

QString modificar_factura(Context &ctx, qint64 id, const DatosFactura &f)
{
    Registro registro(ctx, "modificar_factura", "agregar_factura");
    const bool ok = ctx.db().execNQ(
        QStringLiteral("UPDATE Vendrix_Pagos SET Fecha = ?, Proveedor = ?, Notas = ?, Factura_neto = ?, "
                       "Factura_iva = ?, Factura_otrosImpuestos = ?, Factura_Descuentos = ?, Total_Pago = ?, "
                       "factura_letra = ?, Factura_sucursal = ?, factura_numero = ?, Destino_de_pago = ?, "
                       "Medio_de_pago = ?, Proximo_Vencimiento = ? WHERE ID = ?"),
        kInternal,
        {fecha_guardada(f.fecha), f.proveedor, f.notas, f.neto, f.iva, f.otros_impuestos, f.descuentos,
         importe(total_factura(f)), f.letra, f.sucursal, f.numero, f.destino, f.medio,
         fecha_o_nulo(f.proximo_vencimiento), id});
    registro.terminar(ok);
    return ok ? QString() : QStringLiteral("ERROR");
}

QString agregar_transferencia(Context &ctx, const QDate &fecha, const QString &origen, const QString &destino,
                              double total, const QString &notas)
{
    Registro registro(ctx, "agregar_transferencia");
    Database &db = ctx.db();
    const QString insert =
        QStringLiteral("INSERT INTO Vendrix_Pagos (Fecha, Pagado, Notas, Total_Pago, Tipo, Medio_de_pago, "
                       "Medio_de_pago_origen, "
                       "ID_Factura_pagos) VALUES (?, 'Si', ?, ?, 'TRANSFERENCIA', ?, ?, ?)");
    const QString day = fecha_guardada(fecha);
    qint64 second = 0;
    {
        Transaction tx(db, kInternal);
        // Each row points at the other: the first learns the second's ID last.
        bool ok =
            tx.activa() && db.execNQ(insert, kInternal, {day, notas, importe(total), origen, destino, {}});
        const qint64 first = ok ? db.ultimo_id(kInternal) : 0;
        ok = ok && db.execNQ(insert, kInternal, {day, notas, importe(-total), destino, origen, first});
        second = ok ? db.ultimo_id(kInternal) : 0;
        ok = ok && db.execNQ(QStringLiteral("UPDATE Vendrix_Pagos SET ID_Factura_pagos = ? WHERE ID = ?"),
                             kInternal, {second, first});
        // The money leaves the origin and enters the destination.
        ok = ok && agregar_pago(ctx, {first, fecha, {}, {}, origen, notas, total, {}}).isEmpty();
        ok = ok && agregar_pago(ctx, {second, fecha, {}, {}, destino, notas, -total, {}}).isEmpty();
        if (!ok || !tx.commit())
            second = 0;
    }
    registro.terminar(second > 0);
    return QString::number(second);
}

bool eliminar_movimiento(Context &ctx, qint64 id)
{
    Database &db = ctx.db();
    Transaction tx(db, kInternal);
    if (!tx.activa())
        return false;
    const std::optional<QString> kind =
        leer(db, QStringLiteral("SELECT TIPO FROM Vendrix_Pagos WHERE ID = ?"), {id});
    if (!kind)
        return false;
    std::optional<QString> mirror = QString();
    if (*kind == QLatin1String(kTipoTransferencia))
        mirror = leer(db, QStringLiteral("SELECT ID_Factura_pagos FROM Vendrix_Pagos WHERE ID = ?"), {id});
    if (!mirror ||
        !db.execNQ(QStringLiteral("DELETE FROM Vendrix_Pagos WHERE ID = ? OR ID_Factura_pagos = ?"),
                   kInternal, {id, id}))
        return false;
    // The mirror's own payment is left where it is: the balances of the
    // shops' methods have always counted it.
    if (!mirror->isEmpty() && !db.execNQ(QStringLiteral("DELETE FROM Vendrix_Pagos WHERE ID = ?"), kInternal,
                                         {mirror->toLongLong()}))
        return false;
    return tx.commit();
}

bool eliminar_pago_del_historial(Context &ctx, qint64 id_pago, qint64 id_deuda)
{
    Database &db = ctx.db();
    Transaction tx(db, kInternal);
    if (!tx.activa() ||
        !db.execNQ(QStringLiteral("DELETE FROM Vendrix_Pagos WHERE ID = ?"), kInternal, {id_pago}))
        return false;
    // The newest payment left, by the order the payments went in.
    const std::optional<QString> newest =
        leer(db, QStringLiteral("SELECT MAX(ID) FROM Vendrix_Pagos WHERE ID_Factura_pagos = ?"), {id_deuda});
    if (!newest)
        return false;
    if (!newest->isEmpty()) {
        const std::optional<QString> due =
            leer(db, QStringLiteral("SELECT Proximo_Vencimiento FROM Vendrix_Pagos WHERE ID = ?"),
                 {newest->toLongLong()});
        if (!due ||
            (!due->isEmpty() && !db.execNQ(QStringLiteral("UPDATE Vendrix_Pagos SET Proximo_Vencimiento = ? "
                                                          "WHERE ID = ?"),
                                           kInternal, {*due, id_deuda})))
            return false;
    }
    return tx.commit();
}

double pagado_de_deuda(Context &ctx, qint64 id_deuda)
{
    return valor_texto(ctx.db().execQ1(
        QStringLiteral("SELECT SUM(-1 * Total_Pago) FROM Vendrix_Pagos WHERE ID_Factura_pagos = ?"),
        kInternal, {id_deuda}));
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

QDate fecha_de_guardada(const QString &guardada)
{
    return QDate::fromString(guardada.left(10), QStringLiteral("yyyy-MM-dd"));
}

QString fecha_mostrada(const QString &guardada)
{
    const QDate date = fecha_de_guardada(guardada);
    return date.isValid() ? date.toString(QStringLiteral("dd/MM/yyyy")) : guardada;
}

} // namespace vendrix

#pragma once

// The payments ledger's storage: every change to `Vendrix_Pagos`. Each
// operation logs its entry and exit ("<name> - inicia la funcion '<name>'.",
// "... termino la funcion '<name>' correctamente." or "... con errores.")
// and writes in one transaction: on failure nothing of it stays.
//
// A debt ("GASTO", "FACTURA") carries a positive `Total_Pago`, a payment
// ("PAGO") against it a negative one linked by `ID_Factura_pagos`, so what
// is still owed is the debt's total plus its payments. A transfer is two
// "TRANSFERENCIA" rows pointing at each other and a "PAGO" linked to each.
// Dates are stored as yyyy-MM-dd, amounts as text with a point.

#include <QDate>
#include <QString>

#include <optional>

namespace vendrix {

class Context;

inline constexpr const char *kTipoGasto = "GASTO";
inline constexpr const char *kTipoFactura = "FACTURA";
inline constexpr const char *kTipoPago = "PAGO";
inline constexpr const char *kTipoTransferencia = "TRANSFERENCIA";

// A payment against a debt (or a transfer row). `monto` is positive for
// money that leaves: it is stored negated. A null `proximo_vencimiento`
// stands for today; it becomes the debt's next due date.
struct DatosPago {
    qint64 id_deuda = 0;
    QDate fecha;
    QString destino, proveedor, medio, notas;
    double monto = 0;
    QDate proximo_vencimiento;
};

// An expense as the form gives it. A null `proximo_vencimiento` is stored
// as NULL.
struct DatosGasto {
    QDate fecha;
    QString destino, proveedor, medio, notas;
    double total = 0;
    QDate proximo_vencimiento;
    QString pagado = QStringLiteral("No"); // as `Combo_pagada_pago` read; only on adding
};

// A supplier's invoice: its total is neto + iva + otros_impuestos -
// descuentos, with the cents. A null `proximo_vencimiento` is stored as NULL.
struct DatosFactura {
    QDate fecha;
    QString proveedor, notas;
    double neto = 0, iva = 0, otros_impuestos = 0, descuentos = 0;
    QString letra, sucursal, numero, destino, medio;
    QDate proximo_vencimiento;
};

// The total of an invoice's amounts.
double total_factura(const DatosFactura &f);

// "" or the database's error text. Also sets the debt's next due date.
QString agregar_pago(Context &ctx, const DatosPago &pago);

// The new row's ID as text, "0" on failure. With `pagado_con` (a payment
// method) the whole total is paid at once with that method: the debt and
// its "PAGO" go in together.
QString agregar_gasto(Context &ctx, const DatosGasto &gasto, const std::optional<QString> &pagado_con = {});
QString agregar_factura(Context &ctx, const DatosFactura &factura,
                        const std::optional<QString> &pagado_con = {});

// "" on success, "ERROR" on failure. They change the debt's row only: its
// `Tipo` and linked rows stay as they are.
QString modificar_gasto(Context &ctx, qint64 id, const DatosGasto &gasto);
QString modificar_factura(Context &ctx, qint64 id, const DatosFactura &factura);

// A transfer of `total` (above 0) from one payment method to another: the
// second row's ID as text, "0" on failure.
QString agregar_transferencia(Context &ctx, const QDate &fecha, const QString &origen, const QString &destino,
                              double total, const QString &notas);

// Deletes a debt or a transfer row with the rows linked to it; for a
// transfer, its mirror row as well (the "PAGO" linked to the mirror stays,
// as it always did). False on failure, the ledger as it was.
bool eliminar_movimiento(Context &ctx, qint64 id);

// Deletes one payment of a debt's history; the debt's next due date goes
// back to that of its newest remaining payment (kept when none remains).
// False on failure, the ledger as it was.
bool eliminar_pago_del_historial(Context &ctx, qint64 id_pago, qint64 id_deuda);

// What has been paid of a debt so far, positive; 0 with no payments.
double pagado_de_deuda(Context &ctx, qint64 id_deuda);

// The state of a debt, decided at the cent: "No" with nothing paid, "Si"
// when the payments reach the total, else "Parcialmente".
QString estado_de_deuda(double total, double pagado);

// A date of the ledger as stored (yyyy-MM-dd), read back (null when it
// isn't one), and as shown (dd/MM/yyyy).
QString fecha_guardada(const QDate &fecha);
QDate fecha_de_guardada(const QString &guardada);
QString fecha_mostrada(const QString &guardada);

} // namespace vendrix

#include "backoffice/ledger/ledger_tab.h"

#include "backoffice/ledger/ledger_store.h"
#include "core/context.h"
#include "core/numeric.h"
#include "core/text_helpers.h"

namespace vendrix {

namespace {

const QString kInternal = QStringLiteral("Internal");
const QString kAccion = QStringLiteral("A");
const QString kTituloEliminar = QStringLiteral("Eliminar Pago");
const QString kFinDeLinea = QStringLiteral("%0D%0A");

// A cell for the mail's body. The helper keeps "&" as it is, which would
// end the body inside a mailto address: "Pérez & Hijos" must arrive whole.
QString celda_url(const QString &texto)
{
    return codificar_url(texto).replace(QLatin1Char('&'), QLatin1String("%26"));
}

QString linea_url(const QStringList &celdas)
{
    QString linea;
    for (qsizetype i = 0; i < celdas.size(); ++i) {
        if (i > 0)
            linea += QLatin1String("%09");
        linea += celda_url(celdas.at(i));
    }
    return linea + kFinDeLinea;
}

} // namespace

AccionesPagos acciones_por_seleccion(bool hay_fila, const QString &pagada)
{
    if (!hay_fila)
        return {};
    return {true, true, pagada != QLatin1String("Si")};
}

bool seleccionar_fila_pagos(Context &ctx, int fila, const QString &id)
{
    ctx.escribir_log(QStringLiteral("Pagos - se selecciono la fila de la grilla: ") + QString::number(fila),
                     kAccion);
    return es_numerico(id);
}

QString modo_edicion(const QString &movimiento)
{
    if (movimiento == QLatin1String(kTipoFactura))
        return QStringLiteral("MODIFICAR_FACTURA");
    if (movimiento == QLatin1String(kTipoGasto))
        return QStringLiteral("MODIFICAR_GASTO");
    return {};
}

QString pregunta_eliminar(const QString &tipo, const QString &suma)
{
    QString texto;
    if (tipo == QLatin1String(kTipoGasto))
        texto = QStringLiteral("¿Desea eliminar el gasto seleccionado");
    else if (tipo == QLatin1String(kTipoFactura))
        texto = QStringLiteral("¿Desea eliminar la factura seleccionada");
    else
        texto = QStringLiteral("¿Desea eliminar la transferencia seleccionada");
    if (!suma.isEmpty() && suma != QLatin1String("0") && tipo != QLatin1String(kTipoTransferencia))
        texto += QStringLiteral(" y sus pagos asociados por $") + suma;
    return texto + QLatin1Char('?');
}

bool eliminar_pago(Context &ctx, const QString &id)
{
    if (id.isEmpty() || !es_numerico(id)) {
        ctx.op().error(QStringLiteral("Eliminar Pagos"),
                       QStringLiteral("No hay pagos seleccionados en la grilla de Pagos para ser eliminados. "
                                      "Seleccione un registro e intente nuevamente."));
        ctx.escribir_log(
            QStringLiteral("Pagos - se intento eliminar un registro sin seleccionar nada antes."), kAccion);
        return false;
    }
    const QString clave = id.trimmed();
    ctx.escribir_log(QStringLiteral("Pagos - se intenta eliminar el pago con ID = ") + clave, kAccion);
    Database &db = ctx.db();
    const QString tipo =
        db.execQ1(QStringLiteral("SELECT TIPO FROM Vendrix_Pagos WHERE ID = ?"), kInternal, {clave});
    // The sum as stored (negative), at the cent and with the decimal comma.
    const QString suma_bruta = db.execQ1(
        QStringLiteral(
            "SELECT round(SUM(CAST(Total_Pago AS REAL)), 2) FROM Vendrix_Pagos WHERE ID_Factura_pagos = ?"),
        kInternal, {clave});
    const QString suma = suma_bruta.isEmpty() ? QString() : texto_numero(valor_texto(suma_bruta) + 0.0);
    if (!ctx.op().ask(kTituloEliminar, pregunta_eliminar(tipo, suma))) {
        ctx.escribir_log(QStringLiteral("Pagos - El usuario cambio de idea. no se eliminara el pago."),
                         kAccion);
        return false;
    }
    if (tipo == QLatin1String(kTipoTransferencia)) {
        const QString espejo = db.execQ1(
            QStringLiteral("SELECT ID_Factura_pagos FROM Vendrix_Pagos WHERE ID = ?"), kInternal, {clave});
        ctx.escribir_log(QStringLiteral("Pagos - Se eliminarán las transferencias con ID '") + espejo +
                             QStringLiteral("' y con ID = ") + clave +
                             QStringLiteral(" y todos sus pagos asociados."),
                         kAccion);
    }
    if (!eliminar_movimiento(ctx, clave.toLongLong()))
        return false;
    ctx.escribir_log(QStringLiteral("Pagos - Se Elimino '") + tipo + QStringLiteral("' con ID = ") + clave +
                         QStringLiteral(" y todos sus pagos asociados."),
                     kAccion);
    return true;
}

QString texto_mail_pagos(Context &ctx, const std::vector<QStringList> &filas)
{
    QString texto = celda_url(QStringLiteral("Buenos días, ")) + kFinDeLinea + kFinDeLinea;
    texto += linea_url({QStringLiteral("Fecha"), QStringLiteral("Movimiento"), QStringLiteral("Razón Social"),
                        QStringLiteral("Operación"), QStringLiteral("Monto"), QStringLiteral("Adeudato"),
                        QStringLiteral("Pagada"), QStringLiteral("Vencimiento")});
    // The ID stays out of the mail.
    for (const QStringList &fila : filas)
        texto += linea_url(fila.mid(1, 8));
    const QString tienda =
        ctx.db().execQ1(QStringLiteral("SELECT valor as total1 FROM xls_parametros WHERE clave = 'CLIENTE'"),
                        QStringLiteral("external"));
    texto += QStringLiteral("%0D%0AMuchas gracias.%0D%0A%0D%0AAtte,%0D%0A%0D%0A") + celda_url(tienda) +
             QStringLiteral("%0D%0A%0D%0A%20correo%20generado%20con%20Vendrix");
    return texto;
}

QString enviar_pagos_por_mail(Context &ctx, const std::vector<QStringList> &marcadas)
{
    ctx.escribir_log(QStringLiteral("Egresos - Inicio procedimiento de exportar en un mail"), kAccion);
    QString url;
    if (marcadas.empty())
        ctx.op().error(
            QStringLiteral("Error al enviar mail."),
            QStringLiteral("No hay ningún valor seleccionado. Seleccione almenos un elemento antes de "
                           "generar un correo electrónico."));
    else
        url = QStringLiteral("mailto:?subject=Vendrix - Egresos.&body=") + texto_mail_pagos(ctx, marcadas);
    ctx.escribir_log(QStringLiteral("Egresos - Se ejecuto la funcionalidad para mandar mail"), kAccion);
    return url;
}

} // namespace vendrix

// `Command_Agregar` of `FrmPagos`: the checks, then the change the mode and
// the visible frames call for.
#include "backoffice/ledger/ledger_store.h"
#include "backoffice/ledger/payment_form.h"

#include "core/context.h"
#include "core/numeric.h"

#include <optional>

namespace vendrix {

namespace {

const QString kSalvar = QStringLiteral("Salvar Datos");

bool en_blanco(const QString &combo_text)
{
    return combo_text.trimmed().isEmpty();
}

} // namespace

bool PaymentForm::verificar_datos()
{
    const QString incompletos = QStringLiteral("Datos incompletos");
    const QString sin_proveedor = QStringLiteral("Por favor seleccione un proveedor antes de continuar.");
    const QString sin_total = QStringLiteral("El total tiene que ser mayor que cero.");
    const auto visible = [this](const char *frame) { return control(QString::fromLatin1(frame)).visible; };
    const EstadoControl &proveedor_gasto = control(QStringLiteral("ComboBox_Proveedores_gasto"));
    if (visible("Frame_Datos") && proveedor_gasto.habilitado && en_blanco(proveedor_gasto.texto)) {
        refusar(incompletos, sin_proveedor);
        return false;
    }
    if (visible("Frame_datos_factura") && en_blanco(texto(QStringLiteral("ComboBox_Proveedores_factura")))) {
        refusar(incompletos, sin_proveedor);
        return false;
    }
    if (visible("Frame_Datos") && importe(QStringLiteral("Text_Total_Gasto")) <= 0) {
        refusar(incompletos, sin_total);
        return false;
    }
    if (visible("Frame_Pagos") && importe(QStringLiteral("Text_total_pago")) <= 0) {
        refusar(incompletos, sin_total);
        return false;
    }
    if (visible("Frame_datos_factura")) {
        const QString sucursal = texto(QStringLiteral("Text_factura_sucursal_factura"));
        const QString numero = texto(QStringLiteral("Text_numero_factura_Factura"));
        QString falta;
        if (!sucursal.isEmpty() && (numero.isEmpty() || !es_numerico(numero)))
            falta = QStringLiteral("Por favor seleccione un número de factura válido.");
        else if (!numero.isEmpty() && (sucursal.isEmpty() || !es_numerico(sucursal)))
            falta =
                QStringLiteral("Por favor seleccione un punto de venta válido para el número de factura.");
        else if (sucursal.isEmpty() && numero.isEmpty())
            falta = QStringLiteral("Por complete el punto de venta y el número de fa.");
        if (!falta.isEmpty()) {
            refusar(incompletos, falta);
            return false;
        }
    }
    if (visible("Frame_datos_Economicos") && importe(QStringLiteral("Text_total")) <= 0) {
        refusar(kSalvar, sin_total);
        return false;
    }
    return true;
}

QDate PaymentForm::proximo_vencimiento() const
{
    const EstadoControl &fecha = control(QStringLiteral("DTPicker_proximo_vencimiento"));
    return fecha.habilitado && fecha.fecha.isValid() ? fecha.fecha : ctx_.reloj().now().date();
}

bool PaymentForm::agregar()
{
    if (!verificar_datos())
        return false;
    const QDate vencimiento = proximo_vencimiento();
    ctx_.escribir_log(
        QStringLiteral("Command_Agregar - Determino la accion a efectuar (AGREGAR o MODIFICAR)"),
        QStringLiteral("I"));

    DatosGasto gasto;
    gasto.fecha = control(QStringLiteral("DTPicker_fecha_gasto")).fecha;
    gasto.destino = texto(QStringLiteral("Combo_destinosdepago_gasto"));
    gasto.proveedor = texto(QStringLiteral("ComboBox_Proveedores_gasto"));
    gasto.notas = texto(QStringLiteral("Text_Notas"));
    gasto.total = importe(QStringLiteral("Text_Total_Gasto"));
    gasto.proximo_vencimiento = vencimiento;
    gasto.pagado = texto(QStringLiteral("Combo_pagada_pago"));

    const bool factura_pagada = texto(QStringLiteral("Combo_pagada_factura")) == QLatin1String("Si");
    DatosFactura factura;
    factura.fecha = control(QStringLiteral("DTPicker_fecha_factura")).fecha;
    factura.proveedor = texto(QStringLiteral("ComboBox_Proveedores_factura"));
    factura.notas = gasto.notas;
    factura.neto = importe(QStringLiteral("Text_neto"));
    factura.iva = importe(QStringLiteral("Text_IVA"));
    factura.otros_impuestos = importe(QStringLiteral("Text_OtrosImpuestos"));
    factura.descuentos = importe(QStringLiteral("Text_descuentos"));
    factura.letra = texto(QStringLiteral("Combo_letra_factura_factura"));
    factura.sucursal = texto(QStringLiteral("Text_factura_sucursal_factura"));
    factura.numero = texto(QStringLiteral("Text_numero_factura_Factura"));
    factura.destino = texto(QStringLiteral("Combo_destinosdepago_factura"));
    if (control(QStringLiteral("Combo_mediosdePago_factura")).habilitado)
        factura.medio = texto(QStringLiteral("Combo_mediosdePago_factura"));
    if (!factura_pagada)
        factura.proximo_vencimiento = control(QStringLiteral("DTPicker_factura_prox_vto")).fecha;

    const QString &modo = apertura_.tipo_form;
    const auto fallo = [this](const QString &que, const QString &resultado) {
        ctx_.op().error(kSalvar, QStringLiteral("Se produjo un error al agregar ") + que +
                                     QStringLiteral(": ") + resultado);
    };
    const auto hecho = [this](const QString &que) {
        ctx_.op().inform(kSalvar, QStringLiteral("Se agrego ") + que + QStringLiteral(" correctamente"));
    };

    if (modo.startsWith(QLatin1String("MODIFICAR"))) {
        QString resultado, que;
        if (modo == QLatin1String(kModificarGasto)) {
            // The blank the method combo shows in this mode is no method.
            gasto.medio = texto(QStringLiteral("Combo_mediosdePago_Gasto")).trimmed();
            que = QStringLiteral("un Gasto");
            resultado = modificar_gasto(ctx_, apertura_.id, gasto);
        } else if (modo == QLatin1String(kModificarFactura)) {
            que = QStringLiteral("una Factura");
            resultado = modificar_factura(ctx_, apertura_.id, factura);
        } else {
            ctx_.escribir_log(
                QStringLiteral("Command_Agregar - SE LLAMO AL COMANDO CON UNA ACCION DESCONOCIDA"),
                QStringLiteral("E"));
            ctx_.op().error(kSalvar,
                            QStringLiteral("Se produjo un error. consulte el log para mas información."));
            return true;
        }
        if (resultado != QLatin1String("ERROR"))
            ctx_.op().inform(kSalvar, QStringLiteral("Se modificaron los datos correctamente"));
        else
            fallo(que, resultado);
        return true;
    }

    const bool frame_pagos = control(QStringLiteral("Frame_Pagos")).visible;
    if (control(QStringLiteral("ComboBox_Proveedores_gasto")).visible &&
        control(QStringLiteral("Frame_Datos")).visible && !frame_pagos) {
        // An expense entered as paid goes in with its payment of the whole.
        std::optional<QString> pagado_con;
        if (gasto.pagado == QLatin1String("Si"))
            pagado_con = texto(QStringLiteral("Combo_mediosdePago_Gasto"));
        const QString id = agregar_gasto(ctx_, gasto, pagado_con);
        if (id != QLatin1String("0"))
            hecho(QStringLiteral("un Gasto"));
        else
            fallo(QStringLiteral("un Gasto"), id);
    } else if (modo == QLatin1String(kAgregarPago)) {
        const bool de_factura = control(QStringLiteral("Frame_datos_factura")).visible;
        DatosPago pago;
        pago.id_deuda = apertura_.id;
        pago.fecha = control(QStringLiteral("DTPicker_fecha_pago")).fecha;
        pago.destino = de_factura ? factura.destino : gasto.destino;
        pago.proveedor = de_factura ? factura.proveedor : gasto.proveedor;
        pago.medio = texto(de_factura ? QStringLiteral("Combo_mediosdePago_factura")
                                      : QStringLiteral("Combo_mediosdePago_Pago"));
        pago.notas = gasto.notas;
        pago.monto = importe(QStringLiteral("Text_total_pago"));
        pago.proximo_vencimiento = vencimiento;
        const QString resultado = agregar_pago(ctx_, pago);
        if (resultado.isEmpty())
            hecho(QStringLiteral("un Pago"));
        else
            fallo(QStringLiteral("un Pago"), resultado);
    } else if (modo == QLatin1String(kAgregarFactura)) {
        std::optional<QString> pagado_con;
        if (factura_pagada)
            pagado_con = texto(QStringLiteral("Combo_mediosdePago_factura"));
        const QString id = agregar_factura(ctx_, factura, pagado_con);
        if (id == QLatin1String("0"))
            ctx_.op().error(QStringLiteral("ERROR"),
                            QStringLiteral("Atención, se produjeron errores al intentar "
                                           "agregar la factura. consulte el log"));
        else
            hecho(QStringLiteral("una Factura"));
    } else {
        ctx_.op().warn(kSalvar,
                       QStringLiteral("Verifique los datos ingresados. Esta combinación no corresponde a "
                                      "ningun dato a agregar"));
        ctx_.escribir_log(QStringLiteral("Command_Agregar - no se pudo determina la accion a realizar"),
                          QStringLiteral("E"));
    }
    return true;
}

} // namespace vendrix

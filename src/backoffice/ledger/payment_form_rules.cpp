// The checks and effects of `FrmPagos`' fields as the operator leaves or
// changes them.
#include "backoffice/ledger/payment_form.h"

#include "core/context.h"
#include "core/numeric.h"
#include "core/text_helpers.h"

#include <cmath>

namespace vendrix {

namespace {

const QString kErrorIngresados = QStringLiteral("Error en los datos ingresados");

// Amounts are compared at the cent: sums of doubles miss by a hair.
qint64 centavos(double valor)
{
    return std::llround(valor * 100.0);
}

QString no_numerico(const QString &campo)
{
    return QStringLiteral("El valor del campo '") + campo +
           QStringLiteral("' no es numérico, por favor intente nuevamente.");
}

} // namespace

void PaymentForm::refusar(const QString &titulo, const QString &texto)
{
    ctx_.op().warn(titulo, texto);
}

bool PaymentForm::salir_total_gasto()
{
    if (!es_numerico(texto(QStringLiteral("Text_Total_Gasto")))) {
        refusar(kErrorIngresados, no_numerico(QStringLiteral("Total Pago")));
        return false;
    }
    // What was paid stays paid: an expense can't be lowered below it. An
    // invoice's total isn't checked so.
    if (apertura_.tipo_form == QLatin1String(kModificarGasto) &&
        centavos(importe(QStringLiteral("Text_Total_Gasto"))) <
            centavos(importe(QStringLiteral("Text_pagos_anteriores")))) {
        refusar(kErrorIngresados,
                QStringLiteral(
                    "El valor del campo 'Total Pago' es inferior a los pagos ya realizados. Si desea "
                    "modificar el total del pago a este valor, primero elimine los pagos existentes."));
        return false;
    }
    return true;
}

bool PaymentForm::salir_total_pago()
{
    if (!es_numerico(texto(QStringLiteral("Text_total_pago")))) {
        refusar(kErrorIngresados, no_numerico(QStringLiteral("Total Pago")));
        return false;
    }
    const qint64 pago = centavos(importe(QStringLiteral("Text_total_pago")));
    const qint64 adeudado = centavos(deuda());
    if (pago > adeudado) {
        refusar(kErrorIngresados, QStringLiteral("El total del pago supera al importe adeudado ($ ") +
                                      texto_numero(static_cast<double>(adeudado) / 100.0) +
                                      QStringLiteral("), por favor intente nuevamente."));
        return false;
    }
    // A payment of the whole debt leaves no next due date.
    const bool completo = pago == adeudado;
    EstadoControl &fecha = control(QStringLiteral("DTPicker_proximo_vencimiento"));
    fecha.habilitado = !completo;
    fecha.fecha = completo ? QDate() : ctx_.reloj().now().date();
    control(QStringLiteral("Label_proximo_vencimiento")).habilitado = !completo;
    return true;
}

bool PaymentForm::salir_importe_factura(const QString &nombre)
{
    static const std::map<QString, QString> kCampos{
        {QStringLiteral("Text_neto"), QStringLiteral("Importe Neto")},
        {QStringLiteral("Text_IVA"), QStringLiteral("IVA")},
        {QStringLiteral("Text_OtrosImpuestos"), QStringLiteral("Otros Impuestos")},
        {QStringLiteral("Text_descuentos"), QStringLiteral("Otros Descuentos")}};
    const bool numerico = es_numerico(texto(nombre));
    if (!numerico)
        refusar(kErrorIngresados, no_numerico(kCampos.at(nombre)));
    recalcular_total_factura();
    return numerico;
}

void PaymentForm::recalcular_total_factura()
{
    const double total = importe(QStringLiteral("Text_neto")) + importe(QStringLiteral("Text_IVA")) +
                         importe(QStringLiteral("Text_OtrosImpuestos")) -
                         importe(QStringLiteral("Text_descuentos"));
    control(QStringLiteral("Text_total")).texto = texto_numero(total);
}

void PaymentForm::habilitar_impuestos(bool habilitar)
{
    for (const char *nombre : {"Text_IVA", "Text_OtrosImpuestos", "Label_IVA", "Label_OtrosImpuestos"})
        control(QString::fromLatin1(nombre)).habilitado = habilitar;
}

bool PaymentForm::elegir_letra(const QString &letra)
{
    control(QStringLiteral("Combo_letra_factura_factura")).texto = letra;
    // Other letters carry their taxes inside the net.
    const bool discrimina = letra == QLatin1String("A");
    if (!discrimina) {
        control(QStringLiteral("Text_IVA")).texto = QStringLiteral("0");
        control(QStringLiteral("Text_OtrosImpuestos")).texto = QStringLiteral("0");
    }
    habilitar_impuestos(discrimina);
    recalcular_total_factura();
    return verificar_factura_duplicada();
}

bool PaymentForm::salir_sucursal()
{
    const QString sucursal = texto(QStringLiteral("Text_factura_sucursal_factura"));
    if (!sucursal.isEmpty()) {
        if (!es_numerico(sucursal)) {
            refusar(QStringLiteral("Error en los datos"),
                    QStringLiteral("El punto de venta de la factura tiene que ser un valor numérico"));
            return false;
        }
        escribir(QStringLiteral("Text_factura_sucursal_factura"), rellenar_ceros(sucursal, 5));
    }
    return verificar_factura_duplicada();
}

bool PaymentForm::salir_numero()
{
    const QString numero = texto(QStringLiteral("Text_numero_factura_Factura"));
    if (!numero.isEmpty()) {
        if (!es_numerico(numero)) {
            refusar(QStringLiteral("Error en los datos"),
                    QStringLiteral("El número de la factura tiene que ser un valor numérico"));
            return false;
        }
        escribir(QStringLiteral("Text_numero_factura_Factura"), rellenar_ceros(numero, 8));
    }
    return verificar_factura_duplicada();
}

bool PaymentForm::elegir_proveedor_factura(const QString &proveedor)
{
    control(QStringLiteral("ComboBox_Proveedores_factura")).texto = proveedor;
    return verificar_factura_duplicada();
}

bool PaymentForm::verificar_factura_duplicada()
{
    const QString proveedor = texto(QStringLiteral("ComboBox_Proveedores_factura"));
    const QString letra = texto(QStringLiteral("Combo_letra_factura_factura"));
    const QString sucursal = texto(QStringLiteral("Text_factura_sucursal_factura"));
    const QString numero = texto(QStringLiteral("Text_numero_factura_Factura"));
    if (sucursal.isEmpty() || numero.isEmpty())
        return true;
    // The invoice being edited is not a duplicate of itself.
    const QString cuenta = ctx_.db().execQ1(
        QStringLiteral("SELECT COUNT(*) FROM Vendrix_Pagos WHERE Proveedor = ? AND Factura_Letra = ? "
                       "AND Factura_sucursal = ? AND factura_numero = ? AND ID <> ?"),
        QStringLiteral("Internal"), {proveedor, letra, sucursal, numero, apertura_.id});
    if (cuenta.toLongLong() <= 0)
        return true;
    refusar(QStringLiteral("Error en los Datos"), QStringLiteral("Existe ya una factura con número '") +
                                                      letra + QLatin1Char('-') + sucursal + QLatin1Char('-') +
                                                      numero + QStringLiteral("' asociada al proveedor '") +
                                                      proveedor + QStringLiteral("'."));
    return false;
}

void PaymentForm::elegir_destino_gasto(const QString &destino)
{
    control(QStringLiteral("Combo_destinosdepago_gasto")).texto = destino;
    const QString requiere = ctx_.db().execQ1(
        QStringLiteral("SELECT Requiere_proveedor FROM Vendrix_DestinosDePago WHERE Destino_de_Pago = ?"),
        QStringLiteral("Internal"), {destino});
    const bool con_proveedor = requiere == QLatin1String("Si");
    for (const char *nombre : {"ComboBox_Proveedores_gasto", "ComboBox_Proveedores_factura"}) {
        EstadoControl &combo = control(QString::fromLatin1(nombre));
        combo.habilitado = con_proveedor;
        if (!con_proveedor)
            seleccionar(QString::fromLatin1(nombre), QStringLiteral(" "));
    }
    ctx_.escribir_log(QStringLiteral("El destino de pago '") + destino +
                          (con_proveedor
                               ? QStringLiteral("' requiere proveedor.")
                               : QStringLiteral("' no requiere proveedor y por lo tanto se deshabilitara "
                                                "el combo.")),
                      QStringLiteral("I"));
}

void PaymentForm::elegir_proveedor_gasto(const QString &proveedor)
{
    control(QStringLiteral("ComboBox_Proveedores_gasto")).texto = proveedor;
    seleccionar(QStringLiteral("ComboBox_Proveedores_factura"), proveedor);
}

void PaymentForm::elegir_pagada_pago(const QString &pagada)
{
    control(QStringLiteral("Combo_pagada_pago")).texto = pagada;
    const bool pagado = pagada == QLatin1String("Si");
    control(QStringLiteral("Label_mediosdePago_Gasto")).habilitado = pagado;
    control(QStringLiteral("Combo_mediosdePago_Gasto")).habilitado = pagado;
}

void PaymentForm::elegir_pagada_factura(const QString &pagada)
{
    control(QStringLiteral("Combo_pagada_factura")).texto = pagada;
    const bool pagada_ya = pagada == QLatin1String("Si");
    // One label serves both: the method when paid, else the due date.
    control(QStringLiteral("Label_factura_prox_vto")).texto =
        pagada_ya ? QStringLiteral("Medio de Pago") : QStringLiteral("Próximo Vencimiento");
    EstadoControl &vencimiento = control(QStringLiteral("DTPicker_factura_prox_vto"));
    vencimiento.habilitado = !pagada_ya;
    vencimiento.fecha = pagada_ya ? QDate() : ctx_.reloj().now().date();
    control(QStringLiteral("Combo_mediosdePago_factura")).habilitado = pagada_ya;
}

} // namespace vendrix

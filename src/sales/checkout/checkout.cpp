#include "sales/checkout/checkout.h"

#include "core/context.h"
#include "core/numeric.h"
#include "core/settings_read.h"
#include "core/validators.h"
#include "fiscal/front/fiscal_models.h"
#include "sales/carritos.h"
#include "sales/checkout/payment_methods.h"
#include "sales/operar_carrito.h"

#include <cmath>

namespace vendrix {

namespace {

const QString kCuentaCorriente = QStringLiteral("Cuenta Corriente");
const QString kEfectivo = QStringLiteral("Efectivo");
const QString kTituloErrorDatos = QStringLiteral("Error en los datos");

} // namespace

QString nueva_referencia(const Clock &clock)
{
    return clock.now().toString(QStringLiteral("yyMMdd-HHmmss"));
}

QStringList condiciones_iva()
{
    return {kConsumidorFinal,
            QStringLiteral("I - IVA RESPONSABLE INSCRIPTO"),
            QStringLiteral("E - IVA EXENTO"),
            QStringLiteral("M - RESPONSABLE MONOTRIBUTO"),
            QStringLiteral("S - SUJETO NO CATEGORIZADO"),
            QStringLiteral("A - IVA NO ALCANZADO")};
}

QStringList tipos_documento()
{
    return {QStringLiteral("CUIT"), QStringLiteral("DNI")};
}

double total_carrito(const Carrito &carrito)
{
    // Never exactly 0, so that no caller ever divides by zero.
    double total = 1e-11;
    for (int fila = 0; fila < carrito.filas(); ++fila)
        total += valor_texto(carrito.celda(fila, kColImporte));
    return total;
}

bool carrito_para_facturar(Context &ctx, const Carrito &carrito)
{
    if (!carrito.vacio() && carrito.total() != 0)
        return true;
    ctx.op().warn(
        QStringLiteral("Carrito de Compras Vacío"),
        QStringLiteral("El carrito de compras está vacío o el total es cero. Agregue un artículo antes de "
                       "intentar facturarlo."));
    return false;
}

Checkout::Checkout(Context &ctx, Carritos &carritos, int carrito_origen)
    : ctx_(ctx), carritos_(carritos),
      carrito_origen_(Carritos::es_numero(carrito_origen) ? carrito_origen : 1)
{
    cargar_formulario();
}

const Carrito &Checkout::carrito() const
{
    return carritos_.carrito(carrito_origen_);
}

void Checkout::log(const QString &message, const QString &level) const
{
    // The log closes every line with its own full stop.
    ctx_.escribir_log(message.endsWith(QLatin1Char('.')) ? message.chopped(1) : message, level);
}

void Checkout::cargar_formulario()
{
    const QStringList ajustes = leer_parametros(
        ctx_.config(), {QStringLiteral("impresora_fiscal"), QStringLiteral("IF_Modelo"),
                        QStringLiteral("IF_DetalleFactura"), QStringLiteral("IF_NOTA_DE_VENTA")});
    impresora_fiscal_ = valor_texto(ajustes.at(0)) != 0;
    electronica_ = ajustes.at(1) == QLatin1String(kModeloElectronica);
    nota_de_venta_ = ajustes.at(3).toUpper() == QLatin1String("SI");

    log(QStringLiteral("Se abre el formulario de Facturación."));
    log(QStringLiteral("Cargo los combobox del formulario."));
    vista_.formas_de_pago = formas_de_cobro(ctx_);
    log(QStringLiteral("Pongo los controles visibles y locked."));
    vista_.Command_recuperar_datos_CUIT_visible = false;
    cambiar_iva(vista_.Combo_iva);
    log(QStringLiteral("Se preparo el layout del formulario por default."));

    log(QStringLiteral("traigo los datos del carrito de compras."));
    const Carrito &c = carrito();
    double articulos = 0;
    for (int fila = 0; fila < c.filas(); ++fila)
        articulos += valor_texto(c.celda(fila, kColCantidad));
    vista_.Label_articulos = texto_numero(articulos);
    vista_.Label_total = texto_numero(redondear(total_carrito(c), 2));

    if (c.marca_guardado().isEmpty()) {
        vista_.Text_referenciaExterna = nueva_referencia(ctx_.reloj());
    } else {
        vista_.Text_referenciaExterna = QString(c.marca_guardado()).remove(kPrefijoCarritoGuardado);
        log(QStringLiteral("Se intenta recuperar un carrito con ID = ") + vista_.Text_referenciaExterna);
        if (vista_.Text_referenciaExterna.isEmpty())
            log(QStringLiteral("Se intento recuperar un carrito pero el ID carrito esta vacio."),
                QStringLiteral("E"));
        else
            cargar_datos_carrito_guardado(vista_.Text_referenciaExterna);
    }
    log(QStringLiteral("Se selecciono el carrito de donde sacar los datos a factuar."));
    log(QStringLiteral("desactivo el boton si no tiene impresora configurada"));
    log(QStringLiteral("Se rearma el formulario en base al parametro impresora_fiscal y IF_modelo."));
    preparar_acciones();
    if (impresora_fiscal_)
        vista_.Check_resumido =
            ajustes.at(2) == QLatin1String("Detallada") || carrito_con_ivas_distintos(carrito());

    log(QStringLiteral("Se configura la grilla de los clientes."));
    log(QStringLiteral("Se agrega el check de nota de venta."));
    vista_.Check_NDV_visible = vista_.Command_imprimir == kGuardarVenta;
    vista_.Check_NDV = vista_.Check_NDV_visible && nota_de_venta_;

    log(QStringLiteral("Se controlan los limites de IF_MAX_EFECTIVO y TARJETA."));
    max_efectivo_ = leer_limite("IF_max_efectivo", "E");
    max_tarjeta_ = leer_limite("IF_max_tarjeta", "I");
}

void Checkout::preparar_acciones()
{
    if (impresora_fiscal_) {
        vista_.Command_imprimir = electronica_ ? kFacturaElectronica : kImprimirTicket;
        // The taxpayer lookup asks AFIP, so it comes with electronic invoicing.
        vista_.Command_recuperar_datos_CUIT_visible = electronica_;
        vista_.Check_Imprimir_visible = true;
        vista_.Check_Imprimir = true;
        vista_.Check_resumido_visible = true;
    } else {
        vista_.Command_imprimir = kGuardarVenta;
        vista_.Command_nota_credito_visible = false;
        vista_.Check_resumido_visible = false;
        vista_.Check_resumido = false;
        vista_.Check_Imprimir_visible = false;
        vista_.Check_Imprimir = false;
    }
}

qint64 Checkout::leer_limite(const char *clave, const char *nivel_log_cero)
{
    const QString nombre = QString::fromLatin1(clave);
    const QString texto = ctx_.leer_parametro(nombre);
    qint64 limite = 0;
    if (es_numerico(texto))
        limite = std::llround(valor_texto(texto));
    else
        log(QStringLiteral("El valor del parametro ") + nombre + QStringLiteral(" (") + texto +
            QStringLiteral(") no es numerico, se pone 0 de default."));
    if (limite == 0) {
        ctx_.op().warn(
            QStringLiteral("Attención"),
            QStringLiteral("El limite de facturación para el cual se necesita cargar los datos del "
                           "cliente no resulta presente. Por favor modifique el valor desde el panel de "
                           "configuración."));
        log(QStringLiteral("El valor del parametro ") + nombre +
                QStringLiteral(" es 0, se tendria que modificar el parametro por el utente."),
            QString::fromLatin1(nivel_log_cero));
    }
    return limite;
}

QString Checkout::forma_de_pago_sin_recargo() const
{
    return vista_.Check_CC ? forma_sin_recargo(vista_.Combo_FdP) : QString();
}

QString Checkout::forma_de_pago_efectiva() const
{
    return vista_.Check_CC ? kCuentaCorriente : forma_sin_recargo(vista_.Combo_FdP);
}

QString Checkout::recargo_forma_de_pago() const
{
    return recargo_de_forma(vista_.Combo_FdP);
}

double Checkout::descuento_habitual()
{
    if (vista_.Text_dh.isEmpty())
        return 0;
    if (!es_numerico(vista_.Text_dh)) {
        vista_.Text_dh = QStringLiteral("0");
        return 0;
    }
    return valor_texto(vista_.Text_dh);
}

void Checkout::recalcular_total(double descuento, double recargo)
{
    log(QStringLiteral("Recalculo el carrito '") + QString::number(carrito_origen_) +
        QStringLiteral("' con un descuento habitual de '") + texto_numero(descuento) +
        QStringLiteral("' y un recargo de '") + texto_numero(recargo) + QStringLiteral("'."));
    vista_.Label_total =
        texto_numero(redondear(total_carrito(carrito()) * (1 + recargo / 100) * (1 - descuento / 100), 2));
}

double Checkout::total_a_pagar() const
{
    return valor_texto(vista_.Label_total);
}

void Checkout::set_texto(QString VistaCheckout::*campo, const QString &texto)
{
    vista_.*campo = texto;
}

void Checkout::cambiar_forma_de_pago(const QString &texto)
{
    vista_.Combo_FdP = texto;
    log(QStringLiteral("Se modifica la forma de pago a '") + texto + QStringLiteral("'."));
    recalcular_por_cambio();
}

void Checkout::salir_descuento()
{
    log(QStringLiteral("Se modifica el descuento a  '") + vista_.Text_dh + QStringLiteral("'."));
    recalcular_por_cambio();
}

void Checkout::recalcular_por_cambio()
{
    const QString forma = forma_de_pago_efectiva();
    const QString recargo = recargo_forma_de_pago();
    const double descuento = descuento_habitual();
    log(QStringLiteral("Se determino que la forma de pago es '") + forma +
        QStringLiteral("' con un recargo de '") + recargo +
        QStringLiteral("'% y un descuento habitual de '") + texto_numero(descuento) + QStringLiteral("'%."));
    recalcular_total(descuento, valor_texto(recargo));
    log(QStringLiteral("Se termino de calcular el nuevo total en base a la forma de pago seleccionada."));
}

bool Checkout::tecla_buscar(const QString &texto, int key)
{
    if (key == tecla::kBorrar || key == tecla::kEnter) {
        if (texto.isEmpty())
            return false;
        buscar_clientes(texto.chopped(1));
        return true;
    }
    const QString buscado = texto + QChar(key);
    if (buscado.size() <= 1)
        return false;
    vista_.Check_resumido_visible = true;
    log(QStringLiteral("Se busca el Cliente con nombre:") + buscado);
    buscar_clientes(buscado);
    return true;
}

void Checkout::buscar_clientes(const QString &texto)
{
    vista_.clientes = vendrix::buscar_clientes(ctx_, texto);
}

void Checkout::elegir_cliente(int fila)
{
    if (fila < 0 || fila >= static_cast<int>(vista_.clientes.size()))
        return;
    const QStringList &c = vista_.clientes[static_cast<size_t>(fila)];
    const auto columna = [&c](int col) { return c.value(col); };
    vista_.Text_rz = columna(kCliRazonSocial);
    vista_.Text_cuit = columna(kCliCuit);
    vista_.Text_dom = columna(kCliDomicilio);
    vista_.Text_loc = columna(kCliLocalidad);
    vista_.Text_dh = columna(kCliDescuento);
    if (const QString tipo = columna(kCliTipo); !tipo.isEmpty())
        vista_.Combo_iva = condiciones_iva().contains(tipo) ? tipo : kConsumidorFinal;
    // A stored document type the combo doesn't list leaves it as it is.
    if (tipos_documento().contains(columna(kCliTipoDoc)))
        vista_.Combo_tipo_doc = columna(kCliTipoDoc);
    cambiar_iva(vista_.Combo_iva);
    vista_.Text_cuit = columna(kCliCuit);

    // The customer's habit of paying in current account carries over from
    // the last sale.
    if (forma_de_pago_ultima_venta(ctx_, vista_.Text_cuit) == kCuentaCorriente) {
        cambiar_CC(true);
        cambiar_forma_de_pago(vista_.Combo_FdP);
        ctx_.op().inform(
            QStringLiteral("Pago en Cuenta Corriente"),
            QStringLiteral("Confirmar si corresponde registro en Cuenta Corriente para el cliente ") +
                vista_.Text_rz);
    } else {
        cambiar_forma_de_pago(kEfectivo);
        cambiar_CC(false);
    }
    vista_.Text_email = columna(kCliMail);
    vista_.Text_telefono = columna(kCliTelefono);
}

void Checkout::cambiar_iva(const QString &texto)
{
    vista_.Combo_iva = texto;
    vista_.Combo_tipo_doc_habilitado = texto == kConsumidorFinal;
    if (!vista_.Combo_tipo_doc_habilitado)
        cambiar_tipo_doc(QStringLiteral("CUIT"));
}

void Checkout::cambiar_tipo_doc(const QString &texto)
{
    // A number of the other kind isn't kept.
    const bool con_guion = vista_.Text_cuit.contains(QLatin1Char('-'));
    if ((texto == QLatin1String("CUIT") && !con_guion) || (texto == QLatin1String("DNI") && con_guion))
        vista_.Text_cuit.clear();
    vista_.Combo_tipo_doc = texto;
}

void Checkout::salir_cuit()
{
    // An empty box has nothing to check: the operator is only passing by.
    if (vista_.Text_cuit.isEmpty())
        return;
    const bool valido = vista_.Combo_tipo_doc == QLatin1String("DNI")
                            ? validar_DNI(ctx_.op(), vista_.Text_cuit)
                            : validar_CUIT(ctx_.op(), vista_.Text_cuit);
    if (!valido)
        vista_.Text_cuit.clear();
}

void Checkout::salir_email()
{
    if (!vista_.Text_email.isEmpty() && !vista_.Text_email.contains(QLatin1Char('@')))
        ctx_.op().warn(kTituloPrograma,
                       QStringLiteral("El contenido del campo 'Email' no parece ser válido."));
}

void Checkout::cambiar_CC(bool on)
{
    // A credit exists only on a current account; a cart isn't stored from one.
    vista_.Check_CC = on;
    vista_.Command_nota_credito_visible = on;
    vista_.Command_registrar_pedido_visible = !on;
}

void Checkout::cambiar_resumido(bool on)
{
    if (!on && carrito_con_ivas_distintos(carrito())) {
        ctx_.op().warn(
            QStringLiteral("Advertencia"),
            QStringLiteral("El ticket no puede ser agrupado porque hay productos con diferente tasa de IVA"));
        on = true;
    }
    vista_.Check_resumido = on;
}

void Checkout::cambiar_imprimir(bool on)
{
    vista_.Check_Imprimir = on;
    if (!impresora_fiscal_)
        return;
    if (on) {
        vista_.Command_imprimir = electronica_ ? kFacturaElectronica : kImprimirTicket;
        vista_.Check_NDV_visible = false;
        vista_.Check_NDV = false;
        vista_.Check_resumido_visible = true;
    } else {
        vista_.Command_imprimir = kGuardarVenta;
        vista_.Check_resumido_visible = false;
        vista_.Check_NDV_visible = nota_de_venta_;
        vista_.Check_NDV = nota_de_venta_;
    }
}

DatosCliente Checkout::datos_cliente() const
{
    return {vista_.Text_rz,   vista_.Text_cuit,      vista_.Text_dom,   vista_.Text_loc,     vista_.Text_dh,
            vista_.Combo_iva, vista_.Combo_tipo_doc, vista_.Text_email, vista_.Text_telefono};
}

bool Checkout::guardar_cliente()
{
    return vendrix::guardar_cliente(ctx_, datos_cliente(),
                                    static_cast<int>(condiciones_iva().indexOf(vista_.Combo_iva)));
}

void Checkout::agregar_cliente()
{
    if (!vista_.Text_cuit.isEmpty()) {
        if (const QString nombre = cliente_con_documento(ctx_, vista_.Text_cuit); !nombre.isEmpty()) {
            ctx_.op().warn(kTituloErrorDatos,
                           QStringLiteral("No se guarda el nuevo cliente porque existe \"") + nombre +
                               QStringLiteral("\" con el mismo ") + vista_.Combo_tipo_doc + QLatin1Char(' ') +
                               vista_.Text_cuit);
            return;
        }
    }
    if (vista_.Combo_iva == kConsumidorFinal) {
        if (vista_.Text_rz.isEmpty()) {
            ctx_.op().warn(
                kTituloErrorDatos,
                QStringLiteral("No se puede guardar un Consumidor Final sin nombre (razón social)."));
            return;
        }
    } else if (vista_.Text_rz.isEmpty() || vista_.Text_cuit.isEmpty() || vista_.Text_dom.isEmpty()) {
        ctx_.op().warn(kTituloErrorDatos,
                       QStringLiteral("Complete todos los datos para poder guardar un cliente."));
        return;
    }
    guardar_cliente();
    ctx_.op().inform(QStringLiteral("Datos Guardados"),
                     QStringLiteral("Se guardaron los datos del cliente: ") + vista_.Text_rz);
}

QString Checkout::datos_faltantes() const
{
    QString faltan;
    if (vista_.Text_rz.isEmpty())
        faltan += QStringLiteral(" Razón Social,");
    if (vista_.Text_cuit.isEmpty())
        faltan += QStringLiteral(" Número de documento,");
    if (vista_.Text_dom.isEmpty())
        faltan += QStringLiteral(" Domicilio,");
    faltan.chop(faltan.isEmpty() ? 0 : 1);
    return faltan;
}

void Checkout::faltan_datos(const QString &texto_limite, const QString &faltantes)
{
    ctx_.op().warn(
        QStringLiteral("Faltan los datos del cliente"),
        QStringLiteral("Los datos del consumidor final son obligatorios cuando el importe a facturar "
                       "supera los $") +
            texto_limite + QStringLiteral(" Falta llenar los datos de:") + faltantes + QLatin1Char('.'));
    log(QStringLiteral(
        "Se intento guardar una factura a consumidor final de importe mayor al permitido sin cargar "
        "los datos del consumidor final."));
    vista_.Command_imprimir_habilitado = true;
}

PasoVenta Checkout::imprimir()
{
    vista_.Command_imprimir_habilitado = false;
    log(QStringLiteral("Accion del boton 'Imprimir y Guardar'."));
    log(QStringLiteral("Controlo si es necesario guardar los datos del cliente."));
    // The customers' table always holds the data of the last sale.
    if (!vista_.Text_rz.isEmpty() && !vista_.Text_cuit.isEmpty())
        guardar_cliente();

    log(QStringLiteral("calculo la forma de pago, los recargos y el descuento habitual."));
    const QString forma = forma_de_pago_efectiva();
    recargo_forma_de_pago();
    descuento_habitual();
    log(QStringLiteral(
        "Evaluo si tiene que ingresar los datos del cliente aunque la venta sea en efectivo (ya que "
        "supera el maximo permitido por AFIP)."));

    // A final consumer must be identified from the limit up; a sale on
    // current account counts as cash.
    const double total = total_a_pagar();
    const bool efectivo = forma == kEfectivo || vista_.Check_CC;
    if (vista_.Combo_iva == kConsumidorFinal && total >= (efectivo ? max_efectivo_ : max_tarjeta_)) {
        if (const QString faltan = datos_faltantes(); !faltan.isEmpty()) {
            faltan_datos(QString::number(max_efectivo_) + QStringLiteral(" en efectivo o $") +
                             QString::number(max_tarjeta_) + QStringLiteral(" con medios eletrónicos."),
                         faltan);
            return PasoVenta::ninguno;
        }
    }
    // An electronic invoice from the cash limit up names its customer,
    // whatever the IVA condition.
    if (total >= max_efectivo_ && vista_.Command_imprimir == kFacturaElectronica) {
        if (const QString faltan = datos_faltantes(); !faltan.isEmpty()) {
            faltan_datos(QString::number(max_efectivo_) + QStringLiteral(" para la facturación electrónica."),
                         faltan);
            return PasoVenta::ninguno;
        }
    }

    log(QStringLiteral("Determino exactamente si hay que imprimir la factura, guardarla o ambas cosas."));
    if (vista_.Command_imprimir == kImprimirTicket || vista_.Command_imprimir == kFacturaElectronica) {
        log(QStringLiteral("La factura hay que imprimirla y guardarla."));
        return PasoVenta::imprimir_y_guardar;
    }
    log(QStringLiteral("La factura hay que guardarla solamente (no hay necesidad de imprimirla)."));
    return PasoVenta::guardar;
}

void Checkout::fin_de_accion()
{
    vista_.Command_imprimir_habilitado = true;
    log(QStringLiteral(
        "Se terminaron las acciones relacionadas con salvar e imprimir la factura. El sistema vuelve "
        "a estar disponible."));
}

PasoVenta Checkout::registrar_pedido()
{
    if (vista_.Combo_iva != kConsumidorFinal && !vista_.Text_rz.isEmpty() && !vista_.Text_cuit.isEmpty() &&
        !vista_.Text_dom.isEmpty())
        guardar_cliente();
    return PasoVenta::guardar_carrito;
}

void Checkout::cargar_datos_carrito_guardado(const QString &nro_referencia)
{
    const Matrix m = ctx_.db().execQ_matriz(
        QStringLiteral("SELECT cliente, cuit, razon_social, domicilio, Descuento_habitual, Provincia, Notas, "
                       "TIPO_DOC, forma_de_pago FROM vendrix_facturas WHERE nro_referencia = ? ORDER BY ID"),
        QStringLiteral("Internal"), {nro_referencia});
    if (m.vacia())
        return;
    if (condiciones_iva().contains(m.at(0, 0)))
        cambiar_iva(m.at(0, 0));
    vista_.Text_cuit = m.at(1, 0);
    vista_.Text_rz = m.at(2, 0);
    vista_.Text_dom = m.at(3, 0);
    // Stored with a decimal point; the box shows the screen's comma.
    const QString descuento = m.at(4, 0);
    vista_.Text_dh = descuento.isEmpty() ? QString() : texto_numero(valor_texto(descuento));
    vista_.Text_loc = m.at(5, 0);
    vista_.Text_Notas = m.at(6, 0);
    vista_.Combo_tipo_doc = m.at(7, 0).isEmpty() ? QStringLiteral("CUIT") : m.at(7, 0);
    const QString forma = m.at(8, 0);
    if (forma == kCuentaCorriente) {
        cambiar_CC(true);
    } else {
        cambiar_CC(false);
        cambiar_forma_de_pago(forma);
    }
}

} // namespace vendrix

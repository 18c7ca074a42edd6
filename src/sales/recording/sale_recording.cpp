#include "sales/recording/sale_recording.h"

#include "afip/invoice/pending_cae_store.h"
#include "core/context.h"
#include "core/numeric.h"
#include "fiscal/front/fiscal_models.h"
#include "sales/carritos.h"
#include "sales/operar_carrito.h"
#include "sales/recording/cae_recovery.h"
#include "sales/recording/document_numbers.h"
#include "sales/recording/document_store.h"
#include "sales/recording/fiscal_output.h"
#include "sales/recording/recording_log.h"
#include "sales/recording/sale_json.h"

namespace vendrix {

namespace {

const QString kTienda = QStringLiteral("Internal");

QString bandera(bool valor)
{
    return valor ? QStringLiteral("True") : QStringLiteral("False");
}

QString tipo_documento(const OpcionesVenta &o)
{
    if (o.es_carrito)
        return QStringLiteral("Carrito");
    if (o.es_credito)
        return QStringLiteral("Crédito");
    return o.imprimir ? QStringLiteral("Factura") : QStringLiteral("Factura a emitir");
}

// The reference the document is stored under, in the checkout, and the
// reference whose rows it replaces. A sale replaces whatever carries its
// reference: that is how a stored cart is consumed by its sale. A cart
// saved again asks whether to overwrite its former copy or take a new
// number.
QString preparar_referencia(Context &ctx, Checkout &checkout, bool es_carrito)
{
    const auto referencia = [&checkout] { return checkout.vista().Text_referenciaExterna; };
    if (!es_carrito)
        return referencia();
    const auto nueva = [&] {
        checkout.set_texto(&VistaCheckout::Text_referenciaExterna, nueva_referencia(ctx.reloj()));
    };
    Database &db = ctx.db();
    if (db.execQ1(
              QStringLiteral("SELECT id FROM vendrix_facturas WHERE tipo = 'Carrito' AND nro_referencia = ?"),
              kTienda, {referencia()})
            .isEmpty())
        nueva();
    const QString actual = referencia();
    if (db.execQ1(QStringLiteral("SELECT id FROM vendrix_facturas WHERE nro_referencia = ?"), kTienda,
                  {actual})
            .isEmpty()) {
        nueva();
        return {};
    }
    if (ctx.op().ask(QStringLiteral("Sobreescribir carrito"),
                     QStringLiteral("El carrito que intenta guardar con el número ") + actual +
                         QStringLiteral(" se encuentra presente en el sistema. ¿Desea Sobreescribirlo? (SI - "
                                        "sobreescribe, NO - lo guarda con un nuevo número).")))
        return actual;
    nueva();
    return {};
}

// Before an electronic invoice: what earlier ones left is settled, and the
// sale's draft is written under its reference, so that the sale can be
// stored whatever happens once the request is out. False, with the
// operator told why, when the invoice can't go out now.
bool preparar_factura_electronica(Context &ctx, Checkout &checkout, const QString &tipo, bool es_credito,
                                  const FactoresPrecio &f)
{
    const QString titulo = QStringLiteral("Factura electrónica");
    if (!conciliar_cae_pendientes(ctx)) {
        ctx.op().error(titulo, QStringLiteral("No se puede emitir otra factura electrónica hasta saber si la "
                                              "AFIP autorizó la anterior. Verifique la conexión a Internet e "
                                              "intente nuevamente."));
        return false;
    }
    const QString referencia = checkout.vista().Text_referenciaExterna;
    DocumentoVenta borrador = armar_borrador(ctx, checkout, tipo, es_credito, f);
    // A sale replaces whatever carries its reference, as below.
    borrador.reemplaza = referencia;
    if (escribir_borrador_cae(ctx, referencia, QString::fromUtf8(documento_a_json(borrador))))
        return true;
    ctx.op().error(titulo,
                   QStringLiteral("No se pudo preparar la factura electrónica en la base de datos: no "
                                  "se envió nada a la AFIP."));
    return false;
}

void vaciar(Context &ctx, Carrito &carrito)
{
    operar_carrito(ctx, carrito, VerboCarrito::vaciar, false);
}

} // namespace

OpcionesVenta opciones_de(PasoVenta paso)
{
    switch (paso) {
    case PasoVenta::ninguno:
        return {false, false, false, false};
    case PasoVenta::guardar:
        return {true, false, false, false};
    case PasoVenta::imprimir_y_guardar:
        return {true, true, false, false};
    case PasoVenta::guardar_carrito:
        return {true, false, false, true};
    }
    return {false, false, false, false};
}

bool imprimir_y_guardar(Context &ctx, FiscalFront &front, Checkout &checkout, Carritos &carritos,
                        const OpcionesVenta &o, SeguimientoVenta &seguimiento)
{
    StatusSink &estado = ctx.estado();
    estado.marcar_ocupado(true);
    const QString banderas = bandera(o.guardar) + QStringLiteral(" e imprimir = ") + bandera(o.imprimir);
    log_registro(
        ctx, QStringLiteral("Se llamo a la funcion 'Imprimir y guardar' con parametros: guardar datos = ") +
                 banderas);
    log_registro(ctx, QStringLiteral("Se extraen los datos del carrito número: ") +
                          QString::number(checkout.carrito_origen()));
    Carrito &carrito = carritos.carrito(checkout.carrito_origen());

    const FactoresPrecio f = factores_precio(checkout);
    const QString forma = checkout.forma_de_pago_efectiva();
    log_registro(ctx, QStringLiteral(
                          "Se utilizará para hacer los calculos un descuento habitual (ya calculado) de: ") +
                          texto_numero(f.descuento) + QStringLiteral(" y un recargo (ya calculado) de: ") +
                          texto_numero(f.recargo));

    const QString tipo = tipo_documento(o);
    const bool electronica =
        o.imprimir && ctx.leer_parametro(QStringLiteral("IF_Modelo")) == QLatin1String(kModeloElectronica);
    Autorizacion autorizacion;
    if (o.imprimir) {
        if (electronica && !preparar_factura_electronica(ctx, checkout, tipo, o.es_credito, f)) {
            estado.marcar_ocupado(false);
            return false;
        }
        seguimiento.ocultar_formulario();
        const bool emitido = emitir_comprobante(ctx, front, checkout, f, o.es_credito, autorizacion);
        seguimiento.mostrar_formulario();
        if (!emitido) {
            // Nothing is written and the cart stays: the operator may try again.
            estado.marcar_ocupado(false);
            log_registro(
                ctx,
                QStringLiteral("ERROR Al llamar a la funcion 'Imprimir y guardar' con parametros: guardar "
                               "datos = ") +
                    banderas,
                QStringLiteral("E"));
            return false;
        }
    }

    log_registro(ctx, QStringLiteral("Se comienza a ejecutar la rutina para guardar la venta"));
    log_registro(ctx, QStringLiteral("Se utilizará un recargo total de '") + texto_numero(f.total()) +
                          QStringLiteral("' calculado como la multiplciacion del descuento habitual '") +
                          texto_numero(f.descuento) + QStringLiteral("' y el recargo con tarjeta '") +
                          texto_numero(f.recargo) + QStringLiteral("' para la forma de pago '") + forma +
                          QStringLiteral("'."));

    QString reemplaza;
    qint64 id_factura = 0;
    if (o.guardar)
        reemplaza = preparar_referencia(ctx, checkout, o.es_carrito);
    DocumentoVenta doc = armar_documento(ctx, checkout, tipo, o.es_credito, f, autorizacion);
    doc.reemplaza = reemplaza;
    if (electronica)
        doc.cae_pendiente = checkout.vista().Text_referenciaExterna;
    if (o.guardar)
        id_factura = guardar_documento(ctx, doc);
    if (o.guardar && id_factura == 0) {
        // Nothing of the document is in the database; the log keeps all of it.
        log_registro(ctx,
                     QStringLiteral("No se pudo guardar el comprobante en la base de datos. Datos del "
                                    "comprobante: ") +
                         texto_documento(doc),
                     QStringLiteral("E"));
        const QString titulo = QStringLiteral("Error al guardar la venta");
        if (!o.imprimir) {
            ctx.op().error(titulo,
                           QStringLiteral("No se pudo guardar la venta en la base de datos. El carrito "
                                          "queda como estaba para intentarlo nuevamente."));
            estado.marcar_ocupado(false);
            return false;
        }
        // The device has emitted it: the sale happened, and its data are in the log.
        ctx.op().error(titulo,
                       QStringLiteral("El comprobante se emitió pero no se pudo guardar en la base de "
                                      "datos. Sus datos completos quedaron en el registro de Vendrix."));
    }

    const QString referencia = checkout.vista().Text_referenciaExterna;
    if (o.imprimir) {
        if (electronica) {
            estado.marcar_ocupado(true);
            seguimiento.factura_electronica(checkout, doc, id_factura);
        } else {
            ctx.op().inform(QStringLiteral("Impresión Correcta"),
                            QStringLiteral("Se imprimio el Ticket Factura ") +
                                QString::number(doc.cabecera.nro_ticket));
        }
        vaciar(ctx, carrito);
    } else {
        if (o.es_carrito) {
            ctx.op().inform(QStringLiteral("Salvar carrito"),
                            QStringLiteral("Se guardaron los datos del carrito correctamente con número de "
                                           "referencia: ") +
                                referencia);
        } else if (o.es_credito) {
            ctx.op().inform(QStringLiteral("Nota de Crédito"),
                            QStringLiteral("Se guardaron los datos de la nota de crédito."));
        } else if (checkout.vista().Check_NDV) {
            carrito.set_marca_guardado(kPrefijoCarritoGuardado + referencia);
            const bool impresa = seguimiento.imprimir_nota_de_venta(checkout, doc);
            ctx.op().inform(QStringLiteral("Nota de Venta"),
                            impresa
                                ? QStringLiteral("Se guardó la venta correctamente y se imprimió la nota de "
                                                 "venta.")
                                : QStringLiteral("Se guardó la venta correctamente y NO se imprimió la nota "
                                                 "de venta a pedido del usuario."));
        } else {
            ctx.op().inform(QStringLiteral("Guardar venta"),
                            QStringLiteral("Se guardó la venta correctamente."));
        }
        vaciar(ctx, carrito);
    }
    estado.marcar_ocupado(false);
    return true;
}

} // namespace vendrix

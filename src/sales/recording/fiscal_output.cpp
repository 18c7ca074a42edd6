#include "sales/recording/fiscal_output.h"

#include "afip/invoice/invoice_codes.h"
#include "core/context.h"
#include "core/numeric.h"
#include "fiscal/front/fiscal_front.h"
#include "fiscal/front/fiscal_models.h"
#include "sales/checkout/checkout.h"
#include "sales/recording/document_numbers.h"
#include "sales/recording/recording_log.h"

namespace vendrix {

namespace {

bool en_blanco(const QString &texto)
{
    const QString t = texto.trimmed();
    return t.isEmpty() || t == QLatin1String("0");
}

// The buyer as the document names them. A final consumer without a
// document number goes as "0" of type CUIT.
DocumentoFiscal comprador(const VistaCheckout &v, const QString &letra, const QString &iva_emisor,
                          bool es_credito)
{
    DocumentoFiscal doc;
    doc.letra = letra;
    doc.tipo_doc = QStringLiteral("CUIT");
    doc.domicilio = v.Text_dom + QLatin1Char(' ') + v.Text_loc;
    doc.iva_comprador = v.Combo_iva.left(1);
    doc.iva_emisor = iva_emisor;
    doc.es_nota_de_credito = es_credito;
    doc.referencia = v.Text_referenciaExterna;
    doc.nombre = v.Text_rz;
    doc.numero_doc = v.Text_cuit;
    if (v.Combo_iva == kConsumidorFinal) {
        if (doc.nombre.isEmpty())
            doc.nombre = QStringLiteral("CONSUMIDOR FINAL");
        if (v.Text_cuit.isEmpty() || v.Text_cuit == QLatin1String("0"))
            doc.numero_doc = QStringLiteral("0");
        else
            doc.tipo_doc = v.Combo_tipo_doc;
    }
    return doc;
}

} // namespace

QString descripcion_para_dispositivo(const LineaCarrito &l, const QString &modo)
{
    const QChar blanco = QLatin1Char(' ');
    QString texto = l[kColArticulo];
    if (modo == QStringLiteral("Grupo + Descripción"))
        texto = l[kColGrupoProveedor] + blanco + l[kColArticulo];
    else if (modo == QStringLiteral("Código + Grupo + Descripción"))
        texto = l[kColCodigoProveedor] + blanco + l[kColGrupoProveedor] + blanco + l[kColArticulo];
    else if (modo == QStringLiteral("Código"))
        texto = l[kColCodigoProveedor];
    if (en_blanco(texto))
        texto = l[kColArticulo];
    if (en_blanco(texto))
        texto = QStringLiteral("Art. S/D");
    return texto;
}

bool emitir_comprobante(Context &ctx, FiscalFront &front, Checkout &checkout, const FactoresPrecio &factores,
                        bool es_credito, Autorizacion &autorizacion)
{
    const VistaCheckout &v = checkout.vista();
    const Carrito &carrito = checkout.carrito();
    log_registro(ctx, QStringLiteral("Se comienza a ejecutar la rutina para imprimir los datos"));
    const QString iva_emisor = condicion_iva_emisor(ctx);
    const QString letra = letra_comprobante(ctx, v.Combo_iva).letra;
    DocumentoFiscal doc = comprador(v, letra, iva_emisor, es_credito);

    log_registro(ctx, QStringLiteral("Abro el ticket"));
    bool ok = front.IF_Conectar();
    // A document that didn't open isn't emitted: its lines would go nowhere.
    ok = ok && front.IF_Open(doc);

    if (v.Check_resumido) {
        log_registro(ctx, QStringLiteral("Agrego los items en forma detallada"));
        const QString modo = ctx.leer_parametro(QStringLiteral("IF_desc_art"));
        for (const LineaCarrito &l : carrito.lineas()) {
            if (!ok)
                break;
            ItemFiscal item{
                descripcion_para_dispositivo(l, modo), texto_de_real(valor_texto(l[kColCantidad])),
                texto_de_real(valor_texto(l[kColPrecioUnitario]) * factores.recargo * factores.descuento),
                doc.iva_comprador, valor_texto(l[kColIva])};
            ok = front.IF_Add_Element(item);
        }
    } else {
        log_registro(ctx, QStringLiteral("Agrego los items como uno solo (modo resumido)"));
        // The habitual discount isn't applied to the summarised amount.
        double suma = 0;
        for (const LineaCarrito &l : carrito.lineas())
            suma += valor_texto(l[kColImporte]) * factores.recargo;
        const double tasa = carrito.vacio() ? 0 : valor_texto(carrito.lineas().back()[kColIva]);
        ItemFiscal item{QStringLiteral("Varios"), QStringLiteral("1"), texto_de_real(suma), doc.iva_comprador,
                        tasa};
        ok = ok && front.IF_Add_Element(item);
    }

    log_registro(ctx, QStringLiteral("Cierro el ticket"));
    if (ok) {
        CierreFiscal cierre{letra, ctx.leer_parametro(QStringLiteral("IF_Mensaje")), letra, es_credito, 0, 0};
        const QString forma = checkout.forma_de_pago_efectiva();
        if (forma == QStringLiteral("Tarjeta de Crédito"))
            cierre.pago_credito = valor_texto(v.Label_total);
        else if (forma == QStringLiteral("Tarjeta de Débito"))
            cierre.pago_debito = valor_texto(v.Label_total);
        ok = front.IF_Close(cierre);
    }
    if (ok && ctx.leer_parametro(QStringLiteral("IF_Modelo")) == QLatin1String(kModeloElectronica)) {
        log_registro(
            ctx, QStringLiteral("Como esta configurada la factura electronica, recupero el numero de CAE."));
        ok = front.IF_Obtener_CAE(autorizacion.cae, autorizacion.nro_comprobante, autorizacion.cae_vto);
    }
    log_registro(ctx, QStringLiteral("Me desconecto de la impresora."));
    ok = ok && front.IF_Desconectar();
    log_registro(ctx, QStringLiteral("Se termino de ejecutar la rutina para imprimir los datos"));
    return ok;
}

} // namespace vendrix

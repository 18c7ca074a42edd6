#include "afip/invoice/invoice_request.h"

#include "afip/transport/soap.h"
#include "core/context.h"
#include "core/database.h"
#include "core/numeric.h"

namespace vendrix {

namespace {

const QString kCrLf = QStringLiteral("\r\n");

// The lines of an <AlicIva> block: the mark stands indented in the
// template, the inner lines take 31 blanks and the closing one 27.
QString bloque_alicuota(int id, double base, double importe)
{
    const QString dentro(31, QLatin1Char(' '));
    return QStringLiteral("<AlicIva>") + kCrLf + dentro + QStringLiteral("<Id>%1</Id>").arg(id) + kCrLf +
           dentro + QStringLiteral("<BaseImp>") + importe_pedido(base) + QStringLiteral("</BaseImp>") +
           kCrLf + dentro + QStringLiteral("<Importe>") + importe_pedido(importe) +
           QStringLiteral("</Importe>") + kCrLf + QString(27, QLatin1Char(' ')) +
           QStringLiteral("</AlicIva>");
}

// "... es '<text>' como string y '<number>' como numero."
void log_importe(Context &ctx, const char *que, const QString &texto, double valor)
{
    ctx.escribir_log(QStringLiteral("El valor del importe %1 es '%2' como string y '%3' como numero")
                         .arg(QLatin1String(que), texto, texto_numero(valor)),
                     QStringLiteral("I"));
}

// The request's IVA and total from its net and the rates' amounts, logged.
void completar_totales(Context &ctx, ImportesPedido &r, double neto, double iva)
{
    iva = redondear(iva, 2);
    r.iva = importe_pedido(iva);
    log_importe(ctx, "del iva", r.iva, iva);
    const double total = redondear(neto + iva, 2);
    r.total = importe_pedido(total);
    log_importe(ctx, "total", r.total, total);
}

ImportesPedido sin_iva(double bruto)
{
    const QString total = importe_pedido(bruto);
    return {total, QStringLiteral("0"), total, {}, {}, true};
}

} // namespace

QString importe_pedido(double valor)
{
    return texto_de_real(redondear(valor, 2));
}

QString bloque_documento(int codigo, const QString &numero)
{
    const QString sangria(15, QLatin1Char(' '));
    return sangria + QStringLiteral("<DocTipo>%1</DocTipo>").arg(codigo) + kCrLf + sangria +
           QStringLiteral("<DocNro>") + QString(numero).remove(QLatin1Char('-')) +
           QStringLiteral("</DocNro>");
}

QString bloque_comprador_anonimo()
{
    return bloque_documento(80, QStringLiteral("20111111112"));
}

QString llenar_plantilla(Context &ctx, QString xml, const DatosPlantilla &d)
{
    // Token and sign are longer than the old run time's replace allowed.
    xml = replace_more255(ctx, xml, QStringLiteral("%TOKEN%"), d.token);
    xml = replace_more255(ctx, xml, QStringLiteral("%SIGN%"), d.sign);
    xml.replace(QStringLiteral("%CUIT%"), QString(d.cuit).remove(QLatin1Char('-')));
    xml.replace(QStringLiteral("%TIPO_COMPROBANTE%"), QString::number(d.tipo));
    xml.replace(QStringLiteral("%TIPOYNUMERODEDOCUMENTODELCOMPRADOR%"), d.documento);
    xml.replace(QStringLiteral("%PUNTO_DE_VENTA%"), d.punto_de_venta);
    xml.replace(QStringLiteral("%FECHA_EMISION%"), d.fecha);
    xml.replace(QStringLiteral("%CONDICIONIVARECEPTOR%"), QString::number(d.condicion_iva_receptor));
    return xml;
}

void TotalesFactura::agregar(double cantidad, double precio, double tasa)
{
    bruto += precio * cantidad;
    const double sin_iva = cantidad * precio / (1 + tasa / 100);
    neto += sin_iva;
    if (tasa == 21)
        neto_21 += sin_iva;
    else if (tasa == 10.5)
        neto_105 += sin_iva;
}

ImportesPedido importes_factura(Context &ctx, const TotalesFactura &t, bool monotributo)
{
    if (monotributo)
        return sin_iva(t.bruto);
    ImportesPedido r;
    const double neto = redondear(t.neto, 2);
    r.neto = importe_pedido(neto);
    double iva = 0;
    if (t.neto_21 > 0) {
        const double base = redondear(t.neto_21, 2);
        const double importe = redondear(base * 0.21, 2);
        r.iva_21 = bloque_alicuota(5, base, importe);
        iva += importe;
    }
    if (t.neto_105 > 0) {
        const double base = redondear(t.neto_105, 2);
        const double importe = redondear(base * 0.105, 2);
        r.iva_105 = bloque_alicuota(4, base, importe);
        iva += importe;
    }
    completar_totales(ctx, r, neto, iva);
    return r;
}

ImportesPedido importes_nota_de_credito(Context &ctx, double bruto_21, double bruto_105, bool monotributo)
{
    if (monotributo)
        return sin_iva(bruto_21 + bruto_105);
    ImportesPedido r;
    const double neto = redondear(bruto_21 / 1.21 + bruto_105 / 1.105, 2);
    r.neto = importe_pedido(neto);
    ctx.escribir_log(QStringLiteral("El valor del importe neto como string es '%1' y como numero es '%2'")
                         .arg(r.neto, texto_numero(neto)),
                     QStringLiteral("I"));
    double iva = 0;
    if (bruto_21 > 0) {
        const double importe = redondear(bruto_21 - bruto_21 / 1.21, 2);
        r.iva_21 = bloque_alicuota(5, redondear(bruto_21 / 1.21, 2), importe);
        iva += importe;
    }
    if (bruto_105 > 0) {
        const double importe = redondear(bruto_105 - bruto_105 / 1.105, 2);
        r.iva_105 = bloque_alicuota(4, redondear(bruto_105 / 1.105, 2), importe);
        iva += importe;
    }
    completar_totales(ctx, r, neto, iva);
    return r;
}

QString poner_importes(QString xml, const ImportesPedido &im)
{
    if (im.sin_iva) {
        for (const char *marca : {"%IVA21%", "%IVA105%", "</Iva>", "<Iva>"})
            xml.replace(QLatin1String(marca), QString());
    } else {
        xml.replace(QStringLiteral("%IVA21%"), im.iva_21);
        xml.replace(QStringLiteral("%IVA105%"), im.iva_105);
    }
    xml.replace(QStringLiteral("%IMPORTE_NETO%"), im.neto);
    xml.replace(QStringLiteral("%IMPORTE_IVA%"), im.iva);
    xml.replace(QStringLiteral("%IMPORTE_TOTAL%"), im.total);
    return xml;
}

} // namespace vendrix

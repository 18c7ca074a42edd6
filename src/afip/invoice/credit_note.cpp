#include "afip/invoice/credit_note.h"

#include "afip/invoice/cae_service.h"
#include "afip/invoice/invoice_codes.h"
#include "afip/invoice/invoice_request.h"
#include "afip/transport/afip_hosts.h"
#include "afip/transport/soap.h"
#include "core/context.h"
#include "fiscal/fiscal_device.h"

namespace vendrix {

namespace {

const QString kQuien = QStringLiteral("AFIP_Nota_de_Credito");

QString letra_de_clase(int clase)
{
    switch (clase) {
    case 3:
        return QStringLiteral("A");
    case 8:
        return QStringLiteral("B");
    case 13:
        return QStringLiteral("C");
    default:
        return {};
    }
}

// Printer busy while the note is asked for, on again on every path.
class Ocupada {
public:
    explicit Ocupada(Context &ctx) : ctx_(ctx)
    {
        ctx_.estado().actualizar_indicador(QStringLiteral("impresora_ocupada"));
    }
    ~Ocupada() { ctx_.estado().actualizar_indicador(QStringLiteral("impresora_on")); }
    Ocupada(const Ocupada &) = delete;
    Ocupada &operator=(const Ocupada &) = delete;

private:
    Context &ctx_;
};

// The buyer's lines: named when the class must name its buyer and a number
// was given, the anonymous pair otherwise.
QString documento(Context &ctx, const NotaDeCreditoAfip &nota)
{
    const bool nombra = nota.iva_comprador != QLatin1String("F") &&
                        ctx.leer_parametro(QStringLiteral("IF_tipo_IVA")).left(1) == QLatin1String("I");
    if (!nombra || nota.numero_doc.isEmpty() || nota.numero_doc == QLatin1String("0"))
        return bloque_comprador_anonimo();
    return bloque_documento(nota.tipo_doc == QLatin1String("DNI") ? 96 : 80, nota.numero_doc);
}

// The invoice the note cancels. It goes after the receiver's condition,
// where the schema has `CbtesAsoc`; the shop's CUIT stays commented out.
QString asociacion(Context &ctx, const NotaDeCreditoAfip &nota)
{
    return QStringLiteral("</CondicionIVAReceptorId><CbtesAsoc><CbteAsoc><Tipo>%1</Tipo><PtoVta>%2</PtoVta>"
                          "<Nro>%3</Nro><!--Cuit>%4</Cuit--><CbteFch>%5</CbteFch></CbteAsoc></CbtesAsoc>")
        .arg(nota.factura_tipo)
        .arg(ctx.leer_parametro(QStringLiteral("IF_PuntoDeVenta")))
        .arg(nota.factura_numero)
        .arg(ctx.leer_parametro(QStringLiteral("IF_CUIT")).remove(QLatin1Char('-')), nota.factura_fecha);
}

bool pedir(ServicioCae &servicio, const NotaDeCreditoAfip &nota, NotaDeCreditoEmitida &emitida)
{
    Context &ctx = servicio.ctx();
    if (!servicio.ticket(kQuien))
        return false;
    ctx.escribir_log(kQuien +
                         QStringLiteral(": Existe un TRA Valido, se puede proceder con la nota de credito"),
                     QStringLiteral("I"));
    ctx.escribir_log(es_produccion(ctx)
                         ? QStringLiteral("Se enviará la peticion de CAE al ambiente de PRODUCCION")
                         : QStringLiteral("Se enviará la peticion de CAE al ambiente de HOMOLOGACION"),
                     QStringLiteral("I"));
    const int tipo = nota.clase.toInt();
    const QString fecha = ctx.reloj().now().toString(QStringLiteral("yyyyMMdd"));
    const DatosPlantilla datos{ctx.leer_parametro(QStringLiteral("FE_token")),
                               ctx.leer_parametro(QStringLiteral("FE_sign")),
                               ctx.leer_parametro(QStringLiteral("IF_CUIT")),
                               tipo,
                               documento(ctx, nota),
                               ctx.leer_parametro(QStringLiteral("IF_PuntoDeVenta")),
                               fecha,
                               condicion_iva_receptor(letra_de_clase(tipo), nota.iva_comprador)};
    ctx.escribir_log(kQuien + QStringLiteral(": Cargo los valores dentro del template wsaa_cae.xml"),
                     QStringLiteral("I"));
    QString xml = llenar_plantilla(ctx, leer_plantilla_cae(ctx), datos);
    const std::optional<qint64> ultimo = servicio.ultimo_numero(
        tipo, kQuien,
        kQuien +
            QStringLiteral(
                ": No se pudo recuperar desde los servidores de la AFIP el número del último comprobante"));
    if (!ultimo || xml.isEmpty())
        return false;
    const qint64 numero = *ultimo + 1;
    xml.replace(QStringLiteral("%NUMERO_COMPROBANTE%"), QString::number(numero));
    xml = replace_more255(ctx, xml, QStringLiteral("</CondicionIVAReceptorId>"), asociacion(ctx, nota));
    const bool monotributo =
        ctx.leer_parametro(QStringLiteral("IF_tipo_IVA")) == QLatin1String("M - RESPONSABLE MONOTRIBUTO");
    const ImportesPedido importes = importes_nota_de_credito(ctx, nota.bruto_21, nota.bruto_105, monotributo);
    xml = poner_importes(xml, importes);
    ctx.escribir_log(QStringLiteral("Se armo correctamente el XML a mandar a la AFIP"), QStringLiteral("I"));

    const std::optional<CaeAutorizado> cae = servicio.solicitar(
        {nota.referencia, tipo, datos.punto_de_venta.toInt(), numero, importes.total, fecha}, xml);
    if (!cae)
        return false;
    emitida = {cae->cae, cae->vencimiento, numero};
    return true;
}

} // namespace

bool AFIP_Nota_de_Credito(ServicioCae &servicio, const NotaDeCreditoAfip &nota, NotaDeCreditoEmitida &emitida)
{
    Context &ctx = servicio.ctx();
    const Ocupada ocupada(ctx);
    try {
        return pedir(servicio, nota, emitida);
    } catch (const FiscalError &e) {
        ctx.op().error(
            QStringLiteral("Error en la conexión con la Impresora Fiscal"),
            QStringLiteral("ERR CLO001: Se produjo un error al intentar conectarse con la Impresora "
                           "Fiscal. Si el error persiste, reinicie el PC e intente nuevamente.\r\n") +
                QString::number(e.numero) + QStringLiteral(" - ") + e.descripcion);
        ctx.escribir_log(QStringLiteral("ERR CLO001 - %1 %2 %3").arg(e.numero).arg(e.fuente, e.descripcion),
                         QStringLiteral("E"));
    }
    return false;
}

bool AFIP_Nota_de_Credito(Context &ctx, const NotaDeCreditoAfip &nota, NotaDeCreditoEmitida &emitida)
{
    ServicioCae servicio(ctx);
    return AFIP_Nota_de_Credito(servicio, nota, emitida);
}

} // namespace vendrix

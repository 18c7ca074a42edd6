#include "afip/invoice/afip_invoice_device.h"

#include "afip/invoice/invoice_codes.h"
#include "afip/transport/afip_hosts.h"
#include "core/context.h"
#include "core/numeric.h"

#include <cmath>

namespace vendrix {

namespace {

const QString kQuien = QStringLiteral("FE_open_CAE_request");

bool sin_numero(const QString &numero)
{
    return numero.isEmpty() || numero == QLatin1String("0");
}

// The buyer's lines. The classes that must name their buyer (a buyer
// other than a final consumer, from a responsable inscripto) build them
// first, and an empty number there is told but doesn't stop the document;
// others name a buyer who gave a number, or the anonymous one.
QString documento_del_comprador(Context &ctx, const DocumentoFiscal &doc)
{
    const int codigo = doc.tipo_doc == QLatin1String("DNI") ? 96 : 80;
    ctx.escribir_log(QStringLiteral("se determino que el codigoTipoDocumento AFIP es: %1").arg(codigo),
                     QStringLiteral("I"));
    if (doc.iva_comprador != QLatin1String("F") && doc.iva_emisor == QLatin1String("I")) {
        if (sin_numero(doc.numero_doc)) {
            const QString texto = QStringLiteral("El Tipo de factura '") + doc.letra +
                                  QStringLiteral("' necesita obligatoriamente un CUIT del comprador para ser "
                                                 "informado a la AFIP. En este caso en particular, el CUIT "
                                                 "esta vacío.");
            ctx.op().error(QStringLiteral("Error en los datos"), texto);
            ctx.escribir_log(kQuien + QStringLiteral(": ") + texto, QStringLiteral("E"));
        }
        return bloque_documento(codigo, doc.numero_doc);
    }
    if (!sin_numero(doc.numero_doc))
        return bloque_documento(codigo, doc.numero_doc);
    return bloque_comprador_anonimo();
}

} // namespace

AfipInvoiceDevice::AfipInvoiceDevice(Context &ctx, std::unique_ptr<ServicioCae> servicio)
    : ctx_(ctx), servicio_(servicio ? std::move(servicio) : std::make_unique<ServicioCae>(ctx))
{
}

void AfipInvoiceDevice::abrir(DocumentoFiscal &doc)
{
    xml_.clear();
    referencia_ = doc.referencia;
    tipo_ = 0;
    numero_ = 0;
    totales_ = {};
    cae_.reset();

    if (!servicio_->ticket(kQuien))
        return;
    ctx_.escribir_log(es_produccion(ctx_)
                          ? QStringLiteral("Se enviará la peticion de CAE al ambiente de PRODUCCION")
                          : QStringLiteral("Se enviará la peticion de CAE al ambiente de HOMOLOGACION"),
                      QStringLiteral("I"));
    tipo_ = tipo_comprobante_factura(doc.letra, doc.es_nota_de_credito);
    doc.tipo_factura = QString::number(tipo_);
    fecha_ = ctx_.reloj().now().toString(QStringLiteral("yyyyMMdd"));
    const QString documento = documento_del_comprador(ctx_, doc);

    ctx_.escribir_log(kQuien + QStringLiteral(": Cargo los valores dentro del template wsaa_cae.xml"),
                      QStringLiteral("I"));
    const DatosPlantilla datos{ctx_.leer_parametro(QStringLiteral("FE_token")),
                               ctx_.leer_parametro(QStringLiteral("FE_sign")),
                               ctx_.leer_parametro(QStringLiteral("IF_CUIT")),
                               tipo_,
                               documento,
                               ctx_.leer_parametro(QStringLiteral("IF_PuntoDeVenta")),
                               fecha_,
                               condicion_iva_receptor(doc.letra, doc.iva_comprador)};
    xml_ = llenar_plantilla(ctx_, leer_plantilla_cae(ctx_), datos);

    const std::optional<qint64> ultimo = servicio_->ultimo_numero(
        tipo_, kQuien,
        QStringLiteral(
            "No se pudo recuperar desde los servidores de la AFIP el número del último comprobante"));
    if (!ultimo)
        return;
    numero_ = *ultimo + 1;
    xml_.replace(QStringLiteral("%NUMERO_COMPROBANTE%"), QString::number(numero_));
}

void AfipInvoiceDevice::agregar(ItemFiscal &item)
{
    if (!std::isfinite(item.tasa_iva)) {
        ctx_.escribir_log(
            QStringLiteral("Factura Electronica A.F.I.P. - El IVA del artículo no es un valor numerico: ") +
                QString::number(item.tasa_iva),
            QStringLiteral("E"));
        throw FiscalError(13, QStringLiteral("El IVA del artículo no es un valor numerico"),
                          QStringLiteral("IF_Add_Element"));
    }
    totales_.agregar(valor_texto(item.cantidad), valor_texto(item.precio), item.tasa_iva);
}

void AfipInvoiceDevice::cerrar(CierreFiscal &)
{
    // Without a ticket, a template or a number there is no request: the
    // operator was told when the document opened, and it gets no CAE.
    if (xml_.isEmpty() || numero_ == 0) {
        ctx_.escribir_log(
            QStringLiteral("No se envia el pedido de CAE: no hay un pedido completo para la AFIP"),
            QStringLiteral("E"));
        return;
    }
    const bool monotributo =
        ctx_.leer_parametro(QStringLiteral("IF_tipo_IVA")) == QLatin1String("M - RESPONSABLE MONOTRIBUTO");
    const ImportesPedido importes = importes_factura(ctx_, totales_, monotributo);
    xml_ = poner_importes(xml_, importes);
    const SolicitudCae solicitud{
        referencia_, tipo_,          ctx_.leer_parametro(QStringLiteral("IF_PuntoDeVenta")).toInt(),
        numero_,     importes.total, fecha_};
    cae_ = servicio_->solicitar(solicitud, xml_);
}

std::optional<CaeEmitido> AfipInvoiceDevice::cae_emitido() const
{
    if (!cae_)
        return std::nullopt;
    return CaeEmitido{cae_->cae, QString::number(numero_), cae_->vencimiento};
}

} // namespace vendrix

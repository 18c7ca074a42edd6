#include "afip/invoice/voucher_query.h"

#include "afip/auth/afip_services.h"
#include "afip/auth/wsaa_ticket.h"
#include "afip/transport/afip_hosts.h"
#include "afip/transport/soap.h"
#include "core/context.h"

#include <QStringList>

namespace vendrix {

namespace {

const QString kNoDisponible = QStringLiteral("N/A");
// WSFEv1's code for a voucher it holds no record of.
const QString kNoExiste = QStringLiteral("602");

// FECompConsultar in the SOAP 1.2 envelope of the other WSFEv1 requests,
// its query in the schema's order: CbteTipo, CbteNro, PtoVta.
QString pedido_consulta(const Context &ctx, int tipo, int punto_de_venta, qint64 numero)
{
    const QStringList lineas{
        QStringLiteral("<?xml version=\"1.0\" encoding=\"utf-8\"?>"),
        QStringLiteral("<soap:Envelope xmlns:soap=\"http://www.w3.org/2003/05/soap-envelope\" "
                       "xmlns=\"http://ar.gov.afip.dif.FEV1/\">"),
        QStringLiteral("  <soap:Header/>"),
        QStringLiteral("  <soap:Body>"),
        QStringLiteral("      <FECompConsultar>"),
        QStringLiteral("          <Auth>"),
        QStringLiteral("              <Token>%1</Token>").arg(ctx.leer_parametro(QStringLiteral("FE_token"))),
        QStringLiteral("              <Sign>%1</Sign>").arg(ctx.leer_parametro(QStringLiteral("FE_sign"))),
        QStringLiteral("              <Cuit>%1</Cuit>")
            .arg(ctx.leer_parametro(QStringLiteral("IF_CUIT")).remove(QLatin1Char('-'))),
        QStringLiteral("          </Auth>"),
        QStringLiteral("          <FeCompConsReq>"),
        QStringLiteral("              <CbteTipo>%1</CbteTipo>").arg(tipo),
        QStringLiteral("              <CbteNro>%1</CbteNro>").arg(numero),
        QStringLiteral("              <PtoVta>%1</PtoVta>").arg(punto_de_venta),
        QStringLiteral("          </FeCompConsReq>"),
        QStringLiteral("      </FECompConsultar>"),
        QStringLiteral("  </soap:Body>"),
        QStringLiteral("</soap:Envelope>")};
    return lineas.join(QStringLiteral("\r\n"));
}

ComprobanteAfip leer_respuesta(const QString &respuesta)
{
    ComprobanteAfip c;
    const QString resultado = leer_tag(QStringLiteral("ResultGet"), respuesta);
    if (resultado != kNoDisponible) {
        c.respondio = c.encontrado = true;
        c.cae = leer_tag(QStringLiteral("CodAutorizacion"), resultado);
        c.cae_vto = leer_tag(QStringLiteral("FchVto"), resultado);
        c.fecha = leer_tag(QStringLiteral("CbteFch"), resultado);
        c.total = leer_tag(QStringLiteral("ImpTotal"), resultado).toDouble();
        return c;
    }
    // Only "no such voucher" says the number is free; any other error (an
    // expired ticket, a fault) leaves the question open.
    const QString errores = leer_tag(QStringLiteral("Errors"), respuesta);
    if (errores != kNoDisponible && leer_tag(QStringLiteral("Code"), errores) == kNoExiste) {
        c.respondio = true;
        return c;
    }
    c.error = errores != kNoDisponible ? leer_tag(QStringLiteral("Msg"), errores) : respuesta;
    return c;
}

} // namespace

ComprobanteAfip consultar_comprobante(ServiciosAfip &servicios, int tipo, int punto_de_venta, qint64 numero)
{
    Context &ctx = servicios.ctx;
    if (!obtener_TRA(servicios)) {
        ComprobanteAfip c;
        c.error = QStringLiteral("No hay un ticket de acceso válido de la AFIP");
        return c;
    }
    const QString url = url_afip(ctx, ServicioAfip::wsfe, es_produccion(ctx),
                                 QStringLiteral("/wsfev1/service.asmx?op=FECompConsultar"));
    const QString pedido = pedido_consulta(ctx, tipo, punto_de_venta, numero);
    ctx.escribir_log(pedido, QStringLiteral("X"));
    const QString respuesta =
        enviar_SOAP(ctx, servicios.http, QString(), url, QStringLiteral("FECompConsultar"), pedido);
    ctx.escribir_log(respuesta, QStringLiteral("X"));
    return leer_respuesta(respuesta);
}

} // namespace vendrix

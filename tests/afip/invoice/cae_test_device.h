#pragma once

#include "afip/auth/afip_services.h"
#include "afip/auth/wsaa_ticket.h"
#include "afip/invoice/pending_cae.h"
#include "afip/transport/afip_hosts.h"
#include "afip/transport/soap.h"
#include "core/context.h"
#include "fiscal/fiscal_device.h"
#include "fiscal/front/fiscal_front.h"

namespace vendrix::test {

// The electronic invoice as the record of requests in flight sees it: each
// sale is one factura B of 1210 (1000 at 21 %) to an anonymous final
// consumer, point of sale 3, numbered from 1, asked of AFIP (the simulator)
// over the real transport. The request is written to `registro` before it
// goes out and its CAE as soon as it comes; a rejection drops it; with no
// answer the record stays and the sale fails.
class DispositivoCaePrueba final : public FiscalDevice {
public:
    DispositivoCaePrueba(ServiciosAfip &s, RegistroCaePendiente &registro, FiscalFront &front)
        : s_(s), registro_(registro), front_(front)
    {
    }

    void conectar() override {}
    void configurar() override {}
    QString probar() override { return {}; }
    std::optional<std::pair<int, QString>> modelo() override { return {}; }
    void abrir(DocumentoFiscal &doc) override { referencia_ = doc.referencia; }
    void agregar(ItemFiscal &) override {}
    void cierre_x() override {}
    void cierre_z() override {}
    void desconectar() override {}

    void cerrar(CierreFiscal &) override
    {
        Context &ctx = s_.ctx;
        const SolicitudCae pedido{referencia_,
                                  6,
                                  3,
                                  numero_,
                                  QStringLiteral("1210"),
                                  ctx.reloj().now().toString(QStringLiteral("yyyyMMdd"))};
        if (!obtener_TRA(s_) || !registro_.enviando(pedido))
            throw FiscalError(1, QStringLiteral("Sin ticket o sin registro"));
        const QString xml =
            QStringLiteral(
                "<?xml version=\"1.0\" encoding=\"utf-8\"?><soap:Envelope xmlns:soap=\"http://www.w3.org/"
                "2003/05/soap-envelope\" xmlns=\"http://ar.gov.afip.dif.FEV1/\"><soap:Body><FECAESolicitar>"
                "<Auth><Token>%1</Token><Sign>%2</Sign><Cuit>30712345671</Cuit></Auth><FeCAEReq><FeCabReq>"
                "<CantReg>1</CantReg><PtoVta>3</PtoVta><CbteTipo>6</CbteTipo></FeCabReq><FeDetReq>"
                "<FECAEDetRequest><Concepto>1</Concepto><DocTipo>80</DocTipo><DocNro>20111111112</DocNro>"
                "<CbteDesde>%3</CbteDesde><CbteHasta>%3</CbteHasta><CbteFch>%4</CbteFch><ImpTotal>1210"
                "</ImpTotal><ImpTotConc>0</ImpTotConc><ImpNeto>1000</ImpNeto><ImpOpEx>0</ImpOpEx><ImpTrib>0"
                "</ImpTrib><ImpIVA>210</ImpIVA><MonId>PES</MonId><MonCotiz>1</MonCotiz>"
                "<CondicionIVAReceptorId>5</CondicionIVAReceptorId><Iva><AlicIva><Id>5</Id><BaseImp>1000"
                "</BaseImp><Importe>210</Importe></AlicIva></Iva></FECAEDetRequest></FeDetReq></FeCAEReq>"
                "</FECAESolicitar></soap:Body></soap:Envelope>")
                .arg(ctx.leer_parametro(QStringLiteral("FE_token")),
                     ctx.leer_parametro(QStringLiteral("FE_sign")))
                .arg(numero_)
                .arg(pedido.fecha);
        const QString respuesta = enviar_SOAP(
            ctx, s_.http, {},
            url_afip(ctx, ServicioAfip::wsfe, false, QStringLiteral("/wsfev1/service.asmx")), {}, xml);
        const QString resultado = leer_tag(QStringLiteral("Resultado"), respuesta);
        if (resultado == QLatin1String("A")) {
            const QString cae = leer_tag(QStringLiteral("CAE"), respuesta);
            const QString vto = leer_tag(QStringLiteral("CAEFchVto"), respuesta);
            registro_.autorizado(referencia_, cae, vto);
            front_.recibir_cae(cae, QString::number(numero_++), vto);
            return;
        }
        if (resultado == QLatin1String("R"))
            registro_.descartado(referencia_);
        throw FiscalError(2, respuesta);
    }

private:
    ServiciosAfip &s_;
    RegistroCaePendiente &registro_;
    FiscalFront &front_;
    QString referencia_;
    qint64 numero_ = 1;
};

} // namespace vendrix::test

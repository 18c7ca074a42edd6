#include "afip/invoice/cae_service.h"

#include "afip/auth/wsaa_ticket.h"
#include "afip/transport/afip_hosts.h"
#include "afip/transport/qt_http_client.h"
#include "afip/transport/soap.h"
#include "core/context.h"
#include "core/numeric.h"
#include "fiscal/fiscal_device.h"

#include <QFile>

#include <cmath>

namespace vendrix {

namespace {

const QString kTituloFacturacion = QStringLiteral("Error en los datos de la facturación");
const QString kSinUltimoNumero =
    QStringLiteral("No se pudo recuperar desde los servidores de la AFIP el número del último comprobante. ");
const QString kDatosErroneos = QStringLiteral("Hay un error en los datos ingresados, por favor controle los "
                                              "datos (por ejemplo que el CUIT coincida con "
                                              "la condición del IVA) e intente nuevamente. ");

QString leer_archivo(Context &ctx, const QString &nombre)
{
    QFile f(ctx.ruta(nombre));
    return f.open(QIODevice::ReadOnly) ? QString::fromUtf8(f.readAll()) : QString();
}

// The transport's text when no answer came at all.
bool sin_respuesta_http(const QString &respuesta)
{
    return respuesta.startsWith(QLatin1String("Error: "));
}

QString comprobante(const SolicitudCae &s)
{
    return QStringLiteral("%1 del punto de venta %2 (tipo %3)")
        .arg(s.numero)
        .arg(s.punto_de_venta)
        .arg(s.tipo);
}

} // namespace

QString leer_plantilla_cae(Context &ctx)
{
    return leer_archivo(ctx, QStringLiteral("wsaa_cae.xml"));
}

ServicioCae::ServicioCae(Context &ctx, std::unique_ptr<ClienteHttp> http,
                         std::unique_ptr<RegistroCaePendiente> registro, Consulta consultar)
    : ctx_(ctx),
      http_(http ? std::move(http) : std::make_unique<ClienteHttpQt>(ctx)), servicios_{ctx, *http_},
      registro_(registro ? std::move(registro) : registro_cae_de_la_tienda(ctx)),
      consultar_(consultar ? std::move(consultar) : Consulta(consultar_comprobante))
{
}

ServicioCae::~ServicioCae() = default;

bool ServicioCae::ticket(const QString &quien)
{
    if (obtener_TRA(servicios_))
        return true;
    ctx_.escribir_log(quien + QStringLiteral(": No existe un TRA valido para realizar el pedido de CAE"),
                      QStringLiteral("E"));
    return false;
}

QString ServicioCae::url(const QString &operacion) const
{
    return url_afip(ctx_, ServicioAfip::wsfe, es_produccion(ctx_),
                    QStringLiteral("/wsfev1/service.asmx?op=") + operacion);
}

std::optional<qint64> ServicioCae::ultimo_numero(int tipo, const QString &quien, const QString &linea_error)
{
    const QString punto_de_venta = ctx_.leer_parametro(QStringLiteral("IF_PuntoDeVenta"));
    QString xml = leer_archivo(ctx_, QStringLiteral("wsfe_cae_fact_request.xml"));
    xml.replace(QStringLiteral("%TOKEN%"), ctx_.leer_parametro(QStringLiteral("FE_token")));
    xml.replace(QStringLiteral("%SIGN%"), ctx_.leer_parametro(QStringLiteral("FE_sign")));
    xml.replace(QStringLiteral("%CUIT%"),
                ctx_.leer_parametro(QStringLiteral("IF_CUIT")).remove(QLatin1Char('-')));
    xml.replace(QStringLiteral("%TIPO_COMPROBANTE%"), QString::number(tipo));
    xml.replace(QStringLiteral("%PUNTO_DE_VENTA%"), punto_de_venta);
    ctx_.escribir_log(xml, QStringLiteral("X"));
    const QString respuesta =
        enviar_SOAP(ctx_, *http_, {}, url(QStringLiteral("FECompUltimoAutorizado")), {}, xml);
    ctx_.escribir_log(respuesta, QStringLiteral("X"));

    // Without an answer there is no number either: a request numbered
    // blindly could neither be authorised nor settled later.
    const bool error_afip = respuesta.contains(QLatin1String("<Errors><Err><Code>"));
    if (error_afip || sin_respuesta_http(respuesta)) {
        ctx_.op().error(kTituloFacturacion,
                        kSinUltimoNumero +
                            (error_afip ? leer_tag(QStringLiteral("Msg"), respuesta) : respuesta));
        ctx_.escribir_log(linea_error, QStringLiteral("E"));
        return std::nullopt;
    }
    const QString numero = leer_tag(QStringLiteral("CbteNro"), respuesta);
    ctx_.escribir_log(quien + QStringLiteral(": la AFIP respondio con el numero de factura: ") + numero +
                          QStringLiteral(" para el punto de venta: ") + punto_de_venta +
                          QStringLiteral(" y el tipo de factura: ") + QString::number(tipo),
                      QStringLiteral("I"));
    bool ok = false;
    const qint64 n = numero.trimmed().toLongLong(&ok);
    return ok ? n : 0;
}

std::optional<CaeAutorizado> ServicioCae::solicitar(const SolicitudCae &s, const QString &xml)
{
    if (!registro_->enviando(s))
        throw FiscalError(
            0,
            QStringLiteral("No se pudo registrar el pedido de CAE en la base de datos, por eso no "
                           "se envió a la AFIP. La venta no se facturó."),
            QStringLiteral("FECAESolicitar"));
    ctx_.escribir_log(xml, QStringLiteral("X"));
    const QString respuesta = enviar_SOAP(ctx_, *http_, {}, url(QStringLiteral("FECAESolicitar")),
                                          QStringLiteral("http://ar.gov.afip.dif.FEV1/FECAESolicitar"), xml);
    ctx_.escribir_log(respuesta, QStringLiteral("X"));
    if (sin_respuesta_http(respuesta))
        return sin_respuesta(s);

    const QString cae = leer_tag(QStringLiteral("CAE"), respuesta).trimmed();
    const QString resultado = leer_tag(QStringLiteral("Resultado"), respuesta);
    bool numerico = false;
    cae.toLongLong(&numerico);
    if (resultado == QLatin1String("A") && numerico) {
        QString vto = leer_tag(QStringLiteral("CAEFchVto"), respuesta);
        if (vto == QLatin1String("N/A"))
            vto.clear();
        registro_->autorizado(s.referencia, cae, vto);
        return CaeAutorizado{cae, vto};
    }
    if (resultado != QLatin1String("R") && !respuesta.contains(QLatin1String("<Errors>")))
        // An answer that says neither yes nor no (a fault of the server):
        // whether AFIP took the number is asked as if none had come.
        return sin_respuesta(s);

    registro_->descartado(s.referencia);
    if (!respuesta.contains(QLatin1String("<Msg>")))
        return std::nullopt;
    const QString msg = leer_tag(QStringLiteral("Msg"), respuesta);
    ctx_.op().error(kTituloFacturacion, msg + QStringLiteral("\r\n") + kDatosErroneos);
    throw FiscalError(leer_tag(QStringLiteral("Code"), respuesta).toInt(), msg,
                      QStringLiteral("FECAESolicitar"));
}

std::optional<CaeAutorizado> ServicioCae::sin_respuesta(const SolicitudCae &s)
{
    ctx_.escribir_log(QStringLiteral("La AFIP no respondió al pedido de CAE del comprobante ") +
                          comprobante(s) + QStringLiteral(": se consulta si lo autorizó"),
                      QStringLiteral("E"));
    const ComprobanteAfip c = consultar_(servicios_, s.tipo, s.punto_de_venta, s.numero);
    // The voucher is ours only with the total we sent: another with that
    // number would be another point of sale's.
    if (c.respondio && c.encontrado && !c.cae.isEmpty() &&
        std::fabs(c.total - valor_texto(s.total)) < 0.005) {
        ctx_.escribir_log(QStringLiteral("La AFIP tiene autorizado el comprobante ") + comprobante(s) +
                              QStringLiteral(" con el CAE '") + c.cae + QStringLiteral("': se toma ese CAE"),
                          QStringLiteral("I"));
        registro_->autorizado(s.referencia, c.cae, c.cae_vto);
        return CaeAutorizado{c.cae, c.cae_vto};
    }
    if (c.respondio) {
        registro_->descartado(s.referencia);
        ctx_.escribir_log(QStringLiteral("La AFIP no autorizo el comprobante ") + comprobante(s) +
                              QStringLiteral(": el numero no se uso"),
                          QStringLiteral("E"));
        throw FiscalError(0,
                          QStringLiteral("La AFIP no respondió al pedido de CAE y no tiene autorizado el "
                                         "comprobante número %1: la venta no se facturó. Intente nuevamente.")
                              .arg(s.numero),
                          QStringLiteral("FECAESolicitar"));
    }
    ctx_.escribir_log(QStringLiteral("La AFIP tampoco respondió la consulta del comprobante ") +
                          comprobante(s) + QStringLiteral(": queda pendiente (") + c.error + QLatin1Char(')'),
                      QStringLiteral("E"));
    throw FiscalError(
        0,
        QStringLiteral("La AFIP no respondió al pedido de CAE del comprobante número %1. La venta "
                       "no se guardó: Vendrix consultará a la AFIP por ese comprobante antes de "
                       "la próxima factura y le informará el resultado.")
            .arg(s.numero),
        QStringLiteral("FECAESolicitar"));
}

} // namespace vendrix

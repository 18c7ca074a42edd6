// PROVISIONAL: stand-ins for the signature, certificate and transport
// functions, so that this branch links and its tests run on their own.
// Delete this file when the real implementations are merged (and define
// crear_cliente_http beside the real HTTPS client).
#include "afip/auth/afip_services.h"
#include "afip/transport/afip_hosts.h"
#include "afip/transport/http_client.h"
#include "afip/transport/soap.h"
#include "core/context.h"

#include <QLocale>

namespace vendrix {

FirmaCms firmar_cms(const QByteArray &, const QString &ruta_certificado, const QString &)
{
    return {{}, QStringLiteral("No se pudo leer el certificado '") + ruta_certificado + QStringLiteral("'.")};
}

VencimientoCertificado leer_vencimiento(const QString &ruta_certificado)
{
    return {std::nullopt,
            QStringLiteral("No se pudo leer el certificado '") + ruta_certificado + QStringLiteral("'.")};
}

bool vigente_dentro_de(const QDateTime &fin, const QDateTime &ahora, qint64 segundos)
{
    return ahora.addSecs(segundos) < fin;
}

QString texto_not_after(const QDateTime &fin)
{
    const QDateTime utc = fin.toUTC();
    return QLocale::c().toString(utc.date(), QStringLiteral("MMM")) + QLatin1Char(' ') +
           QStringLiteral("%1").arg(utc.date().day(), 2) + QLatin1Char(' ') +
           utc.time().toString(QStringLiteral("HH:mm:ss")) + QLatin1Char(' ') +
           QString::number(utc.date().year()) + QStringLiteral(" GMT");
}

bool es_produccion(const Context &ctx)
{
    return ctx.leer_parametro(QStringLiteral("IF_FE_Modo_Operacion")) == QStringLiteral("Producción");
}

QString url_afip(const Context &ctx, ServicioAfip servicio, bool produccion, const QString &ruta)
{
    const QString pruebas = ctx.leer_parametro(QStringLiteral("FE_servidor_pruebas"));
    if (!pruebas.isEmpty())
        return pruebas + ruta;
    switch (servicio) {
    case ServicioAfip::wsaa:
        return (produccion ? QStringLiteral("https://wsaa.afip.gov.ar")
                           : QStringLiteral("https://wsaahomo.afip.gov.ar")) +
               ruta;
    case ServicioAfip::wsfe:
        return (produccion ? QStringLiteral("https://servicios1.afip.gov.ar")
                           : QStringLiteral("https://wswhomo.afip.gov.ar")) +
               ruta;
    case ServicioAfip::padron:
        break;
    }
    return (produccion ? QStringLiteral("https://aws.afip.gov.ar")
                       : QStringLiteral("https://awshomo.afip.gov.ar")) +
           ruta;
}

QString enviar_SOAP(Context &, ClienteHttp &http, const QString &, const QString &url, const QString &,
                    const QString &xml, bool)
{
    const RespuestaHttp r =
        http.post({url, xml.toUtf8(), {{"Content-Type", "text/xml; charset=utf-8"}, {"SOAPAction", ""}}});
    return r.ok ? r.texto : QStringLiteral("Error: 0 - ") + r.error;
}

QString leer_tag(const QString &tag, const QString &texto)
{
    const QString alto = texto.toUpper();
    const QString abre = QLatin1Char('<') + tag.toUpper() + QLatin1Char('>');
    const QString cierra = QStringLiteral("</") + tag.toUpper() + QLatin1Char('>');
    const qsizetype i = alto.indexOf(abre);
    const qsizetype j = i < 0 ? -1 : alto.indexOf(cierra, i + abre.size());
    if (i < 0 || j < 0)
        return QStringLiteral("N/A");
    return texto.mid(i + abre.size(), j - i - abre.size());
}

QString replace_more255(Context &, const QString &texto, const QString &marca, const QString &valor)
{
    QString r = texto;
    const qsizetype p = r.indexOf(marca);
    return p < 0 ? r : r.replace(p, marca.size(), valor);
}

namespace {
class SinTransporte final : public ClienteHttp {
public:
    RespuestaHttp post(const PeticionHttp &) override
    {
        return {false, 0, {}, QStringLiteral("Sin transporte HTTPS")};
    }
};
} // namespace

std::unique_ptr<ClienteHttp> crear_cliente_http(Context &)
{
    return std::make_unique<SinTransporte>();
}

} // namespace vendrix

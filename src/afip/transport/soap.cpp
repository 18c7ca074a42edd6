#include "afip/transport/soap.h"

#include "afip/transport/http_client.h"
#include "core/context.h"

namespace vendrix {
namespace {

bool parece_soap(const QString &url, const QString &xml)
{
    return !url.isEmpty() && !xml.isEmpty() && xml.left(6).contains(QLatin1String("<?xml")) &&
           (xml.contains(QLatin1String("<soap:Envelope")) ||
            xml.contains(QLatin1String("<soapenv:Envelope"))) &&
           (xml.contains(QLatin1String("<soap:Body>")) || xml.contains(QLatin1String("<soapenv:Body>")));
}

RespuestaHttp enviar(ClienteHttp &http, const QString &url, const QString &xml,
                     const QList<std::pair<QByteArray, QByteArray>> &cabeceras)
{
    return http.post({url, xml.toUtf8(), cabeceras});
}

QString texto_de(const RespuestaHttp &respuesta)
{
    if (respuesta.ok)
        return respuesta.texto;
    return QStringLiteral("Error: %1 - %2").arg(respuesta.codigo).arg(respuesta.error);
}

} // namespace

QString enviar_SOAP(Context &ctx, ClienteHttp &http, const QString &destino, const QString &url,
                    const QString &accion, const QString &xml, bool sin_validar)
{
    Q_UNUSED(destino);
    Q_UNUSED(accion);
    if (!sin_validar && !parece_soap(url, xml))
        return QStringLiteral(
            "La estructura del archivo XML no parece correcta para ser un SOAP. Mira el log para "
            "ver que paso");

    ctx.escribir_log(QStringLiteral("PostWebservice: creo un objeto del tipo MSXML2.XMLHTTP"),
                     QStringLiteral("I"));
    QList<std::pair<QByteArray, QByteArray>> cabeceras{{"Content-Type", "text/xml; charset=utf-8"}};
    // The SOAP action always goes out empty: AFIP's services dispatch on
    // the body.
    const QString soap_action;
    if (xml.contains(QLatin1String("soap"), Qt::CaseInsensitive)) {
        cabeceras.append({"SOAPAction", soap_action.toUtf8()});
        ctx.escribir_log(QStringLiteral("PostWebservice: SOAPAction") + soap_action, QStringLiteral("I"));
    }
    return texto_de(enviar(http, url, xml, cabeceras));
}

QString post_soap(ClienteHttp &http, const QString &url, const QString &xml,
                  const QList<std::pair<QByteArray, QByteArray>> &cabeceras)
{
    return texto_de(enviar(http, url, xml, cabeceras));
}

QString leer_tag(const QString &tag, const QString &texto)
{
    const QString apertura = QLatin1Char('<') + tag + QLatin1Char('>');
    const QString cierre = QStringLiteral("</") + tag + QLatin1Char('>');
    const qsizetype desde = texto.indexOf(apertura, 0, Qt::CaseInsensitive);
    if (desde < 0)
        return QStringLiteral("N/A");
    const qsizetype inicio = desde + apertura.size();
    const qsizetype hasta = texto.indexOf(cierre, inicio, Qt::CaseInsensitive);
    if (hasta < 0)
        return QStringLiteral("N/A");
    return texto.mid(inicio, hasta - inicio);
}

QString replace_more255(Context &ctx, const QString &texto, const QString &marca, const QString &valor)
{
    const qsizetype posicion = texto.indexOf(marca);
    // The position counts from 1, 0 when the mark is missing; the length
    // is that of the value put in.
    ctx.escribir_log(QStringLiteral("replace_more255 - en la posicion '%1' por largo '%2'.")
                         .arg(posicion + 1)
                         .arg(valor.size()),
                     QStringLiteral("I"));
    if (posicion < 0)
        return texto;
    return texto.left(posicion) + valor + texto.mid(posicion + marca.size());
}

} // namespace vendrix

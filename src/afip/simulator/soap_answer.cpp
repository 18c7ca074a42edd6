#include "afip/simulator/soap_answer.h"

#include "afip/simulator/xml_tree.h"

namespace vendrix::simulador {

namespace {

const QString kEsquemas = QStringLiteral(" xmlns:xsi=\"http://www.w3.org/2001/XMLSchema-instance\""
                                         " xmlns:xsd=\"http://www.w3.org/2001/XMLSchema\"");

} // namespace

RespuestaSimulada sobre_soap(const QString &ns_sobre, const QString &cuerpo, const QString &cabecera)
{
    const bool soap12 = ns_sobre == QLatin1String(kSobreSoap12);
    RespuestaSimulada r;
    r.tipo = soap12 ? "application/soap+xml; charset=utf-8" : "text/xml; charset=utf-8";
    QString texto =
        QStringLiteral("<?xml version=\"1.0\" encoding=\"utf-8\"?><soap:Envelope xmlns:soap=\"%1\"%2>")
            .arg(soap12 ? QLatin1String(kSobreSoap12) : QLatin1String(kSobreSoap11), kEsquemas);
    if (!cabecera.isEmpty())
        texto += QStringLiteral("<soap:Header>") + cabecera + QStringLiteral("</soap:Header>");
    texto += QStringLiteral("<soap:Body>") + cuerpo + QStringLiteral("</soap:Body></soap:Envelope>");
    r.cuerpo = texto.toUtf8();
    return r;
}

RespuestaSimulada falla_soap(const QString &codigo, const QString &texto, const QString &detalle)
{
    const QString declaracion = codigo.startsWith(QLatin1String("ns1:"))
                                    ? QStringLiteral(" xmlns:ns1=\"http://xml.apache.org/axis/\"")
                                    : QString();
    QString cuerpo = QStringLiteral("<soapenv:Fault><faultcode%1>%2</faultcode>").arg(declaracion, codigo) +
                     elemento(QStringLiteral("faultstring"), texto);
    if (!detalle.isEmpty())
        cuerpo += QStringLiteral("<detail>") + detalle + QStringLiteral("</detail>");
    cuerpo += QStringLiteral("</soapenv:Fault>");
    RespuestaSimulada r;
    r.estado = 500;
    r.cuerpo =
        (QStringLiteral("<?xml version=\"1.0\" encoding=\"UTF-8\"?><soapenv:Envelope xmlns:soapenv=\"%1\"%2>"
                        "<soapenv:Body>")
             .arg(QLatin1String(kSobreSoap11), kEsquemas) +
         cuerpo + QStringLiteral("</soapenv:Body></soapenv:Envelope>"))
            .toUtf8();
    return r;
}

RespuestaSimulada respuesta_texto(int estado, const QByteArray &texto)
{
    RespuestaSimulada r;
    r.estado = estado;
    r.tipo = "text/plain; charset=utf-8";
    r.cuerpo = texto;
    return r;
}

} // namespace vendrix::simulador

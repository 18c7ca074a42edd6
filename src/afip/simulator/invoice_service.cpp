#include "afip/simulator/invoice_service.h"

#include "afip/simulator/login_service.h"
#include "afip/simulator/voucher_checks.h"
#include "core/clock.h"

#include <QLocale>
#include <QRandomGenerator>

namespace vendrix::simulador {

namespace {

const QString kNsFacturas = QStringLiteral("http://ar.gov.afip.dif.FEV1/");

QString lista_errores(const QString &contenedor, const QString &entrada, const QList<ErrorAfip> &errores)
{
    if (errores.isEmpty())
        return {};
    QString xml = QStringLiteral("<%1>").arg(contenedor);
    for (const ErrorAfip &e : errores)
        xml += QStringLiteral("<%1><Code>%2</Code>%3</%1>")
                   .arg(entrada)
                   .arg(e.codigo)
                   .arg(elemento("Msg", e.mensaje));
    return xml + QStringLiteral("</%1>").arg(contenedor);
}

QString errores_xml(const QList<ErrorAfip> &errores)
{
    return lista_errores(QStringLiteral("Errors"), QStringLiteral("Err"), errores);
}

// The same element with its amounts written as AFIP echoes them.
NodoXml con_importes_afip(NodoXml nodo)
{
    static const QStringList importes{"ImpTotal", "ImpTotConc", "ImpNeto", "ImpOpEx", "ImpTrib",
                                      "ImpIVA",   "MonCotiz",   "BaseImp", "Importe", "Alic"};
    if (importes.contains(nodo.nombre))
        nodo.texto = importe_afip(nodo.texto.trimmed());
    for (NodoXml &h : nodo.hijos)
        h = con_importes_afip(h);
    return nodo;
}

QString cae_nuevo()
{
    QString cae = QStringLiteral("7");
    for (int i = 0; i < 13; ++i)
        cae += QChar(u'0' + QRandomGenerator::global()->bounded(10));
    return cae;
}

QString fecha_utc(const QDateTime &hora)
{
    return QLocale::c().toString(hora.toUTC(), QStringLiteral("M/d/yyyy h:mm:ss AP"));
}

} // namespace

RespuestaSimulada ServicioFacturas::atender(const QString &operacion, const NodoXml &pedido,
                                            const QString &ns_sobre, Modo modo)
{
    const QDateTime ahora = reloj_.now();
    const QString cabecera =
        QStringLiteral("<FEHeaderInfo xmlns=\"%1\"><ambiente>HomologacionExterno - simulador"
                       "</ambiente><fecha>%2</fecha><id>4.3.0.0</id></FEHeaderInfo>")
            .arg(kNsFacturas, ahora.toOffsetFromUtc(-3 * 3600).toString(Qt::ISODateWithMs));
    QString resultado;
    bool descartar = false;
    if (operacion == QLatin1String("FEDummy")) {
        resultado =
            QStringLiteral("<AppServer>OK</AppServer><DbServer>OK</DbServer><AuthServer>OK</AuthServer>");
    } else if (operacion == QLatin1String("FECompUltimoAutorizado")) {
        const int pto_vta = pedido.texto_de(QStringLiteral("PtoVta")).toInt();
        const int tipo = pedido.texto_de(QStringLiteral("CbteTipo")).toInt();
        const QStringList orden = {QStringLiteral("Auth"), QStringLiteral("PtoVta"),
                                   QStringLiteral("CbteTipo")};
        const QList<ErrorAfip> esquema = revisar_orden(pedido, orden, orden);
        const QString error = esquema.isEmpty() ? error_de_ticket(pedido) : errores_xml(esquema);
        resultado =
            error.isEmpty()
                ? QStringLiteral("<PtoVta>%1</PtoVta><CbteTipo>%2</CbteTipo><CbteNro>%3</CbteNro>")
                      .arg(pto_vta)
                      .arg(tipo)
                      .arg(ultimo(pto_vta, tipo))
                : QStringLiteral("<PtoVta>0</PtoVta><CbteTipo>0</CbteTipo><CbteNro>0</CbteNro>") + error;
    } else if (operacion == QLatin1String("FECAESolicitar")) {
        resultado = error_de_ticket(pedido);
        if (resultado.isEmpty())
            resultado = solicitar(pedido, modo, descartar);
    } else if (operacion == QLatin1String("FECompConsultar")) {
        const QStringList orden = {QStringLiteral("CbteTipo"), QStringLiteral("CbteNro"),
                                   QStringLiteral("PtoVta")};
        const NodoXml *req = pedido.hijo(QStringLiteral("FeCompConsReq"));
        QList<ErrorAfip> esquema =
            revisar_orden(pedido, {QStringLiteral("Auth"), QStringLiteral("FeCompConsReq")},
                          {QStringLiteral("Auth"), QStringLiteral("FeCompConsReq")});
        if (req)
            esquema += revisar_orden(*req, orden, orden);
        resultado = esquema.isEmpty() ? error_de_ticket(pedido) : errores_xml(esquema);
        if (resultado.isEmpty())
            resultado = consultar(pedido);
    } else {
        return falla_soap(QStringLiteral("soap:Client"),
                          QStringLiteral("El servidor no reconoce la operacion '%1'.").arg(operacion));
    }
    RespuestaSimulada r =
        sobre_soap(ns_sobre,
                   QStringLiteral("<%1Response xmlns=\"%2\"><%1Result>%3</%1Result></%1Response>")
                       .arg(operacion, kNsFacturas, resultado),
                   cabecera);
    if (descartar)
        r.entrega = RespuestaSimulada::Entrega::cerrar;
    return r;
}

QString ServicioFacturas::error_de_ticket(const NodoXml &pedido) const
{
    const NodoXml *auth = pedido.hijo(QStringLiteral("Auth"));
    const TicketEmitido *t =
        auth ? login_.ticket(auth->texto_de(QStringLiteral("Token")), auth->texto_de(QStringLiteral("Sign")),
                             QStringLiteral("wsfe"))
             : nullptr;
    if (!t)
        return errores_xml(
            {{600, QStringLiteral("ValidacionDeToken: Error al verificar hash: el token o la firma "
                                  "no corresponden a un ticket de acceso emitido para wsfe")}});
    const QDateTime ahora = reloj_.now();
    if (t->expiracion < ahora)
        return errores_xml(
            {{600,
              QStringLiteral("ValidacionDeToken: No validaron las fechas del token GenTime, ExpTime, NowUTC: "
                             "%1 (%2), %3 (%4), %5")
                  .arg(t->generacion.toSecsSinceEpoch())
                  .arg(fecha_utc(t->generacion))
                  .arg(t->expiracion.toSecsSinceEpoch())
                  .arg(fecha_utc(t->expiracion), fecha_utc(ahora))}});
    return {};
}

QString ServicioFacturas::solicitar(const NodoXml &pedido, Modo modo, bool &descartar)
{
    const NodoXml *req = pedido.hijo(QStringLiteral("FeCAEReq"));
    const NodoXml *cab = req ? req->hijo(QStringLiteral("FeCabReq")) : nullptr;
    const NodoXml *det = req ? req->hijo(QStringLiteral("FeDetReq")) : nullptr;
    if (!cab || !det)
        return errores_xml({{kErrorEsquema, QStringLiteral("Falta FeCAEReq con FeCabReq y FeDetReq.")}});
    QList<ErrorAfip> errores =
        revisar_orden(*cab, {"CantReg", "PtoVta", "CbteTipo"}, {"CantReg", "PtoVta", "CbteTipo"});
    const int pto_vta = cab->texto_de(QStringLiteral("PtoVta")).toInt();
    const int tipo = cab->texto_de(QStringLiteral("CbteTipo")).toInt();
    if (cab->texto_de(QStringLiteral("CantReg")).toInt() != det->hijos.size())
        errores.append(
            {10001, QStringLiteral("La cantidad de registros informada en CantReg no coincide con la "
                                   "cantidad de registros del detalle.")});
    const QDateTime ahora = reloj_.now();
    qint64 siguiente = ultimo(pto_vta, tipo) + 1;
    for (const NodoXml &d : det->hijos) {
        errores += revisar_detalle(d);
        const qint64 desde = d.texto_de(QStringLiteral("CbteDesde")).toLongLong();
        if (desde != siguiente || d.texto_de(QStringLiteral("CbteHasta")).toLongLong() != desde)
            errores.append(
                {10016, QStringLiteral("El numero o fecha del comprobante no se corresponde con el proximo "
                                       "a autorizar. Consultar metodo FECompUltimoAutorizado.")});
        ++siguiente;
    }

    const bool aprobado = errores.isEmpty() && modo != Modo::rechazo;
    QString observaciones;
    if (errores.isEmpty() && modo == Modo::rechazo)
        observaciones = lista_errores(
            QStringLiteral("Observaciones"), QStringLiteral("Obs"),
            {{10013,
              QStringLiteral("Para comprobantes clase A y M el campo DocTipo debe ser igual a 80 (CUIT).")}});
    else if (aprobado && modo == Modo::observaciones)
        observaciones = lista_errores(
            QStringLiteral("Observaciones"), QStringLiteral("Obs"),
            {{10217,
              QStringLiteral("El credito fiscal discriminado en el presente comprobante solo podra ser "
                             "computado a efectos del Procedimiento permanente de transicion al Regimen "
                             "General.")}});
    const QString resultado = aprobado ? QStringLiteral("A") : QStringLiteral("R");
    const QString proceso = ahora.toString(QStringLiteral("yyyyMMddHHmmss"));
    QString xml = QStringLiteral("<FeCabResp><Cuit>%1</Cuit><PtoVta>%2</PtoVta><CbteTipo>%3</CbteTipo>"
                                 "<FchProceso>%4</FchProceso><CantReg>%5</CantReg><Resultado>%6</Resultado>"
                                 "<Reproceso>N</Reproceso></FeCabResp><FeDetResp>")
                      .arg(pedido.hijo(QStringLiteral("Auth"))->texto_de(QStringLiteral("Cuit")))
                      .arg(pto_vta)
                      .arg(tipo)
                      .arg(proceso)
                      .arg(det->hijos.size())
                      .arg(resultado);
    for (const NodoXml &d : det->hijos) {
        xml += QStringLiteral("<FECAEDetResponse>");
        for (const char *campo : {"Concepto", "DocTipo", "DocNro", "CbteDesde", "CbteHasta", "CbteFch"})
            xml += elemento(QLatin1String(campo), d.texto_de(QLatin1String(campo)));
        xml += elemento(QStringLiteral("Resultado"), resultado) + observaciones;
        if (!aprobado) {
            xml += QStringLiteral("<CAE /><CAEFchVto /></FECAEDetResponse>");
            continue;
        }
        Comprobante c{pto_vta, tipo,         d.texto_de(QStringLiteral("CbteDesde")).toLongLong(),
                      d,       cae_nuevo(),  ahora.date().addDays(10).toString(QStringLiteral("yyyyMMdd")),
                      proceso, observaciones};
        ultimos_[{pto_vta, tipo}] = c.numero;
        comprobantes_.append(c);
        xml += elemento(QStringLiteral("CAE"), c.cae) + elemento(QStringLiteral("CAEFchVto"), c.vencimiento) +
               QStringLiteral("</FECAEDetResponse>");
    }
    descartar = aprobado && modo == Modo::procesar_sin_responder;
    return xml + QStringLiteral("</FeDetResp>") + errores_xml(errores);
}

QString ServicioFacturas::consultar(const NodoXml &pedido) const
{
    const NodoXml *req = pedido.hijo(QStringLiteral("FeCompConsReq"));
    const int tipo = req ? req->texto_de(QStringLiteral("CbteTipo")).toInt() : 0;
    const qint64 numero = req ? req->texto_de(QStringLiteral("CbteNro")).toLongLong() : 0;
    const int pto_vta = req ? req->texto_de(QStringLiteral("PtoVta")).toInt() : 0;
    for (const Comprobante &c : comprobantes_) {
        if (c.pto_vta != pto_vta || c.tipo != tipo || c.numero != numero)
            continue;
        const NodoXml detalle = con_importes_afip(c.detalle);
        QString xml = QStringLiteral("<ResultGet>");
        for (const QString &campo : orden_detalle()) {
            const NodoXml *h = detalle.hijo(campo);
            const bool siempre =
                campo.startsWith(QLatin1String("FchServ")) || campo == QLatin1String("FchVtoPago");
            if (h)
                xml += h->como_xml();
            else if (siempre)
                xml += QStringLiteral("<%1/>").arg(campo);
        }
        xml +=
            QStringLiteral("<Resultado>A</Resultado>") + elemento(QStringLiteral("CodAutorizacion"), c.cae) +
            QStringLiteral("<EmisionTipo>CAE</EmisionTipo>") +
            elemento(QStringLiteral("FchVto"), c.vencimiento) +
            elemento(QStringLiteral("FchProceso"), c.proceso) + c.observaciones +
            QStringLiteral("<PtoVta>%1</PtoVta><CbteTipo>%2</CbteTipo></ResultGet>").arg(pto_vta).arg(tipo);
        return xml;
    }
    return errores_xml(
        {{602, QStringLiteral("No existen datos en nuestros registros para los parametros ingresados.")}});
}

} // namespace vendrix::simulador

#include "afip/simulator/taxpayer_service.h"

#include "afip/simulator/login_service.h"
#include "afip/simulator/xml_tree.h"
#include "core/clock.h"

namespace vendrix::simulador {

namespace {

struct Domicilio {
    const char *codigo_postal;
    const char *provincia;
    const char *direccion;
    int id_provincia;
    const char *localidad;
    const char *tipo;
};

QString domicilio_xml(const Domicilio &d)
{
    return QStringLiteral("<domicilio>") + elemento("codigoPostal", QString::fromUtf8(d.codigo_postal)) +
           elemento("descripcionProvincia", QString::fromUtf8(d.provincia)) +
           elemento("direccion", QString::fromUtf8(d.direccion)) +
           QStringLiteral("<estadoDomicilio>CONFIRMADO</estadoDomicilio><idProvincia>%1</idProvincia>")
               .arg(d.id_provincia) +
           elemento("localidad", QString::fromUtf8(d.localidad)) +
           elemento("tipoDomicilio", QString::fromUtf8(d.tipo)) + QStringLiteral("</domicilio>");
}

// The register's entry for a CUIT, its elements in the schema's order;
// empty when nobody holds it.
QString persona_xml(const QString &cuit)
{
    if (cuit == QLatin1String(kCuitPersona))
        return elemento("apellido", QStringLiteral("GOMEZ")) +
               elemento("descripcionActividadPrincipal", QStringLiteral("VENTA AL POR MENOR EN KIOSCOS")) +
               domicilio_xml({"1043", "CIUDAD AUTONOMA BUENOS AIRES", "AV CORRIENTES 1234 Piso:5 Dpto:B", 0,
                              "", "FISCAL"}) +
               domicilio_xml({"5900", "CORDOBA", "SAN MARTIN 456", 3, "VILLA MARIA", "LEGAL/REAL"}) +
               QStringLiteral("<estadoClave>ACTIVO</estadoClave>") + elemento("idPersona", cuit) +
               elemento("nombre", QStringLiteral("MARIA LAURA")) +
               elemento("numeroDocumento", cuit.mid(2, 8)) +
               QStringLiteral("<tipoClave>CUIT</tipoClave><tipoDocumento>DNI</tipoDocumento>"
                              "<tipoPersona>FISICA</tipoPersona>");
    if (cuit == QLatin1String(kCuitEmpresa))
        return elemento("descripcionActividadPrincipal",
                        QStringLiteral("VENTA AL POR MAYOR DE ARTICULOS DE LIBRERIA")) +
               domicilio_xml({"2000", "SANTA FE", "BV OROÑO 1500", 12, "ROSARIO", "FISCAL"}) +
               QStringLiteral("<estadoClave>ACTIVO</estadoClave><formaJuridica>SOC. RESPONSABILIDAD LIMITADA"
                              "</formaJuridica>") +
               elemento("idPersona", cuit) +
               elemento("razonSocial", QStringLiteral("EL ALERCE & HIJOS S.R.L.")) +
               QStringLiteral("<tipoClave>CUIT</tipoClave><tipoPersona>JURIDICA</tipoPersona>");
    return {};
}

RespuestaSimulada respuesta(const QString &operacion, const QString &contenido)
{
    return sobre_soap(QLatin1String(kSobreSoap11),
                      QStringLiteral("<ns2:%1Response xmlns:ns2=\"http://a13.soap.ws.server.puc.sr/\">%2"
                                     "</ns2:%1Response>")
                          .arg(operacion, contenido));
}

RespuestaSimulada falla_padron(const QString &texto)
{
    return falla_soap(
        QStringLiteral("soap:Server"), texto,
        QStringLiteral("<ns2:SRValidationException xmlns:ns2=\"http://a13.soap.ws.server.puc.sr/\"/>"));
}

} // namespace

RespuestaSimulada ServicioPadron::atender(const QString &operacion, const NodoXml &pedido)
{
    if (operacion == QLatin1String("dummy"))
        return respuesta(operacion,
                         QStringLiteral("<return><appserver>OK</appserver><authserver>OK</authserver>"
                                        "<dbserver>OK</dbserver></return>"));
    if (operacion != QLatin1String("getPersona"))
        return falla_soap(
            QStringLiteral("soap:Client"),
            QStringLiteral("Unexpected wrapper element {http://a13.soap.ws.server.puc.sr/}%1 found.")
                .arg(operacion));
    const QDateTime ahora = reloj_.now();
    const TicketEmitido *t =
        login_.ticket(pedido.texto_de(QStringLiteral("token")), pedido.texto_de(QStringLiteral("sign")),
                      QStringLiteral("ws_sr_padron_a13"));
    if (!t)
        return falla_padron(QStringLiteral("token o firma no validos para el servicio ws_sr_padron_a13"));
    if (t->expiracion < ahora)
        return falla_padron(QStringLiteral("token expirado"));
    if (pedido.texto_de(QStringLiteral("cuitRepresentada")).isEmpty())
        return falla_padron(QStringLiteral("El campo cuitRepresentada es obligatorio"));
    const QString persona = persona_xml(pedido.texto_de(QStringLiteral("idPersona")));
    if (persona.isEmpty())
        return falla_padron(QStringLiteral("No existe persona con ese Id"));
    return respuesta(operacion,
                     QStringLiteral("<personaReturn><metadata><fechaHora>%1</fechaHora>"
                                    "<servidor>simulador</servidor></metadata><persona>%2</persona>"
                                    "</personaReturn>")
                         .arg(ahora.toOffsetFromUtc(-3 * 3600).toString(Qt::ISODateWithMs), persona));
}

} // namespace vendrix::simulador

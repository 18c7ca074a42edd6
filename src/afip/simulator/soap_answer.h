#pragma once

#include <QByteArray>
#include <QString>

namespace vendrix::simulador {

inline constexpr const char *kSobreSoap11 = "http://schemas.xmlsoap.org/soap/envelope/";
inline constexpr const char *kSobreSoap12 = "http://www.w3.org/2003/05/soap-envelope";

// What the simulator does with a request: the HTTP answer, or, to imitate a
// lost answer, closing the connection or keeping it open in silence.
struct RespuestaSimulada {
    enum class Entrega { responder, cerrar, callar };
    int estado = 200;
    QByteArray tipo = "text/xml; charset=utf-8";
    QByteArray cuerpo;
    Entrega entrega = Entrega::responder;
};

// A SOAP envelope of the version of `ns_sobre` around `cuerpo` (and
// `cabecera` when given), with the content type that version goes with.
RespuestaSimulada sobre_soap(const QString &ns_sobre, const QString &cuerpo, const QString &cabecera = {});

// A SOAP 1.1 fault, answered with HTTP 500 as the services do. `codigo`
// with the prefix "ns1:" is declared in Axis's namespace, as WSAA does.
RespuestaSimulada falla_soap(const QString &codigo, const QString &texto, const QString &detalle = {});

RespuestaSimulada respuesta_texto(int estado, const QByteArray &texto);

} // namespace vendrix::simulador

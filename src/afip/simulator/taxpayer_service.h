#pragma once

#include "afip/simulator/soap_answer.h"

#include <QString>

namespace vendrix {
class Clock;
}

namespace vendrix::simulador {

struct NodoXml;
class ServicioLogin;

// CUITs of the simulated taxpayer register: a person with two addresses, a
// company, and one nobody holds.
inline constexpr const char *kCuitPersona = "27287654329";
inline constexpr const char *kCuitEmpresa = "30715234870";
inline constexpr const char *kCuitDesconocido = "20999999999";

// The taxpayer register A13: getPersona with the ticket of
// ws_sr_padron_a13, and dummy.
class ServicioPadron {
public:
    ServicioPadron(const ServicioLogin &login, const Clock &reloj) : login_(login), reloj_(reloj) {}

    RespuestaSimulada atender(const QString &operacion, const NodoXml &pedido);

private:
    const ServicioLogin &login_;
    const Clock &reloj_;
};

} // namespace vendrix::simulador

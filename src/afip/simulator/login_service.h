#pragma once

#include "afip/simulator/simulator_mode.h"
#include "afip/simulator/soap_answer.h"

#include <QByteArray>
#include <QDateTime>
#include <QList>
#include <QString>

namespace vendrix {
class Clock;
}

namespace vendrix::simulador {

struct NodoXml;

// An access ticket the simulated WSAA issued: who for (the signer's
// subject), which service, and its life.
struct TicketEmitido {
    QString token;
    QString sign;
    QString servicio;
    QString titular;
    QDateTime generacion;
    QDateTime expiracion;
};

// WSAA's LoginCms: checks the CMS signature against the simulator's
// authority and the ticket request's times against its clock, and issues
// tickets of 12 hours, refusing a second one while the first lives.
class ServicioLogin {
public:
    ServicioLogin(QByteArray ca_pem, const Clock &reloj) : ca_pem_(std::move(ca_pem)), reloj_(reloj) {}

    RespuestaSimulada login_cms(const NodoXml &sobre, Modo modo);

    // The ticket of `servicio` with that token and sign, expired or not, or null.
    const TicketEmitido *ticket(const QString &token, const QString &sign, const QString &servicio) const;
    const QList<TicketEmitido> &tickets() const { return tickets_; }

private:
    QByteArray ca_pem_;
    const Clock &reloj_;
    QList<TicketEmitido> tickets_;
};

} // namespace vendrix::simulador

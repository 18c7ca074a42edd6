#pragma once

#include "afip/simulator/simulator_mode.h"
#include "afip/simulator/soap_answer.h"
#include "afip/simulator/xml_tree.h"

#include <QList>
#include <QMap>
#include <QPair>
#include <QString>

namespace vendrix {
class Clock;
}

namespace vendrix::simulador {

class ServicioLogin;

// WSFEv1: FEDummy, FECompUltimoAutorizado, FECAESolicitar and
// FECompConsultar over the simulator's own numbering, per point of sale and
// voucher class. Requests are checked as AFIP checks them: the ticket, the
// elements and their order, the amounts' sums and the next number.
class ServicioFacturas {
public:
    ServicioFacturas(const ServicioLogin &login, const Clock &reloj) : login_(login), reloj_(reloj) {}

    // `operacion` is the body's element; the answer uses the request's
    // envelope version.
    RespuestaSimulada atender(const QString &operacion, const NodoXml &pedido, const QString &ns_sobre,
                              Modo modo);

    // The last number authorized for a point of sale and class; 0 before any.
    qint64 ultimo(int pto_vta, int tipo) const { return ultimos_.value({pto_vta, tipo}); }

private:
    struct Comprobante {
        int pto_vta = 0;
        int tipo = 0;
        qint64 numero = 0;
        NodoXml detalle;
        QString cae;
        QString vencimiento;
        QString proceso;
        QString observaciones; // the <Observaciones> element, or empty
    };

    QString error_de_ticket(const NodoXml &pedido) const;
    QString solicitar(const NodoXml &pedido, Modo modo, bool &descartar);
    QString consultar(const NodoXml &pedido) const;

    const ServicioLogin &login_;
    const Clock &reloj_;
    QMap<QPair<int, int>, qint64> ultimos_;
    QList<Comprobante> comprobantes_;
};

} // namespace vendrix::simulador

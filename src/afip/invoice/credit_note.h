#pragma once

#include <QString>

namespace vendrix {

class Context;
class ServicioCae;

// An electronic credit note against an invoice: what the credit note
// screen hands over.
struct NotaDeCreditoAfip {
    double bruto_21 = 0;   // the gross amount at 21 %
    double bruto_105 = 0;  // the gross amount at 10.5 %
    QString clase;         // the note's class, three digits: "003", "008" or "013"
    QString iva_comprador; // the buyer's IVA condition, one letter
    // The invoice it cancels.
    int factura_tipo = 0; // its class: 1, 6 or 11
    qint64 factura_numero = 0;
    QString factura_fecha; // yyyymmdd
    // The customer's document.
    QString tipo_doc; // "CUIT" or "DNI"
    QString numero_doc;
    // The key the request in flight is recorded under until the note is
    // stored.
    QString referencia;
};

// What AFIP authorised.
struct NotaDeCreditoEmitida {
    QString cae;
    QString cae_vto;
    qint64 numero = 0;
};

// `AFIP_Nota_de_Credito`: asks AFIP for the note's CAE in one call: the
// ticket, the next number of its class, the request with the association
// to the invoice and the amounts from the two gross amounts, the send.
// False on any failure, after the operator was told.
bool AFIP_Nota_de_Credito(ServicioCae &servicio, const NotaDeCreditoAfip &nota,
                          NotaDeCreditoEmitida &emitida);
// The same with the program's HTTPS client, record and query.
bool AFIP_Nota_de_Credito(Context &ctx, const NotaDeCreditoAfip &nota, NotaDeCreditoEmitida &emitida);

} // namespace vendrix

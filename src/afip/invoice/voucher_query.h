#pragma once

#include <QString>

namespace vendrix {

struct ServiciosAfip;

// What FECompConsultar says of one voucher.
struct ComprobanteAfip {
    bool respondio = false;  // an answer came (else `error` says why)
    bool encontrado = false; // AFIP holds that number
    QString cae;
    QString cae_vto; // yyyymmdd
    QString fecha;   // CbteFch, yyyymmdd
    double total = 0;
    QString error;
};

// Asks AFIP's WSFEv1 for the voucher of class `tipo`, point of sale and
// number, with the invoices' ticket (obtained if needed).
ComprobanteAfip consultar_comprobante(ServiciosAfip &servicios, int tipo, int punto_de_venta, qint64 numero);

} // namespace vendrix

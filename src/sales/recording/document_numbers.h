#pragma once

#include <QString>

namespace vendrix {

class Context;

// The letter of a document and whether it shows the IVA apart.
struct LetraComprobante {
    QString letra;
    bool discrimina = false;
};

// A monotributo shop (setting `IF_tipo_IVA` starting with "M") issues "C";
// otherwise a registered or monotributo buyer gets an "A" with the IVA
// apart, anyone else a "B".
LetraComprobante letra_comprobante(const Context &ctx, const QString &condicion_iva);

// The number stored in `nro_ticket`. Invoices and credit notes take the next
// number of the shop's counter for their letter (`IF_ticket_A`... and
// `IF_nc_A`...; empty reads 1) and move it on; every other type is number 1
// and moves nothing.
qint64 proximo_nro_ticket(const Context &ctx, const QString &letra, const QString &tipo);

} // namespace vendrix

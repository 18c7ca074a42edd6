#pragma once

namespace vendrix {

class Context;
struct ServiciosAfip;

// Settles the electronic invoices whose request record is still in the
// shop database: the program stopped between AFIP's answer and the store,
// or the answer never came. A record with a CAE is stored from its draft
// at once. A request without one is looked up with FECompConsultar: AFIP
// holding that number with the same total and date means it authorized
// it, and the sale is stored with that CAE; AFIP not holding it means the
// number was never used, and the record goes; no answer keeps it for the
// next time. A draft whose request never went out is dropped. Each settled
// invoice is told to the operator in a box of its own and logged.
//
// True when nothing is left to settle, so that a new invoice can't take a
// number whose fate is still unknown.
bool conciliar_cae_pendientes(Context &ctx, ServiciosAfip &servicios);

// The same over the program's own HTTPS client, which is only made when
// there is something to settle.
bool conciliar_cae_pendientes(Context &ctx);

} // namespace vendrix

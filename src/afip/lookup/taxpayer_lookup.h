#pragma once

#include <QString>

namespace vendrix {

class Checkout;
struct ServiciosAfip;

// The getPersona request of AFIP's taxpayer register for `cuit` (digits
// only), with the register's ticket; empty when no ticket could be had.
QString create_BUSCAPERSONA_XML(ServiciosAfip &s, const QString &cuit);

// The checkout's "AFIP" button: asks the register for the CUIT on screen,
// shows what came and, on the operator's Yes, puts the name, the last
// address and its province into the customer's fields, with the IVA
// condition "I - IVA RESPONSABLE INSCRIPTO" for the operator to check.
void recuperar_datos_CUIT(ServiciosAfip &s, Checkout &checkout);

} // namespace vendrix

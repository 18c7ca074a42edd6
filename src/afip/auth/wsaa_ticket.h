#pragma once

namespace vendrix {

struct ServiciosAfip;

// The access ticket of WSAA for the electronic invoice (`wsfe`): true when
// a valid one stands in the settings on return (`FE_token`, `FE_sign`,
// `FE_generationTime`, `FE_expirationTime`). A stored ticket whose expiry
// lies after the local clock is reused; otherwise a new one is requested,
// in two attempts at most. Every call also stores the certificate's end
// date and its 30-day check (`FE_cert_fcha_vto`, `FE_cert_vence_en_30`).
bool obtener_TRA(ServiciosAfip &s);

// The same for the taxpayer register (`ws_sr_padron_a13`), keys
// `FE_PERSONA_*`, one attempt, the certificate keys left alone.
bool obtener_TRA_persona(ServiciosAfip &s);

} // namespace vendrix

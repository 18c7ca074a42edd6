#pragma once

#include <QString>

namespace vendrix {

struct ServiciosAfip;

// Checks of the shop's certificate (`IF_FE_Certificado`), read with
// libcrypto. Each writes what `openssl x509` would into its file of the
// program folder (`cert30dias.txt`, `certvalido.txt`, `fechavtocert.txt`)
// and reads its result from that text. An unreadable certificate removes
// the file, logs why and gives false or "".

// True while the certificate stays valid 30 days from now.
bool certificado_vigente_30(ServiciosAfip &s);
// True while the certificate is valid one second from now.
bool certificado_vigente(ServiciosAfip &s);
// The end date as "Jun 15  2026".
QString certificado_fecha_vto(ServiciosAfip &s);

} // namespace vendrix

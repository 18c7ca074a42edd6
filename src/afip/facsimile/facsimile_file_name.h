#pragma once

#include <QString>

namespace vendrix {

// The customer's name as part of a file name: quotes, slashes, "#" and "'"
// go; "ñ" and the accented vowels lose their marks; blanks, "-" and ":"
// become "_"; then whatever a file name can't hold becomes "_" too.
QString nombre_para_archivo(const QString &razon_social);

// A text valid as a file name: each of <>:"/\|?* and each character below
// 32 or from 128 on becomes "_".
QString limpiar_nombre_archivo(const QString &texto);

// The page's name under `Facturas/`: the stored document's id and AFIP
// number are in it, so two sales to one customer never share a file.
QString archivo_facsimil(qint64 id_factura, const QString &numero_cae, const QString &razon_social);

} // namespace vendrix

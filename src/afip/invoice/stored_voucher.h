#pragma once

#include "core/database.h"

#include <QString>

namespace vendrix {

class Context;

// The columns of a stored sale that its QR and its facsimile read, in the
// order `leer_comprobante` gives them. The amounts are absolute: a credit
// note's negative totals read positive.
enum ColumnaComprobante {
    kCompLetra,
    kCompTipo,
    kCompNumero,
    kCompFecha,
    kCompRazonSocial,
    kCompDomicilio,
    kCompProvincia,
    kCompCliente,
    kCompCuit,
    kCompFormaDePago,
    kCompNeto,
    kCompIva,
    kCompTotal,
    kCompCae,
    kCompCaeVencimiento,
    kCompId,
    kCompTimestamp,
    kCompTipoDoc,
};

// The stored sale whose ID is `id`, or whose CAE is `cae` (the first one):
// one row, or none.
Matrix leer_comprobante_por_id(Context &ctx, qint64 id);
Matrix leer_comprobante_por_cae(Context &ctx, const QString &cae);

} // namespace vendrix

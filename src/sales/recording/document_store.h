#pragma once

#include "sales/recording/sale_document.h"

namespace vendrix {

class Context;
class Database;

// Writes one header row; the new row's id from the insert itself, 0 when it
// failed. `fecha` is stored as "dd/mm/yyyy hh:nn:ss" and `insert_timestamp`
// as "yyyymmddhhnn". Credit notes reuse it.
qint64 insertar_factura(Database &db, const CabeceraFactura &cabecera);
// Writes one line of document `factura_id` at position `offset`.
bool insertar_factura_item(Database &db, qint64 factura_id, int offset, const ItemFactura &item);

// Stores a document whole or not at all: in one transaction, the rows of the
// reference it replaces go, then its header and its lines are written, and
// the record of its request to AFIP is closed. The new header's id, or 0
// when nothing was stored.
qint64 guardar_documento(Context &ctx, const DocumentoVenta &doc);

} // namespace vendrix

#pragma once

#include <QString>

namespace vendrix {

class Context;

// The shop's own IVA condition, one letter of setting `IF_tipo_IVA`; a shop
// that never set it issues as a monotributista, "M".
QString condicion_iva_emisor(const Context &ctx);

// The code of AFIP's table of IVA conditions for the one-letter condition
// of a buyer: F 5, I 1, N 3, M 6, E 4, S 7, A 15; "" for any other letter.
QString codigo_condicion_IVA(const QString &letra);

// The voucher class of a document as three digits ("001", "008", ...):
// "Factura" and "Nota de Crédito" of letters A, B and C; "N/A" otherwise.
QString tipo_comprobante_AFIP(const QString &letra, const QString &tipo);

// The class an invoice request opened by the fiscal front sends as
// `CbteTipo`: 1, 6, 11 for invoices, 3, 6, 13 for credit notes (letter B
// gives 6 either way); 0 for another letter.
int tipo_comprobante_factura(const QString &letra, bool es_nota_de_credito);

// The `CondicionIVAReceptorId` a voucher of `letra` sends for a buyer of
// condition `iva_comprador` (one letter). Only the conditions AFIP admits
// for the voucher's letter go out: A takes 1, 6, 13 and 16; B takes 4, 5,
// 7, 8, 9, 10 and 15; C any of them. Anything else falls back to the
// receiver the letter is made for: a responsable inscripto (1) for A, a
// final consumer (5) for B and C.
int condicion_iva_receptor(const QString &letra, const QString &iva_comprador);

} // namespace vendrix

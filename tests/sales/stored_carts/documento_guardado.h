#pragma once

// Stored documents for the tests, written by the sale recorder's own store as
// a sale or "Guardar Carrito" leaves them in the shop database.
#include "core/context.h"
#include "sales/recording/document_store.h"

namespace vendrix::test {

// A line: supplier, code, description, quantity, amount. The operator's own
// description is the catalogue's with " (escrito)".
struct ItemGuardado {
    const char *proveedor, *codigo, *descripcion;
    double cantidad, precio_final;
};

// Stores a document of a customer without a business name; its ID.
inline QString guardar_documento(Context &ctx, const QString &tipo, const QString &referencia,
                                 double descuento, const QString &forma,
                                 const std::vector<ItemGuardado> &items)
{
    DocumentoVenta doc;
    CabeceraFactura &c = doc.cabecera;
    c.fecha = QDateTime(QDate(2026, 11, 20), QTime(9, 15));
    c.letra = "B";
    c.tipo = tipo;
    c.cliente = "F - CONSUMIDOR FINAL";
    c.total = c.total_facturado = items.at(0).precio_final;
    c.descuento_habitual = descuento;
    c.forma_de_pago = forma;
    c.nro_referencia = referencia;
    for (const ItemGuardado &i : items)
        doc.items.push_back({i.proveedor, i.codigo, i.descripcion, 384.62, 0, i.cantidad, 21, i.precio_final,
                             QString::fromUtf8(i.descripcion) + " (escrito)", 30, 10});
    return QString::number(vendrix::guardar_documento(ctx, doc));
}

} // namespace vendrix::test

#pragma once

// Stored documents for the tests, written as a sale or "Guardar Carrito"
// leaves them in the shop database.
#include "core/database.h"

#include <gtest/gtest.h>

namespace vendrix::test {

// A line: supplier, code, description, quantity, amount. The operator's own
// description is the catalogue's with " (escrito)".
struct ItemGuardado {
    const char *proveedor, *codigo, *descripcion;
    double cantidad, precio_final;
};

// Stores a document of a customer without a business name; its ID.
inline QString guardar_documento(Database &db, const QString &tipo, const QString &referencia,
                                 double descuento, const QString &forma,
                                 const std::vector<ItemGuardado> &items)
{
    const QString t = "clientes";
    EXPECT_TRUE(
        db.execNQ("INSERT INTO vendrix_facturas (nro_ticket, fecha, letra, tipo, cliente, razon_social, "
                  "Total_facturado, Descuento_habitual, forma_de_pago, nro_referencia) VALUES (1, "
                  "'20/11/2026 09:15:00', 'B', ?, 'F - CONSUMIDOR FINAL', '', ?, ?, ?, ?)",
                  t, {tipo, items.at(0).precio_final, descuento, forma, referencia}));
    const qint64 id = db.ultimo_id(t);
    for (const ItemGuardado &i : items)
        EXPECT_TRUE(db.execNQ(
            "INSERT INTO vendrix_factura_items (Factura_Id, Offset, Proveedor, Codigo, Descripcion, "
            "Costo_siva, venta_siva, cantidad, iva, Precio_final, descripcion_nueva, ganancia, "
            "descuento) VALUES (?, ?, ?, ?, ?, 384.62, 0, ?, 21, ?, ?, 30, 10)",
            t,
            {id, qint64(&i - items.data()), i.proveedor, i.codigo, i.descripcion, i.cantidad, i.precio_final,
             QString::fromUtf8(i.descripcion) + " (escrito)"}));
    return QString::number(id);
}

} // namespace vendrix::test

#pragma once

// Stored documents for the tests, written the way a sale or "Guardar
// Carrito" leaves them in the shop database.
#include "core/database.h"

#include <gtest/gtest.h>

#include <vector>

namespace vendrix::test {

struct CabeceraGuardada {
    QString tipo;
    QString referencia;
    QString razon_social;
    double descuento_habitual;
    QString forma_de_pago;
    double total;
};

// One stored line: supplier, code, catalogue description, quantity, amount.
// The operator's description is the catalogue's with " (escrito)".
struct ItemGuardado {
    const char *proveedor;
    const char *codigo;
    const char *descripcion;
    double cantidad;
    double precio_final;
};

// Stores a document and its lines; its ID.
inline QString guardar_documento(Database &db, const CabeceraGuardada &c,
                                 const std::vector<ItemGuardado> &items)
{
    const QString tienda = QStringLiteral("clientes");
    EXPECT_TRUE(db.execNQ(
        "INSERT INTO vendrix_facturas (nro_ticket, fecha, letra, Puntoventa, tipo, cliente, codigo, cuit, "
        "razon_social, Domicilio, Provincia, Total_facturado, Descuentos, Iva, Total, Descuento_habitual, "
        "total_neto, Total_iva, forma_de_pago, carro, maquina, insert_timestamp, nro_referencia, TIPO_DOC, "
        "NOTAS, FDP_CC) VALUES (1, '20/11/2026 09:15:00', 'B', '1', ?, 'F - CONSUMIDOR FINAL', '', '0', ?, "
        "'', '', ?, 0, 21, ?, ?, 0, 0, ?, 'Carrito 1', 'CAJA', '202611200915', ?, 'CUIT', '', '')",
        tienda,
        {c.tipo, c.razon_social, c.total, c.total, c.descuento_habitual, c.forma_de_pago, c.referencia}));
    const QString id = db.execQ1(QStringLiteral("SELECT max(ID) FROM vendrix_facturas"), tienda);
    int offset = 0;
    for (const ItemGuardado &i : items)
        EXPECT_TRUE(db.execNQ("INSERT INTO vendrix_factura_items (Factura_Id, Offset, Proveedor, Codigo, "
                              "Descripcion, Costo_siva, "
                              "venta_siva, cantidad, iva, Precio_final, descripcion_nueva, ganancia, "
                              "descuento) VALUES (?, ?, ?, "
                              "?, ?, 384.62, 0, ?, 21, ?, ?, 30, 10)",
                              tienda,
                              {id, offset++, i.proveedor, i.codigo, i.descripcion, i.cantidad, i.precio_final,
                               QString::fromUtf8(i.descripcion) + " (escrito)"}));
    return id;
}

} // namespace vendrix::test

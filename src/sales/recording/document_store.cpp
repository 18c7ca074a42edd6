#include "sales/recording/document_store.h"

#include "afip/invoice/pending_cae_store.h"
#include "core/context.h"
#include "sales/recording/recording_log.h"

namespace vendrix {

namespace {

const QString kTienda = QStringLiteral("Internal");

} // namespace

qint64 insertar_factura(Database &db, const CabeceraFactura &c)
{
    const bool ok = db.execNQ(
        QStringLiteral(
            "INSERT INTO vendrix_facturas (nro_ticket, fecha, letra, Puntoventa, tipo, cliente, codigo, "
            "cuit, "
            "razon_social, Domicilio, Provincia, Total_facturado, Descuentos, Iva, Total, "
            "Descuento_habitual, "
            "total_neto, Total_iva, forma_de_pago, carro, maquina, insert_timestamp, nro_referencia, "
            "FE_CAE_numero, FE_CAE_fechaVencimiento, FE_CAE_ID, TIPO_DOC, NOTAS, FDP_CC) VALUES (?, ?, ?, ?, "
            "?, "
            "?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?)"),
        kTienda, {c.nro_ticket,     c.fecha.toString(QStringLiteral("dd/MM/yyyy HH:mm:ss")),
                  c.letra,          c.punto_venta,
                  c.tipo,           c.cliente,
                  c.codigo,         c.cuit,
                  c.razon_social,   c.domicilio,
                  c.provincia,      c.total_facturado,
                  c.descuentos,     c.iva,
                  c.total,          c.descuento_habitual,
                  c.total_neto,     c.total_iva,
                  c.forma_de_pago,  c.carro,
                  c.maquina,        c.fecha.toString(QStringLiteral("yyyyMMddHHmm")),
                  c.nro_referencia, c.cae,
                  c.cae_vto,        c.cae_id,
                  c.tipo_doc,       c.notas,
                  c.fdp_cc});
    return ok ? db.ultimo_id(kTienda) : 0;
}

bool insertar_factura_item(Database &db, qint64 factura_id, int offset, const ItemFactura &i)
{
    return db.execNQ(
        QStringLiteral(
            "INSERT INTO vendrix_factura_items (Factura_Id, Offset, Proveedor, Codigo, Descripcion, "
            "Costo_siva, venta_siva, cantidad, iva, Precio_final, descripcion_nueva, ganancia, "
            "descuento) VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?)"),
        kTienda,
        {factura_id, offset, i.proveedor, i.codigo, i.descripcion, i.costo_siva, i.venta_siva, i.cantidad,
         i.iva, i.precio_final, i.descripcion_nueva, i.ganancia, i.descuento});
}

qint64 guardar_documento(Context &ctx, const DocumentoVenta &doc)
{
    Database &db = ctx.db();
    Transaction tx(db, kTienda);
    // Without a transaction the statements would run one by one and could
    // leave half a document.
    if (!tx.activa())
        return 0;
    if (!doc.reemplaza.isEmpty()) {
        if (!db.execNQ(QStringLiteral("DELETE FROM vendrix_factura_items WHERE Factura_Id IN (SELECT ID FROM "
                                      "vendrix_facturas WHERE nro_referencia = ?)"),
                       kTienda, {doc.reemplaza}) ||
            !db.execNQ(QStringLiteral("DELETE FROM vendrix_facturas WHERE nro_referencia = ?"), kTienda,
                       {doc.reemplaza}))
            return 0;
    }
    log_registro(ctx, QStringLiteral("Se procede a agregar los datos en la tabla de factura cabecera"));
    const qint64 id = insertar_factura(db, doc.cabecera);
    if (id <= 0)
        return 0;
    log_registro(ctx, QStringLiteral("Se creo el ID '") + QString::number(id) +
                          QStringLiteral("' en la tabla de factura cabecera"));
    log_registro(ctx, QStringLiteral("Se procede a agregar los datos en la tabla de factura item ('") +
                          QString::number(doc.items.size()) + QStringLiteral("' registros)"));
    for (size_t offset = 0; offset < doc.items.size(); ++offset)
        if (!insertar_factura_item(db, id, static_cast<int>(offset), doc.items[offset]))
            return 0;
    // The record of the request goes with the sale it stood for: both or
    // neither, so a sale is never stored twice nor its CAE lost.
    if (!doc.cae_pendiente.isEmpty() && !borrar_cae_pendiente(db, doc.cae_pendiente))
        return 0;
    return tx.commit() ? id : 0;
}

} // namespace vendrix

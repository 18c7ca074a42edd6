#pragma once

#include "sales/carrito.h"

#include <QDateTime>
#include <QString>

#include <vector>

namespace vendrix {

class Checkout;
class Context;

// The three price factors of a sale, from the checkout's payment method and
// habitual discount. A surcharge factor of exactly 0 counts as 1.
struct FactoresPrecio {
    double descuento = 1;
    double recargo = 1;
    double total() const { return recargo * descuento; }
};
FactoresPrecio factores_precio(Checkout &checkout);

// What AFIP handed back for an electronic invoice; empty otherwise.
struct Autorizacion {
    QString cae;
    QString nro_comprobante;
    QString cae_vto;
};

// One row of `vendrix_facturas`.
struct CabeceraFactura {
    qint64 nro_ticket = 1;
    QDateTime fecha;
    QString letra;
    QString punto_venta;
    QString tipo;
    QString cliente; // the buyer's whole IVA condition
    QString codigo;
    QString cuit;
    QString razon_social;
    QString domicilio;
    QString provincia;
    double total_facturado = 0;
    double descuentos = 0; // the sum of the lines' costs, as the reports read it
    double iva = 0;        // the general rate of the settings
    double total = 0;
    double descuento_habitual = 0;
    double total_neto = 0;
    double total_iva = 0;
    QString forma_de_pago;
    QString carro;
    QString maquina;
    QString nro_referencia;
    QString cae;
    QString cae_vto;
    QString cae_id;
    QString tipo_doc;
    QString notas;
    QString fdp_cc;
};

// One row of `vendrix_factura_items`.
struct ItemFactura {
    QString proveedor;
    QString codigo;
    QString descripcion;
    double costo_siva = 0;
    double venta_siva = 0;
    double cantidad = 0;
    double iva = 0;
    double precio_final = 0;
    QString descripcion_nueva;
    double ganancia = 0;
    double descuento = 0;
};

// A sale document as it is to be stored: the header, its lines in order,
// and the reference whose rows it replaces ("" for none): a stored cart
// consumed by its sale, or overwritten by its new copy. An electronic
// invoice also names the record of its request to AFIP, which goes when
// the document is stored.
struct DocumentoVenta {
    CabeceraFactura cabecera;
    std::vector<ItemFactura> items;
    QString reemplaza;
    QString cae_pendiente;
};

// The document's full data on one line, for the log: nothing of a sale that
// could not be stored is lost.
QString texto_documento(const DocumentoVenta &doc);

// The IVA contained in the cart's amounts with the factor applied, unrounded
// so that mixed rates are exact; negative for a negative total.
double iva_contenido(const Carrito &carrito, double factor_total, bool total_negativo);

// A cart line as a stored line: the catalogue's supplier, code, description
// and cost for a line with an article id, or "", "X", the typed description
// and 0 for a line typed by hand.
ItemFactura item_de_linea(Context &ctx, const LineaCarrito &linea, double factor_total, bool es_credito);

// The document of the cart the checkout shows, as type `tipo`: every figure
// with the price factors, a credit's total negative, the reference of the
// checkout, and the next number of its letter and type.
DocumentoVenta armar_documento(Context &ctx, Checkout &checkout, const QString &tipo, bool es_credito,
                               const FactoresPrecio &factores, const Autorizacion &autorizacion);

// The same document before the fiscal output, without logging and without
// taking a number: what an electronic invoice keeps while its request is
// on its way, to be stored later if the program stops before it.
DocumentoVenta armar_borrador(Context &ctx, Checkout &checkout, const QString &tipo, bool es_credito,
                              const FactoresPrecio &factores);

// Puts AFIP's authorization on a document: the CAE, its expiry and the
// voucher number without blanks.
void autorizar_documento(CabeceraFactura &cabecera, const Autorizacion &autorizacion);

} // namespace vendrix

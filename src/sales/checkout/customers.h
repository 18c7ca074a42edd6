#pragma once

#include <QString>
#include <QStringList>

#include <vector>

namespace vendrix {

class Context;

// A customer as the checkout dialog captures it.
struct DatosCliente {
    QString nombre;
    QString cuit; // the document number, CUIT or DNI
    QString domicilio;
    QString localidad;
    QString descuento; // the habitual discount as typed
    QString iva;       // the IVA condition, "F - CONSUMIDOR FINAL" and the like
    QString tipo_doc;  // "CUIT" or "DNI"
    QString email;
    QString telefono;
};

// The columns of a found customer, in the grid's order.
enum ColumnaCliente : int {
    kCliRazonSocial = 0,
    kCliCuit,
    kCliDomicilio,
    kCliLocalidad,
    kCliDescuento,
    kCliTipo,
    kCliTipoDoc,
    kCliMail,
    kCliTelefono,
};
inline constexpr int kColumnasCliente = 9;

// The customers whose name, document, address, locality and discount, put
// one after the other, contain the text: a text that spans two of them
// matches. One row a customer, the nine columns above. An empty text finds
// nothing.
std::vector<QStringList> buscar_clientes(Context &ctx, const QString &texto);

// Replaces the customer's row (same name and document) by the data given,
// as a customer record. False when the insert failed.
bool guardar_cliente(Context &ctx, const DatosCliente &cliente, int indice_iva);

// The name of a customer stored with that document number, "" for none.
QString cliente_con_documento(Context &ctx, const QString &cuit);

// The payment method of the last sale to the document number, "" for none.
QString forma_de_pago_ultima_venta(Context &ctx, const QString &cuit);

} // namespace vendrix

#include "sales/checkout/customers.h"

#include "core/context.h"
#include "core/numeric.h"

namespace vendrix {

namespace {

const QString kCliente = QStringLiteral("Internal");

// A stored discount as the screen shows a number: 10 rather than 10.0, and
// the decimal comma, so that the text the operator searches for is the one
// they see.
const char *const kDescuentoComoTexto =
    "REPLACE(CASE WHEN descuento = CAST(descuento AS INTEGER) THEN CAST(CAST(descuento AS INTEGER) AS TEXT) "
    "ELSE IFNULL(CAST(descuento AS TEXT), '') END, '.', ',')";

} // namespace

std::vector<QStringList> buscar_clientes(Context &ctx, const QString &texto)
{
    std::vector<QStringList> filas;
    if (texto.isEmpty())
        return filas;
    const QString descuento = QString::fromLatin1(kDescuentoComoTexto);
    const QString sql =
        QStringLiteral("SELECT DISTINCT nombre, CUIT, direccion, provincia, ") + descuento +
        QStringLiteral(", TIPO, TIPO_DOC, EMAIL, TELEFONO FROM vendrix_clientes WHERE (IFNULL(nombre, '') || "
                       "IFNULL(CUIT, '') || IFNULL(direccion, '') || IFNULL(provincia, '') || ") +
        descuento + QStringLiteral(") LIKE ? AND TIPO_RECORD = 'Cliente'");
    const Matrix m = ctx.db().execQ_matriz(sql, kCliente, {QLatin1Char('%') + texto + QLatin1Char('%')});
    for (int fila = 0; fila < m.filas(); ++fila)
        filas.push_back(m.fila(fila));
    return filas;
}

bool guardar_cliente(Context &ctx, const DatosCliente &c, int indice_iva)
{
    ctx.escribir_log(
        QStringLiteral("Es necesario guardar los datos del cliente. Procedo a borrarlo e insertarlo "
                       "nuevamente"),
        QStringLiteral("I"));
    // The old row and the new one change together.
    Database &db = ctx.db();
    Transaction cambio(db, kCliente);
    bool ok = db.execNQ(QStringLiteral("DELETE FROM vendrix_clientes WHERE nombre = ? AND CUIT = ?"),
                        kCliente, {c.nombre, c.cuit});
    ok = ok && db.execNQ(QStringLiteral(
                             "INSERT INTO vendrix_clientes (NOMBRE, DIRECCION, CUIT, PROVINCIA, DESCUENTO, "
                             "TIPO, TIPO_DOC, "
                             "TIPO_RECORD, EMAIL, TELEFONO) VALUES (?, ?, ?, ?, ?, ?, ?, 'Cliente', ?, ?)"),
                         kCliente,
                         {c.nombre, c.domicilio, c.cuit, c.localidad, valor_texto(c.descuento), c.iva,
                          c.tipo_doc, c.email, c.telefono});
    ok = ok && cambio.commit();
    const QString detalle = QStringLiteral("\"") + QString::number(indice_iva) +
                            QStringLiteral("\" con nombre: ") + c.nombre +
                            QStringLiteral("[vendrix_clientes] ");
    if (ok)
        ctx.escribir_log(QStringLiteral("Se creó un cliente ") + detalle, QStringLiteral("A"));
    else
        ctx.escribir_log(QStringLiteral("Error al crear el cliente ") + detalle, QStringLiteral("E"));
    return ok;
}

QString cliente_con_documento(Context &ctx, const QString &cuit)
{
    return ctx.db().execQ1(QStringLiteral("SELECT nombre FROM vendrix_clientes WHERE cuit = ?"), kCliente,
                           {cuit});
}

QString forma_de_pago_ultima_venta(Context &ctx, const QString &cuit)
{
    return ctx.db().execQ1(
        QStringLiteral("SELECT Forma_de_pago FROM vendrix_facturas WHERE cuit = ? AND ID = "
                       "(SELECT MAX(ID) FROM vendrix_facturas WHERE cuit = ?)"),
        kCliente, {cuit, cuit});
}

} // namespace vendrix

#include "sales/stored_carts/cargar_carrito_guardado.h"

#include "catalogue/pricing/rounding.h"
#include "core/context.h"
#include "core/numeric.h"
#include "sales/carrito.h"

#include <optional>
#include <vector>

namespace vendrix {

namespace {

const QString kInfo = QStringLiteral("I");
const QString kTienda = QStringLiteral("clientes");

// The header fields the restore needs, as stored.
struct Cabecera {
    QString descuento_habitual;
    QString forma_de_pago;
    QString tipo;
    QString nro_referencia;
};

// The columns of the items query, in its order.
enum ColumnaItem : int {
    kItemCantidad,
    kItemDescripcion,
    kItemPrecioUnitario,
    kItemPrecioFinal,
    kItemIva,
    kItemProveedor,
    kItemCodigo,
    kItemDescripcionNueva,
    kItemGanancia,
    kItemDescuento,
    kItemCostoSiva,
};

// Why a restore stopped, as its error line tells it.
const QString kConsultaFallida = QStringLiteral("1 No se pudo leer el documento guardado");

// Null when the query failed; empty fields when there is no such document.
std::optional<Cabecera> leer_cabecera(Context &ctx, qint64 id)
{
    const auto cursor = ctx.db().execQ(QStringLiteral("SELECT Descuento_habitual, forma_de_pago, tipo, "
                                                      "nro_referencia FROM vendrix_facturas WHERE ID = ?"),
                                       kTienda, {id});
    if (!cursor)
        return std::nullopt;
    return Cabecera{cursor->texto(0), cursor->texto(1), cursor->texto(2), cursor->texto(3)};
}

// Null when the query failed.
std::optional<std::vector<QStringList>> leer_items(Context &ctx, qint64 id)
{
    const auto cursor = ctx.db().execQ(
        QStringLiteral("SELECT cantidad, descripcion, precio_final/cantidad, precio_final, iva, proveedor, "
                       "codigo, descripcion_nueva, ganancia, descuento, costo_siva FROM "
                       "vendrix_factura_items WHERE Factura_Id = ? ORDER BY Offset"),
        kTienda, {id});
    if (!cursor)
        return std::nullopt;
    std::vector<QStringList> items;
    for (; !cursor->eof(); cursor->siguiente()) {
        QStringList fila;
        for (int col = 0; col <= kItemCostoSiva; ++col)
            fila << cursor->texto(col);
        items.push_back(fila);
    }
    return items;
}

// A stored number as the cart writes its cells; anything else as stored.
QString celda_numero(const QString &stored)
{
    return es_numerico(stored) ? texto_numero(valor_texto(stored)) : stored;
}

void log_campo(Context &ctx, const char *campo, const QString &stored, const QString &celda)
{
    ctx.escribir_log(QStringLiteral("El campo ") + QString::fromUtf8(campo) + QStringLiteral(" es '") +
                         stored + QStringLiteral("' en version string y '") + celda +
                         QStringLiteral("' en version numerica."),
                     kInfo);
}

// Links one item to the price list again and adds its paragraph to the
// report. The line's Codigo, or nullopt when the lookup failed.
std::optional<QString> enlazar(Context &ctx, const QStringList &item, int ordinal, QStringList &informe)
{
    const QString proveedor = item[kItemProveedor];
    const QString codigo = item[kItemCodigo];
    const QString numero = QString::number(ordinal);
    if (codigo == QLatin1String("X") || proveedor.isEmpty()) {
        const QString descripcion = item[kItemDescripcionNueva];
        ctx.escribir_log(
            QStringLiteral("El artículo guardado en el carrito con descripción: ") + descripcion +
                QStringLiteral(" fue ingresado manualmente y por lo tanto no puede recuperarse su "
                               "correspectivo ID en la lista actual."),
            kInfo);
        informe << numero + QStringLiteral(") El artículo con descripción: ") + descripcion +
                       QStringLiteral(" fue ingresado manualmente y se lo cargará de la misma manera.");
        return QStringLiteral("X");
    }
    const auto cursor =
        ctx.db().execQ(QStringLiteral("SELECT ID FROM xls_listas WHERE Proveedor = ? AND Codigo = ?"),
                       QStringLiteral("external"), {proveedor, codigo});
    if (!cursor)
        return std::nullopt;
    const QString articulo =
        QStringLiteral(") El artículo con proveedor: ") + proveedor + QStringLiteral(" y código: ") + codigo;
    if (cursor->eof()) {
        ctx.escribir_log(QStringLiteral("No se encontro el código del artículo guardado en el carrito con "
                                        "proveedor: ") +
                             proveedor + QStringLiteral(" y código de proveedor: ") + codigo +
                             QStringLiteral(". Se lo cargará como un artículo ingresado a mano."),
                         kInfo);
        informe << numero + articulo +
                       QStringLiteral(
                           ", no está disponible. Se lo cargará como un artículo ingresado a mano.");
        return QStringLiteral("0");
    }
    ctx.escribir_log(
        QStringLiteral("Se encontró el código del artículo guardado en el carrito con proveedor: ") +
            proveedor + QStringLiteral(" y código de proveedor: ") + codigo,
        kInfo);
    informe << numero + articulo + QStringLiteral(", está disponible y se prodrá actualizar su precio.");
    return cursor->texto(0);
}

// Fills the cart; the error line's detail when it stopped.
std::optional<QString> restaurar(Context &ctx, Carrito &carrito, qint64 id)
{
    const std::optional<Cabecera> cabecera = leer_cabecera(ctx, id);
    if (!cabecera)
        return kConsultaFallida;

    // The prices were stored with the habitual discount and the card
    // surcharge in them; the cart holds them without either.
    const double descuento = valor_texto(cabecera->descuento_habitual);
    if (descuento == 100)
        return QStringLiteral("11 División por cero");
    const double factor_descuento = 1 / (1 - descuento / 100);
    ctx.escribir_log(QStringLiteral("Se aplica el descuento habitual de=") + cabecera->descuento_habitual,
                     kInfo);
    double factor_recargo = 1;
    if (cabecera->forma_de_pago == QLatin1String("Tarjeta")) {
        // Today's surcharge, not the sale's: the document doesn't keep it.
        QString recargo = QStringLiteral("0") + ctx.leer_parametro(QStringLiteral("recargo_tarjeta"));
        if (!es_numerico(recargo))
            recargo = QStringLiteral("0");
        factor_recargo = 1 / (1 + valor_texto(recargo) / 100);
    }
    ctx.escribir_log(QStringLiteral("Se aplica el recargo con tarjeta de=") + texto_numero(factor_recargo),
                     kInfo);

    const QString ajuste = ctx.leer_parametro(QStringLiteral("decimales"));
    int decimales = es_numerico(ajuste) ? qRound(valor_texto(ajuste)) : 0;
    decimales = qBound(0, decimales, 15);
    ctx.escribir_log(QStringLiteral("cargo el carrito con ") + QString::number(decimales) +
                         QStringLiteral(" decimales."),
                     kInfo);

    const std::optional<std::vector<QStringList>> items = leer_items(ctx, id);
    if (!items)
        return kConsultaFallida;
    ctx.escribir_log(QStringLiteral("Se encontraron '") + QString::number(items->size()) +
                         QStringLiteral("' filas en la tabla de factura items"),
                     kInfo);

    const double factor = factor_descuento * factor_recargo;
    QStringList informe;
    for (const QStringList &item : *items) {
        const std::optional<QString> codigo = enlazar(ctx, item, carrito.filas() + 1, informe);
        if (!codigo)
            return kConsultaFallida;
        const QString cantidad = celda_numero(item[kItemCantidad]);
        const QString unitario =
            texto_numero(redondear(valor_texto(item[kItemPrecioUnitario]) * factor, decimales));
        const QString importe =
            texto_numero(redondear(valor_texto(item[kItemPrecioFinal]) * factor, decimales));
        log_campo(ctx, "cantidad", item[kItemCantidad], cantidad);
        log_campo(ctx, "precio unit", item[kItemPrecioUnitario], unitario);
        log_campo(ctx, "precio final", item[kItemPrecioFinal], importe);
        carrito.agregar_linea({cantidad, item[kItemDescripcion], unitario, importe,
                               celda_numero(item[kItemIva]), *codigo, celda_numero(item[kItemGanancia]),
                               celda_numero(item[kItemDescuento]), QStringLiteral("0"),
                               celda_numero(item[kItemCostoSiva]), item[kItemCodigo],
                               // A restored line never joins an article added later.
                               QStringLiteral("-1"), item[kItemProveedor]});
    }
    if (!informe.isEmpty())
        ctx.escribir_log(informe.join(QLatin1Char('\n')), kInfo);

    // A sale stands by itself; anything else keeps its reference so that
    // the cart's sale replaces it.
    if (cabecera->tipo != QLatin1String("Factura")) {
        if (!cabecera->nro_referencia.isEmpty()) {
            carrito.set_marca_guardado(kPrefijoCarritoGuardado + cabecera->nro_referencia);
            ctx.escribir_log(
                QStringLiteral("Se pone como ID de carrito al numero") + cabecera->nro_referencia, kInfo);
        } else {
            ctx.escribir_log(
                QStringLiteral(
                    "Se intento cargar un carrito que por algun motivo NO TIENE nro_referencia. Se "
                    "cargan los items como si fuera un carrito que viene de una factura, perdiendo "
                    "los datos del cliente asociado."),
                QStringLiteral("E"));
        }
    }
    return std::nullopt;
}

} // namespace

bool cargar_carrito_guardado(Context &ctx, Carrito &carrito, const QString &documento_id)
{
    ctx.estado().marcar_ocupado(true);
    ctx.escribir_log(QStringLiteral("Recuperando factura cabecera ID=") + documento_id, kInfo);
    std::optional<QString> error;
    {
        // The whole restore is one change of the cart: its open copy is
        // saved once, not once a line.
        Carrito::Lote lote(carrito);
        carrito.quitar_lineas();
        // The mark goes at once: a restore that stops halfway must not leave
        // the cart pointing at the document it held before.
        carrito.set_marca_guardado({});
        carrito.set_leyenda_extra({});
        error = restaurar(ctx, carrito, documento_id.toLongLong());
        // The lines loaded so far stay, with their own total.
        carrito.set_texto_total(redondear_precio(ctx, carrito.total()));
    }
    ctx.estado().marcar_ocupado(false);
    if (!error)
        return true;
    ctx.op().error(QStringLiteral("Error al intentar cargar la Grilla."),
                   QStringLiteral("ER BUS002: Se produjo un error al cargar la información del Carrito "
                                  "guardado. Cierre Vendrix e intente nuevamente."));
    ctx.escribir_log(QStringLiteral("ER BUS002 - ") + *error + QStringLiteral(" cargar_carrito_guardado"),
                     QStringLiteral("E"));
    return false;
}

} // namespace vendrix

#include "sales/recording/sale_document.h"

#include "catalogue/pricing/formula.h"
#include "core/context.h"
#include "core/numeric.h"
#include "sales/carritos.h"
#include "sales/checkout/checkout.h"
#include "sales/checkout/payment_methods.h"
#include "sales/recording/document_numbers.h"

#include <QSysInfo>

namespace vendrix {

namespace {

const QString kSinDescripcion = QStringLiteral("Art. S/D");

QString descripcion_o_sd(const QString &texto)
{
    const QString t = texto.trimmed();
    return t.isEmpty() || t == QLatin1String("0") ? kSinDescripcion : texto;
}

// A line with no article id of the list was typed by hand ("", "0" or "X").
bool tiene_articulo(const QString &id)
{
    const QString t = id.trimmed();
    bool ok = false;
    return !t.isEmpty() && t != QLatin1String("0") && (t.toLongLong(&ok), ok);
}

QString real(double value)
{
    return texto_de_real(value);
}

} // namespace

FactoresPrecio factores_precio(Checkout &checkout)
{
    FactoresPrecio f;
    f.descuento = 1 - checkout.descuento_habitual() / 100;
    f.recargo = 1 + valor_texto(checkout.recargo_forma_de_pago()) / 100;
    if (f.recargo == 0)
        f.recargo = 1;
    return f;
}

double iva_contenido(const Carrito &carrito, double factor_total, bool total_negativo)
{
    double tot_iva = 0;
    for (const LineaCarrito &l : carrito.lineas()) {
        const double importe = valor_texto(l[kColImporte]) * factor_total;
        const double parte = (1 - 1 / (1 + valor_texto(l[kColIva]) / 100)) * importe;
        tot_iva += total_negativo ? -parte : parte;
    }
    return tot_iva;
}

ItemFactura item_de_linea(Context &ctx, const LineaCarrito &linea, double factor_total, bool es_credito)
{
    ItemFactura item;
    if (tiene_articulo(linea[kColCodigo])) {
        const Matrix m = ctx.db().execQ_matriz(
            QStringLiteral("SELECT proveedor, codigo, descripcion, precio FROM xls_listas where id=?"),
            QStringLiteral("external"), {linea[kColCodigo].trimmed()});
        item.proveedor = m.at(0, 0);
        item.codigo = m.at(1, 0);
        item.descripcion = m.at(2, 0);
        item.costo_siva = valor_texto(m.at(3, 0));
    } else {
        item.codigo = QStringLiteral("X");
        item.descripcion = linea[kColArticulo];
    }
    item.descripcion = descripcion_o_sd(item.descripcion);
    const double tasa = valor_texto(linea[kColIva]);
    item.venta_siva = valor_texto(linea[kColPrecioUnitario]) * factor_total / (1 + tasa / 100);
    item.cantidad = valor_texto(linea[kColCantidad]);
    item.iva = tasa;
    item.precio_final = valor_texto(linea[kColImporte]) * factor_total * (es_credito ? -1 : 1);
    item.descripcion_nueva = linea[kColArticulo];
    item.ganancia = formula_a_porcentaje(linea[kColGanancia], u"ganancia");
    item.descuento = formula_a_porcentaje(linea[kColDescuento], u"descuento");
    return item;
}

namespace {

DocumentoVenta armar(Context &ctx, Checkout &checkout, const QString &tipo, bool es_credito,
                     const FactoresPrecio &factores, bool registrar)
{
    const VistaCheckout &v = checkout.vista();
    const Carrito &carrito = checkout.carrito();
    DocumentoVenta doc;
    CabeceraFactura &c = doc.cabecera;
    // A credit is stored with its total negative.
    c.total = valor_texto(v.Label_total) * (es_credito ? -1 : 1);
    c.total_facturado = c.total;
    for (const LineaCarrito &l : carrito.lineas())
        c.descuentos += valor_texto(l[kColCosto]);
    const double tot_iva = iva_contenido(carrito, factores.total(), c.total < 0);
    c.total_neto = redondear(c.total - tot_iva, 3);
    c.total_iva = redondear(tot_iva, 3);
    if (registrar) {
        ctx.escribir_log(QStringLiteral("El valor de la variable tot_iva es: '") + texto_numero(tot_iva) +
                             QLatin1Char('\''),
                         QStringLiteral("I"));
        ctx.escribir_log(QStringLiteral("El total es : '") + texto_numero(c.total) + QLatin1Char('\''),
                         QStringLiteral("I"));
    }

    c.fecha = ctx.reloj().now();
    c.letra = letra_comprobante(ctx, v.Combo_iva).letra;
    c.punto_venta = ctx.leer_parametro(QStringLiteral("IF_PuntoDeVenta"));
    c.tipo = tipo;
    c.cliente = v.Combo_iva;
    c.cuit = v.Text_cuit;
    c.razon_social = v.Text_rz;
    c.domicilio = v.Text_dom;
    c.provincia = v.Text_loc;
    c.iva = valor_texto(normalizar_decimal(ctx.leer_parametro(QStringLiteral("iva"))));
    c.descuento_habitual = valor_texto(normalizar_decimal(v.Text_dh));
    c.forma_de_pago = checkout.es_venta_en_CC() ? QStringLiteral("Cuenta Corriente") : v.Combo_FdP;
    if (checkout.es_venta_en_CC() && es_credito)
        c.fdp_cc = forma_sin_recargo(v.Combo_FdP);
    c.carro = nombre_carrito(ctx, checkout.carrito_origen());
    c.maquina = QSysInfo::machineHostName();
    c.nro_referencia = v.Text_referenciaExterna;
    c.tipo_doc = v.Combo_tipo_doc;
    c.notas = v.Text_Notas;

    doc.items.reserve(carrito.lineas().size());
    for (const LineaCarrito &l : carrito.lineas())
        doc.items.push_back(item_de_linea(ctx, l, factores.total(), es_credito));
    return doc;
}

} // namespace

DocumentoVenta armar_documento(Context &ctx, Checkout &checkout, const QString &tipo, bool es_credito,
                               const FactoresPrecio &factores, const Autorizacion &autorizacion)
{
    DocumentoVenta doc = armar(ctx, checkout, tipo, es_credito, factores, true);
    autorizar_documento(doc.cabecera, autorizacion);
    doc.cabecera.nro_ticket = proximo_nro_ticket(ctx, doc.cabecera.letra, tipo);
    return doc;
}

DocumentoVenta armar_borrador(Context &ctx, Checkout &checkout, const QString &tipo, bool es_credito,
                              const FactoresPrecio &factores)
{
    return armar(ctx, checkout, tipo, es_credito, factores, false);
}

void autorizar_documento(CabeceraFactura &c, const Autorizacion &autorizacion)
{
    c.cae = autorizacion.cae;
    c.cae_vto = autorizacion.cae_vto;
    c.cae_id = QString(autorizacion.nro_comprobante).remove(QLatin1Char(' '));
}

QString texto_documento(const DocumentoVenta &doc)
{
    const CabeceraFactura &c = doc.cabecera;
    // No commas: the log stores them as ";;".
    QStringList partes = {
        QStringLiteral("nro_ticket=") + QString::number(c.nro_ticket),
        QStringLiteral("fecha=") + c.fecha.toString(QStringLiteral("dd/MM/yyyy HH:mm:ss")),
        QStringLiteral("letra=") + c.letra,
        QStringLiteral("Puntoventa=") + c.punto_venta,
        QStringLiteral("tipo=") + c.tipo,
        QStringLiteral("cliente=") + c.cliente,
        QStringLiteral("cuit=") + c.cuit,
        QStringLiteral("razon_social=") + c.razon_social,
        QStringLiteral("Domicilio=") + c.domicilio,
        QStringLiteral("Provincia=") + c.provincia,
        QStringLiteral("Total_facturado=") + real(c.total_facturado),
        QStringLiteral("Descuentos=") + real(c.descuentos),
        QStringLiteral("Iva=") + real(c.iva),
        QStringLiteral("Total=") + real(c.total),
        QStringLiteral("Descuento_habitual=") + real(c.descuento_habitual),
        QStringLiteral("total_neto=") + real(c.total_neto),
        QStringLiteral("Total_iva=") + real(c.total_iva),
        QStringLiteral("forma_de_pago=") + c.forma_de_pago,
        QStringLiteral("carro=") + c.carro,
        QStringLiteral("nro_referencia=") + c.nro_referencia,
        QStringLiteral("CAE=") + c.cae,
        QStringLiteral("CAE_vto=") + c.cae_vto,
        QStringLiteral("CAE_ID=") + c.cae_id,
        QStringLiteral("TIPO_DOC=") + c.tipo_doc,
        QStringLiteral("NOTAS=") + c.notas,
        QStringLiteral("FDP_CC=") + c.fdp_cc,
    };
    for (size_t i = 0; i < doc.items.size(); ++i) {
        const ItemFactura &it = doc.items[i];
        partes << QStringLiteral("item %1: ").arg(i) +
                      QStringList{
                          it.proveedor,         it.codigo,         it.descripcion,    real(it.costo_siva),
                          real(it.venta_siva),  real(it.cantidad), real(it.iva),      real(it.precio_final),
                          it.descripcion_nueva, real(it.ganancia), real(it.descuento)}
                          .join(QLatin1Char('|'));
    }
    return partes.join(QStringLiteral("; "));
}

} // namespace vendrix

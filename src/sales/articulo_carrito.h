#pragma once

#include <QString>

#include <optional>

namespace vendrix {

class Context;
struct PricedArticle;
struct PricePanel;

// What the add-article and units dialogs read of the article selected in the
// price list: the article as the list has it and the figures of the price
// panel, as plain values taken when the dialog opens.
struct ArticuloParaCarrito {
    qint64 id = 0;
    QString grupo; // the group of the list row (col 2)
    QString proveedor;
    QString codigo;      // the supplier's code
    QString descripcion; // as the dialogs show it, by setting `IF_desc_art`
    QString marca;
    QString unidad; // the list's unit of measure
    QString moneda; // the currency code

    // The panel's figures.
    QString precio_lista;      // the whole pack's sale price with IVA, unrounded
    QString ganancia;          // the margin formula
    QString descuento;         // the supplier discount formula
    QString descuento_cliente; // the customer discount formula
    QString costo;             // cost shown (two places)
    QString precio_con_iva;    // sale price with IVA, as shown
    QString precio_sin_iva;    // sale price without IVA, as shown
    double iva = 0.0;          // the article's own rate
};

// What both dialogs show of the article, control by control. Price boxes
// keep the figure shown as text and the full one as tag; the unit price's
// tag keeps " c/u" too.
struct VistaArticulo {
    QString text_articulos; // the supplier's code
    QString Text_artdesc;
    QString Text_marc;
    QString Text_UM;
    QString Text_pventa; // the working price: the whole pack's price
    QString Text_pventa_tag;
    QString Text_pventa_display; // rounded for display, also its tool tip
    QString Label_Dolares;
    QString cant_unidades = QStringLiteral("1");
    bool unidades_guardadas = false; // a row of the units memory: shown in red
    QString Text_cantxprecio;        // the unit price and " c/u"
    QString Text_cantxprecio_tag;
};

// Fills the article's boxes, and the units with the number the shop
// remembers for the article, if any.
void cargar_vista_articulo(Context &ctx, const ArticuloParaCarrito &articulo, VistaArticulo &vista);

// Copies the figures of a loaded price panel.
void tomar_figuras_del_panel(ArticuloParaCarrito &articulo, const PricePanel &panel);

// The description the dialogs and the cart show: the description alone when
// `IF_desc_art` is "Descripción", else the group, a blank and the description.
QString descripcion_para_carrito(const Context &ctx, const QString &grupo, const QString &descripcion);

// Reads article `id` of the price list and takes the panel's figures.
// nullopt when the database failed or no article has that id. `grupo` is the
// list row's group.
std::optional<ArticuloParaCarrito> leer_articulo_para_carrito(Context &ctx, qint64 id, const QString &grupo,
                                                              const PricePanel &panel);

// Whether article `id` is the only one of its supplier with its code, as the
// units dialog needs (an empty code counts: it is shared by the supplier's
// other articles without one). False when the database failed.
bool codigo_unico_en_lista(Context &ctx, qint64 id);

// The dollar rate the dialogs work with: setting `Valor_Dolar`; while it is
// empty or "0" the operator is asked to set it and the rate counts as "1".
QString cotizacion_para_dialogo(Context &ctx);
// The note of a dollar article: "El precio original en dólares. ..." and the rate.
QString leyenda_dolares(const QString &cotizacion);

} // namespace vendrix

#include "catalogue/pricing/article_detail/old_price.h"

#include "catalogue/pricing/article_detail/article_detail.h"
#include "catalogue/pricing/currency.h"
#include "catalogue/pricing/price_settings.h"
#include "core/context.h"
#include "core/numeric.h"

namespace vendrix {

void poner_precio_lista(PricePanel &panel, const QString &precio)
{
    for (PanelField campo : {PanelField::TextBox_PLista, PanelField::TextBox_PLista_original,
                             PanelField::TextBox_PLista_grilla, PanelField::TextBox_PLista_grilla_unidad})
        panel[campo].text = precio;
}

bool ofrecer_precio_anterior(Context &ctx, ArticleDetail &detalle, const PriceSettings &ajustes)
{
    const PricedArticle &a = detalle.articulo;
    const auto cursor =
        ctx.db().execQ(QStringLiteral("SELECT FechaLista, Grupo, Codigo, Descripcion, Precio, Moneda "
                                      "FROM xls_listas_viejos WHERE Proveedor = ? AND Codigo = ?"),
                       QStringLiteral("external"), {a.proveedor, a.codigo});
    if (!cursor || cursor->eof())
        return false;
    double anterior = valor_texto(cursor->texto(4));
    if (es_moneda_dolar(cursor->texto(5)))
        anterior *= cotizacion_dolar(ajustes.valor_dolar);
    const QString precio = Rounder(ajustes.redondeo).aplicar(anterior);
    const QString fecha = fecha_lista_visible(cursor->texto(0));
    const QString crlf = QStringLiteral("\r\n");
    const QString texto =
        QStringLiteral("El artículo seleccionado tiene precio de lista igual a cero. Esto implica que el "
                       "proveedor '") +
        a.proveedor + QStringLiteral("' no esta reportando el precio de dicho artículo.") + crlf +
        QStringLiteral("Vendrix encontro un precio antiguo (actualizado al ") + fecha +
        QStringLiteral(") para el proveedor y codigo ingresados con la siguiente caracteristicas: ") + crlf +
        crlf + QStringLiteral("     Proveedor       :  ") + a.proveedor + crlf +
        QStringLiteral("     Código            :  ") + cursor->texto(2) + crlf +
        QStringLiteral("     Grupo              :  ") + cursor->texto(1) + crlf +
        QStringLiteral("     Descripción    :  ") + cursor->texto(3) + crlf +
        QStringLiteral("     Fecha               :  ") + fecha + crlf +
        QStringLiteral("     Precio de Lista:  $") + precio + QStringLiteral(" (Pesos Argentinos)") + crlf +
        crlf + QStringLiteral("Desea utilizar este precio para realizar la venta?");
    if (!ctx.op().ask(QStringLiteral("Artículo sin precio"), texto))
        return false;
    poner_precio_lista(detalle.panel, precio);
    return true;
}

} // namespace vendrix

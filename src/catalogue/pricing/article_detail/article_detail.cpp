#include "catalogue/pricing/article_detail/article_detail.h"

#include "catalogue/pricing/article_detail/detail_marks.h"
#include "catalogue/pricing/article_detail/old_price.h"
#include "catalogue/pricing/currency.h"
#include "catalogue/pricing/price_settings.h"
#include "catalogue/pricing/rules.h"
#include "catalogue/pricing/supplier_rules/rule_store.h"
#include "core/context.h"
#include "core/numeric.h"

#include <QDate>

namespace vendrix {

namespace {

using C = ArticleField;

struct DetailRead {
    bool ok = false;
    bool encontrado = false;
    ArticleDetail detalle;
};

// The article with the count of rows of its supplier that share its code.
DetailRead leer_detalle(Context &ctx, qint64 id)
{
    DetailRead out;
    const auto cursor = ctx.db().execQ(
        QStringLiteral("SELECT Grupo, Descripcion, Codigo, Moneda, Marca, UnidaddeMedida, Observaciones, "
                       "FechaLista, Precio, Proveedor, (SELECT count(*) FROM xls_listas AS lint WHERE "
                       "lint.Codigo <> '' AND lint.Codigo = lext.Codigo AND lint.Proveedor = lext.Proveedor) "
                       "FROM xls_listas AS lext WHERE ID = ?"),
        QStringLiteral("external"), {id});
    if (!cursor)
        return out;
    out.ok = true;
    if (cursor->eof())
        return out;
    out.encontrado = true;
    ArticleDetail &d = out.detalle;
    d.id = id;
    PricedArticle &a = d.articulo;
    a.id = id;
    a.grupo = cursor->texto(0);
    a.descripcion = cursor->texto(1);
    a.codigo = cursor->texto(2);
    a.moneda = cursor->texto(3);
    a.precio = cursor->texto(8);
    a.proveedor = cursor->texto(9);
    d.codigo_repetido = cursor->texto(10).toInt();

    d.campo(C::Grupo) = a.grupo;
    d.campo(C::Descripcion) = a.descripcion;
    d.campo(C::Codigo) = a.codigo;
    const QString moneda = nombre_moneda(a.moneda);
    d.campo(C::Moneda) = moneda.isEmpty() ? a.moneda : moneda;
    d.campo(C::Marca) = cursor->texto(4);
    d.campo(C::Unidad) = cursor->texto(5);
    d.campo(C::Observaciones) = cursor->texto(6);
    d.campo(C::Fecha) = fecha_lista_visible(cursor->texto(7));
    d.campo(C::Supplier) = a.proveedor;
    d.color = color_moneda(a.moneda);
    return out;
}

} // namespace

CurrencyColour color_moneda(QStringView codigo)
{
    if (codigo == u"1")
        return CurrencyColour::Pesos;
    if (codigo == u"2")
        return CurrencyColour::Dolares;
    if (codigo == u"101")
        return CurrencyColour::PesosIvaReducido;
    if (codigo == u"102")
        return CurrencyColour::DolaresIvaReducido;
    return CurrencyColour::Otra;
}

QString fecha_lista_visible(const QString &fecha)
{
    const QDate d = QDate::fromString(fecha.left(10), Qt::ISODate);
    return d.isValid() ? d.toString(QStringLiteral("dd/MM/yyyy")) : fecha;
}

ArticleDetail limpiar_detalle()
{
    ArticleDetail d;
    aplicar_marcas(d);
    return d;
}

void aplicar_marcas(ArticleDetail &d)
{
    const bool cargado = d.id != 0;
    const bool con_codigo = cargado && !d.articulo.codigo.trimmed().isEmpty();
    const bool repetido = d.codigo_repetido > 1;
    const ArticleMarks &m = d.marcas;

    const bool favorito = m.favorito > 0;
    d.favoritos.caption =
        favorito ? QStringLiteral("Eliminar de favoritos") : QStringLiteral("Agregar a favoritos");
    // A repeated code keeps the button, so pressing it says why it can't be
    // a favourite.
    d.favoritos.habilitado = con_codigo;

    const bool controlado = m.centinela > 0 || m.testigo > 0;
    d.control.caption =
        controlado ? QStringLiteral("No Controlar Precio") : QStringLiteral("Controlar Precio");
    d.control.habilitado = con_codigo && (controlado || !repetido);

    d.unidades_habilitado = con_codigo;
    d.comentarios_habilitado = con_codigo;
    d.pedido_habilitado = cargado;

    const bool pendiente = con_codigo ? m.pendientes > 0 : m.pendientes_sin_codigo > 0;
    const bool pedido = con_codigo ? m.pedidos > 0 : m.pedidos_sin_codigo > 0;
    d.imagenes = {favorito, controlado, cargado && pendiente, cargado && pedido};
    d.imagen_comentario = !m.comentario.isEmpty();
    d.campo(ArticleField::Comentario) = m.comentario;
}

PanelRule regla_en_panel(const ArticleDetail &d)
{
    return {d.articulo.proveedor,
            d.articulo.grupo,
            d.articulo.codigo,
            d.articulo.descripcion,
            d.panel[PanelField::TextBox_Ganancia].text,
            d.panel[PanelField::TextBox_Descuento].text,
            d.ganancia_cargada,
            d.descuento_cargada};
}

std::optional<ArticleDetail> cargar_detalle_articulo(Context &ctx, RuleStore &reglas,
                                                     const ArticleDetail &saliente, qint64 id)
{
    // Storing the leaving article's formulas may refill the rules: before
    // the new article's are looked up.
    if (saliente.id != 0)
        guardar_regla_desde_detalle(ctx, reglas, regla_en_panel(saliente));

    // Each source once: the article, its marks and units, its formulas, the settings.
    DetailRead lectura = leer_detalle(ctx, id);
    if (!lectura.encontrado)
        return std::nullopt;
    ArticleDetail &d = lectura.detalle;
    const PricedArticle &a = d.articulo;
    d.marcas = leer_marcas(ctx, a);
    const ArticleRules formulas = reglas.tabla().reglas(a.proveedor, a.grupo, a.codigo);
    d.ajustes = PriceSettings::leer(ctx);

    // Then the whole panel from them.
    aplicar_marcas(d);
    d.ganancia_cargada = formulas.ganancia;
    d.descuento_cargada = formulas.descuento;
    d.plista_editable = valor_texto(a.precio) == 0.0;
    ctx.estado().marcar_ocupado(true);
    d.panel = cargar_panel(a, d.marcas.unidades, formulas, d.ajustes);
    publicar_panel(ctx, d.panel);
    ctx.estado().marcar_ocupado(false);

    // An article the list has at 0 may sell at its former price, once the
    // operator has seen the panel.
    if (d.plista_editable && ofrecer_precio_anterior(ctx, d, d.ajustes)) {
        ctx.estado().marcar_ocupado(true);
        calcular_precio_detalle(d.panel, d.ajustes);
        publicar_panel(ctx, d.panel);
        ctx.estado().marcar_ocupado(false);
    }
    return std::move(d);
}

void escribir_precio_lista(Context &ctx, ArticleDetail &d, const QString &precio)
{
    poner_precio_lista(d.panel, precio);
    calcular_precio_detalle(ctx, d.panel);
}

} // namespace vendrix

#include "catalogue/pricing/article_record.h"

#include "core/context.h"
#include "core/numeric.h"

namespace vendrix {

ArticleRead leer_articulo(Context &ctx, qint64 id)
{
    ArticleRead out;
    const auto cursor = ctx.db().execQ(QStringLiteral("SELECT Proveedor, Grupo, Codigo, Descripcion, Precio, "
                                                      "Moneda FROM xls_listas WHERE ID = ?"),
                                       QStringLiteral("external"), {id});
    if (!cursor)
        return out;
    out.ok = true;
    out.articulo.id = id;
    if (cursor->eof())
        return out;
    out.encontrado = true;
    PricedArticle &a = out.articulo;
    a.proveedor = cursor->texto(0);
    a.grupo = cursor->texto(1);
    a.codigo = cursor->texto(2);
    a.descripcion = cursor->texto(3);
    a.precio = cursor->texto(4);
    a.moneda = cursor->texto(5);
    return out;
}

std::optional<double> leer_unidades(Context &ctx, const QString &proveedor, const QString &codigo)
{
    const QString texto = ctx.db().execQ1(
        QStringLiteral("SELECT Unidades FROM vendrix_unidades_articulo WHERE Proveedor = ? AND Codigo = ?"),
        QStringLiteral("cliente"), {proveedor, codigo});
    const double unidades = valor_texto(texto);
    if (texto.isEmpty() || !(unidades > 0.0))
        return std::nullopt;
    return unidades;
}

} // namespace vendrix

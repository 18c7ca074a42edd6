#include "catalogue/pricing/article_detail/detail_marks.h"

#include "catalogue/pricing/article_detail/article_detail.h"
#include "core/context.h"
#include "core/numeric.h"

namespace vendrix {

namespace {

const QString kInterna = QStringLiteral("internal");

bool con_codigo(const PricedArticle &a)
{
    return !a.codigo.trimmed().isEmpty();
}

} // namespace

ArticleMarks leer_marcas(Context &ctx, const PricedArticle &a)
{
    // ?1 supplier, ?2 code, ?3 description.
    const Matrix m = ctx.db().execQ_matriz(
        QStringLiteral(
            "SELECT "
            "(SELECT count(*) FROM vendrix_articulos_testigo WHERE Proveedor = ?1 AND Codigo = ?2 AND Tipo = "
            "'F'), "
            "(SELECT count(*) FROM vendrix_articulos_testigo WHERE Proveedor = ?1 AND Codigo = ?2 AND Tipo = "
            "'C'), "
            "(SELECT count(*) FROM vendrix_articulos_testigo WHERE Proveedor = ?1 AND Codigo = ?2 AND Tipo = "
            "'T'), "
            "(SELECT count(*) FROM vendrix_pedidos WHERE Estado = 'Pedido Pendiente' AND Proveedor = ?1 AND "
            "Codigo = ?2 AND Descripcion = ?3), "
            "(SELECT count(*) FROM vendrix_pedidos WHERE Estado = 'Pedido Pendiente' AND Proveedor = ?1 AND "
            "Descripcion = ?3), "
            "(SELECT count(*) FROM vendrix_pedidos WHERE Estado = 'Pedido' AND Proveedor = ?1 AND Codigo = "
            "?2 AND "
            "Descripcion = ?3), "
            "(SELECT count(*) FROM vendrix_pedidos WHERE Estado = 'Pedido' AND Proveedor = ?1 AND "
            "Descripcion = ?3), "
            "(SELECT Unidades FROM vendrix_unidades_articulo WHERE Proveedor = ?1 AND Codigo = ?2 LIMIT 1), "
            "(SELECT Descripcion FROM vendrix_articulos_testigo WHERE Tipo = 'U' AND Proveedor = ?1 AND "
            "Codigo = ?2 LIMIT 1)"),
        kInterna, {a.proveedor, a.codigo, a.descripcion});
    ArticleMarks out;
    if (m.vacia())
        return out;
    out.pendientes_sin_codigo = m.at(4, 0).toInt();
    out.pedidos_sin_codigo = m.at(6, 0).toInt();
    if (!con_codigo(a))
        return out;
    out.favorito = m.at(0, 0).toInt();
    out.centinela = m.at(1, 0).toInt();
    out.testigo = m.at(2, 0).toInt();
    out.pendientes = m.at(3, 0).toInt();
    out.pedidos = m.at(5, 0).toInt();
    const QString unidades = m.at(7, 0);
    if (!unidades.isEmpty() && valor_texto(unidades) > 0)
        out.unidades = valor_texto(unidades);
    out.comentario = m.at(8, 0);
    return out;
}

bool alternar_favorito(Context &ctx, ArticleDetail &d)
{
    const PricedArticle &a = d.articulo;
    if (d.id == 0 || !con_codigo(a))
        return false;
    if (d.marcas.favorito > 0) {
        if (!ctx.db().execNQ(QStringLiteral("DELETE FROM vendrix_articulos_testigo WHERE Proveedor = ? AND "
                                            "Codigo = ? AND Tipo = 'F'"),
                             kInterna, {a.proveedor, a.codigo}))
            return false;
        d.marcas.favorito = 0;
    } else {
        if (d.codigo_repetido > 1) {
            ctx.op().error(QStringLiteral("Error al asignar favoritos"),
                           QStringLiteral("El artículo no puede agregarse a Favoritos por que su código está "
                                          "repetido"));
            return false;
        }
        if (!ctx.db().execNQ(QStringLiteral("INSERT INTO vendrix_articulos_testigo (Proveedor, Codigo, Tipo, "
                                            "Descripcion) VALUES (?, ?, 'F', ?)"),
                             kInterna, {a.proveedor, a.codigo, a.descripcion}))
            return false;
        d.marcas.favorito = 1;
    }
    aplicar_marcas(d);
    return true;
}

bool guardar_comentario_articulo(Context &ctx, ArticleDetail &d, const QString &comentario)
{
    const PricedArticle &a = d.articulo;
    if (d.id == 0 || !con_codigo(a))
        return false;
    if (!ctx.leer_parametro(QStringLiteral("admin_block")).isEmpty()) {
        ctx.op().error(
            QStringLiteral("No se pueden guardar los Comentarios"),
            QStringLiteral("No se puede guardar el comentario ya que la configuración se encuentra "
                           "bloqueada por el administrador de Vendrix."));
        return false;
    }
    const QString nombre = a.codigo + QStringLiteral(" - ") + a.descripcion;
    if (!ctx.op().ask(QStringLiteral("Guardar Comentarios"),
                      QStringLiteral("¿Está seguro de guardar los comentarios en el artículo: ") + nombre +
                          QStringLiteral("?")))
        return false;
    const SqlParams clave{a.codigo, a.proveedor};
    const QString filas =
        ctx.db().execQ1(QStringLiteral("SELECT count(*) FROM vendrix_articulos_testigo WHERE "
                                       "Tipo = 'U' AND Codigo = ? AND Proveedor = ?"),
                        kInterna, clave);
    if (filas.isEmpty())
        return false; // the count failed; the layer has logged it
    // A comment of blanks only says nothing: it is taken as empty.
    const QString texto = comentario.trimmed().isEmpty() ? QString() : comentario;
    bool ok = false;
    if (texto.isEmpty())
        ok = ctx.db().execNQ(
            QStringLiteral("DELETE FROM vendrix_articulos_testigo WHERE Tipo = 'U' AND Codigo = ? "
                           "AND Proveedor = ?"),
            kInterna, clave);
    else if (filas != QLatin1String("0"))
        ok = ctx.db().execNQ(
            QStringLiteral("UPDATE vendrix_articulos_testigo SET Descripcion = ? WHERE Tipo = 'U' "
                           "AND Codigo = ? AND Proveedor = ?"),
            kInterna, {texto, a.codigo, a.proveedor});
    else
        ok = ctx.db().execNQ(
            QStringLiteral("INSERT INTO vendrix_articulos_testigo (Codigo, Proveedor, Descripcion, "
                           "Tipo, ID_Testigo) VALUES (?, ?, ?, 'U', 0)"),
            kInterna, {a.codigo, a.proveedor, texto});
    if (!ok)
        return false;
    ctx.escribir_log(QStringLiteral("Notas Artículo - Se modificaron los datos el artículo: ") + nombre,
                     QStringLiteral("A"));
    d.marcas.comentario = texto;
    aplicar_marcas(d);
    return true;
}

} // namespace vendrix

#include "catalogue/pricing/supplier_rules/rule_combos.h"

#include "catalogue/pricing/rules.h"
#include "core/context.h"

namespace vendrix {

namespace {

const QString kExterna = QStringLiteral("external");

QStringList columna(Context &ctx, const QString &sql, const SqlParams &params = {})
{
    QStringList out;
    const auto cursor = ctx.db().execQ(sql, kExterna, params);
    for (; cursor && !cursor->eof(); cursor->siguiente())
        out << cursor->texto(0);
    return out;
}

} // namespace

QStringList proveedores_combo(Context &ctx)
{
    return columna(ctx,
                   QStringLiteral("SELECT DISTINCT Proveedor FROM xls_proveedores WHERE Proveedor IS NOT "
                                  "NULL ORDER BY Proveedor"));
}

QStringList cargar_grupos_proveedor(Context &ctx, const QString &proveedor)
{
    return QStringList{kGrupoGeneral} +
           columna(
               ctx,
               QStringLiteral("SELECT DISTINCT Grupo FROM xls_listas WHERE Proveedor = ? AND Grupo IS NOT "
                              "NULL ORDER BY Grupo"),
               {proveedor});
}

QStringList cargar_articulos_grupo(Context &ctx, const QString &proveedor, const QString &grupo)
{
    // The item text is the key under which an article's rule is stored, so
    // the rows already in the table are left out by that same text.
    return QStringList{kTodosLosArticulos} +
           columna(
               ctx,
               QStringLiteral("SELECT DISTINCT COALESCE(Codigo, '') || ' - ' || COALESCE(Descripcion, '') "
                              "AS item FROM xls_listas WHERE Proveedor = ?1 AND Grupo = ?2 AND item NOT IN "
                              "(SELECT Articulo FROM %1 WHERE Proveedor = ?1 AND Grupo = ?2 AND "
                              "Articulo IS NOT NULL) ORDER BY item")
                   .arg(ctx.db().tabla_descuentos_attach()),
               {proveedor, grupo});
}

QString codigo_de_item(const QString &item)
{
    const qsizetype guion = item.indexOf(QLatin1String(" - "));
    return (guion < 0 ? item : item.left(guion)).trimmed();
}

} // namespace vendrix

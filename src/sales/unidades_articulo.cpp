#include "sales/unidades_articulo.h"

#include "core/context.h"
#include "core/numeric.h"

namespace vendrix {

namespace {

const QString kTienda = QStringLiteral("cliente");

void log_unidades(Context &ctx, const char *accion, const QString &descripcion)
{
    ctx.escribir_log(QStringLiteral("Agregar Artículo - Se ") + QString::fromUtf8(accion) +
                         QStringLiteral(" la cantidad de unidades por precio para el artículo ") +
                         descripcion,
                     QStringLiteral("A"));
}

} // namespace

std::optional<QString> leer_unidades_guardadas(Context &ctx, const QString &proveedor, const QString &codigo)
{
    const auto cursor = ctx.db().execQ(
        QStringLiteral("SELECT Unidades FROM vendrix_unidades_articulo WHERE Proveedor = ? AND Codigo = ?"),
        kTienda, {proveedor, codigo});
    if (!cursor || cursor->eof())
        return std::nullopt;
    return cursor->texto(0).replace(QLatin1Char('.'), kSeparadorDecimal);
}

bool guardar_unidades_articulo(Context &ctx, const QString &proveedor, const QString &codigo, bool habia_fila,
                               double unidades, const QString &descripcion)
{
    if (!habia_fila) {
        if (unidades == 1)
            return false;
        ctx.db().execNQ(QStringLiteral("INSERT INTO vendrix_unidades_articulo (Proveedor, Codigo, Unidades) "
                                       "VALUES (?, ?, ?)"),
                        kTienda, {proveedor, codigo, unidades});
        log_unidades(ctx, "guardo", descripcion);
        return true;
    }
    if (unidades == 1) {
        ctx.db().execNQ(
            QStringLiteral("DELETE FROM vendrix_unidades_articulo WHERE Proveedor = ? AND Codigo = ?"),
            kTienda, {proveedor, codigo});
    } else {
        ctx.db().execNQ(
            QStringLiteral("UPDATE vendrix_unidades_articulo SET Unidades = ? WHERE Proveedor = ? "
                           "AND Codigo = ?"),
            kTienda, {unidades, proveedor, codigo});
    }
    log_unidades(ctx, "actualizo", descripcion);
    return true;
}

} // namespace vendrix

#include "catalogue/search/grid_rows.h"

#include "core/context.h"

namespace vendrix {

namespace {

ListGridRow todas_las_columnas(const Cursor &row)
{
    ListGridRow fila;
    for (int c = 0; c < row.columnas(); ++c)
        fila.celdas << row.texto(c);
    return fila;
}

} // namespace

RowColour color_de_fila(const RowMarks &marcas)
{
    if (marcas.pedido_pendiente == 1)
        return RowColour::pedido_pendiente;
    if (marcas.pedido == 1)
        return RowColour::pedido;
    if (marcas.centinela == 1)
        return RowColour::centinela;
    if (marcas.testigo == 1)
        return RowColour::testigo;
    return RowColour::ninguno;
}

void avisar_error_grilla(Context &ctx, const QString &palabra, const QString &mensaje, const QString &error,
                         const char *rutina)
{
    ctx.op().error(QStringLiteral("Error al intentar cargar las Grillas."), mensaje);
    ctx.escribir_log(QStringLiteral("ER ") + palabra + QStringLiteral(" - ") + error + QLatin1Char(' ') +
                         QLatin1String(rutina),
                     QStringLiteral("E"));
    ctx.estado().marcar_ocupado(false);
}

bool llenar_grilla(Context &ctx, GridSink &grilla, const QString &sql, const QString &target,
                   const SqlParams &params, const RowBuilder &armar)
{
    ctx.estado().marcar_ocupado(true);
    grilla.limpiar();
    grilla.redibujar(false);
    const std::unique_ptr<Cursor> rows = ctx.db().execQ(sql, target, params);
    if (!rows) {
        const QString error = ctx.db().ultimo_error(target);
        grilla.redibujar(true);
        avisar_error_grilla(
            ctx, QStringLiteral("GR001"),
            QStringLiteral("ER GR001: Se produjo un error al cargar la información en las Grillas. "
                           "Cierre Vendrix e intente nuevamente."),
            error, "llenar_grilla");
        return false;
    }
    for (; !rows->eof(); rows->siguiente())
        grilla.agregar(armar ? armar(*rows) : todas_las_columnas(*rows));
    grilla.redibujar(true);
    ctx.estado().marcar_ocupado(false);
    return true;
}

} // namespace vendrix

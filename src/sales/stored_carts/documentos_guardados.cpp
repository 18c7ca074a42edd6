#include "sales/stored_carts/documentos_guardados.h"

#include "core/context.h"
#include "core/numeric.h"

namespace vendrix {

std::optional<std::vector<DocumentoGuardado>> documentos_guardados(Context &ctx)
{
    const auto cursor = ctx.db().execQ(
        QStringLiteral(
            "SELECT ID, substr(fecha, 1, 10), CASE WHEN IFNULL(razon_social, '') = '' THEN cliente "
            "ELSE razon_social END, nro_referencia, tipo, Total_facturado FROM vendrix_facturas "
            "ORDER BY ID DESC"),
        QStringLiteral("clientes"));
    if (!cursor) {
        ctx.op().error(
            QStringLiteral("Error al intentar cargar la Grilla."),
            QStringLiteral("ER BUS001: Se produjo un error al cargar la información en las Grilla "
                           "de búsqueda de Carritos salvados. Cierre Vendrix e intente nuevamente."));
        ctx.escribir_log(QStringLiteral("ER BUS001 - 1 No se pudo leer la lista de documentos guardados"),
                         QStringLiteral("E"));
        return std::nullopt;
    }
    std::vector<DocumentoGuardado> documentos;
    for (; !cursor->eof(); cursor->siguiente())
        documentos.push_back({cursor->texto(0), cursor->texto(1), cursor->texto(2), cursor->texto(3),
                              cursor->texto(4), formatear(valor_texto(cursor->texto(5)), u"0.00")});
    return documentos;
}

QString aviso_al_cargar(const QString &tipo)
{
    if (tipo == QLatin1String("Factura"))
        return QStringLiteral("Se cargan los datos de la factura seleccionada en un nuevo carrito sin los "
                              "descuentos ni los recargos que pudieron haberse aplicado. La factura original "
                              "quedará sin cambios.");
    if (tipo == QLatin1String("Factura a emitir"))
        return QStringLiteral(
            "Se cargan los datos de la factura a emitir seleccionada en un nuevo carrito sin "
            "los descuentos ni los recargos que pudieron haberse aplicado.");
    return {};
}

} // namespace vendrix

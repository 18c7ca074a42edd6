#include "catalogue/pricing/supplier_rules/unused_rules.h"

#include "core/context.h"

namespace vendrix {

std::vector<UnusedRule> buscar_reglas_sin_uso(Context &ctx)
{
    // The article count compares names as the price list does (its columns
    // ignore case); the supplier must be in the list exactly, as in the grid.
    const auto cursor = ctx.db().execQ(
        QStringLiteral(
            "SELECT DISTINCT d.Proveedor, d.Grupo FROM %1 d WHERE d.Grupo <> 'General para la lista' "
            "AND d.Proveedor IN (SELECT Proveedor FROM xls_proveedores) AND NOT EXISTS "
            "(SELECT 1 FROM xls_listas l WHERE l.Proveedor = d.Proveedor AND l.Grupo = d.Grupo) "
            "ORDER BY d.Proveedor COLLATE NOCASE, d.Grupo COLLATE NOCASE")
            .arg(ctx.db().tabla_descuentos_attach()),
        QStringLiteral("external"));
    std::vector<UnusedRule> out;
    for (; cursor && !cursor->eof(); cursor->siguiente())
        out.push_back({cursor->texto(0), cursor->texto(1)});
    return out;
}

QString informe_reglas_sin_uso(const std::vector<UnusedRule> &reglas)
{
    const QString crlf = QStringLiteral("\r\n");
    QString texto = QStringLiteral("Hay descuentos y ganancias configurados para grupos que ya no tienen "
                                   "artículos en las listas de precios:") +
                    crlf + crlf;
    int listados = 0;
    for (const UnusedRule &r : reglas) {
        if (listados++ == kMaximoListado) {
            texto += QStringLiteral("  y otros grupos más...") + crlf;
            break;
        }
        texto += QStringLiteral("  Proveedor '") + r.proveedor + QStringLiteral("', grupo '") + r.grupo +
                 QStringLiteral("'.") + crlf;
    }
    return texto + crlf +
           QStringLiteral("Estos valores no se aplican a ningún artículo. Puede revisarlos o borrarlos en la "
                          "grilla de descuentos y ganancias de la solapa \"Configuración\".");
}

void advertir_reglas_sin_uso(Context &ctx)
{
    if (ctx.leer_parametro(QStringLiteral("advertencia_descuentos_no_utilizados")) != QLatin1String("1"))
        return;
    const std::vector<UnusedRule> reglas = buscar_reglas_sin_uso(ctx);
    if (reglas.empty())
        return;
    ctx.escribir_log(QStringLiteral("Configuración - hay ") + QString::number(reglas.size()) +
                         QStringLiteral(" grupos con descuentos y ganancias sin uso"),
                     QStringLiteral("I"));
    ctx.op().warn(QStringLiteral("Descuentos y ganancias sin uso"), informe_reglas_sin_uso(reglas));
}

} // namespace vendrix

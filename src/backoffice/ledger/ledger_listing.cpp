#include "backoffice/ledger/ledger_listing.h"

#include "backoffice/ledger/ledger_store.h"
#include "core/context.h"
#include "core/numeric.h"

namespace vendrix {

namespace {

const QString kInternal = QStringLiteral("Internal");

// Nullable text fields read as "" so that one missing part never blanks a
// concatenation (`||` with NULL gives NULL).
const char *const kSelect =
    "SELECT FA.ID, substr(FA.Fecha, 9, 2) || '/' || substr(FA.Fecha, 6, 2) || '/' || substr(FA.Fecha, 1, 4), "
    "FA.TIPO, ifnull(FA.Proveedor, ''), "
    "CASE FA.TIPO "
    "WHEN 'TRANSFERENCIA' THEN 'Transferencia de `' || ifnull(FA.Medio_de_pago_origen, '') || '` a `' || "
    "ifnull(FA.Medio_de_pago, '') || '`' "
    "WHEN 'FACTURA' THEN 'Factura ' || ifnull(FA.Factura_Letra, '') || '-' || ifnull(FA.Factura_sucursal, "
    "'') || "
    "'-' || ifnull(FA.Factura_numero, '') || ' cargada en el sistema' "
    "ELSE 'Gasto ' || ifnull(FA.Destino_de_pago, '') || "
    "CASE WHEN ifnull(FA.Medio_de_pago, '') <> '' THEN ' pagado con ' || FA.Medio_de_pago ELSE '' END END, "
    "CAST(FA.Total_Pago AS REAL), "
    // What is owed and paid, at the cent: payments of 0.29 + 0.29 + 0.30
    // settle a debt of 0.88 though the doubles miss it by a hair.
    "CASE WHEN FA.TIPO = 'TRANSFERENCIA' THEN 0 "
    "ELSE round(CAST(FA.Total_Pago AS REAL) + total(CAST(PA.Total_Pago AS REAL)), 2) END AS adeudado, "
    "CASE WHEN FA.TIPO = 'TRANSFERENCIA' THEN 'Si' "
    "WHEN round(total(CAST(PA.Total_Pago AS REAL)), 2) = 0 THEN 'No' "
    "WHEN round(CAST(FA.Total_Pago AS REAL) + total(CAST(PA.Total_Pago AS REAL)), 2) <= 0 THEN 'Si' "
    "ELSE 'Parcialmente' END, "
    "CASE WHEN FA.TIPO = 'TRANSFERENCIA' OR ifnull(FA.Proximo_Vencimiento, '') = '' OR "
    "round(CAST(FA.Total_Pago AS REAL) + total(CAST(PA.Total_Pago AS REAL)), 2) <= 0 THEN '' "
    "ELSE 'Vto. ' || substr(FA.Proximo_Vencimiento, 9, 2) || '/' || substr(FA.Proximo_Vencimiento, 6, 2) || "
    "'/' || substr(FA.Proximo_Vencimiento, 1, 4) END "
    "FROM Vendrix_Pagos FA LEFT JOIN Vendrix_Pagos PA ON (FA.ID = PA.ID_Factura_pagos) "
    "WHERE FA.TIPO IN ('FACTURA', 'GASTO', 'TRANSFERENCIA') AND FA.Fecha >= ? AND FA.Fecha < ?";

// The text sought is matched against the supplier, the date as shown, the
// letter and the number, joined by single blanks.
const char *const kBusqueda =
    " AND (ifnull(FA.Proveedor, '') || ' ' || substr(FA.Fecha, 9, 2) || '/' || substr(FA.Fecha, 6, 2) || '/' "
    "|| "
    "substr(FA.Fecha, 1, 4) || ' ' || ifnull(FA.Factura_Letra, '') || ' ' || ifnull(FA.Factura_numero, '')) "
    "LIKE ?";

const char *const kFin = " GROUP BY FA.ID ORDER BY FA.ID";

} // namespace

QStringList columnas_pagos()
{
    return {QStringLiteral("ID"),           QStringLiteral("Fecha"),     QStringLiteral("Movimiento"),
            QStringLiteral("Razón Social"), QStringLiteral("Operación"), QStringLiteral("Monto"),
            QStringLiteral("Adeudado"),     QStringLiteral("Pagada"),    QStringLiteral("Vencimiento")};
}

FiltroPagos filtro_inicial(const Context &ctx)
{
    FiltroPagos f;
    f.hasta = ctx.reloj().now().date();
    f.desde = f.hasta.addYears(-1);
    return f;
}

ConsultaPagos consulta_pagos(const FiltroPagos &filtro)
{
    // The stored date may carry a time after the day: the last day is
    // included by comparing with the day after it.
    ConsultaPagos c{QString::fromUtf8(kSelect),
                    {fecha_guardada(filtro.desde), fecha_guardada(filtro.hasta.addDays(1))}};
    if (!filtro.texto.isEmpty()) {
        c.sql += QString::fromUtf8(kBusqueda);
        c.valores.push_back(QLatin1Char('%') + filtro.texto + QLatin1Char('%'));
    }
    c.sql += QString::fromUtf8(kFin);
    return c;
}

std::optional<std::vector<QString>> buscar_pagos(Context &ctx, const FiltroPagos &filtro)
{
    const ConsultaPagos consulta = consulta_pagos(filtro);
    if (ctx.log().detalle_alto())
        ctx.escribir_log(consulta.sql, QStringLiteral("Q"));
    auto c = ctx.db().execQ(consulta.sql, kInternal, consulta.valores);
    if (!c) {
        ctx.op().error(QStringLiteral("Error al intentar cargar las Grillas."),
                       QStringLiteral("ER PAGOS01: Se produjo un error al cargar la información en la Grilla "
                                      "de Pagos. Cierre Vendrix e intente nuevamente."));
        ctx.escribir_log(
            QStringLiteral("ER PAGOSPRO01 - 0 No se pudo leer Vendrix_Pagos populate_grilla_pagos"),
            QStringLiteral("E"));
        return std::nullopt;
    }
    constexpr int kPagada = static_cast<int>(ColumnaPagos::Pagada);
    const QChar tab = QLatin1Char('\t');
    std::vector<QString> filas;
    for (; !c->eof(); c->siguiente()) {
        QString pagada = c->texto(kPagada);
        if (filtro.solo_impagos && pagada == QLatin1String("Si"))
            continue;
        QString linea;
        linea.reserve(160);
        linea +=
            c->texto(0) + tab + c->texto(1) + tab + c->texto(2) + tab + c->texto(3) + tab + c->texto(4) + tab;
        linea +=
            texto_numero(c->valor(5).toDouble()) + tab + texto_numero(c->valor(6).toDouble() + 0.0) + tab;
        linea += pagada + tab + c->texto(8);
        filas.push_back(std::move(linea));
    }
    return filas;
}

} // namespace vendrix

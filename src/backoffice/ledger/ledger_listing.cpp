#include "backoffice/ledger/ledger_listing.h"

#include "backoffice/ledger/ledger_store.h"
#include "core/context.h"
#include "core/numeric.h"

namespace vendrix {

namespace {

const QString kInternal = QStringLiteral("Internal");

// Nullable text fields read as "" so that one missing part never blanks a
// concatenation (`||` with NULL gives NULL).
//
// What is owed and paid is decided at the cent: payments of 0.29 + 0.29 +
// 0.30 settle a debt of 0.88 though the doubles miss it by a hair. Each
// debt's payments are summed through the index of the link, and the rows
// come in the order of the date index, so nothing is sorted or grouped.
const char *const kSelect =
    "SELECT ID, substr(Fecha, 9, 2) || '/' || substr(Fecha, 6, 2) || '/' || substr(Fecha, 1, 4), TIPO, "
    "ifnull(Proveedor, ''), "
    "CASE TIPO "
    "WHEN 'TRANSFERENCIA' THEN 'Transferencia de `' || ifnull(Medio_de_pago_origen, '') || '` a `' || "
    "ifnull(Medio_de_pago, '') || '`' "
    "WHEN 'FACTURA' THEN 'Factura ' || ifnull(Factura_Letra, '') || '-' || "
    "ifnull(Factura_sucursal, '') || '-' || ifnull(Factura_numero, '') || ' cargada en el sistema' "
    "ELSE 'Gasto ' || ifnull(Destino_de_pago, '') || "
    "CASE WHEN ifnull(Medio_de_pago, '') <> '' THEN ' pagado con ' || Medio_de_pago ELSE '' END END, "
    "total, adeudado, "
    "CASE WHEN TIPO = 'TRANSFERENCIA' THEN 'Si' WHEN round(pagos, 2) = 0 THEN 'No' "
    "WHEN adeudado <= 0 THEN 'Si' ELSE 'Parcialmente' END, "
    "CASE WHEN TIPO = 'TRANSFERENCIA' OR ifnull(Proximo_Vencimiento, '') = '' OR adeudado <= 0 THEN '' "
    "ELSE 'Vto. ' || substr(Proximo_Vencimiento, 9, 2) || '/' || substr(Proximo_Vencimiento, 6, 2) || '/' || "
    "substr(Proximo_Vencimiento, 1, 4) END "
    "FROM (SELECT *, CASE WHEN TIPO = 'TRANSFERENCIA' THEN 0 ELSE round(total + pagos, 2) END AS adeudado "
    "FROM ("
    "SELECT FA.*, CAST(FA.Total_Pago AS REAL) AS total, CASE WHEN FA.TIPO = 'TRANSFERENCIA' THEN 0 "
    "ELSE (SELECT total(CAST(PA.Total_Pago AS REAL)) FROM Vendrix_Pagos PA "
    "WHERE PA.ID_Factura_pagos = FA.ID) END AS pagos "
    "FROM Vendrix_Pagos FA WHERE FA.TIPO IN ('FACTURA', 'GASTO', 'TRANSFERENCIA') AND FA.Fecha >= ? AND "
    "FA.Fecha < ?";

// The text sought is matched against the supplier, the date as shown, the
// letter and the number, joined by single blanks.
const char *const kBusqueda =
    " AND (ifnull(FA.Proveedor, '') || ' ' || substr(FA.Fecha, 9, 2) || '/' || substr(FA.Fecha, 6, 2) || "
    "'/' || substr(FA.Fecha, 1, 4) || ' ' || ifnull(FA.Factura_Letra, '') || ' ' || "
    "ifnull(FA.Factura_numero, '')) "
    "LIKE ?";

const char *const kFin = ")) ORDER BY Fecha, ID";

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
        const QString error = ctx.db().ultimo_error(kInternal);
        ctx.escribir_log(QStringLiteral("ER PAGOSPRO01 - ") + error +
                             QStringLiteral(" populate_grilla_pagos"),
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

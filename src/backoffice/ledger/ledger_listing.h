#pragma once

// The rows of the "Pagos" tab's grid: debts and transfers of a date range
// whose supplier, date, letter and number hold a text, each with what is
// still owed and its state derived from its payments.

#include <QDate>
#include <QString>
#include <QStringList>
#include <QVariant>

#include <optional>
#include <vector>

namespace vendrix {

class Context;

// The grid's columns, in order.
enum class ColumnaPagos {
    ID,
    Fecha,
    Movimiento,
    RazonSocial,
    Operacion,
    Monto,
    Adeudado,
    Pagada,
    Vencimiento
};
QStringList columnas_pagos();

struct FiltroPagos {
    QDate desde, hasta; // both days included
    QString texto;      // `Text_Pagos_buscar`
    bool solo_impagos = false;
};

// The tab's dates at start: from the same day a year before to today.
FiltroPagos filtro_inicial(const Context &ctx);

// The query behind the list and its values, in the order of its `?`.
struct ConsultaPagos {
    QString sql;
    std::vector<QVariant> valores;
};
ConsultaPagos consulta_pagos(const FiltroPagos &filtro);

// The grid's lines by date, then entry: the nine cells joined by tabs,
// amounts with the decimal comma and dates as dd/mm/yyyy. With
// `solo_impagos`, rows reading "Si" are left out (transfers always read
// "Si"). nullopt when the query failed, after its message and log line.
std::optional<std::vector<QString>> buscar_pagos(Context &ctx, const FiltroPagos &filtro);

} // namespace vendrix

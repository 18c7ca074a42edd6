#pragma once

#include <QList>
#include <QString>
#include <QStringList>

namespace vendrix::simulador {

struct NodoXml;

// An entry of AFIP's <Errors> or <Observaciones>.
struct ErrorAfip {
    int codigo = 0;
    QString mensaje;
    bool operator==(const ErrorAfip &) const = default;
};

// Code of the simulator's refusals of a request that doesn't follow the
// schema (a missing, unknown or misplaced element, an amount that isn't a
// number), where the real service would fail to read it.
inline constexpr int kErrorEsquema = 10000;

// The elements of a voucher's detail in the schema's order, and those it
// can't go without.
const QStringList &orden_detalle();

// `nodo`'s children against `orden`: each known, each after the one before,
// each of `obligatorios` present. Empty when it complies.
QList<ErrorAfip> revisar_orden(const NodoXml &nodo, const QStringList &orden,
                               const QStringList &obligatorios);

// A FECAEDetRequest: its elements, then its amounts as AFIP adds them up,
// within a cent: the total, the IVA rates and bases, the other taxes.
QList<ErrorAfip> revisar_detalle(const NodoXml &detalle);

// An amount as AFIP echoes it: no trailing zeros ("122.00" -> "122").
QString importe_afip(const QString &texto);

} // namespace vendrix::simulador

#include "core/status_indicators.h"

namespace vendrix {

namespace {

struct Fila {
    QLatin1String keyword;
    Indicador indicador;
};

constexpr Fila kIndicadores[] = {
    {QLatin1String("internet_on"), {kPanelInternet, 24}},
    {QLatin1String("internet_off"), {kPanelInternet, 23}},
    {QLatin1String("impresora_on"), {kPanelImpresora, 22}},
    {QLatin1String("impresora_off"), {kPanelImpresora, 21}},
    {QLatin1String("impresora_ocupada"), {kPanelImpresora, 23}},
    {QLatin1String("bug_on"), {kPanelError, 20}},
    {QLatin1String("bug_off"), {kPanelError, 19}},
    {QLatin1String("ocupado_off"), {kPanelOcupado, 26}},
    {QLatin1String("ocupado_on"), {kPanelOcupado, 27}},
};

} // namespace

std::optional<Indicador> indicador_de(const QString &keyword)
{
    for (const Fila &fila : kIndicadores) {
        if (keyword == fila.keyword)
            return fila.indicador;
    }
    return std::nullopt;
}

} // namespace vendrix

#pragma once

#include "catalogue/pricing/rounding.h"

#include <QString>

namespace vendrix {

class Context;

// The settings that a price depends on, as text, read when a price is worked
// out (nothing keeps them between calculations).
struct PriceSettings {
    QString iva;             // the shop's IVA percent
    QString valor_dolar;     // pesos per dollar
    QString recargo_tarjeta; // card surcharge percent
    RoundingSettings redondeo;

    // All seven keys with one read of the settings file.
    static PriceSettings leer(const Context &ctx);

    bool operator==(const PriceSettings &) const = default;
};

} // namespace vendrix

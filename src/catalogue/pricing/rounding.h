#pragma once

#include <QString>

namespace vendrix {

class Context;

// The shop's rounding settings as they stand in the settings file, as text:
// `decimales` ("3", "2", "1", "0", "-1" tens, "-2" hundreds), `redondeo`
// ("0" down, "1" standard, anything else up), `redondeo_tipo`
// ("De 5 en 5" or steps of ten) and `redondeo_tolerancia` (a relative limit).
struct RoundingSettings {
    QString decimales;
    QString redondeo;
    QString redondeo_tipo;
    QString redondeo_tolerancia;

    // Reads the four keys now, with one read of the settings file.
    static RoundingSettings leer(const Context &ctx);

    bool operator==(const RoundingSettings &) const = default;
};

// The rounding settings turned into numbers once, for a run of prices.
class Rounder {
public:
    explicit Rounder(const RoundingSettings &ajustes);

    // The display text of a price (see `redondear_precio`).
    QString aplicar(double precio) const;

private:
    int digitos_ = 3; // 3 stands for "no rounding, three decimals"
    double offset_ = 0.0;
    bool de_5_en_5_ = false;
    bool con_tolerancia_ = false;
    double tolerancia_ = 0.0;
};

// The display text of a price by the shop's rounding: with 1 or 2 decimals the
// price moves by just under half a unit down or up before a half-to-even
// rounding ("Standard" doesn't move it); with 0, tens or hundreds it goes to
// the nearest step of 1, 10 or 100 (5, 50 or 500 with "De 5 en 5"). A
// rounding to 0, or one that changes the price by more than
// `redondeo_tolerancia` (a ratio), shows the price unrounded instead. The text
// has the decimals of the setting and the screen's comma; any other
// `decimales` shows three decimals.
QString redondear_precio(double precio, const RoundingSettings &ajustes);
// The same with the settings read at this call.
QString redondear_precio(const Context &ctx, double precio);

} // namespace vendrix

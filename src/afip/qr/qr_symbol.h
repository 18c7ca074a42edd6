#pragma once

#include <QString>

#include <vector>

namespace vendrix {

// A QR code symbol (ISO/IEC 18004 Model 2): `lado` modules a side, row by
// row, true for a dark module. An empty symbol has side 0.
struct SimboloQR {
    int lado = 0;
    std::vector<bool> modulos;

    bool vacio() const { return lado == 0; }
    // Outside the symbol every module reads light.
    bool oscuro(int x, int y) const
    {
        return x >= 0 && y >= 0 && x < lado && y < lado && modulos[std::size_t(y) * lado + x];
    }
};

// Error correction levels, in the standard's order.
enum NivelQR { kNivelBajo = 0, kNivelMedio = 1, kNivelCuartil = 2, kNivelAlto = 3 };

// Codes the text in one segment (numeric when only digits, alphanumeric
// when only characters of that alphabet, else its UTF-8 bytes) in the
// lowest version from `version_min` that holds it, at `nivel` raised as far
// as the version still holds the data when `subir_nivel`, with mask
// `mascara` (-1: the lowest penalty, a tie going to the lower number). An
// empty symbol when it doesn't fit up to `version_max`.
SimboloQR QR_codificar(const QString &texto, int nivel = kNivelBajo, int version_min = 1,
                       int version_max = 40, int mascara = -1, bool subir_nivel = true);

} // namespace vendrix

#include "afip/qr/qr_symbol.h"

#include <qrcodegen/qrcodegen.hpp>

#include <QByteArray>

#include <exception>

namespace vendrix {

// libqrcodegen makes the same choices the program has always made:
// encodeSegments takes the lowest version from the minimum that holds the
// segments, raises the level within that version when asked, and with mask
// -1 keeps a mask only when its penalty is strictly lower than the best so
// far, so a tie goes to the lower number.
SimboloQR QR_codificar(const QString &texto, int nivel, int version_min, int version_max, int mascara,
                       bool subir_nivel)
{
    using qrcodegen::QrCode;
    using qrcodegen::QrSegment;
    if (nivel < kNivelBajo || nivel > kNivelAlto)
        return {};
    const QByteArray utf8 = texto.toUtf8();
    try {
        // One segment: numeric, alphanumeric or bytes, never a mix. An empty
        // text gives no segment, a symbol of padding alone. The library
        // reads a C string, so a text with a NUL goes as bytes.
        std::vector<QrSegment> segmentos;
        if (utf8.contains('\0'))
            segmentos.push_back(QrSegment::makeBytes(std::vector<std::uint8_t>(utf8.begin(), utf8.end())));
        else
            segmentos = QrSegment::makeSegments(utf8.constData());
        const QrCode qr = QrCode::encodeSegments(segmentos, static_cast<QrCode::Ecc>(nivel), version_min,
                                                 version_max, mascara, subir_nivel);
        SimboloQR simbolo;
        simbolo.lado = qr.getSize();
        simbolo.modulos.resize(std::size_t(simbolo.lado) * simbolo.lado);
        for (int y = 0; y < simbolo.lado; ++y)
            for (int x = 0; x < simbolo.lado; ++x)
                simbolo.modulos[std::size_t(y) * simbolo.lado + x] = qr.getModule(x, y);
        return simbolo;
    } catch (const std::exception &) {
        // Too long for `version_max`, or a version or mask out of range.
        return {};
    }
}

} // namespace vendrix

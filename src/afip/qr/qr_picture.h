#pragma once

#include "afip/qr/qr_symbol.h"

#include <QByteArray>
#include <QColor>
#include <QImage>
#include <QPainterPath>
#include <QPicture>
#include <QString>

namespace vendrix {

// The symbol traced into closed polygons along the borders between dark and
// light modules, one module `tamano_modulo` units wide; filled odd-even, the
// light holes stay light. With `modulos_cuadrados` false, the corners of
// isolated modules are rounded.
QPainterPath contorno_QR(const SimboloQR &simbolo, double tamano_modulo, bool modulos_cuadrados = true);

// Codes the text and draws it as a vector picture (side + 1) times
// `tamano_modulo` wide and high: a white ground, the polygons in `color`.
// No quiet zone: the screen around it gives one. An empty picture when the
// text can't be coded.
QPicture QR_imagen(const QString &texto, const QColor &color = Qt::black, int tamano_modulo = 46,
                   bool modulos_cuadrados = true, int nivel = kNivelBajo, int version_min = 1,
                   int version_max = 40, int mascara = -1, bool subir_nivel = true);

// The code of the text, as the program codes it for AFIP, as an SVG
// document and as a raster image, each with a quiet zone of four modules;
// empty when the text can't be coded.
QByteArray QR_svg(const QString &texto, int tamano_modulo = 46);
QImage QR_raster(const QString &texto, int pixeles_por_modulo = 8);

} // namespace vendrix

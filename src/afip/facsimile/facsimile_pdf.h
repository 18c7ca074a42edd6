#pragma once

#include <QString>

namespace vendrix {

// Writes the filled page as a PDF at `ruta_pdf`, laid out by Qt's rich
// text engine. Pictures are loaded relative to `carpeta` (where the page and
// its PNGs are). The wide form goes on A4 pages; the narrow one on a single
// 80 mm roll page as long as the ticket. False when the file can't be
// written.
bool escribir_pdf_facsimil(const QString &html, const QString &carpeta, const QString &ruta_pdf,
                           bool angosto);

} // namespace vendrix

#include "afip/facsimile/facsimile_pdf.h"

#include <QAbstractTextDocumentLayout>
#include <QFile>
#include <QPageSize>
#include <QPainter>
#include <QPdfWriter>
#include <QRegularExpression>
#include <QTextDocument>
#include <QUrl>

#include <cmath>

namespace vendrix {

namespace {

// The width the page is laid out at, in CSS pixels: the template's wide
// tables take 1000 px, a roll of 80 mm prints about 72 mm.
constexpr double kAnchoA4 = 1040;
constexpr double kAnchoRollo = 360;
constexpr double kMargenMm = 10;
constexpr double kMargenRolloMm = 4;

} // namespace

bool escribir_pdf_facsimil(const QString &html, const QString &carpeta, const QString &ruta_pdf, bool angosto)
{
    // A picture hidden by a zero width would show as a missing image here,
    // and "</br>", which browsers take as a line break, would be dropped.
    QString pagina = html;
    pagina.replace(QStringLiteral("</br>"), QStringLiteral("<br>"));
    pagina.remove(QRegularExpression(QStringLiteral("<img[^>]*width:\\s*0px;?\"[^>]*>")));

    QTextDocument doc;
    doc.setBaseUrl(QUrl::fromLocalFile(carpeta + QLatin1Char('/')));
    doc.setDocumentMargin(0);
    doc.setHtml(pagina);
    const double ancho = angosto ? kAnchoRollo : kAnchoA4;
    doc.setTextWidth(ancho);

    const double margen_mm = angosto ? kMargenRolloMm : kMargenMm;
    const QSizeF hoja_mm = angosto ? QSizeF(80, 0) : QSizeF(210, 297);
    const double px_por_mm = ancho / (hoja_mm.width() - 2 * margen_mm);
    double alto_pagina = (hoja_mm.height() - 2 * margen_mm) * px_por_mm;
    QSizeF hoja = hoja_mm;
    if (angosto) {
        // One page as long as the ticket.
        alto_pagina = std::ceil(doc.size().height());
        hoja.setHeight(alto_pagina / px_por_mm + 2 * margen_mm);
    }
    doc.setPageSize(QSizeF(ancho, alto_pagina));

    QFile::remove(ruta_pdf);
    QPdfWriter pdf(ruta_pdf);
    pdf.setCreator(QStringLiteral("Vendrix"));
    pdf.setPageSize(QPageSize(hoja, QPageSize::Millimeter));
    pdf.setPageMargins(QMarginsF(margen_mm, margen_mm, margen_mm, margen_mm), QPageLayout::Millimeter);
    QPainter p;
    if (!p.begin(&pdf))
        return false;
    const double escala = pdf.width() / ancho;
    p.scale(escala, escala);
    const int paginas = doc.pageCount();
    for (int i = 0; i < paginas; ++i) {
        if (i > 0)
            pdf.newPage();
        p.save();
        const QRectF visible(0, i * alto_pagina, ancho, alto_pagina);
        p.translate(0, -visible.top());
        QAbstractTextDocumentLayout::PaintContext ctx;
        ctx.clip = visible;
        doc.documentLayout()->draw(&p, ctx);
        p.restore();
    }
    return p.end();
}

} // namespace vendrix

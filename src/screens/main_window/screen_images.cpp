#include "screens/main_window/screen_images.h"

#include "core/holiday_logo.h"

#include <QFont>
#include <QPainter>
#include <QPainterPath>

#include <cmath>

namespace vendrix {

namespace {

constexpr int kLogoWidth = 220;
constexpr int kLogoHeight = 64;
constexpr int kIconSize = 16;

struct EstiloLogo {
    QColor fondo;
    QColor texto;
    QColor acento;
    const char *leyenda;
};

EstiloLogo estilo(int index)
{
    switch (index) {
    case kLogoNavidad:
        return {QColor(0x1b, 0x5e, 0x20), Qt::white, QColor(0xc6, 0x28, 0x28), "¡Felices Fiestas!"};
    case kLogoPascua:
        return {QColor(0xf3, 0xe5, 0xf5), QColor(0x4a, 0x14, 0x8c), QColor(0xff, 0xb3, 0x00),
                "Felices Pascuas"};
    case kLogoPatrio:
        return {QColor(0x74, 0xac, 0xdf), Qt::white, QColor(0xf6, 0xb4, 0x0e), "¡Viva la Patria!"};
    case kLogoPrimavera:
        return {QColor(0xe8, 0xf5, 0xe9), QColor(0x2e, 0x7d, 0x32), QColor(0xec, 0x40, 0x7a),
                "Feliz Primavera"};
    case kLogoMaestro:
        return {QColor(0xff, 0xf8, 0xe1), QColor(0x5d, 0x40, 0x37), QColor(0x43, 0xa0, 0x47),
                "Día del Maestro"};
    default:
        return {QColor(0x0d, 0x47, 0xa1), Qt::white, QColor(0xff, 0xa0, 0x00), nullptr};
    }
}

// The accent beside the name: a sun for the national days, a flower for
// spring, a star for the others.
void dibujar_acento(QPainter &p, int index, const QColor &color)
{
    const QPointF center(kLogoHeight / 2.0, kLogoHeight / 2.0);
    p.setPen(Qt::NoPen);
    p.setBrush(color);
    if (index == kLogoPrimavera) {
        for (int petal = 0; petal < 5; ++petal) {
            p.save();
            p.translate(center);
            p.rotate(petal * 72.0);
            p.drawEllipse(QPointF(0, -11), 6, 10);
            p.restore();
        }
        p.setBrush(QColor(0xff, 0xeb, 0x3b));
        p.drawEllipse(center, 6, 6);
        return;
    }
    if (index == kLogoPatrio) {
        p.setPen(QPen(color, 3));
        for (int ray = 0; ray < 16; ++ray) {
            p.save();
            p.translate(center);
            p.rotate(ray * 22.5);
            p.drawLine(QPointF(0, 13), QPointF(0, 22));
            p.restore();
        }
        p.setPen(Qt::NoPen);
        p.drawEllipse(center, 11, 11);
        return;
    }
    QPainterPath star;
    for (int point = 0; point < 10; ++point) {
        const double radius = point % 2 == 0 ? 22.0 : 9.0;
        const double angle = (point * 36.0 - 90.0) * 3.14159265358979 / 180.0;
        const QPointF at(center.x() + radius * std::cos(angle), center.y() + radius * std::sin(angle));
        point == 0 ? star.moveTo(at) : star.lineTo(at);
    }
    star.closeSubpath();
    p.drawPath(star);
}

QPixmap lienzo(int width, int height)
{
    QPixmap pixmap(width, height);
    pixmap.fill(Qt::transparent);
    return pixmap;
}

} // namespace

QPixmap imagen_logo(int index)
{
    const EstiloLogo e = estilo(index);
    QPixmap pixmap = lienzo(kLogoWidth, kLogoHeight);
    QPainter p(&pixmap);
    p.setRenderHint(QPainter::Antialiasing);
    p.setPen(Qt::NoPen);
    p.setBrush(e.fondo);
    p.drawRoundedRect(pixmap.rect(), 10, 10);
    dibujar_acento(p, index, e.acento);

    QFont name(QStringLiteral("DejaVu Sans"), 20, QFont::Bold);
    p.setFont(name);
    p.setPen(e.texto);
    const QRect text_area(kLogoHeight, 0, kLogoWidth - kLogoHeight - 8, e.leyenda ? 40 : kLogoHeight);
    p.drawText(text_area, Qt::AlignVCenter | Qt::AlignLeft, QStringLiteral("Vendrix"));
    if (e.leyenda) {
        QFont small(QStringLiteral("DejaVu Sans"), 9);
        p.setFont(small);
        p.drawText(QRect(kLogoHeight, 38, kLogoWidth - kLogoHeight - 8, 20), Qt::AlignLeft | Qt::AlignTop,
                   QString::fromUtf8(e.leyenda));
    }
    return pixmap;
}

QPixmap imagen_indicador(int index)
{
    if (index < 19 || index > 27 || index == 25)
        return {};
    QPixmap pixmap = lienzo(kIconSize, kIconSize);
    QPainter p(&pixmap);
    p.setRenderHint(QPainter::Antialiasing);
    const QColor grey(0x9e, 0x9e, 0x9e);
    const QRectF box(1.5, 1.5, kIconSize - 3, kIconSize - 3);
    switch (index) {
    case 19: // no errors
    case 20: // an error was logged
        p.setPen(Qt::NoPen);
        p.setBrush(index == 20 ? QColor(0xd3, 0x2f, 0x2f) : grey);
        p.drawEllipse(QRectF(4, 4, 8, 10));
        p.setPen(QPen(p.brush().color(), 1.2));
        p.drawLine(QPointF(2, 7), QPointF(14, 7));
        p.drawLine(QPointF(2, 11), QPointF(14, 11));
        p.drawLine(QPointF(5, 2), QPointF(7, 5));
        p.drawLine(QPointF(11, 2), QPointF(9, 5));
        break;
    case 21: // printer off
    case 22: // printer on
        p.setPen(QPen(Qt::black, 1));
        p.setBrush(index == 22 ? QColor(0x43, 0xa0, 0x47) : grey);
        p.drawRect(QRectF(2, 6, 12, 6));
        p.setBrush(Qt::white);
        p.drawRect(QRectF(4.5, 2, 7, 4));
        p.drawRect(QRectF(4.5, 11, 7, 3));
        break;
    case 23: // waiting: no internet, printer busy
        p.setPen(QPen(Qt::black, 1));
        p.setBrush(QColor(0xff, 0xb3, 0x00));
        p.drawEllipse(box);
        p.drawText(box, Qt::AlignCenter, QStringLiteral("!"));
        break;
    case 24: // internet on
        p.setPen(QPen(QColor(0x1e, 0x88, 0xe5), 1.2));
        p.setBrush(QColor(0xbb, 0xde, 0xfb));
        p.drawEllipse(box);
        p.drawEllipse(QRectF(5, 1.5, 6, kIconSize - 3));
        p.drawLine(QPointF(1.5, 8), QPointF(14.5, 8));
        break;
    case 26: // idle
        p.setPen(Qt::NoPen);
        p.setBrush(QColor(0x43, 0xa0, 0x47));
        p.drawEllipse(QRectF(4, 4, 8, 8));
        break;
    case 27: { // busy: an hourglass
        p.setPen(QPen(Qt::black, 1));
        p.setBrush(QColor(0xff, 0xb3, 0x00));
        const QPointF glass[] = {{3, 2}, {13, 2}, {8, 8}, {13, 14}, {3, 14}, {8, 8}};
        p.drawPolygon(glass, 6);
        break;
    }
    default:
        break;
    }
    return pixmap;
}

} // namespace vendrix

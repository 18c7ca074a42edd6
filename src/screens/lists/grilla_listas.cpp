#include "screens/lists/grilla_listas.h"

#include "widgets/lynx_grid.h"

#include <QPainter>
#include <QPainterPath>
#include <QPixmap>

#include <cmath>
#include <numbers>

namespace vendrix::screens {

QColor color_marca(RowColour color)
{
    switch (color) {
    case RowColour::pedido_pendiente:
        return QColor(255, 204, 153); // orange: asked for, not yet ordered
    case RowColour::pedido:
        return QColor(204, 255, 204); // green: ordered
    case RowColour::centinela:
        return QColor(255, 255, 170); // yellow: its price is watched
    case RowColour::testigo:
        return QColor(204, 229, 255); // blue: a witness of a watched price
    case RowColour::ninguno:
        break;
    }
    return {};
}

QIcon imagen_favorito()
{
    QPixmap star(16, 16);
    star.fill(Qt::transparent);
    QPainterPath path;
    for (int i = 0; i < 10; ++i) {
        const double radius = i % 2 == 0 ? 7.5 : 3.2;
        const double angle = -std::numbers::pi / 2 + i * std::numbers::pi / 5;
        const QPointF point(8 + radius * std::cos(angle), 8.5 + radius * std::sin(angle));
        if (i == 0)
            path.moveTo(point);
        else
            path.lineTo(point);
    }
    path.closeSubpath();
    QPainter painter(&star);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QColor(176, 120, 0));
    painter.setBrush(QColor(255, 200, 0));
    painter.drawPath(path);
    return QIcon(star);
}

void GrillaLynx::limpiar()
{
    grid_.Clear();
}

void GrillaLynx::redibujar(bool on)
{
    grid_.setRedraw(on);
}

void GrillaLynx::agregar(const ListGridRow &fila)
{
    const int row = grid_.AddItem(fila.celdas.join(QLatin1Char('\t')));
    if (fila.marcador) {
        grid_.setRowForeColor(row, Qt::gray);
        return;
    }
    const QColor back = color_marca(color_de_fila(fila.marcas));
    if (back.isValid())
        grid_.setRowBackColor(row, back);
    if (fila.marcas.favorito) {
        static const QIcon star = imagen_favorito();
        grid_.setCellImage(row, columna_imagen_, star);
    }
}

} // namespace vendrix::screens

#include "afip/qr/qr_picture.h"

#include <QPainter>
#include <QPoint>

#include <array>
#include <cstring>

namespace vendrix {

namespace {

// The directions of an edge, clockwise with y growing downwards, so that
// (d + 1) % 4 is a right turn.
enum Direccion { kEste = 0, kSur = 1, kOeste = 2, kNorte = 3 };
constexpr std::array<QPoint, 4> kPaso{QPoint(1, 0), QPoint(0, 1), QPoint(-1, 0), QPoint(0, -1)};

constexpr int kZonaSilenciosa = 4;

// A dark module with no dark neighbour across a side.
bool aislado(const SimboloQR &s, int x, int y)
{
    return s.oscuro(x, y) && !s.oscuro(x - 1, y) && !s.oscuro(x + 1, y) && !s.oscuro(x, y - 1) &&
           !s.oscuro(x, y + 1);
}

// The edge to leave a node by, coming in direction `d` (-1 at the start):
// right, straight or left, so that where two dark modules touch at a corner
// each keeps its own outline; -1 when the node has none left.
int siguiente_borde(unsigned char flags, int d)
{
    if (d < 0) {
        for (int k = 0; k < 4; ++k)
            if (flags & (1u << k))
                return k;
        return -1;
    }
    for (int giro : {1, 0, 3})
        if (const int k = (d + giro) % 4; flags & (1u << k))
            return k;
    return -1;
}

// Follows the edges from `inicio` back to it, clearing each one taken; the
// corners of the loop (the nodes where it turns). Every node has as many
// edges in as out, so the walk can only end where it began.
std::vector<QPoint> seguir_borde(std::vector<unsigned char> &flags, int n, QPoint inicio)
{
    std::vector<QPoint> nodos;
    std::vector<int> direcciones;
    QPoint p = inicio;
    int d = -1;
    do {
        unsigned char &f = flags[std::size_t(p.y()) * n + p.x()];
        d = siguiente_borde(f, d);
        if (d < 0)
            break; // can't happen with a consistent grid
        f &= static_cast<unsigned char>(~(1u << d));
        nodos.push_back(p);
        direcciones.push_back(d);
        p += kPaso[std::size_t(d)];
    } while (p != inicio);
    std::vector<QPoint> esquinas;
    for (std::size_t i = 0; i < nodos.size(); ++i)
        if (direcciones[(i + nodos.size() - 1) % nodos.size()] != direcciones[i])
            esquinas.push_back(nodos[i]);
    return esquinas;
}

// The borders between dark and light modules as closed polygons, in module
// units, each vertex a corner where the border turns. Every edge leaves a
// node of the (side + 1)-square grid with the dark module on its right hand,
// so dark areas go round clockwise and light holes the other way. With
// `saltar_aislados`, isolated modules are left out (drawn apart, rounded).
std::vector<std::vector<QPoint>> poligonos(const SimboloQR &s, bool saltar_aislados)
{
    const int n = s.lado + 1;
    std::vector<unsigned char> flags(std::size_t(n) * n, 0);
    const auto nodo = [n](int x, int y) { return std::size_t(y) * n + x; };
    const auto marcar = [&](int x, int y, Direccion d) { flags[nodo(x, y)] |= 1u << d; };
    for (int y = 0; y < s.lado; ++y) {
        for (int x = 0; x < s.lado; ++x) {
            if (!s.oscuro(x, y) || (saltar_aislados && aislado(s, x, y)))
                continue;
            if (!s.oscuro(x, y - 1))
                marcar(x, y, kEste);
            if (!s.oscuro(x + 1, y))
                marcar(x + 1, y, kSur);
            if (!s.oscuro(x, y + 1))
                marcar(x + 1, y + 1, kOeste);
            if (!s.oscuro(x - 1, y))
                marcar(x, y + 1, kNorte);
        }
    }

    std::vector<std::vector<QPoint>> resultado;
    for (int y0 = 0; y0 < n; ++y0)
        for (int x0 = 0; x0 < n; ++x0)
            while (flags[nodo(x0, y0)] != 0)
                if (std::vector<QPoint> esquinas = seguir_borde(flags, n, QPoint(x0, y0));
                    esquinas.size() >= 4)
                    resultado.push_back(std::move(esquinas));
    return resultado;
}

QString numero(double v)
{
    return QString::number(v, 'g', 10);
}

} // namespace

QPainterPath contorno_QR(const SimboloQR &simbolo, double tamano_modulo, bool modulos_cuadrados)
{
    QPainterPath path;
    path.setFillRule(Qt::OddEvenFill);
    for (const auto &poligono : poligonos(simbolo, !modulos_cuadrados)) {
        path.moveTo(QPointF(poligono.front()) * tamano_modulo);
        for (std::size_t i = 1; i < poligono.size(); ++i)
            path.lineTo(QPointF(poligono[i]) * tamano_modulo);
        path.closeSubpath();
    }
    if (!modulos_cuadrados) {
        const double radio = tamano_modulo / 3;
        for (int y = 0; y < simbolo.lado; ++y)
            for (int x = 0; x < simbolo.lado; ++x)
                if (aislado(simbolo, x, y))
                    path.addRoundedRect(
                        QRectF(x * tamano_modulo, y * tamano_modulo, tamano_modulo, tamano_modulo), radio,
                        radio);
    }
    return path;
}

QPicture QR_imagen(const QString &texto, const QColor &color, int tamano_modulo, bool modulos_cuadrados,
                   int nivel, int version_min, int version_max, int mascara, bool subir_nivel)
{
    QPicture picture;
    const SimboloQR simbolo = QR_codificar(texto, nivel, version_min, version_max, mascara, subir_nivel);
    if (simbolo.vacio() || tamano_modulo <= 0)
        return picture;
    const int lado = (simbolo.lado + 1) * tamano_modulo;
    QPainter painter(&picture);
    painter.fillRect(QRect(0, 0, lado, lado), Qt::white);
    painter.setPen(Qt::NoPen);
    painter.setBrush(color);
    // The grid's extra unit goes half to each side.
    painter.drawPath(contorno_QR(simbolo, tamano_modulo, modulos_cuadrados)
                         .translated(tamano_modulo / 2.0, tamano_modulo / 2.0));
    painter.end();
    picture.setBoundingRect(QRect(0, 0, lado, lado));
    return picture;
}

QByteArray QR_svg(const QString &texto, int tamano_modulo)
{
    const SimboloQR simbolo = QR_codificar(texto);
    if (simbolo.vacio() || tamano_modulo <= 0)
        return {};
    // Drawn in modules; the size on paper takes a module as `tamano_modulo`
    // twentieths of a point, as the picture on the screen does.
    const int lado = simbolo.lado + 2 * kZonaSilenciosa;
    const double mm = lado * tamano_modulo * 25.4 / 1440;
    QString d;
    for (const auto &poligono : poligonos(simbolo, false)) {
        d += QLatin1Char('M') + QString::number(poligono.front().x() + kZonaSilenciosa) + QLatin1Char(',') +
             QString::number(poligono.front().y() + kZonaSilenciosa);
        // Corners alternate between horizontal and vertical moves.
        for (std::size_t i = 1; i < poligono.size(); ++i) {
            if (poligono[i].y() == poligono[i - 1].y())
                d += QLatin1Char('H') + QString::number(poligono[i].x() + kZonaSilenciosa);
            else
                d += QLatin1Char('V') + QString::number(poligono[i].y() + kZonaSilenciosa);
        }
        d += QLatin1Char('Z');
    }
    const QString svg =
        QStringLiteral("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
                       "<svg xmlns=\"http://www.w3.org/2000/svg\" version=\"1.1\" width=\"%1mm\" "
                       "height=\"%1mm\" viewBox=\"0 0 %2 %2\" shape-rendering=\"crispEdges\">\n"
                       "<rect width=\"%2\" height=\"%2\" fill=\"#FFFFFF\"/>\n"
                       "<path fill=\"#000000\" fill-rule=\"evenodd\" d=\"%3\"/>\n"
                       "</svg>\n")
            .arg(numero(mm), QString::number(lado), d);
    return svg.toUtf8();
}

QImage QR_raster(const QString &texto, int pixeles_por_modulo)
{
    const SimboloQR simbolo = QR_codificar(texto);
    if (simbolo.vacio() || pixeles_por_modulo <= 0)
        return {};
    const int lado = (simbolo.lado + 2 * kZonaSilenciosa) * pixeles_por_modulo;
    QImage imagen(lado, lado, QImage::Format_Grayscale8);
    imagen.fill(255);
    for (int y = 0; y < simbolo.lado; ++y) {
        for (int x = 0; x < simbolo.lado; ++x) {
            if (!simbolo.oscuro(x, y))
                continue;
            const int px = (x + kZonaSilenciosa) * pixeles_por_modulo;
            const int py = (y + kZonaSilenciosa) * pixeles_por_modulo;
            for (int fila = py; fila < py + pixeles_por_modulo; ++fila)
                std::memset(imagen.scanLine(fila) + px, 0, std::size_t(pixeles_por_modulo));
        }
    }
    return imagen;
}

} // namespace vendrix

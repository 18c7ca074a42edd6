#include "sales/carrito.h"

#include "core/numeric.h"

namespace vendrix {

QString Carrito::celda(int fila, int col) const
{
    if (!tiene_fila(fila) || col < 0 || col >= kColumnasCarrito)
        return {};
    return linea(fila)[static_cast<size_t>(col)];
}

void Carrito::set_celda(int fila, int col, const QString &text)
{
    if (!tiene_fila(fila) || col < 0 || col >= kColumnasCarrito)
        return;
    lineas_[static_cast<size_t>(fila)][static_cast<size_t>(col)] = text;
}

int Carrito::agregar_linea(const LineaCarrito &linea)
{
    lineas_.push_back(linea);
    return filas() - 1;
}

void Carrito::borrar_linea(int fila)
{
    if (tiene_fila(fila))
        lineas_.erase(lineas_.begin() + fila);
}

double Carrito::total() const
{
    double suma = 0.0;
    for (const LineaCarrito &l : lineas_)
        suma += valor_texto(l[kColImporte]);
    return suma;
}

QString Carrito::referencia_guardada() const
{
    if (!marca_guardado_.startsWith(kPrefijoCarritoGuardado))
        return {};
    return marca_guardado_.mid(kPrefijoCarritoGuardado.size());
}

} // namespace vendrix

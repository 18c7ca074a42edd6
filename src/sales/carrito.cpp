#include "sales/carrito.h"

#include "core/numeric.h"

#include <utility>

namespace vendrix {

Carrito::Lote::~Lote()
{
    if (--carrito_.lotes_ == 0 && std::exchange(carrito_.pendiente_, false))
        carrito_.cambiado();
}

Carrito::Carrito(const Carrito &otro)
    : numero_(otro.numero_), lineas_(otro.lineas_), texto_total_(otro.texto_total_),
      marca_guardado_(otro.marca_guardado_), leyenda_extra_(otro.leyenda_extra_)
{
}

Carrito &Carrito::operator=(const Carrito &otro)
{
    if (this == &otro)
        return *this;
    lineas_ = otro.lineas_;
    texto_total_ = otro.texto_total_;
    marca_guardado_ = otro.marca_guardado_;
    leyenda_extra_ = otro.leyenda_extra_;
    cambiado();
    return *this;
}

void Carrito::cambiar(QString &campo, const QString &text)
{
    if (campo == text)
        return;
    campo = text;
    cambiado();
}

void Carrito::cambiado()
{
    if (lotes_ > 0)
        pendiente_ = true;
    else if (aviso_)
        aviso_(*this);
}

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
    cambiar(lineas_[static_cast<size_t>(fila)][static_cast<size_t>(col)], text);
}

int Carrito::agregar_linea(const LineaCarrito &linea)
{
    lineas_.push_back(linea);
    cambiado();
    return filas() - 1;
}

void Carrito::borrar_linea(int fila)
{
    if (!tiene_fila(fila))
        return;
    lineas_.erase(lineas_.begin() + fila);
    cambiado();
}

void Carrito::quitar_lineas()
{
    if (lineas_.empty())
        return;
    lineas_.clear();
    cambiado();
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

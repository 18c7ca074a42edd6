#pragma once

#include <QString>

#include <vector>

namespace vendrix {

class Operator;

// A message box that an operation decided to show, kept as data so that a
// pure calculation can hand its messages to whoever shows them, in order.
struct Mensaje {
    enum class Icono { Informacion, Exclamacion, Critico };

    Icono icono = Icono::Informacion;
    QString titulo;
    QString texto;

    bool operator==(const Mensaje &) const = default;
};

// Shows one message through the operator: information as `inform`, the
// exclamation icon as `warn`, the critical icon as `error`.
void mostrar(Operator &op, const Mensaje &mensaje);
void mostrar(Operator &op, const std::vector<Mensaje> &mensajes);

} // namespace vendrix

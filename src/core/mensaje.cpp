#include "core/mensaje.h"

#include "core/operator.h"

namespace vendrix {

void mostrar(Operator &op, const Mensaje &mensaje)
{
    switch (mensaje.icono) {
    case Mensaje::Icono::Informacion:
        op.inform(mensaje.titulo, mensaje.texto);
        break;
    case Mensaje::Icono::Exclamacion:
        op.warn(mensaje.titulo, mensaje.texto);
        break;
    case Mensaje::Icono::Critico:
        op.error(mensaje.titulo, mensaje.texto);
        break;
    }
}

void mostrar(Operator &op, const std::vector<Mensaje> &mensajes)
{
    for (const Mensaje &m : mensajes)
        mostrar(op, m);
}

} // namespace vendrix

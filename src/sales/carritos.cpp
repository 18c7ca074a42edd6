#include "sales/carritos.h"

#include "core/context.h"

#include <Qt>

namespace vendrix {

QString nombre_carrito(const Context &ctx, int numero)
{
    const QString nombre = ctx.leer_parametro(QStringLiteral("nombre_carrito_") + QString::number(numero));
    return nombre.isEmpty() ? QStringLiteral("Carrito ") + QString::number(numero) : nombre;
}

QString texto_boton_agregar(const QString &nombre)
{
    return QStringLiteral("Agregar a ") + nombre;
}

bool renombrar_carrito(Context &ctx, const Carrito &carrito, const QString &nombre)
{
    if (!carrito.vacio())
        return false;
    ctx.escribir_parametro(QStringLiteral("nombre_carrito_") + carrito.numero_texto(), nombre);
    ctx.escribir_log(QStringLiteral("Agregar Artículo - Modificó el nombre del carrito ") +
                         carrito.numero_texto() + QStringLiteral(" a ") + nombre,
                     QStringLiteral("A"));
    return true;
}

bool cuatro_carritos(const Context &ctx)
{
    return ctx.leer_parametro(QStringLiteral("carritos")) == QLatin1String("1");
}

void cambiar_cantidad_carritos(Context &ctx, bool cuatro)
{
    ctx.escribir_parametro(QStringLiteral("carritos"), cuatro ? QStringLiteral("1") : QStringLiteral("0"));
    ctx.escribir_log(QStringLiteral("Configuración - se cambio la cantidad de carritos a mostrar"),
                     QStringLiteral("A"));
}

std::optional<int> pestana_por_tecla(int key, bool cuatro)
{
    switch (key) {
    case Qt::Key_F1:
        return 1;
    case Qt::Key_F5:
        return 0;
    case Qt::Key_F2:
    case Qt::Key_F3:
    case Qt::Key_F4:
        if (!cuatro)
            return std::nullopt;
        return key - Qt::Key_F1 + 1;
    default:
        return std::nullopt;
    }
}

} // namespace vendrix

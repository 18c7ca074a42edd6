#include "catalogue/search/search_box_keys.h"

#include "core/context.h"

#include <Qt>

namespace vendrix {

namespace {

int tecla_de_busqueda(const QString &opcion)
{
    if (opcion == QLatin1String("Escape (ESC)"))
        return Qt::Key_Escape;
    if (opcion == QLatin1String("Signo de Pregunta (?)"))
        return Qt::Key_Question;
    if (opcion == QLatin1String("Inicio (HOME)"))
        return Qt::Key_Home;
    if (opcion == QLatin1String("Fin (END)"))
        return Qt::Key_End;
    return 0;
}

} // namespace

bool tecla_enfoca_busqueda(const Context &ctx, int tecla)
{
    if (ctx.leer_parametro(QStringLiteral("busqueda_search")) != QLatin1String("1"))
        return false;
    const int elegida = tecla_de_busqueda(ctx.leer_parametro(QStringLiteral("busqueda_search_combo")));
    return elegida != 0 && tecla == elegida;
}

} // namespace vendrix

#include "core/list_parameters.h"

#include "core/context.h"

namespace vendrix {

QString parametro_de_lista(Context &ctx, const QString &clave)
{
    return ctx.db().execQ1(QStringLiteral("SELECT VALOR FROM xls_parametros WHERE CLAVE = ?"),
                           QStringLiteral("external"), {clave});
}

} // namespace vendrix

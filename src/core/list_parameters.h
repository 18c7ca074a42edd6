#pragma once

#include <QString>

namespace vendrix {

class Context;

// A value of the price database's `xls_parametros` ("CLIENTE", "VERSION",
// "FECHA"...); "" when it isn't there.
QString parametro_de_lista(Context &ctx, const QString &clave);

} // namespace vendrix

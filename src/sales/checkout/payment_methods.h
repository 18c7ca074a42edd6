#pragma once

#include <QString>
#include <QStringList>

namespace vendrix {

class Context;

// A payment method with a surcharge is shown as "Tarjeta (Con recargo del
// 10%)". That text is the only place the surcharge travels: it is read back
// out of it whenever it is needed.
inline const QString kSufijoRecargo = QStringLiteral(" (Con recargo del ");

// The methods a sale can be collected by ("Cobro y Pago" and "Solo Cobro"),
// in the order they were created, each with its surcharge suffix when it
// has one.
QStringList formas_de_cobro(Context &ctx);

// The method's name: the text before the surcharge suffix, or all of it.
QString forma_sin_recargo(const QString &texto);

// The surcharge the text carries, as text ("10", "2,5"); "0" without suffix.
QString recargo_de_forma(const QString &texto);

} // namespace vendrix

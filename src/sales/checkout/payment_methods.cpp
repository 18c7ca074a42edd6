#include "sales/checkout/payment_methods.h"

#include "core/context.h"
#include "core/numeric.h"

namespace vendrix {

QStringList formas_de_cobro(Context &ctx)
{
    const Matrix m = ctx.db().execQ_matriz(
        QStringLiteral("SELECT Forma_de_pago, Recargo FROM Vendrix_FormasDePago WHERE (Tipo = ? OR Tipo = ?) "
                       "ORDER BY ID"),
        QStringLiteral("Internal"), {QStringLiteral("Cobro y Pago"), QStringLiteral("Solo Cobro")});
    QStringList out;
    for (int fila = 0; fila < m.filas(); ++fila) {
        const QString forma = m.at(0, fila);
        const double recargo = valor_texto(m.at(1, fila));
        // The surcharge is written as the screen writes numbers, so that it
        // reads back the same.
        out << (recargo == 0 ? forma : forma + kSufijoRecargo + texto_numero(recargo) + QStringLiteral("%)"));
    }
    return out;
}

QString forma_sin_recargo(const QString &texto)
{
    const qsizetype at = texto.indexOf(kSufijoRecargo);
    return at < 0 ? texto : texto.left(at);
}

QString recargo_de_forma(const QString &texto)
{
    const qsizetype at = texto.indexOf(kSufijoRecargo);
    if (at < 0)
        return QStringLiteral("0");
    const qsizetype desde = at + kSufijoRecargo.size();
    const qsizetype hasta = texto.indexOf(QStringLiteral("%)"), desde);
    return hasta < 0 ? texto.mid(desde) : texto.mid(desde, hasta - desde);
}

} // namespace vendrix

#include "backoffice/payment/payment_rows.h"

#include "core/context.h"
#include "core/numeric.h"

namespace vendrix {

QString texto_solo_lectura(bool solo_lectura)
{
    return solo_lectura ? QStringLiteral("Verdadero") : QStringLiteral("Falso");
}

std::optional<std::vector<FilaDePago>> leer_filas_de_pago(Context &ctx, const QString &aviso,
                                                          const QString &sql)
{
    ctx.escribir_log(aviso, QStringLiteral("I"));
    ctx.estado().marcar_ocupado(true);
    std::optional<std::vector<FilaDePago>> filas;
    if (const auto cursor = ctx.db().execQ(sql, QStringLiteral("Internal"))) {
        filas.emplace();
        for (; !cursor->eof(); cursor->siguiente()) {
            FilaDePago fila{cursor->valor(0).toLongLong(), cursor->valor(1).toLongLong() != 0, {}};
            for (int c = 2; c < cursor->columnas(); ++c) {
                const QVariant valor = cursor->valor(c);
                fila.celdas << (valor.typeId() == QMetaType::Double ? texto_numero(valor.toDouble())
                                                                    : cursor->texto(c));
            }
            filas->push_back(std::move(fila));
        }
    }
    ctx.estado().marcar_ocupado(false);
    return filas;
}

bool borrar_fila_de_pago(Context &ctx, const FilaDePago &fila, const BorradoDePago &textos)
{
    if (fila.solo_lectura || !ctx.op().ask(textos.titulo, textos.pregunta))
        return false;
    if (!ctx.db().execNQ(QStringLiteral("DELETE FROM ") + textos.tabla + QStringLiteral(" WHERE ID = ?"),
                         QStringLiteral("Internal"), {fila.id}))
        return false;
    ctx.escribir_log(QStringLiteral("Se elimino el registro ") + QString::number(fila.id) +
                         QStringLiteral(" '") + fila.nombre() + QStringLiteral("' de ") + textos.tabla,
                     QStringLiteral("A"));
    ctx.op().inform(textos.titulo, textos.hecho);
    return true;
}

} // namespace vendrix

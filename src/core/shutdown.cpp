#include "core/shutdown.h"

#include "core/context.h"

#include <cstdlib>

namespace vendrix {

namespace {

const QString kSugerencia =
    QStringLiteral("Vendrix le sugiere que haga un resguardo desde la solapa de \"Configuración\".");

} // namespace

QDate leer_fecha_backup(const QString &text)
{
    const QString trimmed = text.trimmed();
    for (const char *format : {"d/M/yyyy", "yyyy-MM-dd"}) {
        const QDate date = QDate::fromString(trimmed, QLatin1String(format));
        if (date.isValid())
            return date;
    }
    // Two-digit years are of this century.
    const QDate short_year = QDate::fromString(trimmed, QStringLiteral("d/M/yy"));
    return short_year.isValid() ? short_year.addYears(100) : QDate();
}

void aviso_backup(Context &ctx)
{
    const QString title = QStringLiteral("Vendrix");
    const QDate last = leer_fecha_backup(ctx.leer_parametro(QStringLiteral("ultimo_backup")));
    if (!last.isValid()) {
        ctx.op().inform(title, QStringLiteral("No hay evidencia de un resguardo de información (backup). ") +
                                   kSugerencia);
        return;
    }
    if (std::abs(last.daysTo(ctx.reloj().now().date())) > 7)
        ctx.op().inform(title, QStringLiteral("Hace más de una semana que no se realiza un resguardo de "
                                              "información (backup). ") +
                                   kSugerencia);
}

bool confirmar_cierre(Context &ctx)
{
    aviso_backup(ctx);
    if (ctx.leer_parametro(QStringLiteral("preguntar_al_salir")) == QLatin1String("1") &&
        !ctx.op().ask(QStringLiteral("¿Salir del programa?"),
                      QStringLiteral("¿Está seguro que desea salir de Vendrix?")))
        return false;
    ctx.escribir_log(QStringLiteral("Cerrando aplicación Vendrix"), QStringLiteral("I"));
    return true;
}

} // namespace vendrix

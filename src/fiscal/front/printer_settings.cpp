#include "fiscal/front/printer_settings.h"

#include "core/context.h"
#include "core/numeric.h"

namespace vendrix {

QStringList velocidades_impresora()
{
    return {QStringLiteral("2400"),  QStringLiteral("4800"),  QStringLiteral("9600"),
            QStringLiteral("19200"), QStringLiteral("38400"), QStringLiteral("57600"),
            QStringLiteral("115200")};
}

QStringList descripciones_articulo()
{
    return {QStringLiteral("Descripción"), QStringLiteral("Grupo + Descripción"),
            QStringLiteral("Código + Grupo + Descripción"), QStringLiteral("Código")};
}

QStringList modos_operacion_fe()
{
    return {QStringLiteral("Homologación"), QStringLiteral("Producción")};
}

void guardar_ajuste_impresora(Context &ctx, const QString &clave, const QString &valor,
                              const QString &clave_log)
{
    ctx.escribir_parametro(clave, valor);
    ctx.escribir_log(QStringLiteral("se modificó el valor del parametro de configuración ") +
                         (clave_log.isEmpty() ? clave : clave_log) + QStringLiteral(" a: ") + valor,
                     QStringLiteral("A"));
}

QString corregir_maximo(Context &ctx, const QString &clave, const QString &por_defecto)
{
    const QString valor = ctx.leer_parametro(clave);
    if (es_numerico(valor))
        return valor;
    ctx.escribir_parametro(clave, por_defecto);
    ctx.escribir_log(QStringLiteral("se modificó el valor del parametro de configuración ") + clave +
                         QStringLiteral(" a ") + por_defecto,
                     QStringLiteral("I"));
    return por_defecto;
}

QStringList items_condicion_iva(const QString &actual)
{
    const QString inscripto = QString::fromLatin1(kIvaInscripto);
    const QString monotributo = QString::fromLatin1(kIvaMonotributo);
    if (actual == monotributo)
        return {monotributo, inscripto};
    return {inscripto, monotributo};
}

bool usa_letras_a_b(const QString &condicion)
{
    return condicion != QLatin1String(kIvaMonotributo);
}

QString id_fiscal_a_texto(const QString &guardado)
{
    QString texto = guardado;
    return texto.replace(QLatin1Char('|'), QLatin1Char('\n'));
}

QString id_fiscal_a_guardar(const QString &texto)
{
    QString guardado = texto;
    guardado.replace(QLatin1String("\r\n"), QLatin1String("|"));
    return guardado.replace(QLatin1Char('\n'), QLatin1Char('|'));
}

bool ruta_con_espacios(const QString &ruta)
{
    return ruta.contains(QLatin1Char(' '));
}

} // namespace vendrix

#include "fiscal/front/fiscal_commands.h"

#include "core/context.h"
#include "fiscal/front/fiscal_front.h"
#include "fiscal/front/fiscal_models.h"

namespace vendrix {

namespace {

bool modo_electronico(const Context &ctx)
{
    return ctx.leer_parametro(QStringLiteral("IF_Modelo")) == QLatin1String(kModeloElectronica);
}

struct TextosCierre {
    const char *titulo;
    const char *exito;
    const char *error;
    const char *log_electronico;
};

bool cerrar(Context &ctx, bool resultado, const TextosCierre &t)
{
    const QString titulo = QString::fromUtf8(t.titulo);
    if (resultado) {
        if (modo_electronico(ctx))
            ctx.escribir_log(QString::fromUtf8(t.log_electronico), QStringLiteral("A"));
        ctx.op().inform(titulo, QString::fromUtf8(t.exito));
    } else {
        ctx.op().error(titulo, QString::fromUtf8(t.error));
    }
    return resultado;
}

} // namespace

bool cierre_x(Context &ctx, FiscalFront &front)
{
    return cerrar(ctx, front.IF_CierreX(),
                  {"Cierre X", "Cierre X (Turno) Realizado con éxito.", "Error al realizar el cierre X",
                   "FACTURA - Cierre X efectuado con éxito"});
}

bool cierre_z(Context &ctx, FiscalFront &front)
{
    return cerrar(ctx, front.IF_CierreZ(),
                  {"Cierre Z", "Cierre Z (Diario) Realizado con éxito.", "Error al realizar el cierre Z",
                   "FACTURA - Cierre Z efectuado con éxito"});
}

bool reporte_impresora(Context &ctx, FiscalFront &front)
{
    if (modo_electronico(ctx))
        return false;
    return front.IF_Generar_Reportes_Fiscales();
}

bool probar_impresora(Context &ctx, FiscalFront &front)
{
    if (!front.IF_Test()) {
        ctx.op().error(
            QStringLiteral("Error de conexión con la Impresora."),
            QStringLiteral("No se puede conectar con la impresora. Por favor compruebe que la "
                           "impresora esta conectada y encendida y que el modelo, puerto y velocidad "
                           "sean correctos."));
        return false;
    }
    const QString modelo = ctx.leer_parametro(QStringLiteral("IF_Modelo"));
    QString impresora = QLatin1Char('\'') + modelo + QLatin1Char('\'');
    // A Hasar tells its own model: its number and the name of that number.
    if (modelo == QLatin1String(kModeloHasar)) {
        const auto leido = front.modelo_dispositivo();
        impresora = QLatin1Char('\'') + (leido ? QString::number(leido->first) : QString()) +
                    QStringLiteral("', modelo '") +
                    (leido ? leido->second : QStringLiteral("Indeterminado")) + QLatin1Char('\'');
    }
    ctx.op().inform(QStringLiteral("Conexión Exitosa."),
                    QStringLiteral("Los parámetros de configuración son correctos.\r\n"
                                   "Vendrix se pudo comunicar con la impresora ") +
                        impresora + QStringLiteral(" en el puerto '") +
                        ctx.leer_parametro(QStringLiteral("IF_Port")) + QStringLiteral("' con velocidad '") +
                        ctx.leer_parametro(QStringLiteral("IF_velocidad")) + QLatin1Char('\''));
    return true;
}

} // namespace vendrix

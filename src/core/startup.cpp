#include "core/startup.h"

#include "core/context.h"
#include "core/holiday_logo.h"
#include "core/list_parameters.h"
#include "core/migrations.h"
#include "core/seed_files.h"
#include "core/single_instance.h"
#include "core/startup_files.h"
#include "core/startup_import.h"

#include <cerrno>
#include <exception>

namespace vendrix {

namespace {

const QString kInfo = QStringLiteral("I");
const QString kLinea = QStringLiteral("---------------------------------");

// The libraries the program once needed registered on the machine, and the
// control each provides. Vendrix needs none of them, so each is reported as
// present; the lines stay because support reads them in every log.
constexpr const char *kComponentes[] = {
    "ssTab ", "RMChartX", "Inet", "CommonDialog", "WebBrowser", "PrinterFiscal_Epson", ""};

void registrar_encabezado(Context &ctx, const OpcionesArranque &options)
{
    ctx.log().iniciar_log(QStringLiteral("Inicio de la aplicación Vendrix"), kInfo);
    ctx.escribir_log(kLinea, kInfo);
    ctx.escribir_log(QStringLiteral("Version: ") + options.version.texto(), kInfo);
    ctx.escribir_log(QStringLiteral("Carpeta: ") + ctx.carpeta(), kInfo);
    ctx.escribir_log(QStringLiteral("Usuario: ") + texto_usuario(options.sistema), kInfo);
    ctx.escribir_log(QStringLiteral("OS     : ") + options.sistema.sistema, kInfo);
    ctx.escribir_log(kLinea, kInfo);
}

void validar_componentes(Context &ctx)
{
    for (const char *name : kComponentes)
        ctx.escribir_log(QStringLiteral("Validación OCX: ") + QString::fromUtf8(name) +
                             QStringLiteral(" presente y registrada"),
                         kInfo);
    ctx.escribir_log(kLinea, kInfo);
}

bool hay_otra_instancia(Context &ctx, ProgresoArranque &splash, InstanciaUnica &instancia)
{
    splash.update_bar(QStringLiteral("Verifica otras instancias de Vendrix"));
    ctx.escribir_log(QStringLiteral("Verifica otras instancias abiertas"), kInfo);
    if (instancia.adquirir())
        return false;
    ctx.op().warn(QStringLiteral("Vendrix"), QStringLiteral("La aplicación Vendrix esta ya abierta."));
    ctx.escribir_log(QStringLiteral("la aplicación ya esta abierta (hay más de una instancia en ejecución)"),
                     QStringLiteral("A"));
    return true;
}

// The steps in their order; false when the run must end.
bool ejecutar_pasos(Context &ctx, ProgresoArranque &splash, InstanciaUnica &instancia,
                    const OpcionesArranque &options, ResultadoArranque &result)
{
    splash.mostrar(elegir_logo(ctx.reloj().now().date()),
                   QStringLiteral("Versión: ") + options.version.texto());
    splash.avanzar();
    registrar_encabezado(ctx, options);
    validar_componentes(ctx);
    if (hay_otra_instancia(ctx, splash, instancia))
        return false;

    splash.update_bar(QStringLiteral("Importando Archivo"));
    ctx.escribir_log(QStringLiteral("Verifico si se necesita improtar archivo"), kInfo);
    if (!options.linea_de_comandos.isEmpty() && es_archivo_de_listas(options.linea_de_comandos) &&
        importar_listas(ctx, options.linea_de_comandos) == FinImportacion::terminar)
        return false;

    splash.update_bar(QStringLiteral("Validando Existencia INI"));
    asegurar_config(ctx);
    asegurar_plantillas_fe(ctx);

    splash.update_bar(QStringLiteral("Validando Existencia Listas"));
    if (!validar_listas(ctx))
        return false;
    splash.update_bar(QStringLiteral("Validando Existencia archivo cliente"));
    if (!validar_clientes(ctx))
        return false;
    splash.update_bar(QStringLiteral("Validando Conectividad con la base de datos"));
    if (!validar_driver(ctx, options.sistema.sistema))
        return false;
    splash.update_bar(QStringLiteral("Validando Existencia de viejos Pedidos"));
    ejecutar_migraciones(ctx);

    const QString cliente = parametro_de_lista(ctx, QStringLiteral("CLIENTE"));
    const QString version = parametro_de_lista(ctx, QStringLiteral("VERSION"));
    if (!cliente.isEmpty()) {
        ctx.escribir_log(QStringLiteral("Nombre Ciente: ") + cliente, kInfo);
        result.titulo = QStringLiteral("Vendrix - ") + cliente;
    }
    splash.update_bar(QStringLiteral("Validando Versión de la DB"));
    ctx.escribir_log(QStringLiteral("Validando la versión del DB"), kInfo);
    if (!validar_version_db(ctx, version, options.version))
        return false;

    splash.update_bar(QStringLiteral("Buscando Actualizaciones"));
    buscar_actualizaciones(ctx);
    splash.update_bar(QStringLiteral("Validando Existencia Facturas"));
    if (!validar_factura(ctx))
        return false;
    splash.update_bar(QStringLiteral("Abriendo el Programa"));
    ctx.escribir_log(QStringLiteral("Abriendo programa principal"), kInfo);
    return true;
}

// Whatever broke is told the way every start-up failure has been, and the
// main window opens anyway so the operator can reach the log.
void informar_falla(Context &ctx, int number, const QString &description)
{
    const int system_error = errno;
    ctx.op().error(
        QStringLiteral("Error al intentar cargar las Grillas."),
        QStringLiteral("ER SPLASH: Se produjo un error al intenar abrir vendrix (probablemente por "
                       "falta de registración de DLL u OCxs). Vea el log para mas detalle. ") +
            QString::number(number) + QStringLiteral(" - ") + description);
    ctx.escribir_log(QStringLiteral("ER GR001 - ") + QString::number(number) + QLatin1Char(' ') +
                         description + QLatin1Char(' ') + QString::number(system_error) +
                         QStringLiteral(" frmSplash"),
                     QStringLiteral("E"));
    ctx.estado().marcar_ocupado(false);
}

} // namespace

ResultadoArranque ejecutar_arranque(Context &ctx, ProgresoArranque &splash, InstanciaUnica &instancia,
                                    const OpcionesArranque &options)
{
    ResultadoArranque result;
    try {
        result.continuar = ejecutar_pasos(ctx, splash, instancia, options, result);
    } catch (const std::exception &e) {
        informar_falla(ctx, 1, QString::fromLocal8Bit(e.what()));
        result.continuar = true;
    } catch (...) {
        informar_falla(ctx, 1, QStringLiteral("Error desconocido"));
        result.continuar = true;
    }
    return result;
}

} // namespace vendrix

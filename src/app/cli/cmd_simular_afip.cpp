// vendrix-cli simular-afip: a local HTTPS server that answers like AFIP's
// WSAA, WSFEv1 and taxpayer register, to try electronic invoicing without
// AFIP. It prints the settings a shop needs (and writes them with
// --tienda), then one line per request, until Ctrl+C.
#include "commands.h"
#include "stop_signal.h"

#include "afip/simulator/afip_simulator.h"
#include "afip/simulator/simulator_credentials.h"
#include "core/context.h"
#include "core/settings.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QDir>
#include <QTextStream>
#include <QTimer>

namespace vendrix::cli {

int cmd_simular_afip(const CliArgs &args)
{
    QTextStream out(stdout);
    QTextStream err(stderr);
    bool ok = true;
    const int puerto = args.option(QStringLiteral("--puerto"), QStringLiteral("0")).toInt(&ok);
    const std::optional<simulador::Modo> modo =
        simulador::modo_desde_nombre(args.option(QStringLiteral("--modo"), QStringLiteral("normal")));
    if (!ok || puerto < 0 || puerto > 65535 || !modo) {
        err << "Uso: vendrix-cli simular-afip [--puerto N] [--carpeta DIR] [--tienda CARPETA_DEL_COMERCIO] "
               "[--modo MODO] [--vencido]\nModos: "
            << simulador::nombres_de_modos().join(QStringLiteral(", ")) << ".\n";
        return 2;
    }
    const QString carpeta =
        args.option(QStringLiteral("--carpeta"), QDir::current().filePath("simulador-afip"));
    CredencialesSimulador credenciales;
    QString error;
    if (!CredencialesSimulador::preparar(carpeta, QDateTime::currentDateTime(),
                                         args.flag(QStringLiteral("--vencido")), credenciales, &error)) {
        err << "No se pudieron preparar las credenciales del simulador: " << error << '\n';
        return 1;
    }
    SimuladorAfip simulador(
        {static_cast<quint16>(puerto), credenciales.autoridad(), credenciales.servidor(), nullptr});
    simulador.set_modo(*modo);
    if (!simulador.iniciar(&error)) {
        err << "No se pudo iniciar el simulador de AFIP: " << error << '\n';
        return 1;
    }
    const QList<std::pair<QString, QString>> ajustes{
        {QStringLiteral("IF_FE_Modo_Operacion"), QStringLiteral("Homologación")},
        {QStringLiteral("IF_FE_Certificado"), QDir::toNativeSeparators(credenciales.tienda_certificado)},
        {QStringLiteral("IF_FE_Password"), QDir::toNativeSeparators(credenciales.tienda_llave)},
        {QStringLiteral("FE_servidor_pruebas"), simulador.url()},
        {QStringLiteral("FE_CA_pruebas"), QDir::toNativeSeparators(credenciales.autoridad_certificado)},
    };
    out << "Simulador de AFIP escuchando en " << simulador.url() << " (puerto " << simulador.puerto() << ")\n"
        << "Modo: " << simulador::nombre_de_modo(*modo)
        << ". Credenciales en: " << QDir::toNativeSeparators(credenciales.carpeta) << '\n'
        << "Ajustes del comercio (Config.vdrx, sección PARAMETROS):\n";
    for (const auto &[clave, valor] : ajustes)
        out << "  " << clave << '=' << valor << '\n';
    if (args.options.contains(QStringLiteral("--tienda"))) {
        const Settings config(QDir(args.option(QStringLiteral("--tienda"))).filePath(Context::kConfigFile));
        for (const auto &[clave, valor] : ajustes) {
            if (!config.escribir_parametro(clave, valor)) {
                err << "No se pudo escribir " << config.path() << '\n';
                return 1;
            }
        }
        out << "Ajustes escritos en " << QDir::toNativeSeparators(config.path()) << '\n';
    }
    out << "Ctrl+C termina.\n";
    out.flush();

    QObject::connect(&simulador, &SimuladorAfip::peticion_recibida, [&out](const PeticionRecibida &p) {
        out << QDateTime::currentDateTime().toString(QStringLiteral("HH:mm:ss")) << ' ' << p.metodo << ' '
            << p.ruta
            << (p.operacion.isEmpty() ? QString() : QStringLiteral(" (") + p.operacion + QLatin1Char(')'))
            << '\n';
        out.flush();
    });
    const std::atomic<bool> &detener = detener_con_senal();
    QTimer vigia;
    QObject::connect(&vigia, &QTimer::timeout, [&detener] {
        if (detener)
            QCoreApplication::quit();
    });
    vigia.start(200);
    QCoreApplication::exec();
    out << "Simulador terminado.\n";
    return 0;
}

} // namespace vendrix::cli

// vendrix-cli emular-hasar [--modelo N]: a Hasar fiscal printer on a
// pseudo-terminal, to try the program without the printer. It prints the
// device to set as the printer's port, then each line the printer prints,
// until Ctrl+C.
#include "commands.h"
#include "stop_signal.h"

#include "fiscal/emulator/hasar_emulator.h"
#include "fiscal/hasar/hasar_models.h"

#include <QTextStream>

#include <stdexcept>

namespace vendrix::cli {

int cmd_emular_hasar(const CliArgs &args)
{
    QTextStream out(stdout);
    QTextStream err(stderr);
    HasarEmulator::Opciones opciones;
    bool ok = true;
    if (args.options.contains(QStringLiteral("--modelo")))
        opciones.modelo = args.option(QStringLiteral("--modelo")).toInt(&ok);
    // Only the models of the first series and the P-715F/P-PR5F speak this protocol.
    const QString nombre = hasar::nombre_modelo(opciones.modelo);
    static const QStringList emulables{"P-615F", "P-PR4F", "P-950F", "P-951F", "P-715F", "P-PR5F"};
    if (!ok || !emulables.contains(nombre)) {
        err << "Uso: vendrix-cli emular-hasar [--modelo N], con N el número de un modelo "
            << emulables.join(QStringLiteral(", ")) << " (2, 3, 4, 5, 9, 10).\n";
        return 2;
    }
    try {
        HasarEmulator emulador(opciones);
        out << "Impresora Hasar " << nombre << " emulada en: " << emulador.ruta() << '\n'
            << "Use esa ruta como puerto de la impresora (IF_Port). Ctrl+C termina.\n";
        out.flush();
        emulador.al_imprimir([&out](const QString &linea) {
            out << linea << '\n';
            out.flush();
        });
        const std::atomic<bool> &detener = detener_con_senal();
        emulador.servir(detener);
    } catch (const std::runtime_error &e) {
        err << "No se pudo crear el puerto de la impresora emulada: " << e.what() << '\n';
        return 1;
    }
    out << "Emulador terminado.\n";
    return 0;
}

} // namespace vendrix::cli

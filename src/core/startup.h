#pragma once

#include "core/startup_version.h"
#include "core/system_info.h"

#include <QString>

namespace vendrix {

class Context;
class InstanciaUnica;

// The splash screen as the start-up drives it.
class ProgresoArranque {
public:
    virtual ~ProgresoArranque() = default;

    // Shows the splash with its logo and "Versión: ..." label.
    virtual void mostrar(int logo, const QString &version_label) = 0;
    // Moves the bar on one step without a caption.
    virtual void avanzar() = 0;
    // Moves the bar on one step and shows the step's caption.
    virtual void update_bar(const QString &step) = 0;
};

// What the program does once the start-up is over.
struct ResultadoArranque {
    // False: the process ends without the main window.
    bool continuar = true;
    // The main window's caption.
    QString titulo = QStringLiteral("Vendrix");
};

struct OpcionesArranque {
    // What the program was started with: a `.vdrxdb` path starts an import.
    QString linea_de_comandos;
    VersionPrograma version = VersionPrograma::actual();
    DatosSistema sistema = datos_del_sistema();
};

// The start-up, from the first log line to the moment the main window is
// due: log header, the one-program check, the import of a list named on the
// command line, settings file, templates, data files, database driver,
// schema updates, the price list's shop name and version, and the search for
// updates. A failed check tells the operator and ends the run; anything that
// breaks inside is logged and shown, and the main window opens all the same.
ResultadoArranque ejecutar_arranque(Context &ctx, ProgresoArranque &splash, InstanciaUnica &instancia,
                                    const OpcionesArranque &options);

} // namespace vendrix

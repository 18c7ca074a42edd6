#pragma once

#include "fiscal/emulator/hasar_emulator.h"
#include "fiscal/hasar/hasar_device.h"
#include "support/test_context.h"

#include <QCoreApplication>

namespace vendrix::test {

// Short waits: a silent printer costs a test well under a second.
inline constexpr HasarTiempos kTiempos{400, 2, 800};

// The serial port wants an application object for its notifiers; a test
// program that already made one keeps it.
inline bool con_aplicacion()
{
    if (!QCoreApplication::instance()) {
        static int argc = 1;
        static char nombre[] = "test_fiscal";
        static char *argv[] = {nombre, nullptr};
        new QCoreApplication(argc, argv); // lives as long as the program
    }
    return true;
}

// A test folder whose settings point at an emulated Hasar printer on a
// pseudo-terminal, reached as through a serial port.
struct ImpresoraEmulada {
    explicit ImpresoraEmulada(int modelo = 9, char responsabilidad = 'I')
        : emulador(HasarEmulator::Opciones{modelo, responsabilidad, 50})
    {
        emulador.iniciar();
        app.ctx().escribir_parametro("IF_Port", emulador.ruta());
        app.ctx().escribir_parametro("IF_velocidad", "9600");
        app.ctx().escribir_parametro("IF_IDFiscal", "Kiosco Doña Pepa|Av. Siempre Viva 742");
    }

    bool aplicacion = con_aplicacion();
    TestApp app;
    HasarEmulator emulador;
};

} // namespace vendrix::test

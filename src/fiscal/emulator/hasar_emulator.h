#pragma once

#include "fiscal/emulator/emulated_fiscal_memory.h"
#include "fiscal/emulator/pty_pair.h"

#include <QByteArray>
#include <QStringList>

#include <atomic>
#include <functional>
#include <mutex>
#include <thread>
#include <vector>

namespace vendrix {

// What an emulated printer can do wrong.
enum class FallaHasar {
    SinRespuesta,       // the packet goes unanswered, not even ACK
    Nak,                // the packet is refused as damaged
    EsperaLarga,        // DC2 every interval for `duracion_ms` before the reply
    SinPapel,           // DC4 a few times, then a paper-out status; nothing runs
    SumaErronea,        // the reply goes out with a wrong checksum
    RespuestaPerdida,   // the command runs and its reply is lost
    EstadoConError,     // the reply carries `estado_fiscal`; nothing runs
    ComprobanteAbierto, // a ticket-factura is found open (at once, once)
};

struct FallaEmulada {
    FallaHasar tipo;
    // How many packets it hits; -1 every one.
    int veces = 1;
    // The command it hits; empty for any.
    QByteArray comando;
    quint16 estado_fiscal = 0;
    int duracion_ms = 0;
};

// A Hasar printer on a pseudo-terminal: answers the serial protocol (ACK,
// NAK, DC2/DC4, sequence numbers, a repeated number answered from memory
// without running again), keeps the fiscal memory and a journal of what it
// printed, and fails on demand.
class HasarEmulator {
public:
    struct Opciones {
        int modelo = 9; // P-715F
        char responsabilidad = 'I';
        int intervalo_ms = 500; // between DC2 or DC4 bytes
    };

    explicit HasarEmulator(const Opciones &opciones);
    ~HasarEmulator();

    // The device a driver opens as its port.
    const QString &ruta() const { return pty_.ruta_esclavo(); }

    void agregar_falla(const FallaEmulada &falla);
    // Called, on the emulator's thread, with each line as it is printed.
    void al_imprimir(std::function<void(const QString &)> aviso) { aviso_ = std::move(aviso); }
    QStringList diario() const;
    // How many commands ran (repeats answered from memory don't count).
    int ejecutados() const;

    // Serves on a thread of its own until destroyed.
    void iniciar();
    // Serves on the calling thread until `detener` turns true.
    void servir(const std::atomic<bool> &detener);

private:
    void atender(const QByteArray &paquete, const std::atomic<bool> &detener);
    void enviar_respuesta(const QByteArray &respuesta);
    // The first pending fault for the command, used up once.
    bool tomar(FallaHasar tipo, const QByteArray &comando, FallaEmulada *falla = nullptr);
    void esperar(char byte, int duracion_ms, const std::atomic<bool> &detener);

    Opciones opciones_;
    PtyPair pty_;
    mutable std::mutex mutex_;
    EmulatedFiscalMemory memoria_;
    std::vector<FallaEmulada> fallas_;
    std::function<void(const QString &)> aviso_;
    int ejecutados_ = 0;
    int ultimo_sn_ = -1;
    QByteArray guardada_;  // the last reply, for a repeated packet
    QByteArray pendiente_; // the reply not yet acknowledged
    std::atomic<bool> parar_{false};
    std::thread hilo_;
};

} // namespace vendrix

#include "fiscal/emulator/hasar_emulator.h"

#include <chrono>

namespace vendrix {

using namespace hasar;

namespace {
constexpr int kPaso = 20; // ms between looks at the stop flag
constexpr quint16 kSinPapelTickets = 1u << 5;
} // namespace

HasarEmulator::HasarEmulator(const Opciones &opciones)
    : opciones_(opciones), memoria_(opciones.modelo, opciones.responsabilidad)
{
}

HasarEmulator::~HasarEmulator()
{
    parar_ = true;
    if (hilo_.joinable())
        hilo_.join();
}

void HasarEmulator::agregar_falla(const FallaEmulada &falla)
{
    std::lock_guard lock(mutex_);
    if (falla.tipo == FallaHasar::ComprobanteAbierto)
        memoria_.dejar_comprobante_abierto();
    else
        fallas_.push_back(falla);
}

QStringList HasarEmulator::diario() const
{
    std::lock_guard lock(mutex_);
    return memoria_.diario();
}

int HasarEmulator::ejecutados() const
{
    std::lock_guard lock(mutex_);
    return ejecutados_;
}

void HasarEmulator::iniciar()
{
    hilo_ = std::thread([this] { servir(parar_); });
}

bool HasarEmulator::tomar(FallaHasar tipo, const QByteArray &comando, FallaEmulada *falla)
{
    std::lock_guard lock(mutex_);
    for (auto it = fallas_.begin(); it != fallas_.end(); ++it) {
        if (it->tipo != tipo || (!it->comando.isEmpty() && it->comando != comando))
            continue;
        if (falla)
            *falla = *it;
        if (it->veces > 0 && --it->veces == 0)
            fallas_.erase(it);
        return true;
    }
    return false;
}

void HasarEmulator::esperar(char byte, int duracion_ms, const std::atomic<bool> &detener)
{
    const auto fin = std::chrono::steady_clock::now() + std::chrono::milliseconds(duracion_ms);
    while (!detener && std::chrono::steady_clock::now() < fin) {
        pty_.escribir(QByteArray(1, byte));
        for (int t = 0; t < opciones_.intervalo_ms && !detener; t += kPaso)
            std::this_thread::sleep_for(std::chrono::milliseconds(kPaso));
    }
}

void HasarEmulator::servir(const std::atomic<bool> &detener)
{
    QByteArray entrada;
    while (!detener) {
        entrada += pty_.leer(kPaso);
        while (!entrada.isEmpty()) {
            const char byte = entrada.at(0);
            if (byte == kACK || byte == kNAK) {
                entrada.remove(0, 1);
                if (byte == kNAK && !pendiente_.isEmpty())
                    enviar_respuesta(pendiente_);
                else
                    pendiente_.clear();
                continue;
            }
            if (byte != kSTX) {
                entrada.remove(0, 1);
                continue;
            }
            const qsizetype etx = entrada.indexOf(kETX);
            if (etx < 0 || entrada.size() < etx + 5)
                break; // the rest of the packet is still on its way
            const QByteArray paquete = entrada.left(etx + 5);
            entrada.remove(0, etx + 5);
            atender(paquete, detener);
        }
    }
}

void HasarEmulator::atender(const QByteArray &paquete, const std::atomic<bool> &detener)
{
    const std::optional<Frame> frame = decodificar(paquete);
    if (!frame) {
        pty_.escribir(QByteArray(1, kNAK));
        return;
    }
    const QByteArray &comando = frame->comando;
    if (tomar(FallaHasar::SinRespuesta, comando))
        return;
    if (tomar(FallaHasar::Nak, comando)) {
        pty_.escribir(QByteArray(1, kNAK));
        return;
    }
    pty_.escribir(QByteArray(1, kACK));
    if (frame->sn == ultimo_sn_ && !guardada_.isEmpty()) {
        enviar_respuesta(guardada_);
        return;
    }

    FallaEmulada falla{};
    if (tomar(FallaHasar::EsperaLarga, comando, &falla))
        esperar(kDC2, falla.duracion_ms, detener);
    QList<QByteArray> campos;
    QStringList nuevas;
    if (tomar(FallaHasar::SinPapel, comando)) {
        esperar(kDC4, 3 * opciones_.intervalo_ms, detener);
        std::lock_guard lock(mutex_);
        campos = memoria_.estado(kSinPapelTickets, 0);
    } else if (tomar(FallaHasar::EstadoConError, comando, &falla)) {
        std::lock_guard lock(mutex_);
        campos = memoria_.estado(1u << 7, falla.estado_fiscal);
    } else {
        std::lock_guard lock(mutex_);
        const qsizetype antes = memoria_.diario().size();
        campos = memoria_.ejecutar(*frame);
        nuevas = memoria_.diario().mid(antes);
        ++ejecutados_;
    }
    if (aviso_) {
        for (const QString &linea : nuevas)
            aviso_(linea);
    }
    ultimo_sn_ = frame->sn;
    guardada_ = codificar(Frame{frame->sn, comando, campos});
    if (tomar(FallaHasar::RespuestaPerdida, comando))
        return;
    enviar_respuesta(guardada_);
}

void HasarEmulator::enviar_respuesta(const QByteArray &respuesta)
{
    pendiente_ = respuesta;
    if (tomar(FallaHasar::SumaErronea, respuesta.mid(2, respuesta.at(2) == kESC ? 2 : 1))) {
        QByteArray danada = respuesta;
        danada[danada.size() - 1] = danada.at(danada.size() - 1) == '0' ? '1' : '0';
        pty_.escribir(danada);
        return;
    }
    pty_.escribir(respuesta);
}

} // namespace vendrix

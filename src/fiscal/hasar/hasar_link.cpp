#include "fiscal/hasar/hasar_link.h"

#include "fiscal/hasar/hasar_errors.h"
#include "fiscal/port/byte_channel.h"

#include <QElapsedTimer>

namespace vendrix::hasar {

namespace {
// Longer than any reply of the printer: a runaway line is not a packet.
constexpr int kLargoMaximo = 1024;
} // namespace

HasarLink::HasarLink(ByteChannel &channel, const HasarTiempos &tiempos, unsigned char primer_sn)
    : channel_(channel), tiempos_(tiempos), sn_(primer_sn)
{
}

Frame HasarLink::enviar(const QByteArray &comando, const QList<QByteArray> &campos, const QString &paso,
                        bool cualquier_comando)
{
    sn_ = siguiente_sn(sn_);
    const Frame enviado{sn_, comando, campos};
    const QByteArray bytes = codificar(enviado);
    bool hubo_ack = false;
    Resultado ultimo = Resultado::Silencio;
    for (int envio = 0; envio <= tiempos_.reintentos; ++envio) {
        if (!channel_.escribir(bytes))
            throw error_hasar(kEscrituraFallida, paso);
        Frame respuesta;
        ultimo = esperar(enviado, respuesta, paso, hubo_ack);
        if (ultimo == Resultado::Respuesta) {
            if (!cualquier_comando && respuesta.comando != comando)
                throw error_hasar(kRespuestaAjena, paso);
            return respuesta;
        }
        if (ultimo == Resultado::SinRespuesta)
            break;
    }
    if (ultimo == Resultado::Nak)
        throw error_hasar(kRechazado, paso);
    if (ultimo == Resultado::SinRespuesta)
        throw error_hasar(kRespuestaConErrores, paso);
    throw error_hasar(hubo_ack ? kRespuestaPerdida : kSinRespuesta, paso);
}

HasarLink::Resultado HasarLink::esperar(const Frame &enviado, Frame &respuesta, const QString &paso,
                                        bool &hubo_ack)
{
    QElapsedTimer ocupada;
    bool sin_papel = false;
    int malas = 0;
    for (;;) {
        const std::optional<char> byte = channel_.leer_byte(tiempos_.primer_byte_ms);
        if (!byte)
            return Resultado::Silencio;
        switch (*byte) {
        case kACK:
            hubo_ack = true;
            break;
        case kNAK:
            return Resultado::Nak;
        case kDC2:
        case kDC4:
            hubo_ack = true;
            sin_papel = *byte == kDC4;
            if (!ocupada.isValid())
                ocupada.start();
            else if (ocupada.elapsed() > tiempos_.espera_maxima_ms)
                throw error_hasar(sin_papel ? kSinPapelDemasiado : kOcupadaDemasiado, paso);
            break;
        case kSTX: {
            const std::optional<Frame> frame = leer_paquete();
            if (!frame) {
                // A damaged reply is asked for again; the printer re-sends it.
                if (++malas > tiempos_.reintentos)
                    return Resultado::SinRespuesta;
                channel_.escribir(QByteArray(1, kNAK));
                break;
            }
            channel_.escribir(QByteArray(1, kACK));
            // The reply to an older packet, sent again: acknowledged and skipped.
            if (frame->sn != enviado.sn)
                break;
            respuesta = *frame;
            return Resultado::Respuesta;
        }
        default:
            break; // flow control and noise
        }
    }
}

std::optional<Frame> HasarLink::leer_paquete()
{
    QByteArray bytes(1, kSTX);
    while (!bytes.endsWith(kETX)) {
        const std::optional<char> byte = channel_.leer_byte(tiempos_.primer_byte_ms);
        if (!byte || bytes.size() > kLargoMaximo)
            return std::nullopt;
        bytes += *byte;
    }
    for (int i = 0; i < 4; ++i) {
        const std::optional<char> byte = channel_.leer_byte(tiempos_.primer_byte_ms);
        if (!byte)
            return std::nullopt;
        bytes += *byte;
    }
    return decodificar(bytes);
}

} // namespace vendrix::hasar

#pragma once

#include "fiscal/hasar/hasar_frame.h"

#include <QString>

namespace vendrix {

class ByteChannel;

// The waits of the link. The defaults are the printer's: one second for the
// first byte of an answer; a busy printer (DC2, or DC4 without paper) is
// waited for up to two minutes.
struct HasarTiempos {
    int primer_byte_ms = 1000;
    // Sends of a command after the first, on a timeout or a NAK; also the bad
    // replies taken before giving up.
    int reintentos = 3;
    int espera_maxima_ms = 120000;
};

namespace hasar {

// One command and its reply over a byte channel: sends the packet, re-sends
// the same packet with the same sequence number on a NAK or when no byte
// came within the first-byte time, keeps waiting while the printer says
// DC2/DC4, refuses (NAK) a reply with a bad sum and acknowledges a good one.
// Transport failures throw the driver's FiscalError; the reply's status words
// are the caller's to read.
class HasarLink {
public:
    HasarLink(ByteChannel &channel, const HasarTiempos &tiempos, unsigned char primer_sn);

    // `paso` names the driver's step in an error. With `cualquier_comando`,
    // a reply to another command under the same sequence number is taken.
    Frame enviar(const QByteArray &comando, const QList<QByteArray> &campos, const QString &paso,
                 bool cualquier_comando = false);

private:
    enum class Resultado { Respuesta, Nak, Silencio, SinRespuesta };
    Resultado esperar(const Frame &enviado, Frame &respuesta, const QString &paso, bool &hubo_ack);
    std::optional<Frame> leer_paquete();

    ByteChannel &channel_;
    HasarTiempos tiempos_;
    unsigned char sn_;
};

} // namespace hasar
} // namespace vendrix

#pragma once

#include <QByteArray>
#include <QList>

#include <optional>

namespace vendrix::hasar {

// Control bytes of the printer's serial protocol.
inline constexpr char kSTX = 0x02;
inline constexpr char kETX = 0x03;
inline constexpr char kACK = 0x06;
inline constexpr char kDC2 = 0x12; // still working
inline constexpr char kDC4 = 0x14; // still working, a station is out of paper
inline constexpr char kNAK = 0x15;
inline constexpr char kFS = 0x1c;
inline constexpr char kESC = 0x1b;

// Sequence numbers are the even values from 0x20 to 0x7e, in a ring.
inline constexpr unsigned char kPrimerSN = 0x20;
unsigned char siguiente_sn(unsigned char sn);

// One packet: STX, SN, the command (one byte, or ESC and a byte), each field
// behind a FS, ETX and the four upper-case hexadecimal digits of the sum of
// every byte from STX to ETX.
struct Frame {
    unsigned char sn = kPrimerSN;
    QByteArray comando;
    QList<QByteArray> campos;
};

QByteArray codificar(const Frame &frame);
// The four digits that close a packet whose bytes from STX to ETX are given.
QByteArray suma_de_control(const QByteArray &hasta_etx);
// A whole packet as received; nothing when it is malformed or its sum is wrong.
std::optional<Frame> decodificar(const QByteArray &bytes);

} // namespace vendrix::hasar

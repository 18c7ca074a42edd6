#include "fiscal/hasar/hasar_frame.h"

namespace vendrix::hasar {

unsigned char siguiente_sn(unsigned char sn)
{
    return sn >= 0x7e ? kPrimerSN : static_cast<unsigned char>(sn + 2);
}

QByteArray suma_de_control(const QByteArray &hasta_etx)
{
    unsigned sum = 0;
    for (const char c : hasta_etx)
        sum += static_cast<unsigned char>(c);
    return QByteArray::number(sum & 0xffff, 16).toUpper().rightJustified(4, '0');
}

QByteArray codificar(const Frame &frame)
{
    QByteArray bytes;
    bytes += kSTX;
    bytes += static_cast<char>(frame.sn);
    bytes += frame.comando;
    for (const QByteArray &campo : frame.campos) {
        bytes += kFS;
        bytes += campo;
    }
    bytes += kETX;
    return bytes + suma_de_control(bytes);
}

std::optional<Frame> decodificar(const QByteArray &bytes)
{
    const qsizetype etx = bytes.indexOf(kETX);
    if (bytes.size() < 4 || bytes.at(0) != kSTX || etx < 3 || bytes.size() != etx + 5)
        return std::nullopt;
    const QByteArray cuerpo = bytes.left(etx + 1);
    if (bytes.mid(etx + 1).toUpper() != suma_de_control(cuerpo))
        return std::nullopt;
    Frame frame;
    frame.sn = static_cast<unsigned char>(bytes.at(1));
    const QByteArray resto = bytes.mid(2, etx - 2);
    const int largo_comando = resto.startsWith(kESC) ? 2 : 1;
    if (resto.size() < largo_comando)
        return std::nullopt;
    frame.comando = resto.left(largo_comando);
    const QByteArray datos = resto.mid(largo_comando);
    if (!datos.isEmpty()) {
        if (datos.at(0) != kFS)
            return std::nullopt;
        frame.campos = datos.mid(1).split(kFS);
    }
    return frame;
}

} // namespace vendrix::hasar

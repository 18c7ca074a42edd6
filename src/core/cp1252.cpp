#include "core/cp1252.h"

#include <array>

namespace vendrix::cp1252 {

namespace {

// Unicode of the bytes 0x80 to 0x9F. Windows leaves 0x81, 0x8D, 0x8F, 0x90 and
// 0x9D unassigned; they map to the C1 control of the same number.
constexpr std::array<char16_t, 32> kHighTable = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, // 0x80
    0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0x008D, 0x017D, 0x008F, // 0x88
    0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014, // 0x90
    0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178, // 0x98
};

char byte_de(char16_t unit)
{
    if (unit < 0x80 || (unit >= 0xA0 && unit <= 0xFF))
        return static_cast<char>(unit);
    for (size_t i = 0; i < kHighTable.size(); ++i) {
        if (kHighTable[i] == unit)
            return static_cast<char>(0x80 + i);
    }
    return '?';
}

} // namespace

QString decodificar(QByteArrayView bytes)
{
    QString text(bytes.size(), Qt::Uninitialized);
    QChar *out = text.data();
    for (const char c : bytes) {
        const auto b = static_cast<unsigned char>(c);
        *out++ = (b >= 0x80 && b <= 0x9F) ? QChar(kHighTable[b - 0x80]) : QChar(b);
    }
    return text;
}

QByteArray codificar(QStringView text)
{
    QByteArray bytes;
    bytes.reserve(text.size());
    for (qsizetype i = 0; i < text.size(); ++i) {
        const QChar c = text[i];
        // A character outside the basic plane is one "?", not two.
        if (c.isHighSurrogate() && i + 1 < text.size() && text[i + 1].isLowSurrogate())
            ++i;
        bytes.append(byte_de(c.unicode()));
    }
    return bytes;
}

} // namespace vendrix::cp1252

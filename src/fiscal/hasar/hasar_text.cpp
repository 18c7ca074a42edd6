#include "fiscal/hasar/hasar_text.h"

#include <array>
#include <utility>

namespace vendrix::hasar {

namespace {

// The printer's code page from 128 to 175 (the first IBM PC set), for the
// letters a Spanish text needs.
constexpr std::array<std::pair<char16_t, unsigned char>, 14> kPagina{{
    {u'á', 0xa0},
    {u'é', 0x82},
    {u'í', 0xa1},
    {u'ó', 0xa2},
    {u'ú', 0xa3},
    {u'ñ', 0xa4},
    {u'Ñ', 0xa5},
    {u'ü', 0x81},
    {u'Ü', 0x9a},
    {u'É', 0x90},
    {u'ª', 0xa6},
    {u'º', 0xa7},
    {u'¿', 0xa8},
    {u'¡', 0xad},
}};

} // namespace

QString filtrar_texto(const QString &texto, int limite)
{
    QString kept;
    for (const QChar c : texto) {
        if (kept.size() >= limite)
            break;
        if (c.unicode() >= 32 && c.unicode() <= 127)
            kept += c;
    }
    return kept;
}

QByteArray a_bytes(const QString &texto)
{
    QByteArray bytes;
    bytes.reserve(texto.size());
    for (const QChar c : texto) {
        if (c.unicode() >= 32 && c.unicode() <= 127) {
            bytes += char(c.unicode());
            continue;
        }
        char byte = '?';
        for (const auto &[letra, codigo] : kPagina) {
            if (letra == c.unicode())
                byte = char(codigo);
        }
        bytes += byte;
    }
    return bytes;
}

QString a_texto(const QByteArray &bytes)
{
    QString texto;
    for (const char b : bytes) {
        const auto u = static_cast<unsigned char>(b);
        QChar c = u < 128 ? QChar(u) : QChar(u'?');
        for (const auto &[letra, codigo] : kPagina) {
            if (codigo == u)
                c = QChar(letra);
        }
        texto += c;
    }
    return texto;
}

QByteArray monto(double valor)
{
    return QByteArray::number(valor, 'f', 2);
}

QByteArray cantidad(double valor)
{
    QByteArray text = QByteArray::number(valor, 'f', 10);
    while (text.endsWith('0'))
        text.chop(1);
    if (text.endsWith('.'))
        text.chop(1);
    return text;
}

} // namespace vendrix::hasar

#include "core/text_helpers.h"

#include "core/numeric.h"

#include <array>

namespace vendrix {

namespace {

// The characters that a query string carries as they are.
const QString &caracteres_url()
{
    static const QString kSet =
        QStringLiteral("1234567890ABCDEFGHIJKLMNOPQRSTUVWXYZÑabcdefghijklmnopqrstuvwxyzáéíóúñ:/.?=_-$(){}~&");
    return kSet;
}

// The Windows-1252 code of a character (the code page the earlier program
// and the shop's files use); "?" for a character it can't hold.
int codigo_ansi(QChar c)
{
    static constexpr std::array<char16_t, 32> k80{
        0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
        0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
        0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};
    const char16_t u = c.unicode();
    if (u < 0x80 || (u >= 0xA0 && u <= 0xFF))
        return u;
    for (size_t i = 0; i < k80.size(); ++i) {
        if (k80[i] == u)
            return static_cast<int>(0x80 + i);
    }
    return '?';
}

QString ultimos(const QString &relleno, const QString &text, int width)
{
    const QString todo = relleno + text;
    return width <= 0 ? QString() : todo.right(width);
}

} // namespace

int buscar_en_lista(const QStringList &list, const QString &value)
{
    return static_cast<int>(list.indexOf(value));
}

bool tiene_un_separador(QStringView text)
{
    bool result = true;
    for (QChar c : text) {
        if (c == QLatin1Char('+') || c == QLatin1Char('-'))
            result = true;
        else if (c == kSeparadorDecimal)
            result = false;
    }
    return result;
}

QString rellenar_ceros(const QString &text, int width)
{
    return ultimos(QString(38, QLatin1Char('0')), text, width);
}

QString rellenar_blancos(const QString &text, int width)
{
    QString out = ultimos(QString(38, QLatin1Char(' ')), text, width);
    out.replace(QLatin1String("     "), QLatin1String("\t"));
    return out;
}

QString codificar_url(const QString &text)
{
    QString out;
    out.reserve(text.size() * 3);
    for (QChar c : text) {
        if (caracteres_url().contains(c)) {
            out += c;
        } else if (c == QLatin1Char(' ')) {
            out += QLatin1Char('+');
        } else {
            out += QLatin1Char('%');
            out += QString::number(codigo_ansi(c), 16).toUpper().rightJustified(2, QLatin1Char('0'));
        }
    }
    out.replace(QLatin1Char('+'), QLatin1String("%20"));
    out.replace(QLatin1Char(' '), QLatin1String("%20"));
    out.replace(QLatin1String("\r\n"), QLatin1String("%0D%0A"));
    return out;
}

QString tamano_archivo_texto(qint64 bytes)
{
    const double valor = static_cast<double>(bytes);
    if (bytes >= 1073741824)
        return formatear(valor / 1024 / 1024 / 1024, u"#0.00") + QLatin1String(" GB");
    if (bytes >= 1048576)
        return formatear(valor / 1024 / 1024, u"#0.00") + QLatin1String(" MB");
    if (bytes >= 1024)
        return formatear(valor / 1024, u"#0.00") + QLatin1String(" KB");
    return QString::number(bytes < 0 ? 0 : bytes) + QLatin1String(" Bytes");
}

} // namespace vendrix

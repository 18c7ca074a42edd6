#include "core/text_helpers.h"

#include "core/cp1252.h"
#include "core/numeric.h"

#include <algorithm>

namespace vendrix {

namespace {

// The characters that a query string carries as they are.
const QString &caracteres_url()
{
    static const QString kSet =
        QStringLiteral("1234567890ABCDEFGHIJKLMNOPQRSTUVWXYZÑabcdefghijklmnopqrstuvwxyzáéíóúñ:/.?=_-$(){}~&");
    return kSet;
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

bool solo_digitos(QStringView text)
{
    return !text.isEmpty() &&
           std::all_of(text.begin(), text.end(), [](QChar c) { return c >= u'0' && c <= u'9'; });
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
            // The character's code in the shop's Windows code page.
            const QByteArray ansi = cp1252::codificar(QStringView(&c, 1));
            out += QLatin1Char('%');
            out += QString::number(static_cast<uchar>(ansi.at(0)), 16)
                       .toUpper()
                       .rightJustified(2, QLatin1Char('0'));
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

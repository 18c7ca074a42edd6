#include "catalogue/pricelist/build/list_values.h"

#include "catalogue/pricelist/price_file_format.h"
#include "core/cp1252.h"

#include <QStringDecoder>

namespace vendrix {

namespace {

// The plain letter of an upper-case vowel with a mark; the same character
// for every other one. Ñ and Ü are left alone on purpose.
QChar vocal_simple(QChar c)
{
    switch (c.unicode()) {
    case u'Á':
    case u'À':
    case u'Ä':
    case u'Â':
    case u'Ã':
        return QLatin1Char('A');
    case u'É':
    case u'È':
    case u'Ë':
    case u'Ê':
        return QLatin1Char('E');
    case u'Í':
    case u'Ì':
    case u'Ï':
    case u'Î':
        return QLatin1Char('I');
    case u'Ó':
    case u'Ò':
    case u'Ö':
    case u'Ô':
    case u'Õ':
        return QLatin1Char('O');
    case u'Ú':
    case u'Ù':
    case u'Û':
        return QLatin1Char('U');
    default:
        return c;
    }
}

QString decodificar(const QByteArray &bytes, QStringConverter::Encoding encoding, bool &error)
{
    QStringDecoder decoder(encoding, QStringConverter::Flag::Stateless);
    QString text = decoder.decode(bytes);
    error = decoder.hasError();
    return text;
}

// How a price shows its marks, for `detectar_decimal`.
struct PriceMarks {
    bool decimal = false;
    bool miles = false;
};

void juzgar(const QString &precio, QChar mark, QChar other, PriceMarks &marcas)
{
    const int count = static_cast<int>(precio.count(mark));
    if (count == 0)
        return;
    const int other_at = static_cast<int>(precio.indexOf(other));
    if (count > 1) {
        marcas.miles = true;
    } else if (other_at >= 0) {
        (other_at < precio.indexOf(mark) ? marcas.decimal : marcas.miles) = true;
    } else {
        const qsizetype behind = precio.size() - precio.indexOf(mark) - 1;
        if (behind != 3)
            marcas.decimal = true;
    }
}

bool solo_digitos(QStringView text)
{
    for (QChar c : text) {
        if (!c.isDigit() || c.unicode() > 127)
            return false;
    }
    return true;
}

// Digits with thousands marks every three from the right, or digits alone.
std::optional<QString> entero_sin_miles(QStringView text, QChar miles)
{
    const auto groups = text.split(miles);
    QString digits;
    for (qsizetype i = 0; i < groups.size(); ++i) {
        const QStringView group = groups.at(i);
        const bool ok =
            i == 0 ? (!group.isEmpty() && (groups.size() == 1 || group.size() <= 3)) : group.size() == 3;
        if (!ok || !solo_digitos(group))
            return std::nullopt;
        digits += group;
    }
    return digits;
}

} // namespace

QString plegar_sin_acentos(const QString &text)
{
    QString folded = text.toUpper();
    for (QChar &c : folded)
        c = vocal_simple(c);
    return folded;
}

DecodedText decodificar_lista(const QByteArray &bytes)
{
    bool error = false;
    if (bytes.startsWith("\xEF\xBB\xBF"))
        return {decodificar(bytes.mid(3), QStringConverter::Utf8, error), QStringLiteral("UTF-8")};
    if (bytes.startsWith("\xFF\xFE"))
        return {decodificar(bytes.mid(2), QStringConverter::Utf16LE, error), QStringLiteral("UTF-16")};
    if (bytes.startsWith("\xFE\xFF"))
        return {decodificar(bytes.mid(2), QStringConverter::Utf16BE, error), QStringLiteral("UTF-16")};
    QString text = decodificar(bytes, QStringConverter::Utf8, error);
    if (!error)
        return {text, QStringLiteral("UTF-8")};
    return {cp1252::decodificar(bytes), QStringLiteral("Windows-1252")};
}

QChar detectar_decimal(const QStringList &precios, QChar separador)
{
    const QChar comma = QLatin1Char(','), point = QLatin1Char('.');
    PriceMarks commas, points;
    QChar first_decimal;
    for (const QString &precio : precios) {
        juzgar(precio, comma, point, commas);
        juzgar(precio, point, comma, points);
        if (first_decimal.isNull() && (commas.decimal || points.decimal))
            first_decimal = commas.decimal ? comma : point;
    }
    // When both marks act as decimal somewhere, the first one seen wins and
    // the prices written the other way fail to read, with their line.
    if (!first_decimal.isNull())
        return first_decimal;
    if (commas.miles != points.miles)
        return commas.miles ? point : comma;
    return separador == QLatin1Char(';') ? comma : point;
}

std::optional<QString> leer_precio(const QString &crudo, QChar decimal)
{
    QString text = crudo;
    text.remove(QLatin1Char('$')).remove(QLatin1Char(' ')).remove(QChar(0x00A0));
    if (text.isEmpty())
        return QStringLiteral("0");
    const QChar miles = decimal == QLatin1Char(',') ? QLatin1Char('.') : QLatin1Char(',');
    const qsizetype at = text.indexOf(decimal);
    if (at >= 0 && text.indexOf(decimal, at + 1) >= 0)
        return std::nullopt;
    const QStringView whole = at >= 0 ? QStringView(text).left(at) : QStringView(text);
    QStringView fraction = at >= 0 ? QStringView(text).mid(at + 1) : QStringView();
    if (!solo_digitos(fraction))
        return std::nullopt;
    std::optional<QString> digits =
        whole.isEmpty() && !fraction.isEmpty() ? QStringLiteral("0") : entero_sin_miles(whole, miles);
    if (!digits)
        return std::nullopt;
    while (digits->size() > 1 && digits->startsWith(QLatin1Char('0')))
        digits->remove(0, 1);
    while (fraction.endsWith(QLatin1Char('0')))
        fraction.chop(1);
    return fraction.isEmpty() ? *digits : *digits + QLatin1Char('.') + fraction.toString();
}

std::optional<QString> leer_moneda(const QString &crudo)
{
    const QString word = plegar_sin_acentos(crudo.trimmed()).remove(QLatin1Char(' '));
    static const QStringList kCodes{QStringLiteral("1"), QStringLiteral("2"), QStringLiteral("101"),
                                    QStringLiteral("102")};
    if (kCodes.contains(word))
        return word;
    static const QStringList kPesos{QString(), QStringLiteral("$"), QStringLiteral("PESOS"),
                                    QStringLiteral("PESO"), QStringLiteral("ARS")};
    static const QStringList kDolares{QStringLiteral("U$S"),   QStringLiteral("U$D"),
                                      QStringLiteral("US$"),   QStringLiteral("USD"),
                                      QStringLiteral("DOLAR"), QStringLiteral("DOLARES")};
    if (kPesos.contains(word))
        return QString::fromLatin1(kMonedaPesos);
    if (kDolares.contains(word))
        return QString::fromLatin1(kMonedaDolares);
    return std::nullopt;
}

} // namespace vendrix

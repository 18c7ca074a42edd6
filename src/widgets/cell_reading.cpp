#include "widgets/cell_reading.h"

#include <QStringList>

#include <array>
#include <charconv>

namespace vendrix::widgets {

double cell_number(QStringView text)
{
    // Long enough for any amount; digits past it don't change a double.
    constexpr qsizetype kMaxChars = 64;
    std::array<char, kMaxChars> chars{};
    qsizetype n = 0;
    qsizetype i = 0;
    while (i < text.size() && text[i].isSpace())
        ++i;
    if (i < text.size() && text[i] == u'-')
        chars[n++] = '-';
    if (i < text.size() && (text[i] == u'-' || text[i] == u'+'))
        ++i;
    bool separator_seen = false;
    bool digit_seen = false;
    for (; i < text.size() && n < kMaxChars; ++i) {
        const QChar c = text[i];
        if (c >= u'0' && c <= u'9') {
            chars[n++] = char(c.unicode());
            digit_seen = true;
        } else if ((c == u',' || c == u'.') && !separator_seen) {
            chars[n++] = '.';
            separator_seen = true;
        } else {
            break;
        }
    }
    double value = 0.0;
    if (digit_seen)
        std::from_chars(chars.data(), chars.data() + n, value);
    return value;
}

namespace {

// A QDate or QTime read in the first of the forms that fits; invalid if none.
template <typename T> T read_in_first_form(const QString &text, const QStringList &forms)
{
    for (const QString &form : forms) {
        const T value = T::fromString(text, form);
        if (value.isValid())
            return value;
    }
    return T();
}

} // namespace

std::optional<QDateTime> cell_date(QStringView text)
{
    static const QStringList kDateForms{QStringLiteral("dd/MM/yyyy"), QStringLiteral("d/M/yyyy"),
                                        QStringLiteral("yyyy-MM-dd")};
    static const QStringList kTimeForms{QStringLiteral("HH:mm:ss"), QStringLiteral("H:mm:ss"),
                                        QStringLiteral("HH:mm"), QStringLiteral("H:mm")};
    const QString trimmed = text.trimmed().toString();
    qsizetype cut = trimmed.indexOf(u' ');
    if (cut < 0 && trimmed.size() > 10 && trimmed.at(10) == u'T')
        cut = 10;
    const QString date_part = cut < 0 ? trimmed : trimmed.left(cut);
    const QString time_part = cut < 0 ? QString() : trimmed.mid(cut + 1).trimmed();
    const QDate date = read_in_first_form<QDate>(date_part, kDateForms);
    const QTime time = time_part.isEmpty() ? QTime(0, 0) : read_in_first_form<QTime>(time_part, kTimeForms);
    if (!date.isValid() || !time.isValid())
        return std::nullopt;
    return QDateTime(date, time, Qt::UTC);
}

int filter_key(const QString &filter, int key)
{
    constexpr int kBackspace = 8;
    constexpr int kAlwaysPasses = 46;
    if (key == kBackspace || key == kAlwaysPasses || filter.isEmpty())
        return key;
    const QString typed = QString(QChar(key));
    if (filter == QLatin1String("<"))
        return typed.toLower().at(0).unicode();
    if (filter == QLatin1String(">"))
        return typed.toUpper().at(0).unicode();
    return filter.contains(typed) ? key : 0;
}

namespace {

// The pattern of the display formats ("dd/mm/yyyy hh:nn") in Qt's terms:
// "m" is the month, except right after an hour, where it is the minutes.
QString qt_date_pattern(const QString &format)
{
    QString pattern;
    bool after_hour = false;
    for (qsizetype i = 0; i < format.size(); ++i) {
        const QChar c = format.at(i).toLower();
        if (c == u'h') {
            pattern += u'H';
            after_hour = true;
        } else if (c == u'n') {
            pattern += u'm';
        } else if (c == u'm') {
            pattern += after_hour ? u'm' : u'M';
        } else {
            pattern += c;
            after_hour = after_hour && c == u':';
        }
    }
    return pattern;
}

} // namespace

QString format_date_cell(const QString &text, const QString &format)
{
    const QString lower = format.toLower();
    if (!lower.contains(u'd') || !lower.contains(u'y'))
        return text;
    const std::optional<QDateTime> when = cell_date(text);
    return when ? when->toString(qt_date_pattern(format)) : text;
}

} // namespace vendrix::widgets

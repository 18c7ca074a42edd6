#include "widgets/csv_text.h"

namespace vendrix::widgets {

QString csv_field(const QString &text)
{
    const bool needs_quotes =
        text.contains(u',') || text.contains(u'"') || text.contains(u'\n') || text.contains(u'\r');
    if (!needs_quotes)
        return text;
    QString quoted = text;
    quoted.replace(u'"', QStringLiteral("\"\""));
    return u'"' + quoted + u'"';
}

QString csv_line(const QStringList &fields)
{
    QStringList quoted;
    quoted.reserve(fields.size());
    for (const QString &field : fields)
        quoted << csv_field(field);
    return quoted.join(u',');
}

} // namespace vendrix::widgets

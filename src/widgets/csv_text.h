#pragma once

#include <QString>
#include <QStringList>

namespace vendrix::widgets {

// One field of comma-separated text: quoted, with inner quotes doubled,
// when it holds a comma, a quote or a line break.
QString csv_field(const QString &text);

// The fields as one line, without its line end.
QString csv_line(const QStringList &fields);

} // namespace vendrix::widgets

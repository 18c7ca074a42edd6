#pragma once

#include <QDateTime>
#include <QString>
#include <QStringView>

#include <optional>

namespace vendrix::widgets {

// Reads a cell as a number the way amounts live in the grids: the leading
// number of the text, blanks before it skipped, with "," or "." as the
// decimal separator (cart amounts are written with the locale's comma);
// a text that doesn't start with a number, or an empty one, reads 0.
// Kept local to the widgets; the lead may point it at the core's numeric
// reading once that exists, the behaviour above being the one to keep.
double cell_number(QStringView text);

// The moment a date cell stands for: "dd/MM/yyyy" or ISO "yyyy-MM-dd", each
// with an optional time "HH:mm" or "HH:mm:ss" (after a blank, or a "T" in
// ISO). No value for a cell that isn't a valid date.
std::optional<QDateTime> cell_date(QStringView text);

// The in-cell editor's key filter: Backspace (8) and 46 always pass; "<"
// lowers the key, ">" raises it; any other non-empty filter is the list of
// characters allowed, and a key outside it becomes 0 (dropped).
int filter_key(const QString &filter, int key);

// The default display of a cell: a date cell in a column whose format is a
// date pattern such as "dd/mm/yyyy" is shown in that pattern; every other
// cell shows its text.
QString format_date_cell(const QString &text, const QString &format);

} // namespace vendrix::widgets

#pragma once

#include <QByteArray>
#include <QString>

namespace vendrix {

// The script that swaps a downloaded program for the running one: it waits
// until the old program has ended, deletes it (again and again while the
// file is still held), renames the download in its place and starts it.
// It is written at start-up when missing.
constexpr const char *kUpdateScript = "update.bat";

QByteArray texto_update_bat();
// Writes `update.bat` in the folder; false when it can't be written.
bool escribir_update_bat(const QString &folder);

} // namespace vendrix

#pragma once

#include <QDate>
#include <QString>

namespace vendrix {

class Context;

// The date of the last backup as the settings hold it (`ultimo_backup`):
// "23/11/2026", "23/11/26" or "2026-11-23". Null when it isn't a date.
QDate leer_fecha_backup(const QString &text);

// Reminds the operator of the backup when there is no record of one or the
// last one lies more than a week away from today.
void aviso_backup(Context &ctx);

// What closing the main window does before the program ends: the backup
// reminder, the question when `preguntar_al_salir` is 1, and the log line.
// False when the operator answers "No" and the program stays open.
bool confirmar_cierre(Context &ctx);

} // namespace vendrix

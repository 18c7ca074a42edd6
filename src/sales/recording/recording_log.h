#pragma once

#include "core/context.h"

namespace vendrix {

// A line of the recording in the log, which closes every line with its own
// full stop.
inline void log_registro(Context &ctx, const QString &message, const QString &level = QStringLiteral("I"))
{
    ctx.escribir_log(message.endsWith(QLatin1Char('.')) ? message.chopped(1) : message, level);
}

} // namespace vendrix

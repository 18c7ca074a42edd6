#pragma once

#include "core/settings.h"

#include <QStringList>

namespace vendrix {

// Several keys of `[PARAMETROS]` in one pass over the settings file, each as
// `Settings::leer_parametro` would read it (first match, "" when missing),
// in the order asked. For the operations that need a set of settings at once,
// so that one calculation opens the file once.
QStringList leer_parametros(const Settings &settings, const QStringList &keys);

} // namespace vendrix

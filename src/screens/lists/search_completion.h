#pragma once

namespace vendrix {
class Settings;
namespace widgets {
class AutoComplete;
}

// The search boxes' completion follows two settings, read at each key so a
// change on the configuration tab counts at once: `busqueda_autocompletar`
// ("1": the rest of the item is written in the box) and
// `busqueda_sugerencias` ("1": the drop-down list). True when either is on.
bool aplicar_ajustes_completado(widgets::AutoComplete &completion, const Settings &config);

} // namespace vendrix

#pragma once

namespace vendrix {

class Context;

// Keys of the main window that put the focus in the search box
// `TextBox_Buscar`: the keys that choose a cart (F1 to F5), and, when
// `busqueda_search` is "1", the key chosen in `busqueda_search_combo`
// ("Escape (ESC)", "Signo de Pregunta (?)", "Inicio (HOME)", "Fin (END)").
// `tecla` is a Qt key code; the settings are read at each call.
bool tecla_enfoca_busqueda(const Context &ctx, int tecla);

} // namespace vendrix

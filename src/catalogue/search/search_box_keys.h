#pragma once

namespace vendrix {

class Context;

// The key of the main window that puts the focus in the search box
// `TextBox_Buscar`: when `busqueda_search` is "1", the key chosen in
// `busqueda_search_combo` ("Escape (ESC)", "Signo de Pregunta (?)", "Inicio
// (HOME)", "Fin (END)"). The function keys belong to the carts, and F2 to F4
// do nothing with one cart. `tecla` is a Qt key code; the settings are read
// at each call.
bool tecla_enfoca_busqueda(const Context &ctx, int tecla);

} // namespace vendrix

#pragma once

#include <QString>

class QKeyEvent;
class QLineEdit;

namespace vendrix {

// Key filters of the input boxes, through the program's own rules: each
// typed key goes through `filtro_tecla_formula` (kind "ganancia",
// "descuento", "enteros", "reales") or `filtro_tecla_numero` (kind "real",
// "integer"); a refused key is dropped with a beep. The formula boxes also
// filter the control keys (Enter, Escape...): one they don't admit beeps, and
// then goes on as a key, so the box's and the window's own handling of Enter
// still runs. Moving keys, Tab and shortcuts pass untouched.
void instalar_filtro_formula(QLineEdit *box, const QString &kind);
void instalar_filtro_numero(QLineEdit *box, const QString &kind);

// The code a key press becomes under a box's filter: 0 when refused, the
// decimal mark for the keypad's point, else the typed code; -1 for a key the
// filter doesn't look at.
int codigo_filtrado(const QString &box_text, const QKeyEvent &key, const QString &kind, bool formula);

} // namespace vendrix

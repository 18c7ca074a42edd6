#pragma once

#include <QString>

class QLineEdit;

namespace vendrix {

// Key filters of the input boxes, through the program's own rules: each
// printable key goes through `filtro_tecla_formula` (kind "ganancia",
// "descuento", "enteros", "reales") or `filtro_tecla_numero` (kind "real",
// "integer"); a refused key is dropped with a beep. Editing and moving keys
// pass untouched.
void instalar_filtro_formula(QLineEdit *box, const QString &kind);
void instalar_filtro_numero(QLineEdit *box, const QString &kind);

} // namespace vendrix

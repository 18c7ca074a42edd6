#pragma once

#include <QString>
#include <QStringView>

namespace vendrix {

class Operator;

// The title of the messages of the identity checks, which show under the
// program's name.
inline constexpr char16_t kTituloValidacion[] = u"Vendrix";

// Checks a CUIT typed as "NN-NNNNNNNN-N". The digits are read at their fixed
// places of the typed text (2 first, 8 from the fourth character, the last
// one), so eleven digits typed without dashes pass the length test and then
// fail the check digit. A wrong CUIT shows its message and gives false.
bool validar_CUIT(Operator &op, const QString &text);

// A DNI is a number of 7 or 8 characters; otherwise its message and false.
bool validar_DNI(Operator &op, const QString &text);

// Key codes of the input boxes (the codes of the key-press events).
namespace tecla {
constexpr int kBorrar = 8;
constexpr int kTab = 9;
constexpr int kLimpiar = 12;
constexpr int kEnter = 13;
constexpr int kMas = 43;
constexpr int kMenos = 45;
constexpr int kIzquierda = 37;
constexpr int kAbajo = 40;
constexpr int kMasTeclado = 107;   // the keypad's plus key ("k" when typed)
constexpr int kMenosTeclado = 109; // the keypad's minus key ("m" when typed)
} // namespace tecla

// Key filter of the formula boxes. `kind` is "ganancia", "descuento",
// "enteros" or "reales". A key that the kind doesn't admit becomes 0; the
// result is true when the key was refused, so the screen beeps.
bool filtro_tecla_formula(QStringView box_text, int &key, QStringView kind);

// Key filter of the number boxes: digits, backspace, tab, clear and the
// arrows pass; the decimal mark passes only for kind "real" when the box text
// has none yet (`tiene_un_separador`). Refused keys become 0; true means
// refused.
bool filtro_tecla_numero(QStringView box_text, int &key, QStringView kind);

} // namespace vendrix

#pragma once

#include <QString>

#include <vector>

namespace vendrix {

class Context;

// A group rule of a supplier of the price list whose group has no article
// any more: the supplier renamed or dropped the group, and the rule no
// longer applies to anything.
struct UnusedRule {
    QString proveedor;
    QString grupo;

    bool operator==(const UnusedRule &) const = default;
};

// The group and article rules (not the list rows) of the suppliers in the
// price list whose group holds no article, by supplier and group.
std::vector<UnusedRule> buscar_reglas_sin_uso(Context &ctx);

// The text of the notice: one line per group, cut after `kMaximoListado`.
inline constexpr int kMaximoListado = 15;
QString informe_reglas_sin_uso(const std::vector<UnusedRule> &reglas);

// At start, with `advertencia_descuentos_no_utilizados` set to "1": tells
// the operator which rules no list uses, if any.
void advertir_reglas_sin_uso(Context &ctx);

} // namespace vendrix

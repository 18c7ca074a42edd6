#pragma once

#include <QString>

#include <optional>

namespace vendrix {

// Where an indicator keyword shows on the main window's status bar: the
// panel (1 to 5) and the picture of the status bar's image list.
struct Indicador {
    int panel;
    int imagen;

    bool operator==(const Indicador &) const = default;
};

// The panels of the status bar.
inline constexpr int kPanelInternet = 2;
inline constexpr int kPanelImpresora = 3;
inline constexpr int kPanelError = 4;
inline constexpr int kPanelOcupado = 5;

// `internet_on`, `impresora_ocupada`, `bug_on`, `ocupado_off`, ...; any other
// word has no indicator.
std::optional<Indicador> indicador_de(const QString &keyword);

} // namespace vendrix

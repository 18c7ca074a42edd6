#pragma once

#include <QString>
#include <QStringList>

namespace vendrix {

class Context;

// The logic behind the price settings of the configuration tab: the boxes of
// IVA, dollar value and card surcharge, and the three rounding combos. The
// widgets call these and show what they return.

// A change of `Text_IVA`, `Text_dolar` or `Tex_tarjeta`: writes `clave`
// (`iva`, `Valor_Dolar`, `recargo_tarjeta`) at once. An empty box is first
// set to "0"; the result is the text the box shows.
QString cambiar_caja_ajuste(const Context &ctx, const QString &clave, const QString &texto);

// The caption of `Label39` for a card surcharge: "Pago con tarjeta (+10%)",
// or "Pago con tarjeta" for "0".
QString leyenda_tarjeta(const QString &recargo);

// Leaving `Tex_tarjeta`: the payment method "Tarjeta de Crédito" takes the
// same surcharge, so the checkout and the settings agree. False when the
// database refused the change (the layer has shown and logged it).
bool salir_recargo_tarjeta(Context &ctx, const QString &recargo);

// The combos' items, in order.
QStringList items_digitos_significativos(); // "Todos" ... "Centenas"
QStringList items_modo_redondeo();          // "Abajo", "Standard", "Arriba"
QStringList items_tipo_redondeo();          // "De 10 en 10", "De 5 en 5"

// What the three combos show and whether the mode and the step can be chosen.
// The mode matters only with decimals, the step only at 0 decimals and above.
struct RoundingState {
    QString digitos; // item of `Combo_digitos_significativos`
    QString modo;    // item of `Combo_modo_redondeo`
    QString tipo;    // item of `Combo_tipo_redondeo`
    bool modo_habilitado = true;
    bool tipo_habilitado = false;
    // The icons beside the combos show that rounding is on when the choice
    // differs from the default ("Todos", "Standard").
    bool icono_digitos = false;
    bool icono_modo = false;

    bool operator==(const RoundingState &) const = default;
};

// The combos at the set-up of the tab; a missing `redondeo` is written as
// "1" and a missing `redondeo_tipo` as "De 10 en 10".
RoundingState cargar_combos_redondeo(const Context &ctx);

// A choice in `Combo_digitos_significativos`: writes `decimales`; the step
// goes back to "De 10 en 10"; choosing no decimals, tens or hundreds also
// sets the mode to "Standard".
RoundingState elegir_digitos(const Context &ctx, const QString &item);
// A choice in `Combo_modo_redondeo`: writes `redondeo` ("0", "1", "2").
RoundingState elegir_modo(const Context &ctx, const QString &item);
// A choice in `Combo_tipo_redondeo`: writes `redondeo_tipo`.
RoundingState elegir_tipo(const Context &ctx, const QString &item);

} // namespace vendrix

#pragma once

#include <QString>

namespace vendrix {

class Context;
class RuleStore;
class RuleTable;

// The margin and discount that the price panel shows for an article, as the
// operator may have typed them over the rules.
struct PanelRule {
    QString proveedor;
    QString grupo;
    QString codigo;
    QString descripcion;
    QString ganancia;         // `TextBox_Ganancia` now
    QString descuento;        // `TextBox_Descuento` now
    QString ganancia_cargada; // what the panel loaded from the rules
    QString descuento_cargada;
};

// What storing the panel's formulas may do to the rules.
enum class RuleAction {
    NoHacerNada,             // nothing typed over the rules (or a formula that isn't valid)
    ModificarSoloGrupo,      // an article without a code: only its group can take the rule
    ModificarSoloArticulo,   // the group has a rule of its own: this article becomes an exception
    ModificarArticuloYGrupo, // the article, and on a second yes its whole group
};

// Chooses the action: formulas that differ both from what was loaded and
// from what the rules give now count as typed; then whether the article has a
// code, then whether its group holds a rule of its own.
RuleAction accion_regla(const PanelRule &panel, const RuleTable &reglas);

// `guardar_regla_desde_detalle`: before another article is loaded, offers to
// store what the operator typed in the panel as the rule of the article, of
// its group, or both, with the number of articles a group rule reaches.
// Stores inserts or updates in one transaction, logs them, refills the rules
// and turns the busy state off. True when a rule was stored.
bool guardar_regla_desde_detalle(Context &ctx, RuleStore &reglas, const PanelRule &panel);

} // namespace vendrix

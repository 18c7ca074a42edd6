#pragma once

#include "catalogue/pricing/article_record.h"
#include "catalogue/pricing/price_settings.h"
#include "core/mensaje.h"

#include <QString>
#include <QStringList>

#include <array>
#include <optional>
#include <vector>

namespace vendrix {

class Context;
class RuleTable;
struct ArticleRules;

// The controls of the price panel, in the order the panel lists them.
enum class PanelField {
    Label50,        // "(IVA 21%)"
    articulo_label, // "Precio de Venta con IVA (21%)"
    TextBox_PLista,
    TextBox_PLista_original,
    TextBox_PLista_grilla,
    TextBox_PLista_grilla_unidad,
    Label_PListacustomBig, // unit notes
    Label_PListacustom,
    TextBox_Ganancia, // the three formulas
    TextBox_Descuento,
    Textbox_desusr,
    TextBox_Costo,
    TextBox_PTotal,
    TextBox_PTotal_civa,
    lPrecioSolo,
    lPrecioSolotarjeta,
};
inline constexpr int kCamposPanel = static_cast<int>(PanelField::lPrecioSolotarjeta) + 1;

// A control as the screen shows it: the rounded figure in `text`, the full
// one in `tag` where the panel keeps one.
struct PanelControl {
    QString text;
    QString tag;
};

// Everything the price panel shows for one article, worked out without any
// screen: a screen copies the controls and shows the messages.
struct PricePanel {
    std::array<PanelControl, kCamposPanel> controles;
    double iva = 0.0; // the rate of the loaded article, used by every recalculation
    // The messages of the last calculation, in the order the operator sees them.
    std::vector<Mensaje> mensajes;
    // When the last calculation failed: its lines for the log, level "E".
    // The controls then stand as they were when it stopped.
    QStringList errores;

    PanelControl &operator[](PanelField c) { return controles[static_cast<size_t>(c)]; }
    const PanelControl &operator[](PanelField c) const { return controles[static_cast<size_t>(c)]; }

    static QString nombre(PanelField c);
};

// Loads an article into a fresh panel in one pass: its IVA rate and labels,
// the list price (dollars turned into pesos), the price per unit when the
// list price covers several units, the margin and discount formulas that
// the rules gave for it, a customer discount of "0"; then the calculation
// below. Reads nothing: the caller has gathered the article, its units, its
// formulas and the settings.
PricePanel cargar_panel(const PricedArticle &articulo, std::optional<double> unidades,
                        const ArticleRules &formulas, const PriceSettings &ajustes);
// The same with the formulas looked up in `reglas`.
PricePanel cargar_panel(const PricedArticle &articulo, std::optional<double> unidades,
                        const RuleTable &reglas, const PriceSettings &ajustes);

// Works the panel out again from its boxes (list price, per-unit price, the
// three formulas) and the article's rate: tests the formulas, then cost, net,
// price with IVA, card price and the whole-pack figure, with the messages of
// wrong formulas, out-of-range percentages and a price below cost. Without
// `avisar_invalidas` a wrong formula is worked out as 0 without its message
// (a formula still being typed).
void calcular_precio_detalle(PricePanel &panel, const PriceSettings &ajustes, bool avisar_invalidas = true);

// The same through the context, for a formula or price typed in the panel:
// busy while it runs, settings read now, messages shown through the
// operator, a failure logged.
void calcular_precio_detalle(Context &ctx, PricePanel &panel);

// Shows the panel's messages and logs its failure lines, in that order.
void publicar_panel(Context &ctx, const PricePanel &panel);

} // namespace vendrix

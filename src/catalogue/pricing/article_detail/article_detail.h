#pragma once

#include "catalogue/pricing/article_record.h"
#include "catalogue/pricing/price_panel.h"
#include "catalogue/pricing/supplier_rules/panel_rules.h"

#include <QString>

#include <array>
#include <optional>

namespace vendrix {

class Context;
class RuleStore;

// The article panel of the lists tab as data: what `cargar_detalle_articulo`
// works out for the selected article, for a screen to show as it stands.

// The colour of the price figures, by the currency code, so that a price
// that came from dollars stands out.
enum class CurrencyColour { Pesos, Dolares, PesosIvaReducido, DolaresIvaReducido, Otra };
CurrencyColour color_moneda(QStringView codigo);

// The boxes `TextBox_articulo`, by index.
enum class ArticleField {
    Grupo,
    Descripcion,
    Codigo,
    Moneda, // the currency's name ("Dolares (U$D)"), or the code when it has none
    Marca,
    Unidad,
    Observaciones,
    Fecha, // the list's date, day/month/year
    Supplier,
    Comentario, // the shop's own note, read-only here
};
inline constexpr int kCamposArticulo = static_cast<int>(ArticleField::Comentario) + 1;

// The images `Picture_testigo`, by index.
enum class ArticleMark { Favorito, Control, Pendiente, Pedido };
inline constexpr int kMarcasArticulo = static_cast<int>(ArticleMark::Pedido) + 1;

// What the shop database says about the article, read in one query. Marks
// kept by code are 0 for an article without a code.
struct ArticleMarks {
    int favorito = 0;
    int centinela = 0;
    int testigo = 0;
    int pendientes = 0;            // orders "Pedido Pendiente": same supplier, code and description
    int pendientes_sin_codigo = 0; // the same by supplier and description only
    int pedidos = 0;               // orders "Pedido", likewise
    int pedidos_sin_codigo = 0;
    std::optional<double> unidades; // how many units the list price covers
    QString comentario;
};

struct DetailButton {
    QString caption;
    bool habilitado = false;
};

struct ArticleDetail {
    qint64 id = 0; // 0 when the panel is empty
    PricedArticle articulo;
    std::array<QString, kCamposArticulo> campos;
    int codigo_repetido = 0; // rows of the supplier's list with this code
    CurrencyColour color = CurrencyColour::Pesos;
    ArticleMarks marcas;

    DetailButton favoritos;              // `Command_testigo(0)`
    DetailButton control;                // `Command_testigo(1)`
    bool unidades_habilitado = false;    // `Command_unudaddemedida`
    bool comentarios_habilitado = false; // `Command_user_comments`
    bool pedido_habilitado = false;      // `Command_Faltante`
    std::array<bool, kMarcasArticulo> imagenes{};
    bool imagen_comentario = false;
    bool plista_editable = false; // `TextBox_PLista` takes a price only when the list has none

    QString ganancia_cargada; // the formulas the rules gave at the load
    QString descuento_cargada;
    PriceSettings ajustes; // the settings the load worked the panel out with
    PricePanel panel;

    QString &campo(ArticleField c) { return campos[static_cast<size_t>(c)]; }
    const QString &campo(ArticleField c) const { return campos[static_cast<size_t>(c)]; }
    bool imagen(ArticleMark m) const { return imagenes[static_cast<size_t>(m)]; }
};

// `limpiar_detalle`: the empty panel, every button off.
ArticleDetail limpiar_detalle();

// Captions, enabled states and images from the marks, the code and whether
// the code is repeated: an article without a code has no favourites, price
// control, units or comment; a repeated code can't be added to the
// favourites or to price control (a mark it already has can be removed).
void aplicar_marcas(ArticleDetail &detalle);

// The article leaving the panel, as `guardar_regla_desde_detalle` sees it.
PanelRule regla_en_panel(const ArticleDetail &detalle);

// `cargar_detalle_articulo`: first offers to store the formulas typed for
// the article leaving the panel (`saliente`); then gathers, each once, the
// article `id` (one query), its marks and units (one query), its formulas
// from the rules and the price settings (one read of the file); works the
// whole price panel out from them in one pass and shows its messages; and,
// for an article the list has at price 0, offers its former price. nullopt
// when the article can't be read or doesn't exist: the panel stays as it
// was.
std::optional<ArticleDetail> cargar_detalle_articulo(Context &ctx, RuleStore &reglas,
                                                     const ArticleDetail &saliente, qint64 id);

// A price typed in `TextBox_PLista` (only allowed at price 0): the four
// list-price boxes take it and the panel is worked out again.
void escribir_precio_lista(Context &ctx, ArticleDetail &detalle, const QString &precio);

// The text of a list date for the screen: "2026-11-02" shows "02/11/2026";
// any other text as it stands.
QString fecha_lista_visible(const QString &fecha);

} // namespace vendrix

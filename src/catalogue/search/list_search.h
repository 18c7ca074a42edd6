#pragma once

// The search of the price list tab: the text of `TextBox_Buscar` becomes a
// search with the options of the settings file, read at each search, and its
// result fills `DataGridViewListas`.

#include "catalogue/search/catalogue_query.h"
#include "catalogue/search/grid_rows.h"

#include <QString>
#include <QStringList>

#include <functional>
#include <optional>

namespace vendrix {

class Context;

// The captions of `Btn_BuscarListas`: with "Buscar Todos" the next press of
// the same search lifts the result cap.
inline constexpr const char *kBotonBuscar = "Buscar";
inline constexpr const char *kBotonBuscarTodos = "Buscar Todos";
// The first cells of the "more results" row. Every handler of the grid
// takes a row that starts so for no article.
inline constexpr const char *kMarcaVendrix = "...VENDRIX...";

// The headings of `DataGridViewListas`, in order; "ID" is hidden.
QStringList columnas_listas();
// The row of an article: ID, supplier, group, description, currency text,
// brand and the price as `Round(value, 2)` gave it (half to even, the
// screen's decimal comma).
ListGridRow fila_articulo(const FoundArticle &articulo);
// The "more results" row: "...VENDRIX..." in ID and supplier, "..." in the
// other cells but the description, which invites to see more.
ListGridRow fila_marcador();
bool es_fila_marcador(const QStringList &celdas);

// What the search does on the tab around the grid; every part may be left
// empty.
struct ListActions {
    // Empties the article panel before the search.
    std::function<void()> limpiar_detalle;
    // The grid holds at least one article: select the first row and load it
    // into the article panel.
    std::function<void()> mostrar_primera;
    // `Check_carritos` is ticked.
    std::function<bool()> carritos_marcados;
    // Adds the article of the grid's only row to the first cart with the
    // panel's figures and shows that cart; true when it was added.
    std::function<bool(const ListGridRow &fila)> agregar_al_carrito;
};

enum class SearchResult {
    rechazada, // the text was refused; the operator was told why
    hecha,
    fallida, // the grid could not be loaded; the operator was told
};

// The whole search of `Btn_BuscarListas` and the Enter key of
// `TextBox_Buscar`. `boton` is the button's caption, read and changed. A
// screen that searches often gives its `buscador`, which keeps what one
// search prepared for the next.
SearchResult buscar_articulos(Context &ctx, const QString &texto, QString &boton, GridSink &grilla,
                              const ListActions &acciones = {}, CatalogueSearcher *buscador = nullptr);

// The options of the settings file that shape a search.
struct SearchOptions {
    bool ignorar_preposiciones = false; // busqueda_ignorarPreposiciones
    bool terminos_similares = false;    // busqueda_terminos_similares
    bool ortografia = false;            // busqueda_ortografia
    bool en_comentarios = false;        // busqueda_buscar_en_comentarios
    bool solo_favoritos = false;        // mostrar_solo_favoritos
    bool al_escribir = true;            // busqueda_al_escribir: on unless "0"
};
SearchOptions leer_opciones_busqueda(const Context &ctx);

// Why a text can't be searched ("" when it can): empty, or shorter than the
// minimum of `busqueda_limite_caracteres_combo` when the limit is on.
QString rechazo_busqueda(const Context &ctx, const QString &texto);

// The search of a text with the options of the settings file and the cap
// that `boton` gives (see `limite_busqueda`, which changes `boton`).
// `trabajo`, when given, gets the working text.
SearchQuery consulta_listas(const Context &ctx, const QString &texto, QString &boton,
                            QString *trabajo = nullptr);
// The search of a text as the operator types it: the cap of a first press
// of "Buscar"; nothing when `busqueda_al_escribir` is off or the text would
// be refused (the operator is told only on Enter).
std::optional<SearchQuery> consulta_al_escribir(const Context &ctx, const QString &texto);

// The text after the escape and the option steps (prepositions, similar
// terms), as the condition, the comment branch and the log use it.
QString texto_de_trabajo(const SearchOptions &opciones, const QString &texto);
// The search of a working text.
SearchQuery consulta_de_texto(const SearchOptions &opciones, const QString &texto_trabajo, int limite);
// The rows asked and the caption that follows: the cap of
// `busqueda_cantidad_resultados_combo` + 1 on a press of "Buscar" when
// `busqueda_cantidad_resultados` is 1, else `kLimiteTodos` and "Buscar".
int limite_busqueda(const Context &ctx, QString &boton);

// Puts a result into the grid: cleared, its rows, the marker row when more
// articles match, painted at once. True when the marker row went in.
bool pintar_resultado(const QueryResult &resultado, GridSink &grilla);

// Runs the search and fills the grid: the rows, the marker row when more
// articles match (else the caption goes back to "Buscar"), then the first
// article and the automatic add to the cart. On failure the operator sees
// "ER GRA01: ..." and false is returned.
bool cargar_grilla_listas(Context &ctx, const SearchQuery &consulta, QString &boton, GridSink &grilla,
                          const ListActions &acciones = {}, CatalogueSearcher *buscador = nullptr);

} // namespace vendrix

#pragma once

#include "sales/articulo_carrito.h"

#include <QWidget>

#include <array>
#include <optional>

class QPushButton;

namespace vendrix {
class Context;
class PanelArticulo;
class RuleStore;
namespace widgets {
class LynxGrid;
}
} // namespace vendrix

namespace vendrix::screens {

class TabChangos;

// The price list page of the cart strip: the search with its grid
// `DataGridViewListas` on the left, the article panel on the right, and
// under the panel the buttons that add the selected article to a cart
// (`Command_add_carrito1` to `4`, or `Command_add_carritoUnico` with one
// cart). Selecting a row loads it into the panel; a double click, the right
// button and the panel's units button reach the carts and the units dialog.
class PaginaListas : public QWidget {
    Q_OBJECT

public:
    // `busqueda` holds the search box and `grilla`, which lies inside it.
    PaginaListas(Context &ctx, RuleStore &reglas, QWidget *busqueda, widgets::LynxGrid *grilla,
                 QWidget *parent = nullptr);

    // Hooks the page to the cart strip that shows it as its tab 0.
    void conectar_carritos(TabChangos *tabs);

    PanelArticulo *panel() const { return panel_; }
    widgets::LynxGrid *grilla() const { return grilla_; }
    QWidget *busqueda() const { return busqueda_; }

    // The article of list row `row` as the carts take it, with the panel's
    // figures: the row is loaded into the panel first if it isn't there.
    // nullopt for no row, the marker row or an article that can't be read.
    std::optional<ArticuloParaCarrito> articulo_de_fila(int row);
    // `Command_add_carritoN`: with a list row selected, the add-article
    // dialog for cart N.
    void agregar_a_carrito(int numero);
    // The search's only result (or a scanned code) to the first cart.
    bool agregar_automaticamente();

Q_SIGNALS:
    // The units dialog closed: the search runs again, so the list shows the
    // units as they stand now.
    void busquedaPedida();

private:
    void fila_cambiada();
    void doble_clic();
    void menu_de_fila(const QPoint &pos);
    void abrir_unidades();
    void recargar_panel();
    void mostrar_botones(bool cuatro);
    void nombrar_boton(int numero, const QString &nombre);

    Context &ctx_;
    QWidget *busqueda_;
    widgets::LynxGrid *grilla_;
    PanelArticulo *panel_;
    TabChangos *tabs_ = nullptr;
    std::array<QPushButton *, 4> agregar_{};
    QPushButton *agregar_unico_ = nullptr;
};

} // namespace vendrix::screens

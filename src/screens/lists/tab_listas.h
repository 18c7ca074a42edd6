#pragma once

// The search part of the price list tab: `TextBox_Buscar`, `Btn_BuscarListas`
// and the grid `DataGridViewListas`. The main window puts it on its lists tab;
// the article panel and the carts hook into it through `setAcciones` and
// `articuloSeleccionado`.

#include "catalogue/search/list_search.h"

#include <QWidget>

#include <memory>

class QLineEdit;
class QPushButton;

namespace vendrix {
class Context;
namespace widgets {
class AutoComplete;
class AutoCompleteBox;
class LynxGrid;
} // namespace widgets
} // namespace vendrix

namespace vendrix::screens {

class LiveSearch;

class TabListas : public QWidget {
    Q_OBJECT

public:
    explicit TabListas(Context &ctx, QWidget *parent = nullptr);
    ~TabListas() override;

    QLineEdit *textoBuscar() const { return texto_; }
    QPushButton *botonBuscar() const { return boton_; }
    widgets::LynxGrid *grilla() const { return grilla_; }

    // What the search does around the grid. `mostrar_primera` is the tab's
    // own unless given: it selects the first row, which loads the article.
    void setAcciones(ListActions acciones);

    // The completion of the search box: the suppliers, groups and brands of
    // the price list, read at the next typed key (the list changed).
    widgets::AutoCompleteBox *autocompletado() const { return autocompletado_; }
    void recargar_sugerencias() { sugerencias_cargadas_ = false; }

public Q_SLOTS:
    // `buscar_articulos` with the text of the box. A search of the typed
    // text still running is abandoned.
    void buscar();

Q_SIGNALS:
    // A row of an article became the selected one (never the marker row).
    void articuloSeleccionado(qint64 id);
    // The rows of the search of the typed text `texto` are in the grid.
    void vistaPreviaPintada(const QString &texto);

private:
    // The search as the operator types: the capped search of the text on
    // the worker, without messages, log, panel or carts.
    void texto_editado(const QString &texto);
    void vista_previa_lista(quint64 numero, const QueryResult &resultado);
    void fila_cambiada();
    void mostrar_primera();
    void preparar_sugerencias(widgets::AutoComplete &completion);

    Context &ctx_;
    QLineEdit *texto_;
    QPushButton *boton_;
    widgets::LynxGrid *grilla_;
    std::unique_ptr<GridSink> sink_;
    ListActions acciones_;
    widgets::AutoCompleteBox *autocompletado_;
    bool sugerencias_cargadas_ = false;
    // The searches of Enter and the button, on the program's connection.
    CatalogueSearcher buscador_;
    // Made at the first search of a typed text.
    LiveSearch *vivo_ = nullptr;
    // Raised at each edit and each search: only the result of the newest
    // request is painted.
    quint64 generacion_ = 0;
    QString texto_pedido_;
};

} // namespace vendrix::screens

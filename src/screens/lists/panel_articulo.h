#pragma once

#include "catalogue/pricing/article_detail/article_detail.h"

#include <QWidget>

#include <array>
#include <functional>
#include <optional>

class QFrame;
class QLabel;
class QLineEdit;
class QPushButton;

namespace vendrix {
class Context;
class RuleStore;
} // namespace vendrix

namespace vendrix {

// The article panel of the lists tab, beside `DataGridViewListas`: the
// article's data and marks, the buttons for favourites, price control,
// comment, units and orders, and its price in one of two views: the sale
// price alone in large type (`framepreciosolo`) or the whole calculation
// (`framepreciodetalle`), toggled by `preciodetalle`.
//
// Every figure comes from `cargar_detalle_articulo`; typing in a formula box
// works the panel out again at each change that leaves a complete formula,
// through the formula key filters. A formula still being typed ("10+") keeps
// the last figures, and its message waits until the operator leaves the box
// or presses Enter with it.
class PanelArticulo : public QWidget {
    Q_OBJECT

public:
    PanelArticulo(Context &ctx, RuleStore &reglas, QWidget *parent = nullptr);

    // The row-selection event of `DataGridViewListas`, with the row's cells
    // "ID" and "Proveedor": the marker row of more results loads nothing.
    void cargar_fila(const QString &id, const QString &proveedor);
    // Loads an article, after offering to store the formulas typed for the
    // one leaving the panel.
    void cargar_detalle_articulo(qint64 id);
    // Empties the panel; formulas typed for the article shown are offered
    // for storing first, so a new search loses nothing.
    void limpiar_detalle();
    // The same offer without loading anything (on leaving the program).
    void guardar_regla_pendiente();

    const ArticleDetail &detalle() const { return detalle_; }

    // `aplicar_detalle_precios`: the whole calculation or the price alone.
    void aplicar_detalle_precios(bool detalle);
    bool muestra_detalle() const;
    // Asked when `preciodetalle` would show the calculation while the
    // administrator's lock is on; true lets it show. Without it the lock
    // keeps the price alone.
    void set_desbloqueo_precio(std::function<bool()> desbloquear) { desbloquear_ = std::move(desbloquear); }
    // The comment editor: gets the present comment, gives the new text or
    // nothing when cancelled. A dialog unless replaced.
    using EditorComentario = std::function<std::optional<QString>(const QString &actual)>;
    void set_editor_comentario(EditorComentario editor) { editor_comentario_ = std::move(editor); }

    // The caption of the card price, "Pago con tarjeta (+10%)".
    void set_leyenda_tarjeta(const QString &leyenda);

Q_SIGNALS:
    void articuloCargado(qint64 id);
    // Buttons whose work belongs to other screens.
    void unidadesPedidas();   // `Command_unudaddemedida`
    void controlPedido();     // `Command_testigo(1)`
    void pedidoAlProveedor(); // `Command_Faltante`

protected:
    void showEvent(QShowEvent *event) override;
    // Enter and leaving in the formula boxes.
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void construir();
    QWidget *construir_datos();
    QWidget *construir_botones();
    QWidget *construir_precios();
    void mostrar();
    void mostrar_figuras(const QLineEdit *escribiendo = nullptr);
    void formula_editada(PanelField campo, QLineEdit *box);
    // Enter or leaving a formula box: an incomplete formula typed there is
    // told now, and the panel worked out with it.
    void formula_terminada(QLineEdit *box);
    // `calcular_precio_detalle` on the panel; without `avisar_incompletas`
    // the messages of wrong formulas are held back.
    void recalcular(bool avisar_incompletas);
    void precio_lista_editado();
    void preciodetalle_click();
    void favoritos_click();
    void comentario_click();

    Context &ctx_;
    RuleStore &reglas_;
    ArticleDetail detalle_;
    quint64 version_reglas_ = 0; // of the rules the shown figures come from
    std::function<bool()> desbloquear_;
    QList<QLineEdit *> incompletas_; // formula boxes left incomplete by the typing, not told yet
    bool calculando_ = false;        // the busy state takes the focus away meanwhile
    EditorComentario editor_comentario_;

    QLineEdit *id_ = nullptr;
    std::array<QLineEdit *, kCamposArticulo> campos_{};
    std::array<QLabel *, kMarcasArticulo> marcas_{};
    QLabel *marca_comentario_ = nullptr;
    QPushButton *favoritos_ = nullptr;
    QPushButton *control_ = nullptr;
    QPushButton *comentarios_ = nullptr;
    QPushButton *unidades_ = nullptr;
    QPushButton *faltante_ = nullptr;
    QPushButton *preciodetalle_ = nullptr;
    QFrame *solo_ = nullptr;
    QFrame *calculo_ = nullptr;
    QLineEdit *plista_ = nullptr;
    QLineEdit *descuento_ = nullptr;
    QLineEdit *ganancia_ = nullptr;
    QLineEdit *desusr_ = nullptr;
    QLineEdit *costo_ = nullptr;
    QLineEdit *ptotal_ = nullptr;
    QLineEdit *ptotal_civa_ = nullptr;
    QLabel *label50_ = nullptr;
    QLabel *articulo_label_ = nullptr;
    QLabel *precio_solo_ = nullptr;
    QLabel *precio_tarjeta_ = nullptr;
    QLabel *label39_ = nullptr;
    QLabel *unidad_big_ = nullptr;
    QLabel *unidad_ = nullptr;
};

// The colour of price figures by currency: pesos in the text colour,
// dollars in green, the reduced rate in blue (pesos) or teal (dollars).
QColor color_de_moneda(CurrencyColour moneda, const QColor &texto);

} // namespace vendrix

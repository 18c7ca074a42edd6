#pragma once

#include <QWidget>

class QComboBox;
class QLineEdit;
class QPushButton;

namespace vendrix {
class Context;
class RuleStore;
namespace widgets {
class LynxGrid;
}
} // namespace vendrix

namespace vendrix {

// The rules part of the configuration tab: the grid `DataGridViewProveedores`
// of margins and discounts by supplier, group and article (formulas edited in
// place), and under it the controls that add a rule (`Combo_proveedor`,
// `Combo_grupo`, `Combo_articulo`, `agregar_Descuento`, `agregar_ganancia`,
// `Command_agregar_provedor`) and delete one (`Command_borrar_provedor`).
// The grid is a view of the shop's rules: it is redrawn whenever they change,
// wherever the change came from.
class ConfigReglas : public QWidget {
    Q_OBJECT

public:
    ConfigReglas(Context &ctx, RuleStore &reglas, QWidget *parent = nullptr);

    // The set-up of the tab: the suppliers' combo and the rules, filled from
    // the databases. Runs before any article is loaded.
    void inicializar();
    // Under the administrator's lock the rules can't be changed.
    void set_bloqueada(bool bloqueada);

    widgets::LynxGrid *grilla() const { return grilla_; }

private:
    void mostrar_reglas();
    void proveedor_elegido();
    void grupo_elegido();
    void agregar();
    void borrar();
    void celda_editada(int row, int col, QString &valor, bool &cancel);

    Context &ctx_;
    RuleStore &reglas_;
    widgets::LynxGrid *grilla_;
    QComboBox *proveedor_;
    QComboBox *grupo_;
    QComboBox *articulo_;
    QLineEdit *descuento_;
    QLineEdit *ganancia_;
    QPushButton *agregar_;
    QPushButton *borrar_;
    bool editando_ = false; // a cell's own edit is changing the rules
};

} // namespace vendrix

#pragma once

// The customers and suppliers tab of the main window: the search over
// `vendrix_clientes` into `LynxGrid_clipro`, the selected record's detail,
// its change and deletion, and the add form.

#include "backoffice/customers/customer_book.h"
#include "screens/customers/customer_detail_boxes.h"

#include <QWidget>

class QComboBox;
class QLineEdit;
class QPushButton;

namespace vendrix {
class Context;
namespace widgets {
class AutoComplete;
class LynxGrid;
} // namespace widgets
} // namespace vendrix

namespace vendrix::screens {

class CustomersTab : public QWidget {
    Q_OBJECT

public:
    explicit CustomersTab(Context &ctx, QWidget *parent = nullptr);

    // The combos' lists and an empty detail; the main window calls it at
    // start.
    void iniciar_tab_clipro();

    widgets::LynxGrid *grilla() const { return LynxGrid_clipro_; }

public Q_SLOTS:
    void buscar_clipro();
    void agregar_clipro();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void iniciar_grilla_clipro();
    void mostrar_clipro();
    void salvar_clipro();
    void borrar_clipro();
    // Shows the logic's view: the boxes, then the buttons.
    void mostrar_vista();
    void mostrar_botones();
    QString id_seleccionado() const;
    void completar_nombres(widgets::AutoComplete &completion);

    Context &ctx_;
    CustomerBook book_;
    QComboBox *Combo_clienteoproveedor_;
    QLineEdit *Text_clienteproveedorbuscar_;
    QPushButton *Command_buscarClipro_;
    QPushButton *Command_addClipro_;
    widgets::LynxGrid *LynxGrid_clipro_;
    QLineEdit *Text_tipocliente_;
    CustomerDetailBoxes cajas_;
    QPushButton *Command_clipro_salvar_;
    QPushButton *Command_clipro_borrar_;
    // While the screen itself writes the boxes or the grid, their change
    // events are not the operator's.
    bool ocupado_ = false;
    // The names for the search box's completion are read at the first key
    // after each search, so records added or changed since are offered.
    bool nombres_al_dia_ = false;
};

} // namespace vendrix::screens

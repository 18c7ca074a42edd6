#pragma once

#include <QWidget>

class QLineEdit;
class QPushButton;

namespace vendrix {
class Carrito;
class Context;
} // namespace vendrix

namespace vendrix::widgets {
class LynxGrid;
}

namespace vendrix::screens {

// One cart's page of the cart strip: its grid of lines with the totals line,
// its total box and its buttons. It shows the cart and hands every action
// to the cart's operations.
class CarritoTab : public QWidget {
    Q_OBJECT

public:
    CarritoTab(Context &ctx, Carrito &carrito, QWidget *parent = nullptr);

    Carrito &carrito() { return carrito_; }
    widgets::LynxGrid *grilla() const { return grilla_; }
    QLineEdit *caja_total() const { return total_; }

    // Shows the cart's lines, captions and total again.
    void mostrar();

Q_SIGNALS:
    // The checkout button; the sale takes over from here.
    void facturar_pedido(int numero);

private:
    void crear_columnas();
    // The figure columns fit their headings and totals captions whatever the
    // font; the description takes the width left.
    void ajustar_anchos();
    void agregar_linea();
    void eliminar_linea();
    void vaciar();
    void recalcular();
    // Opens a stored document into this cart.
    void abrir();
    void filtrar_tecla(int col, int &key) const;
    void despues_de_editar(int row, int col, QString &value, bool &cancel);
    // The amounts and the total after an edit, leaving the rows in place.
    void mostrar_importes();

    Context &ctx_;
    Carrito &carrito_;
    widgets::LynxGrid *grilla_;
    QLineEdit *total_;
    QPushButton *facturar_;
};

} // namespace vendrix::screens

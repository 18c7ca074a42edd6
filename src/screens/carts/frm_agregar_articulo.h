#pragma once

#include "sales/agregar_articulo.h"
#include "screens/controles_dialogo.h"

#include <QDialog>

class QCheckBox;
class QLineEdit;
class QPushButton;

namespace vendrix {
class Carritos;
class Context;
} // namespace vendrix

namespace vendrix::screens {

// `frmAgregarArticulo`: the modal dialog that puts the article selected in
// the price list into cart `carrito_origen`. It shows what the dialog's logic
// works out and hands it what the operator types.
class FrmAgregarArticulo : public QDialog {
    Q_OBJECT

public:
    FrmAgregarArticulo(Context &ctx, Carritos &carritos, int carrito_origen,
                       const ArticuloParaCarrito &articulo, QWidget *parent = nullptr);

    int carrito_origen() const { return logica_.carrito_origen(); }
    const ResultadoAgregar &resultado() const { return resultado_; }

Q_SIGNALS:
    // The operator renamed the cart on leaving the name box.
    void carrito_renombrado(int numero, const QString &nombre);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void crear_controles();
    // Everything, at opening.
    void mostrar();
    // What the operator's typing changes.
    void mostrar_figuras();
    void agregar();

    AgregarArticulo logica_;
    ResultadoAgregar resultado_;

    ControlesArticulo articulo_;
    QLineEdit *cant_agregar_;
    UpDown *ud_cant_agregar_;
    QLineEdit *total_por_articulos_;
    QCheckBox *Check_guardar_;
    QLineEdit *Text_nombre_Carrito_;
    QPushButton *Command1_;
    QPushButton *Command2_;
};

} // namespace vendrix::screens

#pragma once

#include "sales/checkout/checkout.h"

#include <QDialog>

class QCheckBox;
class QComboBox;
class QLabel;
class QLineEdit;
class QPlainTextEdit;
class QPushButton;

namespace vendrix {
class Carritos;
class ClienteHttp;
class Context;
class Escritorio;
class FiscalFront;
} // namespace vendrix

namespace vendrix::widgets {
class LynxGrid;
}

namespace vendrix::screens {

// `frmFacturar`: the modal dialog that turns cart `carrito_origen` into a
// sale. It shows what the checkout logic keeps and hands it what the
// operator does; the recording of the sale takes over from its actions.
class FrmFacturar : public QDialog {
    Q_OBJECT

public:
    FrmFacturar(Context &ctx, Carritos &carritos, int carrito_origen, QWidget *parent = nullptr);

    Checkout &logica() { return logica_; }

Q_SIGNALS:
    // An action passed its checks: the sale is to be recorded this way.
    void registrar_venta(PasoVenta paso);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void crear_controles();
    QWidget *grupo_cliente();
    QWidget *grupo_forma_de_pago();
    QWidget *grupo_totales();
    QLineEdit *caja(const char *nombre, QString VistaCheckout::*campo);
    // Everything the logic keeps, without echoing back into it.
    void mostrar();
    void mostrar_clientes();
    void accion(PasoVenta paso);

    Context &ctx_;
    Checkout logica_;

    QLineEdit *Text_buscar_;
    widgets::LynxGrid *DataGridViewClientes_;
    QComboBox *Combo_iva_;
    QComboBox *Combo_tipo_doc_;
    QLineEdit *Text_cuit_;
    QLineEdit *Text_rz_;
    QLineEdit *Text_dom_;
    QLineEdit *Text_loc_;
    QLineEdit *Text_dh_;
    QLineEdit *Text_email_;
    QLineEdit *Text_telefono_;
    QPushButton *Command_agregarrs_;
    QPushButton *Command_recuperar_datos_CUIT_;
    QComboBox *Combo_FdP_;
    QCheckBox *Check_CC_;
    QPlainTextEdit *Text_Notas_;
    QCheckBox *Check_Imprimir_;
    QCheckBox *Check_NDV_;
    QCheckBox *Check_resumido_;
    QLineEdit *Text_referenciaExterna_;
    QLabel *Label_articulos_;
    QLabel *Label_total_;
    QPushButton *Command_imprimir_;
    QPushButton *Command_registrar_pedido_;
    QPushButton *Command_nota_credito_;
    QPushButton *Command2_;
};

// The carts' "Facturar": the dialog on cart `numero`, unless the cart is
// empty or its total is zero (then its message). Its actions record the
// sale through `front`; a recorded sale closes the dialog. An electronic
// invoice's copy is opened or sent through `escritorio`, and uploaded to
// the vendor's service through `http`.
void facturar_carrito(Context &ctx, Carritos &carritos, int numero, FiscalFront &front,
                      Escritorio &escritorio, ClienteHttp &http, QWidget *parent);

} // namespace vendrix::screens

#pragma once

#include "sales/agregar_udem.h"
#include "screens/controles_dialogo.h"

#include <QDialog>

class QPushButton;

namespace vendrix {
class Context;
}

namespace vendrix::screens {

// `frmAgregarUdeM`: how many units one list price of the article loaded in
// the price panel covers. Opened from `Command_unudaddemedida` and from the
// right button on a list row.
class FrmAgregarUdeM : public QDialog {
    Q_OBJECT

public:
    FrmAgregarUdeM(Context &ctx, const ArticuloParaCarrito &articulo, QWidget *parent = nullptr);

    // After the dialog: whether the price panel is to be loaded again.
    bool recargar_panel() const { return resultado_.recargar_panel; }

private:
    void guardar();

    AgregarUdeM logica_;
    ResultadoUdeM resultado_;
    ControlesArticulo articulo_;
    QPushButton *Command1_;
    QPushButton *Command2_;
};

} // namespace vendrix::screens

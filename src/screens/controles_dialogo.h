#pragma once

#include <QString>
#include <QWidget>

class QDialog;
class QFormLayout;
class QHBoxLayout;
class QLabel;
class QLineEdit;
class QPushButton;
class QToolButton;

namespace vendrix {
struct VistaArticulo;
}

namespace vendrix::screens {

// The key a number box of kind "real" lets through for the text it holds:
// digits, one decimal comma, editing keys; 0 for a refused key. The keypad's
// point types the comma.
int filtrar_tecla_real(const QString &texto, int key, bool teclado_numerico = false);

// Puts the "real" key filter on a box.
void filtrar_numero_real(QLineEdit *box);

// A box the dialog fills and the operator only reads.
QLineEdit *caja_de_lectura(QWidget *parent, const QString &nombre);
// A box for a number, with the "real" key filter.
QLineEdit *caja_numero(QWidget *parent, const QString &nombre);
// Red text for a value that comes from the shop's memory, the usual colour
// otherwise.
void marcar_guardado(QLineEdit *box, bool guardado);

// The up and down arrows bound to a number box: each click adds or takes one
// whole unit, never going below 1.
class UpDown : public QWidget {
    Q_OBJECT

public:
    UpDown(QLineEdit *buddy, QWidget *parent = nullptr);

    QToolButton *arriba() const { return arriba_; }
    QToolButton *abajo() const { return abajo_; }

Q_SIGNALS:
    // The box took a new number from the arrows.
    void cambiado(const QString &text);

private:
    void mover(int paso);

    QLineEdit *buddy_;
    QToolButton *arriba_;
    QToolButton *abajo_;
};

// A number box with its arrows beside it, for a form's row.
QHBoxLayout *con_flechas(QLineEdit *box, UpDown *flechas);

// A button of a dialog's foot, under its own name.
QPushButton *boton_de_dialogo(QWidget *dialogo, const QString &nombre, const QString &texto);

// A new control of `parent` with its object name.
template <typename T> T *control(QWidget *parent, const char *nombre)
{
    auto *w = new T(parent);
    w->setObjectName(QString::fromLatin1(nombre));
    return w;
}
// Lays a dialog out: its form, and under it the accepting button (the
// default one) and the one that cancels, which closes the dialog.
void disponer_dialogo(QDialog *dialogo, QFormLayout *form, QPushButton *aceptar, QPushButton *cancelar);

// The controls both dialogs show of the article: code, description, brand,
// unit, price, the dollar note, the units per price with their arrows and
// the unit price. Made as children of the dialog, under their own names.
struct ControlesArticulo {
    explicit ControlesArticulo(QWidget *dialogo);

    // The rows of the article, down to the dollar note.
    void filas_del_articulo(QFormLayout *form) const;
    // The rows of the units per price (with what goes beside them) and of
    // the unit price.
    void filas_de_unidades(QFormLayout *form, QWidget *al_lado = nullptr) const;
    // Shows the view; the units box is rewritten only when it differs, so
    // that the cursor stays where the operator is typing.
    void mostrar(const VistaArticulo &vista) const;

    QLineEdit *text_articulos;
    QLineEdit *Text_artdesc;
    QLineEdit *Text_marc;
    QLineEdit *Text_UM;
    QLineEdit *Text_pventa; // hidden
    QLineEdit *Text_pventa_display;
    QLabel *Label_Dolares;
    QLineEdit *cant_unidades;
    UpDown *ud_cant_unidades;
    QLineEdit *Text_cantxprecio;
};

} // namespace vendrix::screens

#pragma once

#include <QWidget>

class QComboBox;
class QLabel;
class QLineEdit;

namespace vendrix {
class Context;
struct RoundingState;
} // namespace vendrix

namespace vendrix {

// The pricing settings of the configuration tab: `Text_IVA`, `Text_dolar`
// and `Tex_tarjeta` write their keys at each change; leaving `Tex_tarjeta`
// brings the card payment method in step. The rounding combos
// `Combo_digitos_significativos`, `Combo_modo_redondeo` and
// `Combo_tipo_redondeo` write their keys and enable each other; the icons
// `Picture_icon_0` and `Picture_icon_1` show when rounding is on.
class ConfigPrecios : public QWidget {
    Q_OBJECT

public:
    explicit ConfigPrecios(Context &ctx, QWidget *parent = nullptr);

    // Boxes and combos from the settings (a missing rounding key is written
    // with its default).
    void inicializar();

Q_SIGNALS:
    // The caption of the card price in the article panel (`Label39`).
    void leyendaTarjetaCambiada(const QString &leyenda);

private:
    void caja_editada(QLineEdit *box, const QString &clave);
    void mostrar_redondeo(const RoundingState &estado);

    Context &ctx_;
    QLineEdit *iva_;
    QLineEdit *dolar_;
    QLineEdit *tarjeta_;
    QComboBox *digitos_;
    QComboBox *modo_;
    QComboBox *tipo_;
    QLabel *icono_digitos_;
    QLabel *icono_modo_;
};

} // namespace vendrix

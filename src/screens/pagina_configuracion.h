#pragma once

#include <QWidget>

class QCheckBox;

namespace vendrix {
class ConfigPrecios;
class ConfigReglas;
class Context;
class RuleStore;
} // namespace vendrix

namespace vendrix::screens {

// The configuration tab: the margin and discount rules, the pricing
// settings and the check box `Check_carritos` (one cart or four).
class PaginaConfiguracion : public QWidget {
    Q_OBJECT

public:
    PaginaConfiguracion(Context &ctx, RuleStore &reglas, QWidget *parent = nullptr);

    // The set-up at load: the pricing settings, the lock on the rules, and
    // the check box from setting `carritos`.
    void inicializar();
    // `llenar_grilla("DataGridViewProveedores")`, then the notice of unused
    // rules when the shop asked for it.
    void llenar_reglas();

    ConfigReglas *reglas() const { return reglas_; }
    ConfigPrecios *precios() const { return precios_; }
    QCheckBox *check_carritos() const { return carritos_; }

private:
    Context &ctx_;
    ConfigReglas *reglas_;
    ConfigPrecios *precios_;
    QCheckBox *carritos_;
};

} // namespace vendrix::screens

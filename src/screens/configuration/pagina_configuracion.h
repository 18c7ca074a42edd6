#pragma once

#include <QWidget>

class QCheckBox;

namespace vendrix {
class ConfigPrecios;
class ConfigReglas;
class Context;
class FiscalFront;
class RuleStore;
} // namespace vendrix

namespace vendrix::screens {

class ConfigImpresoraFiscal;

// The configuration tab: the margin and discount rules, the pricing
// settings, the check box `Check_carritos` (one cart or four) and the fiscal
// printer frame, which works on the main window's fiscal front.
class PaginaConfiguracion : public QWidget {
    Q_OBJECT

public:
    PaginaConfiguracion(Context &ctx, RuleStore &reglas, FiscalFront *front = nullptr,
                        QWidget *parent = nullptr);

    // The set-up at load: the pricing settings, the lock on the rules, the
    // check boxes from their settings and the printer frame.
    void inicializar();
    // `llenar_grilla("DataGridViewProveedores")`, then the notice of unused
    // rules when the shop asked for it.
    void llenar_reglas();

    ConfigReglas *reglas() const { return reglas_; }
    ConfigPrecios *precios() const { return precios_; }
    QCheckBox *check_carritos() const { return carritos_; }
    // `Check_autocompletar` and `Check_sugerencias`: the settings
    // `busqueda_autocompletar` and `busqueda_sugerencias` of the search box.
    QCheckBox *check_autocompletar() const { return autocompletar_; }
    QCheckBox *check_sugerencias() const { return sugerencias_; }
    ConfigImpresoraFiscal *impresora() const { return impresora_; }

private:
    Context &ctx_;
    ConfigReglas *reglas_;
    ConfigPrecios *precios_;
    QCheckBox *carritos_;
    QCheckBox *autocompletar_;
    QCheckBox *sugerencias_;
    ConfigImpresoraFiscal *impresora_;
};

} // namespace vendrix::screens

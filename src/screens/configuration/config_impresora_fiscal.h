#pragma once

#include <QGroupBox>

class QCheckBox;
class QPushButton;

namespace vendrix {
class Context;
class FiscalFront;
} // namespace vendrix

namespace vendrix::screens {

// The fiscal printer frame of the configuration tab: `Check_impresora`
// turns the printer on for the sales, `cmd_configurar_impresora` opens its
// settings, and the closes and reports go to the printer. The check and the
// settings are off under the administrator's lock.
class ConfigImpresoraFiscal : public QGroupBox {
    Q_OBJECT

public:
    ConfigImpresoraFiscal(Context &ctx, FiscalFront *front, QWidget *parent = nullptr);

    // The check from `impresora_fiscal`, the buttons by it, then the lock.
    void inicializar();

    QCheckBox *check() const { return check_; }

private:
    void habilitar();

    Context &ctx_;
    FiscalFront *front_;
    QCheckBox *check_;
    QPushButton *configurar_;
    QPushButton *cierre_x_;
    QPushButton *cierre_z_;
    QPushButton *reporte_;
};

} // namespace vendrix::screens

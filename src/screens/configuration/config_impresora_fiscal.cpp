#include "screens/configuration/config_impresora_fiscal.h"

#include "core/context.h"
#include "fiscal/front/fiscal_commands.h"
#include "screens/configuration/frm_conf_impresora.h"
#include "screens/controles_dialogo.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QPushButton>

namespace vendrix::screens {

namespace {

} // namespace

ConfigImpresoraFiscal::ConfigImpresoraFiscal(Context &ctx, FiscalFront *front, QWidget *parent)
    : QGroupBox(QStringLiteral("Impresora fiscal"), parent), ctx_(ctx), front_(front),
      check_(new QCheckBox(QStringLiteral("Usar &impresora fiscal"), this)),
      configurar_(boton_de_dialogo(this, "cmd_configurar_impresora", QStringLiteral("C&onfigurar..."))),
      cierre_x_(boton_de_dialogo(this, "cmd_cierrex", QStringLiteral("Cierre &X"))),
      cierre_z_(boton_de_dialogo(this, "cmd_cierrez", QStringLiteral("Cierre &Z"))),
      reporte_(boton_de_dialogo(this, "Command_reporte_Impresora", QStringLiteral("Re&portes")))
{
    setObjectName(QStringLiteral("Frame_impresora"));
    check_->setObjectName(QStringLiteral("Check_impresora"));
    auto *g = new QGridLayout(this);
    g->addWidget(check_, 0, 0, 1, 2);
    g->addWidget(configurar_, 1, 0);
    g->addWidget(reporte_, 1, 1);
    g->addWidget(cierre_x_, 2, 0);
    g->addWidget(cierre_z_, 2, 1);

    connect(check_, &QCheckBox::clicked, this, [this](bool marcado) {
        ctx_.escribir_parametro(QStringLiteral("impresora_fiscal"),
                                marcado ? QStringLiteral("1") : QStringLiteral("0"));
        ctx_.estado().actualizar_indicador(marcado ? QStringLiteral("impresora_on")
                                                   : QStringLiteral("impresora_off"));
        habilitar();
    });
    connect(configurar_, &QPushButton::clicked, this, [this] {
        if (!front_)
            return;
        FrmConfImpresora form(ctx_, *front_, nullptr, window());
        form.exec();
    });
    connect(cierre_x_, &QPushButton::clicked, this, [this] {
        if (front_)
            cierre_x(ctx_, *front_);
    });
    connect(cierre_z_, &QPushButton::clicked, this, [this] {
        if (front_)
            cierre_z(ctx_, *front_);
    });
    // In electronic mode this is where the cross-check against AFIP opens.
    connect(reporte_, &QPushButton::clicked, this, [this] {
        if (front_)
            reporte_impresora(ctx_, *front_);
    });
}

void ConfigImpresoraFiscal::inicializar()
{
    const QSignalBlocker bloqueo(check_);
    check_->setChecked(ctx_.leer_parametro(QStringLiteral("impresora_fiscal")) == QLatin1String("1"));
    habilitar();
}

void ConfigImpresoraFiscal::habilitar()
{
    const bool encendida = check_->isChecked();
    const bool bloqueada = !ctx_.leer_parametro(QStringLiteral("admin_block")).isEmpty();
    check_->setEnabled(!bloqueada);
    configurar_->setEnabled(encendida && !bloqueada);
    for (QPushButton *b : {cierre_x_, cierre_z_, reporte_})
        b->setEnabled(encendida);
}

} // namespace vendrix::screens

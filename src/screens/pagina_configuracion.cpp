#include "screens/pagina_configuracion.h"

#include "catalogue/pricing/supplier_rules/unused_rules.h"
#include "core/context.h"
#include "sales/carritos.h"
#include "screens/config_impresora_fiscal.h"
#include "screens/config_precios.h"
#include "screens/config_reglas.h"

#include <QCheckBox>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QVBoxLayout>

namespace vendrix::screens {

PaginaConfiguracion::PaginaConfiguracion(Context &ctx, RuleStore &reglas, FiscalFront *front, QWidget *parent)
    : QWidget(parent), ctx_(ctx), reglas_(new ConfigReglas(ctx, reglas)), precios_(new ConfigPrecios(ctx)),
      carritos_(new QCheckBox(QStringLiteral("Usar cuatro &carritos de compra"))),
      impresora_(new ConfigImpresoraFiscal(ctx, front))
{
    carritos_->setObjectName(QStringLiteral("Check_carritos"));

    auto *grupo_reglas = new QGroupBox(QStringLiteral("Descuentos y ganancias por proveedor"), this);
    (new QVBoxLayout(grupo_reglas))->addWidget(reglas_);
    auto *grupo_precios = new QGroupBox(QStringLiteral("Precios"), this);
    auto *v = new QVBoxLayout(grupo_precios);
    v->addWidget(precios_);
    v->addWidget(carritos_);
    v->addStretch(1);
    auto *derecha = new QVBoxLayout;
    derecha->addWidget(grupo_precios, 1);
    derecha->addWidget(impresora_);

    auto *layout = new QHBoxLayout(this);
    layout->addWidget(grupo_reglas, 3);
    layout->addLayout(derecha, 1);
}

void PaginaConfiguracion::inicializar()
{
    precios_->inicializar();
    reglas_->set_bloqueada(!ctx_.leer_parametro(QStringLiteral("admin_block")).isEmpty());
    const QSignalBlocker bloqueo(carritos_);
    carritos_->setChecked(cuatro_carritos(ctx_));
    impresora_->inicializar();
}

void PaginaConfiguracion::llenar_reglas()
{
    reglas_->inicializar();
    advertir_reglas_sin_uso(ctx_);
}

} // namespace vendrix::screens

#include "screens/configuration/pagina_configuracion.h"

#include "catalogue/pricing/supplier_rules/unused_rules.h"
#include "core/context.h"
#include "sales/carritos.h"
#include "screens/checkout/frm_destinos_de_pago.h"
#include "screens/checkout/frm_medios_de_pago.h"
#include "screens/configuration/config_impresora_fiscal.h"
#include "screens/configuration/config_precios.h"
#include "screens/configuration/config_reglas.h"

#include <QCheckBox>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QPushButton>
#include <QVBoxLayout>

namespace vendrix::screens {

namespace {

// The frame that opens the two payment lists, each in its own modal dialog.
QGroupBox *marco_medios_de_pago(Context &ctx, QWidget *pagina)
{
    auto *marco = new QGroupBox(QStringLiteral("Pagos y cobros"), pagina);
    marco->setObjectName(QStringLiteral("Frame_medios_de_pago"));
    auto *medios = new QPushButton(QStringLiteral("&Formas de pago..."), marco);
    medios->setObjectName(QStringLiteral("Command_configurarmediosdepago"));
    auto *destinos = new QPushButton(QStringLiteral("D&estinos de pago..."), marco);
    destinos->setObjectName(QStringLiteral("Command_destinos_pago"));
    auto *h = new QHBoxLayout(marco);
    h->addWidget(medios);
    h->addWidget(destinos);
    QObject::connect(medios, &QPushButton::clicked, pagina,
                     [&ctx, pagina] { FrmMediosDePago(ctx, pagina->window()).exec(); });
    QObject::connect(destinos, &QPushButton::clicked, pagina,
                     [&ctx, pagina] { FrmDestinosDePago(ctx, pagina->window()).exec(); });
    return marco;
}

// A check box that writes "1" or "0" to its setting at each change.
QCheckBox *check_de_ajuste(Context &ctx, const QString &texto, const char *nombre, const char *clave)
{
    auto *check = new QCheckBox(texto);
    check->setObjectName(QString::fromLatin1(nombre));
    QObject::connect(check, &QCheckBox::toggled, check, [&ctx, clave](bool on) {
        ctx.escribir_parametro(QString::fromLatin1(clave), on ? QStringLiteral("1") : QStringLiteral("0"));
    });
    return check;
}

} // namespace

PaginaConfiguracion::PaginaConfiguracion(Context &ctx, RuleStore &reglas, FiscalFront *front, QWidget *parent)
    : QWidget(parent), ctx_(ctx), reglas_(new ConfigReglas(ctx, reglas)), precios_(new ConfigPrecios(ctx)),
      carritos_(new QCheckBox(QStringLiteral("Usar cuatro &carritos de compra"))),
      autocompletar_(check_de_ajuste(ctx, QStringLiteral("&Autocompletar la búsqueda"), "Check_autocompletar",
                                     "busqueda_autocompletar")),
      sugerencias_(check_de_ajuste(ctx, QStringLiteral("&Mostrar sugerencias al buscar"), "Check_sugerencias",
                                   "busqueda_sugerencias")),
      impresora_(new ConfigImpresoraFiscal(ctx, front))
{
    carritos_->setObjectName(QStringLiteral("Check_carritos"));

    auto *grupo_reglas = new QGroupBox(QStringLiteral("Descuentos y ganancias por proveedor"), this);
    (new QVBoxLayout(grupo_reglas))->addWidget(reglas_);
    auto *grupo_precios = new QGroupBox(QStringLiteral("Precios"), this);
    auto *v = new QVBoxLayout(grupo_precios);
    v->addWidget(precios_);
    v->addWidget(carritos_);
    v->addWidget(autocompletar_);
    v->addWidget(sugerencias_);
    v->addStretch(1);
    auto *derecha = new QVBoxLayout;
    derecha->addWidget(grupo_precios, 1);
    derecha->addWidget(impresora_);
    derecha->addWidget(marco_medios_de_pago(ctx_, this));

    auto *layout = new QHBoxLayout(this);
    layout->addWidget(grupo_reglas, 3);
    layout->addLayout(derecha, 1);
}

void PaginaConfiguracion::inicializar()
{
    precios_->inicializar();
    reglas_->set_bloqueada(!ctx_.leer_parametro(QStringLiteral("admin_block")).isEmpty());
    const auto marcar = [](QCheckBox *check, bool on) {
        const QSignalBlocker bloqueo(check);
        check->setChecked(on);
    };
    const auto ajuste = [this](const char *clave) {
        return ctx_.leer_parametro(QString::fromLatin1(clave)) == QLatin1String("1");
    };
    marcar(carritos_, cuatro_carritos(ctx_));
    marcar(autocompletar_, ajuste("busqueda_autocompletar"));
    marcar(sugerencias_, ajuste("busqueda_sugerencias"));
    impresora_->inicializar();
}

void PaginaConfiguracion::llenar_reglas()
{
    reglas_->inicializar();
    advertir_reglas_sin_uso(ctx_);
}

} // namespace vendrix::screens

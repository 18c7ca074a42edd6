#include "screens/configuration/config_precios.h"

#include "catalogue/pricing/settings_boxes.h"
#include "core/context.h"
#include "screens/main_window/filtro_teclas.h"

#include <QComboBox>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QStyle>

namespace vendrix {

namespace {

const QString kIva = QStringLiteral("iva");
const QString kDolar = QStringLiteral("Valor_Dolar");
const QString kTarjeta = QStringLiteral("recargo_tarjeta");

QLineEdit *caja(QWidget *parent, const QString &nombre)
{
    auto *box = new QLineEdit(parent);
    box->setObjectName(nombre);
    box->setMaximumWidth(120);
    instalar_filtro_numero(box, QStringLiteral("real"));
    return box;
}

QComboBox *combo(QWidget *parent, const QString &nombre, const QStringList &items)
{
    auto *c = new QComboBox(parent);
    c->setObjectName(nombre);
    c->addItems(items);
    return c;
}

QLabel *icono(QWidget *parent, const QString &nombre)
{
    auto *label = new QLabel(parent);
    label->setObjectName(nombre);
    label->setFixedSize(20, 20);
    return label;
}

void elegir(QComboBox *c, const QString &item)
{
    const QSignalBlocker bloqueo(c);
    c->setCurrentIndex(c->findText(item));
}

} // namespace

ConfigPrecios::ConfigPrecios(Context &ctx, QWidget *parent) : QWidget(parent), ctx_(ctx)
{
    setObjectName(QStringLiteral("ConfigPrecios"));
    auto *g = new QGridLayout(this);
    iva_ = caja(this, QStringLiteral("Text_IVA"));
    dolar_ = caja(this, QStringLiteral("Text_dolar"));
    tarjeta_ = caja(this, QStringLiteral("Tex_tarjeta"));
    digitos_ = combo(this, QStringLiteral("Combo_digitos_significativos"), items_digitos_significativos());
    modo_ = combo(this, QStringLiteral("Combo_modo_redondeo"), items_modo_redondeo());
    tipo_ = combo(this, QStringLiteral("Combo_tipo_redondeo"), items_tipo_redondeo());
    icono_digitos_ = icono(this, QStringLiteral("Picture_icon_0"));
    icono_modo_ = icono(this, QStringLiteral("Picture_icon_1"));

    const std::pair<QString, QWidget *> filas[] = {
        {QStringLiteral("&IVA (%)"), iva_},
        {QStringLiteral("Valor del &dólar ($)"), dolar_},
        {QStringLiteral("Recargo &tarjeta (%)"), tarjeta_},
        {QStringLiteral("Dígitos &significativos"), digitos_},
        {QStringLiteral("&Modo de redondeo"), modo_},
        {QStringLiteral("Tipo de &redondeo"), tipo_},
    };
    int fila = 0;
    for (const auto &[texto, widget] : filas) {
        auto *label = new QLabel(texto, this);
        label->setBuddy(widget);
        g->addWidget(label, fila, 0);
        g->addWidget(widget, fila, 1);
        ++fila;
    }
    g->addWidget(icono_digitos_, 3, 2);
    g->addWidget(icono_modo_, 4, 2);
    g->setColumnStretch(3, 1);
    g->setRowStretch(fila, 1);

    connect(iva_, &QLineEdit::textEdited, this, [this] { caja_editada(iva_, kIva); });
    connect(dolar_, &QLineEdit::textEdited, this, [this] { caja_editada(dolar_, kDolar); });
    connect(tarjeta_, &QLineEdit::textEdited, this, [this] {
        caja_editada(tarjeta_, kTarjeta);
        Q_EMIT leyendaTarjetaCambiada(leyenda_tarjeta(tarjeta_->text()));
    });
    connect(tarjeta_, &QLineEdit::editingFinished, this,
            [this] { salir_recargo_tarjeta(ctx_, tarjeta_->text()); });
    connect(digitos_, &QComboBox::textActivated, this,
            [this](const QString &item) { mostrar_redondeo(elegir_digitos(ctx_, item)); });
    connect(modo_, &QComboBox::textActivated, this,
            [this](const QString &item) { mostrar_redondeo(elegir_modo(ctx_, item)); });
    connect(tipo_, &QComboBox::textActivated, this,
            [this](const QString &item) { mostrar_redondeo(elegir_tipo(ctx_, item)); });
}

void ConfigPrecios::inicializar()
{
    const QSignalBlocker a(iva_);
    const QSignalBlocker b(dolar_);
    const QSignalBlocker c(tarjeta_);
    dolar_->setText(ctx_.leer_parametro(kDolar));
    tarjeta_->setText(ctx_.leer_parametro(kTarjeta));
    iva_->setText(ctx_.leer_parametro(kIva));
    mostrar_redondeo(cargar_combos_redondeo(ctx_));
}

void ConfigPrecios::caja_editada(QLineEdit *box, const QString &clave)
{
    const QString valor = cambiar_caja_ajuste(ctx_, clave, box->text());
    if (valor != box->text()) {
        // An emptied box reads "0", selected so that the next key replaces it.
        box->setText(valor);
        box->selectAll();
    }
}

void ConfigPrecios::mostrar_redondeo(const RoundingState &estado)
{
    elegir(digitos_, estado.digitos);
    elegir(modo_, estado.modo);
    elegir(tipo_, estado.tipo);
    modo_->setEnabled(estado.modo_habilitado);
    tipo_->setEnabled(estado.tipo_habilitado);
    const QIcon activo = style()->standardIcon(QStyle::SP_MessageBoxInformation);
    const QString aviso = QStringLiteral("El redondeo de precios está activo");
    for (const auto &[label, encendido] :
         {std::pair{icono_digitos_, estado.icono_digitos}, std::pair{icono_modo_, estado.icono_modo}}) {
        label->setPixmap(encendido ? activo.pixmap(16, 16) : QPixmap());
        label->setToolTip(encendido ? aviso : QString());
    }
}

} // namespace vendrix

#include "screens/lists/panel_articulo.h"

#include "catalogue/pricing/article_detail/detail_marks.h"
#include "catalogue/pricing/formula.h"
#include "catalogue/pricing/price_settings.h"
#include "catalogue/pricing/settings_boxes.h"
#include "catalogue/pricing/supplier_rules/rule_store.h"
#include "core/context.h"
#include "screens/lists/dialogo_comentario.h"

#include <QApplication>
#include <QFocusEvent>
#include <QFrame>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

namespace vendrix {

namespace {

using C = PanelField;

// The first cell of the row that stands for "more results" in the list.
const QString kMarcador = QStringLiteral("...VENDRIX...");

void pintar(QWidget *w, QPalette::ColorRole rol, const QColor &color)
{
    QPalette p = w->palette();
    p.setColor(rol, color);
    w->setPalette(p);
}

} // namespace

QColor color_de_moneda(CurrencyColour moneda, const QColor &texto)
{
    switch (moneda) {
    case CurrencyColour::Dolares:
        return QColor(0, 120, 0);
    case CurrencyColour::PesosIvaReducido:
        return QColor(0, 60, 190);
    case CurrencyColour::DolaresIvaReducido:
        return QColor(0, 120, 130);
    case CurrencyColour::Otra:
        return QColor(140, 70, 0);
    case CurrencyColour::Pesos:
        break;
    }
    return texto;
}

PanelArticulo::PanelArticulo(Context &ctx, RuleStore &reglas, QWidget *parent)
    : QWidget(parent), ctx_(ctx), reglas_(reglas), detalle_(vendrix::limpiar_detalle())
{
    setObjectName(QStringLiteral("PanelArticulo"));
    editor_comentario_ = [this](const QString &actual) {
        return pedir_comentario(this,
                                detalle_.campo(ArticleField::Codigo) + QStringLiteral(" - ") +
                                    detalle_.campo(ArticleField::Descripcion),
                                actual);
    };
    construir();
    const bool bloqueado = !ctx_.leer_parametro(QStringLiteral("admin_block")).isEmpty();
    aplicar_detalle_precios(ctx_.leer_parametro(QStringLiteral("detalle_precios")) == QLatin1String("1") &&
                            !bloqueado);
    mostrar();
}

void PanelArticulo::cargar_fila(const QString &id, const QString &proveedor)
{
    if (proveedor == kMarcador)
        return;
    bool ok = false;
    const qint64 n = id.toLongLong(&ok);
    if (ok && n > 0)
        cargar_detalle_articulo(n);
}

void PanelArticulo::cargar_detalle_articulo(qint64 id)
{
    // Prices come from the rules grid's data: it is filled before the first
    // article, should the configuration tab not have done it yet.
    if (reglas_.version() == 0)
        reglas_.llenar(ctx_);
    std::optional<ArticleDetail> d = vendrix::cargar_detalle_articulo(ctx_, reglas_, detalle_, id);
    if (!d)
        return;
    detalle_ = std::move(*d);
    version_reglas_ = reglas_.version();
    mostrar();
    Q_EMIT articuloCargado(id);
}

void PanelArticulo::limpiar_detalle()
{
    guardar_regla_pendiente();
    detalle_ = vendrix::limpiar_detalle();
    mostrar();
}

void PanelArticulo::guardar_regla_pendiente()
{
    if (detalle_.id == 0)
        return;
    guardar_regla_desde_detalle(ctx_, reglas_, regla_en_panel(detalle_));
    // Asked once: what the operator answered stands for this article.
    detalle_.ganancia_cargada = detalle_.panel[C::TextBox_Ganancia].text;
    detalle_.descuento_cargada = detalle_.panel[C::TextBox_Descuento].text;
}

bool PanelArticulo::muestra_detalle() const
{
    return !calculo_->isHidden();
}

void PanelArticulo::aplicar_detalle_precios(bool detalle)
{
    calculo_->setVisible(detalle);
    solo_->setVisible(!detalle);
    preciodetalle_->setText(detalle ? QStringLiteral("Ver sólo el precio")
                                    : QStringLiteral("Ver detalle del precio"));
}

void PanelArticulo::preciodetalle_click()
{
    if (muestra_detalle()) {
        aplicar_detalle_precios(false);
        return;
    }
    // Under the administrator's lock the cost and margin are shown only
    // after the password; the lock's screen answers through the hook.
    if (!ctx_.leer_parametro(QStringLiteral("admin_block")).isEmpty() && !(desbloquear_ && desbloquear_()))
        return;
    aplicar_detalle_precios(true);
    ganancia_->setFocus();
}

void PanelArticulo::set_leyenda_tarjeta(const QString &leyenda)
{
    label39_->setText(leyenda);
}

void PanelArticulo::showEvent(QShowEvent *event)
{
    QWidget::showEvent(event);
    // Back from the configuration tab: figures worked out with rules or
    // settings that have changed since are worked out again, unless the
    // operator typed over them.
    if (detalle_.id == 0 ||
        (version_reglas_ == reglas_.version() && detalle_.ajustes == PriceSettings::leer(ctx_)))
        return;
    const PricePanel &p = detalle_.panel;
    if (p[C::TextBox_Ganancia].text != detalle_.ganancia_cargada ||
        p[C::TextBox_Descuento].text != detalle_.descuento_cargada ||
        p[C::Textbox_desusr].text != QLatin1String("0"))
        return;
    cargar_detalle_articulo(detalle_.id);
}

void PanelArticulo::formula_editada(PanelField campo, QLineEdit *box)
{
    if (detalle_.id == 0)
        return;
    detalle_.panel[campo].text = box->text();
    incompletas_.removeAll(box);
    if (!formula_valida(box->text())) {
        incompletas_.append(box);
        return;
    }
    recalcular(false);
    mostrar_figuras(box);
}

void PanelArticulo::formula_terminada(QLineEdit *box)
{
    if (!incompletas_.removeAll(box))
        return;
    recalcular(true);
    mostrar_figuras(box);
}

void PanelArticulo::recalcular(bool avisar_incompletas)
{
    // The busy state disables the main window, which takes the focus from
    // the box being typed in: it goes back there afterwards.
    QWidget *foco = QApplication::focusWidget();
    calculando_ = true;
    ctx_.estado().marcar_ocupado(true);
    calcular_precio_detalle(detalle_.panel, PriceSettings::leer(ctx_), avisar_incompletas);
    publicar_panel(ctx_, detalle_.panel);
    ctx_.estado().marcar_ocupado(false);
    calculando_ = false;
    if (foco && foco->isEnabled() && !foco->hasFocus())
        foco->setFocus();
}

bool PanelArticulo::eventFilter(QObject *watched, QEvent *event)
{
    auto *box = qobject_cast<QLineEdit *>(watched);
    if (!box || !incompletas_.contains(box) || calculando_)
        return QWidget::eventFilter(watched, event);
    bool terminada = false;
    if (event->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent *>(event)->key();
        terminada = key == Qt::Key_Return || key == Qt::Key_Enter;
    } else if (event->type() == QEvent::FocusOut) {
        // Another window coming to the front isn't leaving the box.
        const Qt::FocusReason reason = static_cast<QFocusEvent *>(event)->reason();
        terminada = reason != Qt::ActiveWindowFocusReason && reason != Qt::PopupFocusReason;
    }
    if (terminada)
        formula_terminada(box);
    return QWidget::eventFilter(watched, event);
}

void PanelArticulo::precio_lista_editado()
{
    if (detalle_.id == 0 || !detalle_.plista_editable)
        return;
    escribir_precio_lista(ctx_, detalle_, plista_->text());
    mostrar_figuras(plista_);
}

void PanelArticulo::favoritos_click()
{
    if (alternar_favorito(ctx_, detalle_))
        mostrar();
}

void PanelArticulo::comentario_click()
{
    if (detalle_.id == 0 || !editor_comentario_)
        return;
    const std::optional<QString> texto = editor_comentario_(detalle_.marcas.comentario);
    if (texto && guardar_comentario_articulo(ctx_, detalle_, *texto))
        mostrar();
}

void PanelArticulo::mostrar()
{
    const ArticleDetail &d = detalle_;
    id_->setText(d.id == 0 ? QString() : QString::number(d.id));
    for (int i = 0; i < kCamposArticulo; ++i) {
        QLineEdit *campo = campos_[static_cast<size_t>(i)];
        campo->setText(d.campos[static_cast<size_t>(i)]);
        campo->setCursorPosition(0); // a long name shows its beginning
    }
    for (int i = 0; i < kMarcasArticulo; ++i)
        marcas_[static_cast<size_t>(i)]->setVisible(d.imagenes[static_cast<size_t>(i)]);
    marca_comentario_->setVisible(d.imagen_comentario);

    favoritos_->setText(d.favoritos.caption);
    favoritos_->setEnabled(d.favoritos.habilitado);
    control_->setText(d.control.caption);
    control_->setEnabled(d.control.habilitado);
    comentarios_->setEnabled(d.comentarios_habilitado);
    unidades_->setEnabled(d.unidades_habilitado);
    faltante_->setEnabled(d.pedido_habilitado);

    const PricePanel &p = d.panel;
    incompletas_.clear();
    ganancia_->setText(p[C::TextBox_Ganancia].text);
    descuento_->setText(p[C::TextBox_Descuento].text);
    desusr_->setText(p[C::Textbox_desusr].text);
    for (QLineEdit *box : {ganancia_, descuento_, desusr_})
        box->setReadOnly(d.id == 0);
    plista_->setReadOnly(!d.plista_editable);
    const QString recargo = ctx_.leer_parametro(QStringLiteral("recargo_tarjeta"));
    set_leyenda_tarjeta(leyenda_tarjeta(recargo.isEmpty() ? QStringLiteral("0") : recargo));
    mostrar_figuras();
}

void PanelArticulo::mostrar_figuras(const QLineEdit *escribiendo)
{
    const PricePanel &p = detalle_.panel;
    auto poner = [escribiendo](QLineEdit *box, const QString &texto) {
        if (box != escribiendo)
            box->setText(texto);
    };
    poner(plista_, p[C::TextBox_PLista].text);
    poner(costo_, p[C::TextBox_Costo].text);
    poner(ptotal_, p[C::TextBox_PTotal].text);
    poner(ptotal_civa_, p[C::TextBox_PTotal_civa].text);
    label50_->setText(p[C::Label50].text);
    articulo_label_->setText(p[C::articulo_label].text.isEmpty() ? QStringLiteral("Precio de Venta con IVA")
                                                                 : p[C::articulo_label].text);
    precio_solo_->setText(p[C::lPrecioSolo].text.isEmpty() ? QString()
                                                           : QStringLiteral("$ ") + p[C::lPrecioSolo].text);
    precio_tarjeta_->setText(p[C::lPrecioSolotarjeta].text.isEmpty()
                                 ? QString()
                                 : QStringLiteral("$ ") + p[C::lPrecioSolotarjeta].text);
    unidad_big_->setText(p[C::Label_PListacustomBig].text);
    unidad_->setText(p[C::Label_PListacustom].text);

    const QColor texto = palette().color(QPalette::Text);
    const QColor color = color_de_moneda(detalle_.color, texto);
    for (QLineEdit *box : {ptotal_, ptotal_civa_, plista_, costo_})
        pintar(box, QPalette::Text, color);
    pintar(precio_solo_, QPalette::WindowText,
           color_de_moneda(detalle_.color, palette().color(QPalette::WindowText)));
}

} // namespace vendrix

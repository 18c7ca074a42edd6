// The controls of the article panel and how they sit: the article's data on
// top, its marks and buttons, then the price. Built for a counter screen: the
// sale price in large type, every box and button reachable by keyboard.
#include "screens/lists/panel_articulo.h"
#include "screens/main_window/filtro_teclas.h"

#include <QFrame>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace vendrix {

namespace {

using C = PanelField;

QFont fuente(const QFont &base, qreal factor, bool negrita)
{
    QFont f = base;
    f.setPointSizeF(base.pointSizeF() * factor);
    f.setBold(negrita);
    return f;
}

QLineEdit *caja(QWidget *parent, const QString &nombre, bool solo_lectura = true)
{
    auto *box = new QLineEdit(parent);
    box->setObjectName(nombre);
    box->setReadOnly(solo_lectura);
    return box;
}

QLabel *etiqueta(QWidget *parent, const QString &texto, QWidget *buddy = nullptr)
{
    auto *label = new QLabel(texto, parent);
    if (buddy)
        label->setBuddy(buddy);
    return label;
}

QPushButton *boton(QWidget *parent, const QString &nombre, const QString &texto, const QString &atajo)
{
    auto *b = new QPushButton(texto, parent);
    b->setObjectName(nombre);
    b->setShortcut(QKeySequence(atajo));
    b->setToolTip(atajo);
    return b;
}

// A mark shown as a coloured tag.
QLabel *marca(QWidget *parent, const QString &nombre, const QString &texto, const char *fondo)
{
    auto *label = new QLabel(texto, parent);
    label->setObjectName(nombre);
    label->setStyleSheet(QStringLiteral("QLabel { background: %1; color: black; border-radius: 3px; "
                                        "padding: 2px 6px; font-weight: bold; }")
                             .arg(QLatin1String(fondo)));
    label->hide();
    return label;
}

} // namespace

void PanelArticulo::construir()
{
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(construir_datos());
    layout->addWidget(construir_botones());
    layout->addWidget(construir_precios());
    layout->addStretch(1);
}

QWidget *PanelArticulo::construir_datos()
{
    auto *grupo = new QGroupBox(QStringLiteral("Artículo"), this);
    auto *grid = new QGridLayout(grupo);
    for (int i = 0; i < kCamposArticulo; ++i)
        campos_[static_cast<size_t>(i)] = caja(grupo, QStringLiteral("TextBox_articulo_%1").arg(i));
    id_ = caja(grupo, QStringLiteral("TextBox_ID"));
    auto campo = [this](ArticleField c) { return campos_[static_cast<size_t>(c)]; };
    using A = ArticleField;
    auto fila = [&](int row, const QString &t1, QWidget *w1, const QString &t2 = {}, QWidget *w2 = nullptr) {
        grid->addWidget(etiqueta(grupo, t1, w1), row, 0);
        grid->addWidget(w1, row, 1, 1, w2 ? 1 : 3);
        if (w2) {
            grid->addWidget(etiqueta(grupo, t2, w2), row, 2);
            grid->addWidget(w2, row, 3);
        }
    };
    fila(0, QStringLiteral("Proveedor"), campo(A::Supplier), QStringLiteral("Código"), campo(A::Codigo));
    fila(1, QStringLiteral("Rubro"), campo(A::Grupo), QStringLiteral("Marca"), campo(A::Marca));
    fila(2, QStringLiteral("Descripción"), campo(A::Descripcion));
    fila(3, QStringLiteral("Moneda"), campo(A::Moneda), QStringLiteral("Unidad"), campo(A::Unidad));
    fila(4, QStringLiteral("Fecha lista"), campo(A::Fecha), QStringLiteral("ID"), id_);
    fila(5, QStringLiteral("Observaciones"), campo(A::Observaciones));
    fila(6, QStringLiteral("Comentario"), campo(A::Comentario));
    grid->setColumnStretch(1, 3);
    grid->setColumnStretch(3, 2);
    return grupo;
}

QWidget *PanelArticulo::construir_botones()
{
    auto *zona = new QWidget(this);
    auto *v = new QVBoxLayout(zona);
    v->setContentsMargins(0, 0, 0, 0);

    auto *marcas = new QHBoxLayout;
    marcas_ = {
        marca(zona, QStringLiteral("Picture_testigo_0"), QStringLiteral("★ Favorito"), "#f7d24a"),
        marca(zona, QStringLiteral("Picture_testigo_1"), QStringLiteral("Precio controlado"), "#9fd3f7"),
        marca(zona, QStringLiteral("Picture_testigo_2"), QStringLiteral("Pedido pendiente"), "#f7b07a"),
        marca(zona, QStringLiteral("Picture_testigo_3"), QStringLiteral("Pedido"), "#b6e3a1")};
    marca_comentario_ =
        marca(zona, QStringLiteral("Picture_comentario"), QStringLiteral("Con comentario"), "#dcc8f0");
    for (QLabel *m : marcas_)
        marcas->addWidget(m);
    marcas->addWidget(marca_comentario_);
    marcas->addStretch(1);
    v->addLayout(marcas);

    auto *grid = new QGridLayout;
    favoritos_ = boton(zona, QStringLiteral("Command_testigo_0"), QStringLiteral("Agregar a favoritos"),
                       QStringLiteral("Alt+F"));
    control_ = boton(zona, QStringLiteral("Command_testigo_1"), QStringLiteral("Controlar Precio"),
                     QStringLiteral("Alt+C"));
    comentarios_ = boton(zona, QStringLiteral("Command_user_comments"), QStringLiteral("Comentario"),
                         QStringLiteral("Alt+O"));
    unidades_ = boton(zona, QStringLiteral("Command_unudaddemedida"), QStringLiteral("Unidades"),
                      QStringLiteral("Alt+U"));
    faltante_ = boton(zona, QStringLiteral("Command_Faltante"), QStringLiteral("Pedir al proveedor"),
                      QStringLiteral("Alt+P"));
    grid->addWidget(favoritos_, 0, 0);
    grid->addWidget(control_, 0, 1);
    grid->addWidget(comentarios_, 0, 2);
    grid->addWidget(unidades_, 1, 0);
    grid->addWidget(faltante_, 1, 1);
    v->addLayout(grid);

    connect(favoritos_, &QPushButton::clicked, this, &PanelArticulo::favoritos_click);
    connect(comentarios_, &QPushButton::clicked, this, &PanelArticulo::comentario_click);
    connect(control_, &QPushButton::clicked, this, &PanelArticulo::controlPedido);
    connect(unidades_, &QPushButton::clicked, this, &PanelArticulo::unidadesPedidas);
    connect(faltante_, &QPushButton::clicked, this, &PanelArticulo::pedidoAlProveedor);
    return zona;
}

QWidget *PanelArticulo::construir_precios()
{
    auto *grupo = new QGroupBox(QStringLiteral("Precio"), this);
    // Only as tall as the view shown: the room left stays below it.
    grupo->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Maximum);
    auto *v = new QVBoxLayout(grupo);
    preciodetalle_ = boton(grupo, QStringLiteral("preciodetalle"), QString(), QStringLiteral("Alt+D"));
    connect(preciodetalle_, &QPushButton::clicked, this, &PanelArticulo::preciodetalle_click);
    v->addWidget(preciodetalle_, 0, Qt::AlignLeft);

    // The price alone, large enough to read from across the counter.
    solo_ = new QFrame(grupo);
    solo_->setObjectName(QStringLiteral("framepreciosolo"));
    auto *sv = new QVBoxLayout(solo_);
    articulo_label_ = etiqueta(solo_, QString());
    articulo_label_->setObjectName(QStringLiteral("articulo_label"));
    articulo_label_->setFont(fuente(font(), 1.2, true));
    precio_solo_ = etiqueta(solo_, QString());
    precio_solo_->setObjectName(QStringLiteral("lPrecioSolo"));
    precio_solo_->setFont(fuente(font(), 3.2, true));
    precio_solo_->setTextInteractionFlags(Qt::TextSelectableByMouse);
    unidad_big_ = etiqueta(solo_, QString());
    unidad_big_->setObjectName(QStringLiteral("Label_PListacustomBig"));
    sv->addWidget(articulo_label_);
    sv->addWidget(precio_solo_);
    sv->addWidget(unidad_big_);
    v->addWidget(solo_);

    // The whole calculation: list price, the three formulas, cost and prices.
    calculo_ = new QFrame(grupo);
    calculo_->setObjectName(QStringLiteral("framepreciodetalle"));
    auto *g = new QGridLayout(calculo_);
    plista_ = caja(calculo_, QStringLiteral("TextBox_PLista"));
    descuento_ = caja(calculo_, QStringLiteral("TextBox_Descuento"), false);
    costo_ = caja(calculo_, QStringLiteral("TextBox_Costo"));
    ganancia_ = caja(calculo_, QStringLiteral("TextBox_Ganancia"), false);
    desusr_ = caja(calculo_, QStringLiteral("Textbox_desusr"), false);
    ptotal_ = caja(calculo_, QStringLiteral("TextBox_PTotal"));
    ptotal_civa_ = caja(calculo_, QStringLiteral("TextBox_PTotal_civa"));
    ptotal_civa_->setFont(fuente(font(), 1.6, true));
    label50_ = etiqueta(calculo_, QString());
    label50_->setObjectName(QStringLiteral("Label50"));
    unidad_ = etiqueta(calculo_, QString());
    unidad_->setObjectName(QStringLiteral("Label_PListacustom"));
    const std::array<std::pair<QString, QLineEdit *>, 7> filas{{
        {QStringLiteral("Precio de &lista"), plista_},
        {QStringLiteral("&Descuento"), descuento_},
        {QStringLiteral("Costo"), costo_},
        {QStringLiteral("&Ganancia"), ganancia_},
        {QStringLiteral("Desc. clie&nte"), desusr_},
        {QStringLiteral("Precio sin IVA"), ptotal_},
        {QStringLiteral("Precio con IVA"), ptotal_civa_},
    }};
    for (int i = 0; i < static_cast<int>(filas.size()); ++i) {
        g->addWidget(
            etiqueta(calculo_, filas[static_cast<size_t>(i)].first, filas[static_cast<size_t>(i)].second), i,
            0);
        g->addWidget(filas[static_cast<size_t>(i)].second, i, 1);
    }
    g->addWidget(unidad_, 0, 2);
    g->addWidget(label50_, 6, 2);
    v->addWidget(calculo_);

    // The card price shows in both views.
    auto *tarjeta = new QHBoxLayout;
    label39_ = etiqueta(grupo, QString());
    label39_->setObjectName(QStringLiteral("Label39"));
    label39_->setFont(fuente(font(), 1.2, false));
    precio_tarjeta_ = etiqueta(grupo, QString());
    precio_tarjeta_->setObjectName(QStringLiteral("lPrecioSolotarjeta"));
    precio_tarjeta_->setFont(fuente(font(), 1.8, true));
    tarjeta->addWidget(label39_);
    tarjeta->addWidget(precio_tarjeta_, 1);
    v->addLayout(tarjeta);

    instalar_filtro_formula(ganancia_, QStringLiteral("ganancia"));
    instalar_filtro_formula(descuento_, QStringLiteral("descuento"));
    instalar_filtro_formula(desusr_, QStringLiteral("descuento"));
    instalar_filtro_numero(plista_, QStringLiteral("real"));
    // After the key filters, so that Enter reaches the panel first.
    for (QLineEdit *box : {ganancia_, descuento_, desusr_})
        box->installEventFilter(this);
    connect(ganancia_, &QLineEdit::textEdited, this,
            [this] { formula_editada(C::TextBox_Ganancia, ganancia_); });
    connect(descuento_, &QLineEdit::textEdited, this,
            [this] { formula_editada(C::TextBox_Descuento, descuento_); });
    connect(desusr_, &QLineEdit::textEdited, this, [this] { formula_editada(C::Textbox_desusr, desusr_); });
    connect(plista_, &QLineEdit::textEdited, this, &PanelArticulo::precio_lista_editado);
    return grupo;
}

} // namespace vendrix

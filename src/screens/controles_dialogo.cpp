#include "screens/controles_dialogo.h"

#include "core/numeric.h"
#include "core/validators.h"
#include "sales/articulo_carrito.h"
#include "screens/main_window/filtro_teclas.h"

#include <QApplication>
#include <QDialog>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QToolButton>
#include <QVBoxLayout>

#include <algorithm>

namespace vendrix::screens {

int filtrar_tecla_real(const QString &texto, int key, bool teclado_numerico)
{
    if (teclado_numerico && key == '.')
        key = kSeparadorDecimal.unicode();
    filtro_tecla_numero(texto, key, u"real");
    return key;
}

void filtrar_numero_real(QLineEdit *box)
{
    instalar_filtro_numero(box, QStringLiteral("real"));
}

QLineEdit *caja_de_lectura(QWidget *parent, const QString &nombre)
{
    auto *box = new QLineEdit(parent);
    box->setObjectName(nombre);
    box->setReadOnly(true);
    return box;
}

QLineEdit *caja_numero(QWidget *parent, const QString &nombre)
{
    auto *box = new QLineEdit(parent);
    box->setObjectName(nombre);
    box->setAlignment(Qt::AlignRight);
    filtrar_numero_real(box);
    return box;
}

void marcar_guardado(QLineEdit *box, bool guardado)
{
    QPalette palette = box->palette();
    palette.setColor(QPalette::Text,
                     guardado ? QColor(Qt::red) : QApplication::palette(box).color(QPalette::Text));
    box->setPalette(palette);
}

QHBoxLayout *con_flechas(QLineEdit *box, UpDown *flechas)
{
    auto *fila = new QHBoxLayout;
    fila->addWidget(box);
    fila->addWidget(flechas);
    return fila;
}

UpDown::UpDown(QLineEdit *buddy, QWidget *parent)
    : QWidget(parent), buddy_(buddy), arriba_(new QToolButton(this)), abajo_(new QToolButton(this))
{
    arriba_->setArrowType(Qt::UpArrow);
    abajo_->setArrowType(Qt::DownArrow);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(arriba_);
    layout->addWidget(abajo_);
    connect(arriba_, &QToolButton::clicked, this, [this] { mover(1); });
    connect(abajo_, &QToolButton::clicked, this, [this] { mover(-1); });
}

void UpDown::mover(int paso)
{
    const double valor = std::max(1.0, valor_texto(buddy_->text()) + paso);
    buddy_->setText(texto_numero(valor));
    Q_EMIT cambiado(buddy_->text());
}

QPushButton *boton_de_dialogo(QWidget *dialogo, const QString &nombre, const QString &texto)
{
    auto *boton = new QPushButton(texto, dialogo);
    boton->setObjectName(nombre);
    return boton;
}

void disponer_dialogo(QDialog *dialogo, QFormLayout *form, QPushButton *aceptar, QPushButton *cancelar)
{
    aceptar->setDefault(true);
    auto *botones = new QHBoxLayout;
    botones->addStretch();
    botones->addWidget(aceptar);
    botones->addWidget(cancelar);
    auto *layout = new QVBoxLayout(dialogo);
    layout->addLayout(form);
    layout->addLayout(botones);
    QObject::connect(cancelar, &QPushButton::clicked, dialogo, &QDialog::reject);
}

ControlesArticulo::ControlesArticulo(QWidget *dialogo)
    : text_articulos(caja_de_lectura(dialogo, QStringLiteral("text_articulos"))),
      Text_artdesc(caja_de_lectura(dialogo, QStringLiteral("Text_artdesc"))),
      Text_marc(caja_de_lectura(dialogo, QStringLiteral("Text_marc"))),
      Text_UM(caja_de_lectura(dialogo, QStringLiteral("Text_UM"))),
      Text_pventa(caja_de_lectura(dialogo, QStringLiteral("Text_pventa"))),
      Text_pventa_display(caja_de_lectura(dialogo, QStringLiteral("Text_pventa_display"))),
      Label_Dolares(new QLabel(dialogo)),
      cant_unidades(caja_numero(dialogo, QStringLiteral("cant_unidades"))),
      ud_cant_unidades(new UpDown(cant_unidades, dialogo)),
      Text_cantxprecio(caja_de_lectura(dialogo, QStringLiteral("Text_cantxprecio")))
{
    Text_pventa->hide();
    Label_Dolares->setObjectName(QStringLiteral("Label_Dolares"));
    ud_cant_unidades->setObjectName(QStringLiteral("ud_cant_unidades"));
}

void ControlesArticulo::filas_del_articulo(QFormLayout *form) const
{
    form->addRow(QStringLiteral("Código:"), text_articulos);
    form->addRow(QStringLiteral("Artículo:"), Text_artdesc);
    form->addRow(QStringLiteral("Marca:"), Text_marc);
    form->addRow(QStringLiteral("Unidad de medida:"), Text_UM);
    form->addRow(QStringLiteral("Precio de venta:"), Text_pventa_display);
    form->addRow(Label_Dolares);
}

void ControlesArticulo::filas_de_unidades(QFormLayout *form, QWidget *al_lado) const
{
    QHBoxLayout *unidades = con_flechas(cant_unidades, ud_cant_unidades);
    if (al_lado)
        unidades->addWidget(al_lado);
    form->addRow(QStringLiteral("Cantidad de Unidades por Precio:"), unidades);
    form->addRow(QStringLiteral("Precio unitario:"), Text_cantxprecio);
}

void ControlesArticulo::mostrar(const VistaArticulo &v) const
{
    text_articulos->setText(v.text_articulos);
    Text_artdesc->setText(v.Text_artdesc);
    Text_marc->setText(v.Text_marc);
    Text_UM->setText(v.Text_UM);
    Text_pventa->setText(v.Text_pventa);
    Text_pventa->setToolTip(v.Text_pventa_tag);
    Text_pventa_display->setText(v.Text_pventa_display);
    Text_pventa_display->setToolTip(v.Text_pventa_display);
    Label_Dolares->setText(v.Label_Dolares);
    if (cant_unidades->text() != v.cant_unidades)
        cant_unidades->setText(v.cant_unidades);
    marcar_guardado(cant_unidades, v.unidades_guardadas);
    Text_cantxprecio->setText(v.Text_cantxprecio);
    Text_cantxprecio->setToolTip(v.Text_cantxprecio_tag);
}

} // namespace vendrix::screens

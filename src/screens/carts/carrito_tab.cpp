#include "screens/carts/carrito_tab.h"

#include "core/context.h"
#include "sales/carrito.h"
#include "sales/operar_carrito.h"
#include "sales/recalcular_carrito.h"
#include "sales/stored_carts/cargar_carrito_guardado.h"
#include "screens/carts/stored_documents_dialog.h"
#include "screens/controles_dialogo.h"
#include "widgets/lynx_grid.h"

#include <QHBoxLayout>
#include <QHeaderView>
#include <QLineEdit>
#include <QPushButton>
#include <QTableView>
#include <QVBoxLayout>

#include <algorithm>

namespace vendrix::screens {

namespace {

using widgets::ColumnSpec;
using widgets::ColumnType;

struct CsvColumn {
    const char *titulo;
    int ancho;
};

// Widths in twips; cols 4 to 12 are kept from the operator's sight.
constexpr CsvColumn kColumnas[kColumnasCarrito] = {
    {"Cantidad", 1000},
    {"Artículo", 4000},
    {"Precio Unit. (C/iva)", 2000},
    {"Importe (C/iva)", 2000},
    {"IVA", 1000},
    {"Codigo", 1000},
    {"Ganancia", 1000},
    {"Descuento", 1000},
    {"Descuento Cliente", 1000},
    {"Costo", 1000},
    {"Código_segun_Proveedor", 1000},
    {"Grupo_segun_Proveedor", 1000},
    {"Proveedor", 1000},
};
constexpr int kPrimeraOculta = kColIva;

QPushButton *boton(QWidget *parent, const QString &nombre, const QString &texto)
{
    auto *b = new QPushButton(texto, parent);
    b->setObjectName(nombre);
    return b;
}

} // namespace

CarritoTab::CarritoTab(Context &ctx, Carrito &carrito, QWidget *parent)
    : QWidget(parent), ctx_(ctx), carrito_(carrito), grilla_(new widgets::LynxGrid(this)),
      total_(new QLineEdit(this))
{
    const QString n = carrito_.numero_texto();
    setObjectName(QStringLiteral("carrito") + n);
    grilla_->setObjectName(QStringLiteral("DataGridView_carrito") + n);
    grilla_->setOperator(&ctx_.op());
    crear_columnas();

    total_->setObjectName(QStringLiteral("c") + n + QStringLiteral("_text_Total"));
    total_->setReadOnly(true);
    total_->setAlignment(Qt::AlignRight);

    QPushButton *agregar =
        boton(this, QStringLiteral("c") + n + QStringLiteral("_agregar"), QStringLiteral("Agregar"));
    QPushButton *eliminar =
        boton(this, QStringLiteral("c") + n + QStringLiteral("_eliminar"), QStringLiteral("Eliminar"));
    QPushButton *vaciar =
        boton(this, QStringLiteral("c") + n + QStringLiteral("_vaciar"), QStringLiteral("Vaciar"));
    // One of the control array c_recalcular; its index is the cart's less one.
    QPushButton *recalcular = boton(this, QStringLiteral("c_recalcular"), QStringLiteral("Recalcular"));
    recalcular->setProperty("indice", carrito_.numero() - 1);
    // Of the control array c_abrir, indexed the same way.
    QPushButton *abrir = boton(this, QStringLiteral("c_abrir"), QStringLiteral("Abrir"));
    abrir->setProperty("indice", carrito_.numero() - 1);
    facturar_ =
        boton(this, QStringLiteral("c") + n + QStringLiteral("_facturar"), QStringLiteral("Facturar"));

    auto *botones = new QHBoxLayout;
    for (QPushButton *b : {abrir, agregar, eliminar, vaciar, recalcular})
        botones->addWidget(b);
    botones->addStretch();
    botones->addWidget(total_);
    botones->addWidget(facturar_);
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(grilla_, 1);
    layout->addLayout(botones);

    connect(agregar, &QPushButton::clicked, this, &CarritoTab::agregar_linea);
    connect(eliminar, &QPushButton::clicked, this, &CarritoTab::eliminar_linea);
    connect(vaciar, &QPushButton::clicked, this, &CarritoTab::vaciar);
    connect(recalcular, &QPushButton::clicked, this, &CarritoTab::recalcular);
    connect(abrir, &QPushButton::clicked, this, &CarritoTab::abrir);
    connect(facturar_, &QPushButton::clicked, this, [this] {
        grilla_->CommitEdit();
        Q_EMIT facturar_pedido(carrito_.numero());
    });
    mostrar();
}

void CarritoTab::crear_columnas()
{
    for (int col = 0; col < kColumnasCarrito; ++col) {
        const CsvColumn &c = kColumnas[col];
        ColumnSpec spec{.heading = QString::fromUtf8(c.titulo), .width = c.ancho};
        spec.visible = col < kPrimeraOculta;
        spec.locked = !es_columna_editable(col);
        if (col == kColImporte) {
            spec.type = ColumnType::Number;
            spec.summed = true;
        }
        if (col == kColCantidad || col == kColPrecioUnitario || col == kColImporte)
            spec.alignment = Qt::AlignRight | Qt::AlignVCenter;
        // Carts 2 to 4 have always carried this format on the description.
        if (col == kColArticulo && carrito_.numero() > 1)
            spec.format = QStringLiteral("#");
        grilla_->AddColumn(spec);
    }
    grilla_->setTotalsLineShow(true);
    grilla_->setTotalsLineCaption(kColCantidad, kLeyendaCantidad);
    grilla_->setTotalsLineCaption(kColImporte, kLeyendaTotal);
    ajustar_anchos();
    grilla_->setAllowEdit(true);
    grilla_->setEditKeyPressHandler([this](int col, int &key) { filtrar_tecla(col, key); });
    grilla_->setAfterEditHandler([this](int row, int col, QString &value, bool &cancel) {
        despues_de_editar(row, col, value, cancel);
    });
}

void CarritoTab::ajustar_anchos()
{
    QHeaderView *header = grilla_->view()->horizontalHeader();
    QFont negrita = grilla_->font();
    negrita.setBold(true);
    const QFontMetrics totales(negrita);
    // The totals line leaves a few pixels each side of its captions, and a
    // little room so that they aren't cut at the last pixel; a summed column
    // shows its total after the caption.
    const int margen = 8 + 2 * totales.averageCharWidth();
    const QString total = QStringLiteral(" 9999999,99");
    for (int col : {kColCantidad, kColPrecioUnitario, kColImporte}) {
        const QString texto = grilla_->TotalsLineCaption(col) + (grilla_->ColSummed(col) ? total : QString());
        const int caption = totales.horizontalAdvance(texto) + margen;
        header->resizeSection(col,
                              std::max({header->sectionSize(col), header->sectionSizeHint(col), caption}));
    }
    header->setSectionResizeMode(kColArticulo, QHeaderView::Stretch);
}

void CarritoTab::mostrar()
{
    const int fila = grilla_->Row();
    grilla_->setRedraw(false);
    grilla_->Clear();
    for (const LineaCarrito &linea : carrito_.lineas()) {
        const int row = grilla_->AddItem(QString());
        for (int col = 0; col < kColumnasCarrito; ++col)
            grilla_->setCellText(row, col, linea[static_cast<size_t>(col)]);
    }
    grilla_->setTotalsLineCaption(1, carrito_.marca_guardado());
    grilla_->setTotalsLineCaption(2, carrito_.leyenda_extra());
    grilla_->setRedraw(true);
    if (carrito_.tiene_fila(fila))
        grilla_->setRow(fila);
    total_->setText(carrito_.texto_total());
    facturar_->setEnabled(!carrito_.vacio());
}

void CarritoTab::mostrar_importes()
{
    // Cell by cell: this runs inside the grid's edit, whose editor must
    // outlive it, so the grid isn't held and released here.
    for (int row = 0; row < carrito_.filas(); ++row)
        grilla_->setCellText(row, kColImporte, carrito_.celda(row, kColImporte));
    total_->setText(carrito_.texto_total());
}

void CarritoTab::agregar_linea()
{
    operar_carrito(ctx_, carrito_, VerboCarrito::agregar, false);
    mostrar();
}

void CarritoTab::eliminar_linea()
{
    if (operar_carrito(ctx_, carrito_, VerboCarrito::borrar, false, grilla_->Row()))
        mostrar();
}

void CarritoTab::vaciar()
{
    if (operar_carrito(ctx_, carrito_, VerboCarrito::vaciar, true))
        mostrar();
}

void CarritoTab::recalcular()
{
    grilla_->CommitEdit();
    if (confirmar_recalcular_carrito(ctx_, carrito_))
        mostrar();
}

void CarritoTab::abrir()
{
    grilla_->CommitEdit();
    StoredDocumentsDialog lista(ctx_, this);
    if (lista.exec() != QDialog::Accepted || lista.documento().isEmpty())
        return;
    // The cart's lines give way to the document's without a question.
    cargar_carrito_guardado(ctx_, carrito_, lista.documento());
    mostrar();
}

void CarritoTab::filtrar_tecla(int col, int &key) const
{
    if (!es_columna_editable(col))
        return;
    // The open editor is the newest box of the view: closed ones wait there
    // for their deletion.
    const QList<QLineEdit *> editores = grilla_->view()->viewport()->findChildren<QLineEdit *>();
    key = filtrar_tecla_real(editores.isEmpty() ? QString() : editores.last()->text(), key);
}

void CarritoTab::despues_de_editar(int row, int col, QString &value, bool &cancel)
{
    if (!editar_celda_carrito(ctx_, carrito_, row, col, value)) {
        cancel = true;
        return;
    }
    mostrar_importes();
}

} // namespace vendrix::screens

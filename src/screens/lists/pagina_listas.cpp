#include "screens/lists/pagina_listas.h"

#include "catalogue/pricing/supplier_rules/rule_store.h"
#include "core/context.h"
#include "sales/carritos.h"
#include "screens/carts/frm_agregar_udem.h"
#include "screens/carts/tab_changos.h"
#include "screens/lists/panel_articulo.h"
#include "widgets/lynx_grid.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QPushButton>
#include <QSplitter>
#include <QTableView>
#include <QVBoxLayout>

namespace vendrix::screens {

namespace {

// The first cells of the row that stands for "more results".
const QString kMarcador = QStringLiteral("...VENDRIX...");
constexpr int kColumnaId = 0;
constexpr int kColumnaProveedor = 1;
constexpr int kColumnaGrupo = 2;
constexpr int kColumnaDescripcion = 3;

bool es_fila_de_articulo(const widgets::LynxGrid &grilla, int row)
{
    return row >= 0 && row < grilla.Rows() && grilla.CellText(row, kColumnaId) != kMarcador &&
           grilla.CellText(row, kColumnaProveedor) != kMarcador;
}

QPushButton *boton_agregar(QWidget *parent, const QString &nombre, const QString &atajo)
{
    auto *b = new QPushButton(parent);
    b->setObjectName(nombre);
    b->setShortcut(QKeySequence(atajo));
    b->setToolTip(atajo);
    b->setMinimumHeight(32);
    QFont f = b->font();
    f.setBold(true);
    b->setFont(f);
    return b;
}

} // namespace

PaginaListas::PaginaListas(Context &ctx, RuleStore &reglas, QWidget *busqueda, widgets::LynxGrid *grilla,
                           QWidget *parent)
    : QWidget(parent), ctx_(ctx), busqueda_(busqueda), grilla_(grilla), panel_(new PanelArticulo(ctx, reglas))
{
    setObjectName(QStringLiteral("PaginaListas"));

    // The panel and, under it, the add buttons.
    auto *derecha = new QWidget;
    auto *v = new QVBoxLayout(derecha);
    v->setContentsMargins(0, 0, 0, 0);
    v->addWidget(panel_, 1);
    auto *botones = new QGridLayout;
    for (int n = 1; n <= Carritos::kCantidad; ++n) {
        QPushButton *b = boton_agregar(derecha, QStringLiteral("Command_add_carrito%1").arg(n),
                                       QStringLiteral("Alt+%1").arg(n));
        agregar_[static_cast<size_t>(n - 1)] = b;
        botones->addWidget(b, (n - 1) / 2, (n - 1) % 2);
        connect(b, &QPushButton::clicked, this, [this, n] { agregar_a_carrito(n); });
    }
    agregar_unico_ =
        boton_agregar(derecha, QStringLiteral("Command_add_carritoUnico"), QStringLiteral("Alt+1"));
    botones->addWidget(agregar_unico_, 2, 0, 1, 2);
    connect(agregar_unico_, &QPushButton::clicked, this, [this] { agregar_a_carrito(1); });
    v->addLayout(botones);

    // The grid on the left takes the room the panel leaves.
    auto *splitter = new QSplitter(Qt::Horizontal, this);
    splitter->setObjectName(QStringLiteral("SplitterListas"));
    splitter->addWidget(busqueda_);
    splitter->addWidget(derecha);
    splitter->setStretchFactor(0, 3);
    splitter->setStretchFactor(1, 2);
    splitter->setSizes({600, 400});
    splitter->setChildrenCollapsible(false);
    // The description takes the width the other columns leave, so the
    // price column stays in sight without scrolling sideways.
    grilla_->view()->horizontalHeader()->setSectionResizeMode(kColumnaDescripcion, QHeaderView::Stretch);
    auto *layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(splitter);

    connect(grilla_, &widgets::LynxGrid::RowColChanged, this, &PaginaListas::fila_cambiada);
    connect(grilla_, &widgets::LynxGrid::DblClick, this, &PaginaListas::doble_clic);
    grilla_->view()->setContextMenuPolicy(Qt::CustomContextMenu);
    connect(grilla_->view(), &QWidget::customContextMenuRequested, this, &PaginaListas::menu_de_fila);
    connect(panel_, &PanelArticulo::unidadesPedidas, this, &PaginaListas::abrir_unidades);
}

void PaginaListas::conectar_carritos(TabChangos *tabs)
{
    tabs_ = tabs;
    connect(tabs_, &TabChangos::nombre_carrito_cambiado, this, &PaginaListas::nombrar_boton);
    connect(tabs_, &TabChangos::cantidad_carritos_cambiada, this, &PaginaListas::mostrar_botones);
    connect(tabs_, &TabChangos::recargar_panel, this, &PaginaListas::recargar_panel);
    for (int n = 1; n <= Carritos::kCantidad; ++n)
        nombrar_boton(n, nombre_carrito(ctx_, n));
    tabs_->aplicar_carritos();
}

void PaginaListas::nombrar_boton(int numero, const QString &nombre)
{
    if (Carritos::es_numero(numero))
        agregar_[static_cast<size_t>(numero - 1)]->setText(texto_boton_agregar(nombre));
    if (numero == 1)
        agregar_unico_->setText(texto_boton_agregar(nombre));
}

void PaginaListas::mostrar_botones(bool cuatro)
{
    for (QPushButton *b : agregar_)
        b->setVisible(cuatro);
    agregar_unico_->setVisible(!cuatro);
}

// The row-selection event: a row of an article loads into the panel, unless
// it is already there (a change of column keeps the row).
void PaginaListas::fila_cambiada()
{
    const int row = grilla_->Row();
    if (!es_fila_de_articulo(*grilla_, row))
        return;
    if (grilla_->CellText(row, kColumnaId).toLongLong() == panel_->detalle().id)
        return;
    panel_->cargar_fila(grilla_->CellText(row, kColumnaId), grilla_->CellText(row, kColumnaProveedor));
}

std::optional<ArticuloParaCarrito> PaginaListas::articulo_de_fila(int row)
{
    if (!es_fila_de_articulo(*grilla_, row))
        return std::nullopt;
    const qint64 id = grilla_->CellText(row, kColumnaId).toLongLong();
    if (panel_->detalle().id != id)
        panel_->cargar_fila(grilla_->CellText(row, kColumnaId), grilla_->CellText(row, kColumnaProveedor));
    if (panel_->detalle().id != id)
        return std::nullopt;
    return leer_articulo_para_carrito(ctx_, id, grilla_->CellText(row, kColumnaGrupo),
                                      panel_->detalle().panel);
}

void PaginaListas::agregar_a_carrito(int numero)
{
    if (!tabs_)
        return;
    // With no row selected the button does nothing, silently.
    if (const std::optional<ArticuloParaCarrito> datos = articulo_de_fila(grilla_->Row()))
        tabs_->agregar_desde_lista(numero, *datos);
}

bool PaginaListas::agregar_automaticamente()
{
    if (!tabs_)
        return false;
    const std::optional<ArticuloParaCarrito> datos =
        articulo_de_fila(grilla_->Row() < 0 ? 0 : grilla_->Row());
    return datos && tabs_->agregar_automaticamente(*datos);
}

void PaginaListas::doble_clic()
{
    if (!tabs_)
        return;
    if (const std::optional<ArticuloParaCarrito> datos = articulo_de_fila(grilla_->Row()))
        tabs_->agregar_con_doble_clic(*datos);
}

// The right button on a row: the units dialog, for an article whose code
// no other article of its supplier shares.
void PaginaListas::menu_de_fila(const QPoint &pos)
{
    const int row = grilla_->view()->indexAt(pos).row();
    if (!es_fila_de_articulo(*grilla_, row))
        return;
    grilla_->setRow(row);
    if (codigo_unico_en_lista(ctx_, grilla_->CellText(row, kColumnaId).toLongLong()))
        abrir_unidades();
}

void PaginaListas::abrir_unidades()
{
    const std::optional<ArticuloParaCarrito> datos = articulo_de_fila(grilla_->Row());
    if (!datos)
        return;
    FrmAgregarUdeM dialogo(ctx_, *datos, this);
    dialogo.exec();
    if (dialogo.recargar_panel())
        recargar_panel();
    // Saved or not, the list is searched again.
    Q_EMIT busquedaPedida();
}

void PaginaListas::recargar_panel()
{
    if (panel_->detalle().id != 0)
        panel_->cargar_detalle_articulo(panel_->detalle().id);
}

} // namespace vendrix::screens

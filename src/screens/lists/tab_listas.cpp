#include "screens/lists/tab_listas.h"

#include "catalogue/search/search_suggestions.h"
#include "core/context.h"
#include "screens/lists/grilla_listas.h"
#include "screens/lists/live_search.h"
#include "screens/lists/search_completion.h"
#include "widgets/autocomplete_box.h"
#include "widgets/lynx_grid.h"

#include <QHBoxLayout>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace vendrix::screens {

namespace {

// Widths in twips, in the order of `columnas_listas()`; "ID" is hidden.
constexpr int kAnchos[] = {0, 2200, 1800, 5600, 1000, 1600, 1200};
constexpr int kColumnaProveedor = 1;
constexpr int kColumnaPrecio = 6;

} // namespace

TabListas::TabListas(Context &ctx, QWidget *parent)
    : QWidget(parent), ctx_(ctx), texto_(new QLineEdit(this)),
      boton_(new QPushButton(QLatin1String(kBotonBuscar), this)), grilla_(new widgets::LynxGrid(this)),
      autocompletado_(new widgets::AutoCompleteBox(&ctx.op(), this))
{
    texto_->setObjectName(QStringLiteral("TextBox_Buscar"));
    boton_->setObjectName(QStringLiteral("Btn_BuscarListas"));
    grilla_->setObjectName(QStringLiteral("DataGridViewListas"));
    grilla_->setOperator(&ctx.op());

    const QStringList headings = columnas_listas();
    for (int col = 0; col < headings.size(); ++col) {
        widgets::ColumnSpec spec{.heading = headings.at(col), .width = kAnchos[col]};
        spec.visible = col != 0;
        if (col == kColumnaPrecio) {
            spec.alignment = Qt::AlignRight | Qt::AlignVCenter;
            spec.type = widgets::ColumnType::Number;
        }
        spec.locked = true;
        grilla_->AddColumn(spec);
    }
    sink_ = std::make_unique<GrillaLynx>(*grilla_, kColumnaProveedor);

    auto *search = new QHBoxLayout;
    search->addWidget(texto_, 1);
    search->addWidget(boton_);
    auto *layout = new QVBoxLayout(this);
    layout->addLayout(search);
    layout->addWidget(grilla_, 1);

    autocompletado_->AutoCompleteTextbox(texto_);
    autocompletado_->setAntesDeTecla([this](widgets::AutoComplete &c) { preparar_sugerencias(c); });
    connect(texto_, &QLineEdit::textChanged, this, &TabListas::texto_editado);
    connect(texto_, &QLineEdit::returnPressed, this, &TabListas::buscar);
    connect(boton_, &QPushButton::clicked, this, &TabListas::buscar);
    connect(grilla_, &widgets::LynxGrid::RowColChanged, this, &TabListas::fila_cambiada);
    setAcciones({});
}

// The worker's thread ends while every member its result reaches is still
// whole.
TabListas::~TabListas()
{
    delete vivo_;
}

void TabListas::setAcciones(ListActions acciones)
{
    acciones_ = std::move(acciones);
    if (!acciones_.mostrar_primera)
        acciones_.mostrar_primera = [this] { mostrar_primera(); };
}

void TabListas::buscar()
{
    ++generacion_;
    if (vivo_)
        vivo_->abandonar();
    QString caption = boton_->text();
    buscar_articulos(ctx_, texto_->text(), caption, *sink_, acciones_, &buscador_);
    boton_->setText(caption);
}

void TabListas::texto_editado(const QString &texto)
{
    ++generacion_;
    const std::optional<SearchQuery> consulta = consulta_al_escribir(ctx_, texto);
    if (!consulta) {
        if (vivo_)
            vivo_->abandonar();
        return;
    }
    if (!vivo_) {
        Database &db = ctx_.db();
        vivo_ = new LiveSearch([&db](SqlError &error) { return db.abrir_precios_lectura(error); }, this);
        connect(vivo_, &LiveSearch::terminada, this, &TabListas::vista_previa_lista);
    }
    texto_pedido_ = texto;
    vivo_->pedir(*consulta, generacion_);
}

// A failed search of a typed text shows nothing: Enter tells the operator.
void TabListas::vista_previa_lista(quint64 numero, const QueryResult &resultado)
{
    if (numero != generacion_ || !resultado.ok)
        return;
    pintar_resultado(resultado, *sink_);
    Q_EMIT vistaPreviaPintada(texto_pedido_);
}

// The first row selected, in the large font when the shop asked for it.
void TabListas::mostrar_primera()
{
    QFont font = grilla_->font();
    const int base = QWidget::font().pointSize();
    font.setPointSize(ctx_.leer_parametro(QStringLiteral("letraGrande")) == QLatin1String("1") ? base + 4
                                                                                               : base);
    grilla_->setFont(font);
    grilla_->setRow(0);
}

// At each key: the two settings, read now so a change on the configuration
// tab counts at once; the items at the first key that needs them, so the
// start of the program doesn't wait for them.
void TabListas::preparar_sugerencias(widgets::AutoComplete &completion)
{
    if (!aplicar_ajustes_completado(completion, ctx_.config()) || sugerencias_cargadas_)
        return;
    completion.Cleartems();
    completion.AddItemsQuery(ctx_.db(), consulta_sugerencias());
    sugerencias_cargadas_ = true;
}

void TabListas::fila_cambiada()
{
    const int row = grilla_->Row();
    if (row < 0)
        return;
    QStringList cells;
    for (int col = 0; col < 2; ++col)
        cells << grilla_->CellText(row, col);
    if (!es_fila_marcador(cells))
        Q_EMIT articuloSeleccionado(cells.value(0).toLongLong());
}

} // namespace vendrix::screens

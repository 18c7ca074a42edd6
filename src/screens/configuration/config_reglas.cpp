#include "screens/configuration/config_reglas.h"

#include "catalogue/pricing/supplier_rules/rule_combos.h"
#include "catalogue/pricing/supplier_rules/rule_edits.h"
#include "catalogue/pricing/supplier_rules/rule_store.h"
#include "core/context.h"
#include "screens/main_window/filtro_teclas.h"
#include "widgets/lynx_grid.h"

#include <QComboBox>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace vendrix {

namespace {

using widgets::ColumnSpec;

// The list rows and the "all articles" rows of a group stand out from the
// single articles.
QColor color_de_nivel(RuleLevel nivel)
{
    switch (nivel) {
    case RuleLevel::Lista:
        return QColor(255, 236, 179);
    case RuleLevel::Grupo:
        return QColor(212, 230, 250);
    case RuleLevel::Articulo:
        break;
    }
    return {};
}

QComboBox *combo(QWidget *parent, const QString &nombre)
{
    auto *c = new QComboBox(parent);
    c->setObjectName(nombre);
    // Narrow at least, so that the tab fits a 1280-pixel screen; the
    // article's combo takes the width left over.
    c->setMinimumContentsLength(12);
    c->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    return c;
}

void llenar_combo(QComboBox *c, const QStringList &items)
{
    const QString actual = c->currentText();
    const QSignalBlocker bloqueo(c);
    c->clear();
    c->addItems(items);
    const int i = c->findText(actual);
    c->setCurrentIndex(i < 0 ? 0 : i);
}

} // namespace

ConfigReglas::ConfigReglas(Context &ctx, RuleStore &reglas, QWidget *parent)
    : QWidget(parent), ctx_(ctx), reglas_(reglas)
{
    setObjectName(QStringLiteral("ConfigReglas"));
    auto *layout = new QVBoxLayout(this);

    grilla_ = new widgets::LynxGrid(this);
    grilla_->setObjectName(QStringLiteral("DataGridViewProveedores"));
    grilla_->setOperator(&ctx_.op());
    const QStringList titulos = columnas_grilla_reglas();
    const int anchos[] = {2200, 2200, 3600, 1300, 1300};
    const QString filtros[] = {{}, {}, {}, QStringLiteral("0123456789,+-"), QStringLiteral("0123456789,+")};
    for (int i = 0; i < titulos.size(); ++i) {
        ColumnSpec spec;
        spec.heading = titulos[i];
        spec.width = anchos[i];
        spec.input_filter = filtros[i];
        spec.locked = i < static_cast<int>(RuleColumn::Descuento);
        grilla_->AddColumn(spec);
    }
    grilla_->setAllowEdit(true);
    grilla_->setAfterEditHandler(
        [this](int row, int col, QString &valor, bool &cancel) { celda_editada(row, col, valor, cancel); });
    layout->addWidget(grilla_, 1);

    auto *form = new QGridLayout;
    proveedor_ = combo(this, QStringLiteral("Combo_proveedor"));
    grupo_ = combo(this, QStringLiteral("Combo_grupo"));
    articulo_ = combo(this, QStringLiteral("Combo_articulo"));
    descuento_ = new QLineEdit(this);
    descuento_->setObjectName(QStringLiteral("agregar_Descuento"));
    ganancia_ = new QLineEdit(this);
    ganancia_->setObjectName(QStringLiteral("agregar_ganancia"));
    instalar_filtro_formula(descuento_, QStringLiteral("descuento"));
    instalar_filtro_formula(ganancia_, QStringLiteral("ganancia"));
    agregar_ = new QPushButton(QStringLiteral("&Agregar"), this);
    agregar_->setObjectName(QStringLiteral("Command_agregar_provedor"));
    borrar_ = new QPushButton(QStringLiteral("&Borrar"), this);
    borrar_->setObjectName(QStringLiteral("Command_borrar_provedor"));

    const std::pair<QString, QWidget *> campos[] = {{QStringLiteral("&Proveedor"), proveedor_},
                                                    {QStringLiteral("&Grupo"), grupo_},
                                                    {QStringLiteral("Artí&culo"), articulo_},
                                                    {QStringLiteral("&Descuento"), descuento_},
                                                    {QStringLiteral("Ga&nancia"), ganancia_}};
    int columna = 0;
    for (const auto &[texto, widget] : campos) {
        auto *label = new QLabel(texto, this);
        label->setBuddy(widget);
        form->addWidget(label, 0, columna);
        form->addWidget(widget, 1, columna);
        ++columna;
    }
    // The combos take the width left over, the article's most.
    form->setColumnStretch(0, 1);
    form->setColumnStretch(1, 1);
    form->setColumnStretch(2, 2);
    form->addWidget(agregar_, 1, columna++);
    form->addWidget(borrar_, 1, columna);
    layout->addLayout(form);

    connect(proveedor_, &QComboBox::currentTextChanged, this, &ConfigReglas::proveedor_elegido);
    connect(grupo_, &QComboBox::currentTextChanged, this, &ConfigReglas::grupo_elegido);
    connect(agregar_, &QPushButton::clicked, this, &ConfigReglas::agregar);
    connect(borrar_, &QPushButton::clicked, this, &ConfigReglas::borrar);
    connect(&reglas_, &RuleStore::cambiadas, this, [this] {
        if (editando_)
            return;
        mostrar_reglas();
        grupo_elegido();
    });
    mostrar_reglas();
}

void ConfigReglas::inicializar()
{
    llenar_combo(proveedor_, proveedores_combo(ctx_));
    proveedor_elegido();
    reglas_.llenar(ctx_);
}

void ConfigReglas::set_bloqueada(bool bloqueada)
{
    grilla_->setAllowEdit(!bloqueada);
    agregar_->setEnabled(!bloqueada);
    borrar_->setEnabled(!bloqueada);
}

void ConfigReglas::mostrar_reglas()
{
    const int fila_actual = grilla_->Row();
    grilla_->setRedraw(false);
    grilla_->Clear();
    const std::vector<RuleRow> &filas = reglas_.filas();
    for (int i = 0; i < static_cast<int>(filas.size()); ++i) {
        const RuleRow &f = filas[static_cast<size_t>(i)];
        const int row = grilla_->AddItem(
            QStringList{f.proveedor, f.grupo, f.articulo, f.descuento, f.ganancia}.join(QLatin1Char('\t')));
        grilla_->setRowData(row, i);
        const QColor color = color_de_nivel(nivel_regla(f));
        if (color.isValid())
            grilla_->setRowBackColor(row, color);
    }
    grilla_->setRedraw(true);
    if (fila_actual >= 0 && fila_actual < grilla_->Rows())
        grilla_->setRow(fila_actual);
}

void ConfigReglas::proveedor_elegido()
{
    llenar_combo(grupo_, cargar_grupos_proveedor(ctx_, proveedor_->currentText()));
    grupo_elegido();
}

void ConfigReglas::grupo_elegido()
{
    llenar_combo(articulo_, cargar_articulos_grupo(ctx_, proveedor_->currentText(), grupo_->currentText()));
}

void ConfigReglas::agregar()
{
    const RuleRow nueva{proveedor_->currentText(), grupo_->currentText(), articulo_->currentText(),
                        descuento_->text(), ganancia_->text()};
    if (agregar_regla(ctx_, reglas_.filas(), nueva))
        reglas_.llenar(ctx_);
}

void ConfigReglas::borrar()
{
    const int row = grilla_->Row();
    const auto indice = static_cast<size_t>(row < 0 ? 0 : grilla_->RowData(row));
    const RuleRow *fila = row >= 0 && indice < reglas_.filas().size() ? &reglas_.filas()[indice] : nullptr;
    if (borrar_regla(ctx_, fila))
        reglas_.llenar(ctx_);
}

void ConfigReglas::celda_editada(int row, int col, QString &valor, bool &cancel)
{
    const auto indice = static_cast<size_t>(grilla_->RowData(row));
    if (indice >= reglas_.filas().size()) {
        cancel = true;
        return;
    }
    const auto columna = static_cast<RuleColumn>(col);
    const RuleRow fila = reglas_.filas()[indice];
    if (!editar_regla(ctx_, fila, columna, valor)) {
        cancel = true;
        return;
    }
    // The cell takes the value itself; the rules follow without a redraw.
    editando_ = true;
    reglas_.cambiar_formula(static_cast<int>(indice), columna, valor);
    editando_ = false;
}

} // namespace vendrix

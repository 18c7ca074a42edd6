#include "screens/payments/tab_pagos.h"

#include "backoffice/ledger/ledger_listing.h"
#include "backoffice/ledger/ledger_tab.h"
#include "backoffice/ledger/transfer_form.h"
#include "core/context.h"
#include "core/desktop.h"
#include "screens/controles_dialogo.h"
#include "screens/payments/payment_dialogs.h"
#include "widgets/lynx_grid.h"

#include <QCheckBox>
#include <QDateEdit>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTableView>
#include <QUrl>
#include <QVBoxLayout>

namespace vendrix::screens {

namespace {

const char *const kCaptions[TabPagos::kCantidadAcciones] = {"Imprimir",     "Exportar",
                                                            "Mail",         "Eliminar",
                                                            "Buscar",       "Agregar Gasto",
                                                            "Editar",       "Agregar Factura",
                                                            "Agregar Pago", "Agregar Transferencia"};

// Widths of the grid's columns in twips, before they fit their contents.
constexpr int kAnchos[] = {700, 1100, 1500, 2500, 4500, 1200, 1200, 1100, 1500};

QDateEdit *fecha(QWidget *parent, const char *nombre)
{
    auto *d = control<QDateEdit>(parent, nombre);
    d->setCalendarPopup(true);
    d->setDisplayFormat(QStringLiteral("dd/MM/yyyy"));
    return d;
}

} // namespace

TabPagos::TabPagos(Context &ctx, Escritorio &escritorio, QWidget *parent)
    : QWidget(parent), ctx_(ctx), escritorio_(escritorio),
      Frame_pagos_(control<QGroupBox>(this, "Frame_pagos")),
      DTPicker_Pagos_desde_(fecha(this, "DTPicker_Pagos_desde")),
      DTPicker_Pagos_hasta_(fecha(this, "DTPicker_Pagos_hasta")),
      Text_Pagos_buscar_(control<QLineEdit>(this, "Text_Pagos_buscar")),
      Check_Pagos_solo_Impagos_(control<QCheckBox>(this, "Check_Pagos_solo_Impagos")),
      DataGridViewPagos_(control<widgets::LynxGrid>(this, "DataGridViewPagos"))
{
    Frame_pagos_->setTitle(QStringLiteral(" Egresos"));
    Check_Pagos_solo_Impagos_->setText(QStringLiteral("Sólo Impagos"));
    DataGridViewPagos_->setOperator(&ctx_.op());
    // Ctrl and Shift clicks mark the rows the mail takes.
    DataGridViewPagos_->setMultiSelect(true);
    DataGridViewPagos_->setAllowColumnSort(true);

    auto *filtros = new QHBoxLayout;
    filtros->addWidget(new QLabel(QStringLiteral("Desde"), this));
    filtros->addWidget(DTPicker_Pagos_desde_);
    filtros->addWidget(new QLabel(QStringLiteral("Hasta"), this));
    filtros->addWidget(DTPicker_Pagos_hasta_);
    filtros->addWidget(Text_Pagos_buscar_, 1);
    filtros->addWidget(Check_Pagos_solo_Impagos_);
    auto *botones = new QHBoxLayout;
    for (int i = 0; i < kCantidadAcciones; ++i) {
        auto *b = boton_de_dialogo(this, QStringLiteral("Pagos_Acciones_%1").arg(i),
                                   QString::fromUtf8(kCaptions[i]));
        Pagos_Acciones_[size_t(i)] = b;
        if (i == kBuscar)
            filtros->addWidget(b);
        else
            botones->addWidget(b);
        connect(b, &QPushButton::clicked, this, [this, i] { actuar(i); });
    }
    botones->addStretch(1);
    auto *marco = new QVBoxLayout(Frame_pagos_);
    marco->addLayout(filtros);
    marco->addLayout(botones);
    marco->addWidget(DataGridViewPagos_, 1);
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(Frame_pagos_);

    // Printing and exporting the list come with their own change.
    Pagos_Acciones_[kImprimir]->setEnabled(false);
    Pagos_Acciones_[kExportar]->setEnabled(false);
    for (Accion a : {kEliminar, kEditar, kAgregarPago})
        Pagos_Acciones_[a]->setEnabled(false);

    connect(Text_Pagos_buscar_, &QLineEdit::returnPressed, this, &TabPagos::buscar_pagos);
    connect(DataGridViewPagos_, &widgets::LynxGrid::SelectionChanged, this, [this] {
        if (!llenando_)
            seleccion_cambiada();
    });
    connect(DataGridViewPagos_, &widgets::LynxGrid::RowColChanged, this, [this] {
        if (!llenando_)
            seleccion_cambiada();
    });
}

void TabPagos::iniciar_tab_pagos()
{
    const FiltroPagos inicial = filtro_inicial(ctx_);
    DTPicker_Pagos_hasta_->setDate(inicial.hasta);
    DTPicker_Pagos_desde_->setDate(inicial.desde);
    iniciar_grilla_pagos();
}

void TabPagos::iniciar_grilla_pagos()
{
    ctx_.escribir_log(QStringLiteral("Se Inicializan las columnas de la grilla 'DataGridViewPagos'"),
                      QStringLiteral("I"));
    DataGridViewPagos_->ClearAll();
    const QStringList columnas = columnas_pagos();
    for (int c = 0; c < columnas.size(); ++c)
        DataGridViewPagos_->AddColumn(columnas.at(c), kAnchos[c]);
}

void TabPagos::buscar_pagos()
{
    populate_grilla_pagos();
}

void TabPagos::populate_grilla_pagos()
{
    widgets::LynxGrid &g = *DataGridViewPagos_;
    FiltroPagos filtro;
    filtro.desde = DTPicker_Pagos_desde_->date();
    filtro.hasta = DTPicker_Pagos_hasta_->date();
    filtro.texto = Text_Pagos_buscar_->text();
    filtro.solo_impagos = Check_Pagos_solo_Impagos_->isChecked();
    llenando_ = true;
    g.setRedraw(false);
    g.Clear();
    if (const auto filas = vendrix::buscar_pagos(ctx_, filtro))
        for (const QString &linea : *filas)
            g.AddItem(linea);
    g.setRedraw(true);
    if (g.Rows() > 0) {
        g.view()->resizeColumnsToContents();
        g.setRow(0);
        g.setRowSelected(0, true);
    }
    llenando_ = false;
    seleccionar_fila_pagos();
}

void TabPagos::seleccionar_fila_pagos()
{
    const int fila = DataGridViewPagos_->Row();
    bool habilitar = false;
    if (fila >= 0)
        habilitar = vendrix::seleccionar_fila_pagos(ctx_, fila, celda_actual(0));
    Pagos_Acciones_[kEditar]->setEnabled(habilitar);
    Pagos_Acciones_[kEliminar]->setEnabled(habilitar);
    const AccionesPagos a =
        acciones_por_seleccion(fila >= 0, celda_actual(static_cast<int>(ColumnaPagos::Pagada)));
    Pagos_Acciones_[kAgregarPago]->setEnabled(a.agregar_pago);
}

void TabPagos::seleccion_cambiada()
{
    const int fila = DataGridViewPagos_->Row();
    const bool hay = fila >= 0 && DataGridViewPagos_->RowSelected(fila);
    const AccionesPagos a = acciones_por_seleccion(hay, celda_actual(static_cast<int>(ColumnaPagos::Pagada)));
    Pagos_Acciones_[kEditar]->setEnabled(a.editar);
    Pagos_Acciones_[kEliminar]->setEnabled(a.eliminar);
    Pagos_Acciones_[kAgregarPago]->setEnabled(a.agregar_pago);
}

QString TabPagos::celda_actual(int col) const
{
    const int fila = DataGridViewPagos_->Row();
    return fila >= 0 ? DataGridViewPagos_->CellText(fila, col) : QString();
}

void TabPagos::actuar(int indice)
{
    QWidget *ventana = window();
    switch (indice) {
    case kMail:
        enviar_pagos_por_mail();
        break;
    case kEliminar:
        eliminar_pago();
        break;
    case kBuscar:
        buscar_pagos();
        break;
    case kAgregarGasto:
        abrir_frm_pagos(ctx_, ventana, QStringLiteral("AGREGAR_GASTO"), -1);
        break;
    case kEditar:
        editar();
        break;
    case kAgregarFactura:
        abrir_frm_pagos(ctx_, ventana, QStringLiteral("AGREGAR_FACTURA"), -1);
        break;
    case kAgregarPago:
        if (DataGridViewPagos_->Row() >= 0)
            abrir_frm_pagos(ctx_, ventana, QStringLiteral("AGREGAR_PAGO"), celda_actual(0).toLongLong());
        break;
    case kAgregarTransferencia:
        abrir_frm_transferencias(ctx_, ventana, QString::fromLatin1(vendrix::kAgregarTransferencia), -1);
        break;
    default:
        break;
    }
}

void TabPagos::editar()
{
    if (DataGridViewPagos_->Row() < 0)
        return;
    // A transfer has no mode: it is never edited from the list.
    const QString modo = modo_edicion(celda_actual(static_cast<int>(ColumnaPagos::Movimiento)));
    if (!modo.isEmpty())
        abrir_frm_pagos(ctx_, window(), modo, celda_actual(0).toLongLong());
}

void TabPagos::eliminar_pago()
{
    const int fila = DataGridViewPagos_->Row();
    const QString id = fila >= 0 && DataGridViewPagos_->RowSelected(fila) ? celda_actual(0) : QString();
    if (vendrix::eliminar_pago(ctx_, id))
        buscar_pagos();
}

void TabPagos::enviar_pagos_por_mail()
{
    const widgets::LynxGrid &g = *DataGridViewPagos_;
    std::vector<QStringList> marcadas;
    for (int fila = 0; fila < g.Rows(); ++fila) {
        if (!g.RowSelected(fila))
            continue;
        QStringList celdas;
        for (int col = 0; col < g.Cols(); ++col)
            celdas << g.CellText(fila, col);
        marcadas.push_back(celdas);
    }
    const QString url = vendrix::enviar_pagos_por_mail(ctx_, marcadas);
    if (!url.isEmpty())
        escritorio_.abrir(QUrl(url, QUrl::TolerantMode));
}

} // namespace vendrix::screens

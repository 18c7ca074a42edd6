#pragma once

// The "Pagos" tab of the main window: the ledger's debts and transfers of a
// date range in `DataGridViewPagos`, with the actions `Pagos_Acciones` 0 to
// 9 that add, edit, pay, delete, mail and transfer.

#include <QWidget>

#include <array>

class QCheckBox;
class QDateEdit;
class QGroupBox;
class QLineEdit;
class QPushButton;

namespace vendrix {
class Context;
class Escritorio;
namespace widgets {
class LynxGrid;
}
} // namespace vendrix

namespace vendrix::screens {

class TabPagos : public QWidget {
    Q_OBJECT

public:
    // The indices of `Pagos_Acciones`.
    enum Accion {
        kImprimir,
        kExportar,
        kMail,
        kEliminar,
        kBuscar,
        kAgregarGasto,
        kEditar,
        kAgregarFactura,
        kAgregarPago,
        kAgregarTransferencia,
        kCantidadAcciones
    };

    // The mail of the marked rows opens through `escritorio`.
    TabPagos(Context &ctx, Escritorio &escritorio, QWidget *parent = nullptr);

    // The dates from a year ago to today and the grid's columns; the main
    // window calls it at start.
    void iniciar_tab_pagos();

    widgets::LynxGrid *grilla() const { return DataGridViewPagos_; }
    QPushButton *accion(Accion a) const { return Pagos_Acciones_[a]; }

public Q_SLOTS:
    void buscar_pagos();

private:
    void iniciar_grilla_pagos();
    void populate_grilla_pagos();
    void seleccionar_fila_pagos();
    void seleccion_cambiada();
    void actuar(int indice);
    void editar();
    void eliminar_pago();
    void enviar_pagos_por_mail();
    QString celda_actual(int col) const;

    Context &ctx_;
    Escritorio &escritorio_;
    QGroupBox *Frame_pagos_;
    QDateEdit *DTPicker_Pagos_desde_;
    QDateEdit *DTPicker_Pagos_hasta_;
    QLineEdit *Text_Pagos_buscar_;
    QCheckBox *Check_Pagos_solo_Impagos_;
    std::array<QPushButton *, kCantidadAcciones> Pagos_Acciones_{};
    widgets::LynxGrid *DataGridViewPagos_;
    // While the grid is filled its selection events are not the operator's.
    bool llenando_ = false;
};

} // namespace vendrix::screens

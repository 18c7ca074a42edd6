#pragma once

// `FrmPagos` without its widgets: an expense, a supplier's invoice or a
// payment against one of them, added or edited. The state of every control
// is kept here as plain data under the control's object name; the screen
// copies it onto its widgets after each operation and hands back what the
// operator typed before calling one.

#include <QDate>
#include <QString>
#include <QStringList>

#include <map>
#include <vector>

namespace vendrix {

class Context;

// A row of one of the form's frames: the control, the label beside it
// (named when the form changes it, else null) and the label's caption.
struct FilaDeFrame {
    const char *control;
    const char *etiqueta;
    const char *rotulo;
};
struct FrameDePagos {
    const char *nombre;
    std::vector<FilaDeFrame> filas;
};
// The frames top to bottom, with their rows.
const std::vector<FrameDePagos> &frames_de_pagos();

// One control as the form sees it. `texto` is a box's text, a combo's
// selection or a frame's, label's, button's or the form's caption; `fecha`
// is a date control's value (null when it was cleared).
struct EstadoControl {
    QString texto;
    QStringList lista; // a combo's entries
    QDate fecha;
    bool visible = true;
    bool habilitado = true;
};

// The modes the opener sets in `TIPO FORM`.
inline constexpr const char *kAgregarGasto = "AGREGAR_GASTO";
inline constexpr const char *kAgregarFactura = "AGREGAR_FACTURA";
inline constexpr const char *kAgregarPago = "AGREGAR_PAGO";
inline constexpr const char *kModificarGasto = "MODIFICAR_GASTO";
inline constexpr const char *kModificarFactura = "MODIFICAR_FACTURA";

class PaymentForm {
public:
    // The members the opener sets before the form shows: the mode, the
    // row's ID (-1 when adding), a default destination and supplier.
    struct Apertura {
        QString tipo_form;
        qint64 id = -1;
        QString destino;
        QString proveedor;
    };

    PaymentForm(Context &ctx, Apertura apertura);

    // The load, in order: the fields blanked, the combos filled, the dates
    // set to today, "Efectivo" and the blank supplier chosen, the opener's
    // defaults, the row recovered, the frames arranged by mode.
    void cargar();

    // Every control by object name (the form itself is "FrmPagos").
    const std::map<QString, EstadoControl> &controles() const { return controles_; }
    EstadoControl &control(const QString &nombre) { return controles_[nombre]; }
    const EstadoControl &control(const QString &nombre) const;
    QString texto(const QString &nombre) const { return control(nombre).texto; }
    // What the operator typed or chose, before an operation reads it.
    void escribir(const QString &nombre, const QString &texto) { controles_[nombre].texto = texto; }
    void elegir_fecha(const QString &nombre, const QDate &fecha) { controles_[nombre].fecha = fecha; }

    const Apertura &apertura() const { return apertura_; }

    // Leaving a field. False when the value is refused: the field keeps the
    // focus. Each rule may change other controls (totals, enabled states).
    bool salir_total_gasto();
    bool salir_total_pago();
    // `Text_neto`, `Text_IVA`, `Text_OtrosImpuestos` or `Text_descuentos`.
    bool salir_importe_factura(const QString &nombre);
    bool salir_sucursal();
    bool salir_numero();
    // A choice in a combo.
    bool elegir_letra(const QString &letra);
    bool elegir_proveedor_factura(const QString &proveedor);
    void elegir_destino_gasto(const QString &destino);
    void elegir_proveedor_gasto(const QString &proveedor);
    void elegir_pagada_pago(const QString &pagada);
    void elegir_pagada_factura(const QString &pagada);

    // `verificar_factura_duplicada`: false, after its message, when the
    // supplier already has an invoice of that letter, point of sale and
    // number. Runs only with both number and point of sale filled.
    bool verificar_factura_duplicada();

    // `Command_Agregar`: the checks, then the change. True when the form
    // closes (something was attempted); false when a check stopped it.
    bool agregar();

    // The history button: false, logged, when there is no row to show.
    bool puede_ver_historial();
    // The history deleted a payment: the paid sum and the proposed payment
    // are worked out again.
    void historial_cambiado();

private:
    void cargar_combos();
    void elegir_por_defecto(const QString &destino, const QString &proveedor);
    void recuperar();
    bool recuperar_gasto();
    bool recuperar_factura();
    void recuperar_pagos_anteriores();
    void disponer_por_modo();
    void mostrar_frames(const QStringList &visibles);
    void bloquear_frame(const QString &frame);
    void recalcular_total_factura();
    void habilitar_impuestos(bool habilitar);
    // The combo shows `valor`, added to its entries when missing.
    void seleccionar(const QString &combo, const QString &valor);
    void refusar(const QString &titulo, const QString &texto);
    double importe(const QString &nombre) const;
    double deuda() const;
    QDate proximo_vencimiento() const;
    bool verificar_datos();

    Context &ctx_;
    Apertura apertura_;
    QString tipo_recuperado_; // `Tipo` of the row being edited or paid
    std::map<QString, EstadoControl> controles_;
};

} // namespace vendrix

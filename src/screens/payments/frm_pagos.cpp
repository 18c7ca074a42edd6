#include "screens/payments/frm_pagos.h"

#include "screens/controles_dialogo.h"
#include "screens/payments/frm_pagos_anteriores.h"
#include "screens/payments/payment_dialogs.h"

#include <QApplication>
#include <QComboBox>
#include <QDateEdit>
#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace vendrix::screens {

namespace {

// A cleared date control shows nothing: its least date stands for "none".
const QDate kSinFecha(1900, 1, 1);

QWidget *control_por_nombre(QWidget *padre, const QString &nombre)
{
    QWidget *w = nullptr;
    if (nombre.startsWith(QLatin1String("DTPicker_"))) {
        auto *fecha = new QDateEdit(padre);
        fecha->setCalendarPopup(true);
        fecha->setDisplayFormat(QStringLiteral("dd/MM/yyyy"));
        fecha->setMinimumDate(kSinFecha);
        fecha->setSpecialValueText(QStringLiteral(" "));
        w = fecha;
    } else if (nombre.startsWith(QLatin1String("Combo"))) {
        w = new QComboBox(padre);
    } else if (nombre == QLatin1String("Pagos_Acciones")) {
        w = new QPushButton(padre);
    } else {
        w = new QLineEdit(padre);
    }
    w->setObjectName(nombre);
    return w;
}

bool es_importe(const QString &nombre)
{
    static const QStringList kImportes{
        QStringLiteral("Text_Total_Gasto"),    QStringLiteral("Text_total_pago"),
        QStringLiteral("Text_neto"),           QStringLiteral("Text_IVA"),
        QStringLiteral("Text_OtrosImpuestos"), QStringLiteral("Text_descuentos")};
    return kImportes.contains(nombre);
}

} // namespace

FrmPagos::FrmPagos(Context &ctx, const PaymentForm::Apertura &apertura, QWidget *parent)
    : QDialog(parent), ctx_(ctx), form_(ctx, apertura)
{
    setObjectName(QStringLiteral("FrmPagos"));
    setModal(true);
    construir();
    form_.cargar();
    mostrar();
    conectar();
}

void FrmPagos::construir()
{
    auto *todo = new QVBoxLayout(this);
    for (const FrameDePagos &frame : frames_de_pagos()) {
        auto *caja = control<QGroupBox>(this, frame.nombre);
        widgets_[caja->objectName()] = caja;
        auto *form = new QFormLayout(caja);
        QHBoxLayout *fila_previa = nullptr;
        for (const FilaDeFrame &fila : frame.filas) {
            const QString nombre = QString::fromLatin1(fila.control);
            QWidget *w = control_por_nombre(caja, nombre);
            widgets_[nombre] = w;
            if (es_importe(nombre))
                filtrar_numero_real(static_cast<QLineEdit *>(w));
            // A row without a caption goes beside the one before it.
            if (!fila.etiqueta && QString::fromUtf8(fila.rotulo).isEmpty() && fila_previa) {
                fila_previa->addWidget(w);
                continue;
            }
            auto *etiqueta = new QLabel(QString::fromUtf8(fila.rotulo), caja);
            if (fila.etiqueta) {
                etiqueta->setObjectName(QString::fromLatin1(fila.etiqueta));
                widgets_[etiqueta->objectName()] = etiqueta;
            }
            etiqueta->setBuddy(w);
            fila_previa = new QHBoxLayout;
            fila_previa->addWidget(w, 1);
            form->addRow(etiqueta, fila_previa);
        }
        todo->addWidget(caja);
    }
    Command_Agregar_ = boton_de_dialogo(this, QStringLiteral("Command_Agregar"), QString());
    Command_cancelar_ = boton_de_dialogo(this, QStringLiteral("Command_cancelar"), QString());
    // Enter ends the edit of a field; it saves nothing.
    for (QPushButton *boton : findChildren<QPushButton *>())
        boton->setAutoDefault(false);
    widgets_[Command_Agregar_->objectName()] = Command_Agregar_;
    widgets_[Command_cancelar_->objectName()] = Command_cancelar_;
    auto *pie = new QHBoxLayout;
    pie->addStretch();
    pie->addWidget(Command_Agregar_);
    pie->addWidget(Command_cancelar_);
    todo->addLayout(pie);
    todo->setSizeConstraint(QLayout::SetFixedSize); // the height follows the frames shown
}

void FrmPagos::conectar()
{
    for (const char *nombre :
         {"Text_Total_Gasto", "Text_total_pago", "Text_neto", "Text_IVA", "Text_OtrosImpuestos",
          "Text_descuentos", "Text_factura_sucursal_factura", "Text_numero_factura_Factura"}) {
        const QString caja = QString::fromLatin1(nombre);
        auto *edit = static_cast<QLineEdit *>(widgets_.at(caja));
        connect(edit, &QLineEdit::editingFinished, this, [this, edit, caja] {
            salir(edit, [this, caja] {
                if (caja == QLatin1String("Text_Total_Gasto"))
                    return form_.salir_total_gasto();
                if (caja == QLatin1String("Text_total_pago"))
                    return form_.salir_total_pago();
                if (caja == QLatin1String("Text_factura_sucursal_factura"))
                    return form_.salir_sucursal();
                if (caja == QLatin1String("Text_numero_factura_Factura"))
                    return form_.salir_numero();
                return form_.salir_importe_factura(caja);
            });
        });
    }
    const auto sin_rechazo = [](const std::function<void(const QString &)> &efecto) {
        return [efecto](const QString &valor) {
            efecto(valor);
            return true;
        };
    };
    elegido("Combo_letra_factura_factura", [this](const QString &v) { return form_.elegir_letra(v); });
    elegido("ComboBox_Proveedores_factura",
            [this](const QString &v) { return form_.elegir_proveedor_factura(v); });
    elegido("Combo_destinosdepago_gasto",
            sin_rechazo([this](const QString &v) { form_.elegir_destino_gasto(v); }));
    elegido("ComboBox_Proveedores_gasto",
            sin_rechazo([this](const QString &v) { form_.elegir_proveedor_gasto(v); }));
    elegido("Combo_pagada_pago", sin_rechazo([this](const QString &v) { form_.elegir_pagada_pago(v); }));
    elegido("Combo_pagada_factura",
            sin_rechazo([this](const QString &v) { form_.elegir_pagada_factura(v); }));
    connect(static_cast<QPushButton *>(widgets_.at(QStringLiteral("Pagos_Acciones"))), &QPushButton::clicked,
            this, &FrmPagos::ver_historial);
    connect(Command_Agregar_, &QPushButton::clicked, this, &FrmPagos::agregar);
    connect(Command_cancelar_, &QPushButton::clicked, this, &QDialog::reject);
}

void FrmPagos::mostrar()
{
    for (const auto &[nombre, estado] : form_.controles()) {
        if (nombre == QLatin1String("FrmPagos")) {
            setWindowTitle(estado.texto);
            continue;
        }
        const auto it = widgets_.find(nombre);
        if (it == widgets_.end())
            continue;
        QWidget *w = it->second;
        const QSignalBlocker quieto(w);
        w->setEnabled(estado.habilitado);
        if (auto *caja = qobject_cast<QGroupBox *>(w)) {
            caja->setTitle(estado.texto);
            caja->setVisible(estado.visible);
        } else if (auto *edit = qobject_cast<QLineEdit *>(w)) {
            if (edit->text() != estado.texto)
                edit->setText(estado.texto);
        } else if (auto *combo = qobject_cast<QComboBox *>(w)) {
            QStringList actuales;
            for (int i = 0; i < combo->count(); ++i)
                actuales << combo->itemText(i);
            if (actuales != estado.lista) {
                combo->clear();
                combo->addItems(estado.lista);
            }
            combo->setCurrentIndex(combo->findText(estado.texto));
        } else if (auto *fecha = qobject_cast<QDateEdit *>(w)) {
            fecha->setDate(estado.fecha.isValid() ? estado.fecha : kSinFecha);
        } else if (auto *etiqueta = qobject_cast<QLabel *>(w)) {
            etiqueta->setText(estado.texto);
        } else if (auto *boton = qobject_cast<QPushButton *>(w)) {
            boton->setText(estado.texto);
        }
    }
}

void FrmPagos::leer()
{
    for (const auto &[nombre, w] : widgets_) {
        if (auto *edit = qobject_cast<QLineEdit *>(w))
            form_.escribir(nombre, edit->text());
        else if (auto *combo = qobject_cast<QComboBox *>(w))
            form_.escribir(nombre, combo->currentText());
        else if (auto *fecha = qobject_cast<QDateEdit *>(w))
            form_.elegir_fecha(nombre, fecha->date() == kSinFecha ? QDate() : fecha->date());
    }
}

void FrmPagos::salir(QWidget *caja, const std::function<bool()> &regla)
{
    // Cancelling checks nothing; a message box of the check itself taking
    // the focus is not leaving again.
    if (en_regla_ || QApplication::focusWidget() == Command_cancelar_ || !isVisible())
        return;
    en_regla_ = true;
    leer();
    const bool aceptado = regla();
    mostrar();
    en_regla_ = false;
    if (aceptado) {
        if (rechazado_ == caja)
            rechazado_ = nullptr;
        return;
    }
    rechazado_ = caja;
    regla_rechazada_ = regla;
    caja->setFocus();
    if (auto *edit = qobject_cast<QLineEdit *>(caja))
        edit->selectAll();
}

void FrmPagos::elegido(const char *nombre, const std::function<bool(const QString &)> &regla)
{
    auto *combo = static_cast<QComboBox *>(widgets_.at(QString::fromLatin1(nombre)));
    connect(combo, &QComboBox::textActivated, this,
            [this, combo, regla] { salir(combo, [regla, combo] { return regla(combo->currentText()); }); });
}

void FrmPagos::agregar()
{
    leer();
    if (rechazado_) {
        const bool corregido = regla_rechazada_();
        mostrar();
        if (!corregido) {
            rechazado_->setFocus();
            return;
        }
        rechazado_ = nullptr;
    }
    const bool cerrar = form_.agregar();
    mostrar();
    if (cerrar)
        accept();
}

void FrmPagos::ver_historial()
{
    if (!form_.puede_ver_historial())
        return;
    FrmPagosAnteriores historial(ctx_, form_.apertura().id, this);
    historial.exec();
    if (!historial.hubo_cambios())
        return;
    leer();
    form_.historial_cambiado();
    mostrar();
}

void abrir_frm_pagos(Context &ctx, QWidget *parent, const QString &modo, qint64 id)
{
    FrmPagos form(ctx, {modo, id, {}, {}}, parent);
    form.exec();
}

} // namespace vendrix::screens

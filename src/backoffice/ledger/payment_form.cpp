#include "backoffice/ledger/payment_form.h"

#include "backoffice/ledger/ledger_store.h"
#include "core/context.h"
#include "core/numeric.h"

namespace vendrix {

namespace {

const QString kInterna = QStringLiteral("Internal");
// One blank in a supplier combo: no supplier chosen.
const QString kSinProveedor = QStringLiteral(" ");

QStringList lista(Context &ctx, const QString &sql)
{
    const Matrix m = ctx.db().execQ_matriz(sql, kInterna);
    QStringList items;
    for (int r = 0; r < m.filas(); ++r)
        items << m.at(0, r);
    return items;
}

} // namespace

const std::vector<FrameDePagos> &frames_de_pagos()
{
    static const std::vector<FrameDePagos> frames{
        {"Frame_Datos",
         {{"DTPicker_fecha_gasto", nullptr, "Fecha"},
          {"Combo_destinosdepago_gasto", nullptr, "Destino de Pago"},
          {"ComboBox_Proveedores_gasto", nullptr, "Proveedor"},
          {"Text_Total_Gasto", nullptr, "Total Pago"},
          {"Combo_pagada_pago", nullptr, "Pagado"},
          {"Combo_mediosdePago_Gasto", "Label_mediosdePago_Gasto", "Medio de Pago"}}},
        {"Frame_datos_factura",
         {{"DTPicker_fecha_factura", nullptr, "Fecha"},
          {"ComboBox_Proveedores_factura", nullptr, "Proveedor"},
          {"Combo_destinosdepago_factura", nullptr, "Destino de Pago"},
          {"Combo_letra_factura_factura", nullptr, "Letra"},
          {"Text_factura_sucursal_factura", nullptr, "Punto de Venta"},
          {"Text_numero_factura_Factura", "Label_numero_factura", "Número de Factura"},
          {"Combo_pagada_factura", nullptr, "Pagada"},
          {"DTPicker_factura_prox_vto", "Label_factura_prox_vto", "Próximo Vencimiento"},
          {"Combo_mediosdePago_factura", nullptr, ""}}},
        {"Frame_datos_Economicos",
         {{"Text_neto", nullptr, "Importe Neto"},
          {"Text_IVA", "Label_IVA", "IVA"},
          {"Text_OtrosImpuestos", "Label_OtrosImpuestos", "Otros Impuestos"},
          {"Text_descuentos", nullptr, "Otros Descuentos"},
          {"Text_total", nullptr, "Total"}}},
        {"Frame_pagos_parciales",
         {{"Text_pagos_anteriores", nullptr, "Pagos Anteriores"}, {"Pagos_Acciones", nullptr, ""}}},
        {"Frame_Pagos",
         {{"DTPicker_fecha_pago", nullptr, "Fecha"},
          {"Text_total_pago", nullptr, "Total Pago"},
          {"Combo_mediosdePago_Pago", nullptr, "Medio de Pago"},
          {"DTPicker_proximo_vencimiento", "Label_proximo_vencimiento", "Próximo Vencimiento"}}},
        {"Frame_Notas", {{"Text_Notas", nullptr, "Notas"}}},
    };
    return frames;
}

PaymentForm::PaymentForm(Context &ctx, Apertura apertura) : ctx_(ctx), apertura_(std::move(apertura))
{
    for (const FrameDePagos &frame : frames_de_pagos()) {
        controles_[QString::fromLatin1(frame.nombre)];
        for (const FilaDeFrame &fila : frame.filas) {
            controles_[QString::fromLatin1(fila.control)];
            if (fila.etiqueta)
                controles_[QString::fromLatin1(fila.etiqueta)].texto = QString::fromUtf8(fila.rotulo);
        }
    }
    control(QStringLiteral("Frame_datos_Economicos")).texto = QStringLiteral("Datos Económicos");
    control(QStringLiteral("Frame_pagos_parciales")).texto = QStringLiteral("Pagos Realizados");
    control(QStringLiteral("Frame_Pagos")).texto = QStringLiteral("Datos del Pago");
    control(QStringLiteral("Frame_Notas")).texto = QStringLiteral("Notas");
    control(QStringLiteral("Pagos_Acciones")).texto = QStringLiteral("Historial de Pagos");
    // Only the form's own rules write these two.
    control(QStringLiteral("Text_total")).habilitado = false;
    control(QStringLiteral("Text_pagos_anteriores")).habilitado = false;
    for (const char *importe : {"Text_Total_Gasto", "Text_total_pago", "Text_neto", "Text_IVA",
                                "Text_OtrosImpuestos", "Text_descuentos", "Text_total"})
        control(QString::fromLatin1(importe)).texto = QStringLiteral("0");
    control(QStringLiteral("Command_Agregar"));
    control(QStringLiteral("Command_cancelar"));
    control(QStringLiteral("FrmPagos"));
}

const EstadoControl &PaymentForm::control(const QString &nombre) const
{
    static const EstadoControl kNinguno;
    const auto it = controles_.find(nombre);
    return it == controles_.end() ? kNinguno : it->second;
}

void PaymentForm::cargar()
{
    control(QStringLiteral("Text_pagos_anteriores")).texto = QStringLiteral("0");
    control(QStringLiteral("Text_numero_factura_Factura")).texto.clear();
    control(QStringLiteral("Text_Notas")).texto.clear();
    cargar_combos();
    const QDate hoy = ctx_.reloj().now().date();
    for (const char *fecha : {"DTPicker_fecha_gasto", "DTPicker_fecha_factura", "DTPicker_fecha_pago",
                              "DTPicker_proximo_vencimiento", "DTPicker_factura_prox_vto"})
        control(QString::fromLatin1(fecha)).fecha = hoy;
    for (const char *medio :
         {"Combo_mediosdePago_Gasto", "Combo_mediosdePago_Pago", "Combo_mediosdePago_factura"})
        if (control(QString::fromLatin1(medio)).lista.contains(QStringLiteral("Efectivo")))
            control(QString::fromLatin1(medio)).texto = QStringLiteral("Efectivo");
    for (const char *proveedor : {"ComboBox_Proveedores_gasto", "ComboBox_Proveedores_factura"}) {
        EstadoControl &c = control(QString::fromLatin1(proveedor));
        c.lista.prepend(kSinProveedor);
        c.texto = kSinProveedor;
    }
    // The paid combos start on "No": no method, a due date.
    elegir_pagada_pago(texto(QStringLiteral("Combo_pagada_pago")));
    elegir_pagada_factura(texto(QStringLiteral("Combo_pagada_factura")));
    elegir_por_defecto(apertura_.destino, apertura_.proveedor);
    if (apertura_.id > 0)
        recuperar();
    disponer_por_modo();
}

void PaymentForm::cargar_combos()
{
    const QStringList proveedores =
        lista(ctx_, QStringLiteral("SELECT Nombre FROM vendrix_clientes WHERE tipo_record <> 'Cliente' "
                                   "ORDER by Nombre"));
    const QStringList medios = lista(
        ctx_, QStringLiteral("SELECT forma_de_pago FROM Vendrix_FormasDePago WHERE tipo <> 'Solo Cobro' "
                             "ORDER by forma_de_pago"));
    const QStringList destinos = lista(
        ctx_, QStringLiteral("SELECT Destino_de_Pago FROM Vendrix_DestinosDePago ORDER by Destino_de_Pago"));
    const auto llenar = [this](const char *combo, const QStringList &items) {
        EstadoControl &c = control(QString::fromLatin1(combo));
        c.lista = items;
        c.texto = items.value(0);
    };
    llenar("ComboBox_Proveedores_gasto", proveedores);
    llenar("ComboBox_Proveedores_factura", proveedores);
    llenar("Combo_mediosdePago_Gasto", medios);
    llenar("Combo_mediosdePago_Pago", medios);
    llenar("Combo_mediosdePago_factura", medios);
    llenar("Combo_destinosdepago_gasto", destinos);
    llenar("Combo_destinosdepago_factura", destinos);
    const QStringList no_si{QStringLiteral("No"), QStringLiteral("Si")};
    llenar("Combo_pagada_pago", no_si);
    llenar("Combo_pagada_factura", no_si);
    llenar("Combo_letra_factura_factura", QStringLiteral("A,B,C,X").split(QLatin1Char(',')));
}

void PaymentForm::elegir_por_defecto(const QString &destino, const QString &proveedor)
{
    if (!destino.isEmpty()) {
        seleccionar(QStringLiteral("Combo_destinosdepago_gasto"), destino);
        seleccionar(QStringLiteral("Combo_destinosdepago_factura"), destino);
        ctx_.escribir_log(QStringLiteral("Se selecciona el destino de pago por defecto '") + destino +
                              QStringLiteral("'."),
                          QStringLiteral("I"));
    }
    if (!proveedor.isEmpty()) {
        seleccionar(QStringLiteral("ComboBox_Proveedores_gasto"), proveedor);
        seleccionar(QStringLiteral("ComboBox_Proveedores_factura"), proveedor);
        ctx_.escribir_log(QStringLiteral("Se selecciona el proveedor por defecto '") + proveedor +
                              QStringLiteral("'."),
                          QStringLiteral("I"));
        verificar_factura_duplicada();
    }
}

void PaymentForm::seleccionar(const QString &combo, const QString &valor)
{
    EstadoControl &c = control(combo);
    if (!c.lista.contains(valor))
        c.lista << valor;
    c.texto = valor;
}

void PaymentForm::recuperar()
{
    const QString tipo = ctx_.db().execQ1(QStringLiteral("SELECT TIPO FROM Vendrix_Pagos WHERE ID = ?"),
                                          kInterna, {apertura_.id});
    tipo_recuperado_ = tipo;
    const bool hallado = tipo == QLatin1String(kTipoGasto) ? recuperar_gasto() : recuperar_factura();
    if (!hallado)
        ctx_.op().warn(QStringLiteral("Recuperar Pago"),
                       QStringLiteral("No se pudo encontrar el pago con ID = '") +
                           QString::number(apertura_.id) +
                           QStringLiteral("'. Cierre la ventana e intente nuevamente."));
}

bool PaymentForm::recuperar_gasto()
{
    const Matrix m = ctx_.db().execQ_matriz(
        QStringLiteral("SELECT ID, Fecha, Proveedor, Medio_de_pago, Destino_de_pago, Pagado, Total_Pago, "
                       "ID_Factura_pagos, notas FROM Vendrix_Pagos WHERE ID = ?"),
        kInterna, {apertura_.id});
    if (m.vacia())
        return false;
    control(QStringLiteral("DTPicker_fecha_gasto")).fecha = fecha_de_guardada(m.at(1, 0));
    seleccionar(QStringLiteral("ComboBox_Proveedores_gasto"), m.at(2, 0));
    seleccionar(QStringLiteral("Combo_mediosdePago_Gasto"), m.at(3, 0));
    seleccionar(QStringLiteral("Combo_destinosdepago_gasto"), m.at(4, 0));
    seleccionar(QStringLiteral("Combo_pagada_pago"), m.at(5, 0));
    control(QStringLiteral("Text_Total_Gasto")).texto = texto_numero(valor_texto(m.at(6, 0)));
    control(QStringLiteral("Text_Notas")).texto = m.at(8, 0);
    recuperar_pagos_anteriores();
    return true;
}

bool PaymentForm::recuperar_factura()
{
    const Matrix m = ctx_.db().execQ_matriz(
        QStringLiteral(
            "SELECT ID, Fecha, Proveedor, Medio_de_pago, Destino_de_pago, Pagado, Total_Pago, "
            "ID_Factura_pagos, notas, factura_letra, factura_sucursal, factura_numero, factura_neto, "
            "factura_descuentos, factura_iva, factura_otrosImpuestos FROM Vendrix_Pagos WHERE ID = ?"),
        kInterna, {apertura_.id});
    if (m.vacia())
        return false;
    control(QStringLiteral("DTPicker_fecha_factura")).fecha = fecha_de_guardada(m.at(1, 0));
    seleccionar(QStringLiteral("ComboBox_Proveedores_factura"), m.at(2, 0));
    seleccionar(QStringLiteral("Combo_mediosdePago_factura"), m.at(3, 0));
    seleccionar(QStringLiteral("Combo_destinosdepago_factura"), m.at(4, 0));
    seleccionar(QStringLiteral("Combo_pagada_factura"), m.at(5, 0));
    elegir_pagada_factura(m.at(5, 0));
    control(QStringLiteral("Text_Notas")).texto = m.at(8, 0);
    seleccionar(QStringLiteral("Combo_letra_factura_factura"), m.at(9, 0));
    habilitar_impuestos(m.at(9, 0) == QLatin1String("A"));
    control(QStringLiteral("Text_factura_sucursal_factura")).texto = m.at(10, 0);
    control(QStringLiteral("Text_numero_factura_Factura")).texto = m.at(11, 0);
    control(QStringLiteral("Text_neto")).texto = texto_numero(valor_texto(m.at(12, 0)));
    control(QStringLiteral("Text_descuentos")).texto = texto_numero(valor_texto(m.at(13, 0)));
    control(QStringLiteral("Text_IVA")).texto = texto_numero(valor_texto(m.at(14, 0)));
    control(QStringLiteral("Text_OtrosImpuestos")).texto = texto_numero(valor_texto(m.at(15, 0)));
    recalcular_total_factura();
    recuperar_pagos_anteriores();
    return true;
}

void PaymentForm::recuperar_pagos_anteriores()
{
    const double pagado = pagado_de_deuda(ctx_, apertura_.id);
    control(QStringLiteral("Text_pagos_anteriores")).texto = texto_numero(pagado);
    const double total = importe(QStringLiteral("Text_Total_Gasto")) + importe(QStringLiteral("Text_total"));
    control(QStringLiteral("Text_total_pago")).texto = texto_numero(redondear(total - pagado, 2));
    const QString estado = estado_de_deuda(total, pagado);
    if (estado == QLatin1String("Parcialmente"))
        seleccionar(QStringLiteral("Combo_pagada_pago"), estado);
    else
        control(QStringLiteral("Combo_pagada_pago")).texto = estado;
}

void PaymentForm::mostrar_frames(const QStringList &visibles)
{
    for (const FrameDePagos &frame : frames_de_pagos()) {
        const QString nombre = QString::fromLatin1(frame.nombre);
        control(nombre).visible = visibles.contains(nombre);
    }
}

void PaymentForm::bloquear_frame(const QString &frame)
{
    for (const FrameDePagos &f : frames_de_pagos()) {
        if (frame != QLatin1String(f.nombre))
            continue;
        for (const FilaDeFrame &fila : f.filas) {
            control(QString::fromLatin1(fila.control)).habilitado = false;
            if (fila.etiqueta)
                control(QString::fromLatin1(fila.etiqueta)).habilitado = false;
        }
    }
}

void PaymentForm::disponer_por_modo()
{
    const QString &modo = apertura_.tipo_form;
    const auto titulos = [this](const QString &boton, const QString &forma, const QString &cancelar) {
        control(QStringLiteral("Command_Agregar")).texto = boton;
        control(QStringLiteral("FrmPagos")).texto = forma;
        control(QStringLiteral("Command_cancelar")).texto = cancelar;
    };
    const QString datos = QStringLiteral("Frame_Datos"), factura = QStringLiteral("Frame_datos_factura"),
                  economicos = QStringLiteral("Frame_datos_Economicos"),
                  parciales = QStringLiteral("Frame_pagos_parciales"), pagos = QStringLiteral("Frame_Pagos"),
                  notas = QStringLiteral("Frame_Notas");
    if (modo == QLatin1String(kAgregarGasto)) {
        mostrar_frames({datos, notas});
        control(datos).texto = QStringLiteral("Agregar Gasto");
        control(QStringLiteral("Label_numero_factura")).texto = QStringLiteral("Nro Factura Asociada");
        titulos(QStringLiteral("Agregar Gasto"), QStringLiteral("Agregar Gasto"), QStringLiteral("Cancelar"));
    } else if (modo == QLatin1String(kAgregarFactura)) {
        mostrar_frames({factura, economicos, notas});
        control(factura).texto = QStringLiteral("Agregar Factura");
        control(QStringLiteral("Label_numero_factura")).texto = QStringLiteral("Número de Factura");
        titulos(QStringLiteral("Agregar Factura"), QStringLiteral("Agregar Factura"),
                QStringLiteral("Cancelar"));
    } else if (modo == QLatin1String(kAgregarPago)) {
        // The debt shows as it stands; only the payment is typed.
        const bool es_factura = tipo_recuperado_ == QLatin1String(kTipoFactura);
        const QStringList deuda = es_factura ? QStringList{factura, economicos} : QStringList{datos};
        mostrar_frames(deuda + QStringList{parciales, pagos, notas});
        for (const QString &frame : deuda)
            bloquear_frame(frame);
        control(deuda.first()).texto = QStringLiteral("Datos del Gasto");
        titulos(QStringLiteral("Agregar Pago"), QStringLiteral("Agregar Pago"), QStringLiteral("Cancelar"));
    } else if (modo == QLatin1String(kModificarGasto)) {
        mostrar_frames({datos, parciales});
        control(datos).texto = QStringLiteral("Datos del Gasto");
        for (const QString &combo :
             {QStringLiteral("Combo_pagada_pago"), QStringLiteral("Combo_mediosdePago_Gasto")}) {
            seleccionar(combo, QStringLiteral(" "));
            control(combo).habilitado = false;
        }
        titulos(QStringLiteral("Modificar Datos"), QStringLiteral("Editar Gasto"), QStringLiteral("Volver"));
    } else if (modo == QLatin1String(kModificarFactura)) {
        mostrar_frames({factura, economicos, parciales});
        control(factura).texto = QStringLiteral("Datos de la Factura");
        control(economicos).texto = QStringLiteral("Datos Económicos de la factura ID='") +
                                    QString::number(apertura_.id) + QStringLiteral("'");
        titulos(QStringLiteral("Modificar Datos"), QStringLiteral("Editar Factura"),
                QStringLiteral("Volver"));
    } else {
        mostrar_frames({});
        ctx_.escribir_log(QStringLiteral("el formulario se llamo con un valor del campo TIPO FORM =  '") +
                              modo + QStringLiteral("' y este valor no es admitido."),
                          QStringLiteral("E"));
    }
}

bool PaymentForm::puede_ver_historial()
{
    if (apertura_.id > 0)
        return true;
    ctx_.escribir_log(QStringLiteral("Se intento ver el historial de pagos sin un ID FACTURA o ID."),
                      QStringLiteral("I"));
    return false;
}

void PaymentForm::historial_cambiado()
{
    recuperar_pagos_anteriores();
    control(QStringLiteral("Text_total_pago")).texto = texto_numero(redondear(deuda(), 2));
}

double PaymentForm::importe(const QString &nombre) const
{
    return valor_texto(QString(QLatin1Char('0') + texto(nombre)));
}

double PaymentForm::deuda() const
{
    return importe(QStringLiteral("Text_Total_Gasto")) + importe(QStringLiteral("Text_total")) -
           importe(QStringLiteral("Text_pagos_anteriores"));
}

} // namespace vendrix

// The add and edit form of the ledger and its payment history, on a shop
// database fresh from its migrations: what the form shows, what its field
// rules refuse, the rows a save leaves and the texts the operator reads.
#include "backoffice/ledger/ledger_store.h"
#include "backoffice/ledger/payment_form.h"
#include "backoffice/ledger/payment_history.h"
#include "core/db_helpers.h"
#include "core/migrations.h"
#include "core/rows.h"

namespace vendrix {
namespace {

const QDate kHoy(2026, 11, 23);
const QDate kDia(2026, 11, 20);

class FormularioPagos : public test::ShopTest {
protected:
    FormularioPagos() : ShopTest(true)
    {
        EXPECT_TRUE(ejecutar_migraciones(app.ctx()).fallidas.isEmpty());
        EXPECT_TRUE(nq("INSERT INTO vendrix_clientes (NOMBRE, TIPO_RECORD) VALUES ('Fletes Sur', 'Proveedor "
                       "Servicios'), ('Bulonera', 'Proveedor Mercadería'), ('Ana', 'Cliente')"));
        EXPECT_TRUE(
            nq("INSERT INTO Vendrix_FormasDePago (Forma_de_Pago, Tipo) VALUES ('Vale', 'Solo Cobro')"));
        app.op.clear();
    }

    PaymentForm abrir(const QString &modo, qint64 id = -1)
    {
        PaymentForm f(app.ctx(), {modo, id, {}, {}});
        f.cargar();
        return f;
    }
    qint64 gasto(double total)
    {
        return agregar_gasto(app.ctx(), {kDia, "Servicios", " ", "", "", total, QDate(2026, 12, 1), "No"})
            .toLongLong();
    }
    qint64 factura(const QString &proveedor, const QString &numero)
    {
        return agregar_factura(app.ctx(), {kDia, proveedor, "", 1000, 210, 0, 0, "A", "00003", numero,
                                           "Compra de mercadería", "", QDate(2026, 12, 1)})
            .toLongLong();
    }
    void pagar(qint64 deuda, double monto, QDate vence = {})
    {
        ASSERT_EQ(agregar_pago(app.ctx(), {deuda, kDia, "", "", "Efectivo", "", monto, vence}), "");
    }
    QStringList visibles(const PaymentForm &f)
    {
        QStringList out;
        for (const FrameDePagos &frame : frames_de_pagos())
            if (f.control(frame.nombre).visible)
                out << frame.nombre;
        return out;
    }
};

TEST_F(FormularioPagos, LoadFillsTheCombosFromTheShopAndStartsOnToday)
{
    PaymentForm f = abrir(kAgregarGasto);
    EXPECT_EQ(f.control("ComboBox_Proveedores_gasto").lista, QStringList({" ", "Bulonera", "Fletes Sur"}));
    EXPECT_EQ(f.texto("ComboBox_Proveedores_factura"), " ");
    const QStringList medios = f.control("Combo_mediosdePago_Pago").lista;
    EXPECT_TRUE(medios.contains("Ajustes"));
    EXPECT_FALSE(medios.contains("Vale")); // collection only
    EXPECT_EQ(f.texto("Combo_mediosdePago_factura"), "Efectivo");
    EXPECT_EQ(f.control("DTPicker_fecha_pago").fecha, kHoy);
    EXPECT_EQ(f.texto("Text_pagos_anteriores"), "0");
    // Not paid: no method, a due date.
    EXPECT_FALSE(f.control("Combo_mediosdePago_Gasto").habilitado);
    EXPECT_EQ(f.texto("Label_factura_prox_vto"), "Próximo Vencimiento");
}

TEST_F(FormularioPagos, EachModeShowsItsFramesAndCaptions)
{
    const qint64 g = gasto(100), fa = factura("Bulonera", "00000001");
    // Frames shown, then the button's, the form's and the cancel button's captions.
    const QString datos = "Frame_Datos", factura_ = "Frame_datos_factura Frame_datos_Economicos",
                  pago = " Frame_pagos_parciales Frame_Pagos Frame_Notas";
    for (const auto &[modo, id, frames, captions] : Rows<const char *, qint64, QString, QString>{
             {kAgregarGasto, -1, datos + " Frame_Notas", "Agregar Gasto|Agregar Gasto|Cancelar"},
             {kAgregarFactura, -1, factura_ + " Frame_Notas", "Agregar Factura|Agregar Factura|Cancelar"},
             {kAgregarPago, g, datos + pago, "Agregar Pago|Agregar Pago|Cancelar"},
             {kAgregarPago, fa, factura_ + pago, "Agregar Pago|Agregar Pago|Cancelar"},
             {kModificarGasto, g, datos + " Frame_pagos_parciales", "Modificar Datos|Editar Gasto|Volver"},
             {kModificarFactura, fa, factura_ + " Frame_pagos_parciales",
              "Modificar Datos|Editar Factura|Volver"},
         }) {
        const PaymentForm f = abrir(modo, id);
        EXPECT_EQ(visibles(f).join(' '), frames) << modo;
        EXPECT_EQ(f.texto("Command_Agregar") + "|" + f.texto("FrmPagos") + "|" + f.texto("Command_cancelar"),
                  captions)
            << modo;
    }
    EXPECT_EQ(abrir(kModificarFactura, fa).texto("Frame_datos_Economicos"),
              "Datos Económicos de la factura ID='" + QString::number(fa) + "'");
    // Paying: the debt is shown locked; editing an expense: no paid state.
    EXPECT_FALSE(abrir(kAgregarPago, g).control("Text_Total_Gasto").habilitado);
    const PaymentForm edit = abrir(kModificarGasto, g);
    EXPECT_EQ(edit.texto("Combo_pagada_pago"), " ");
    EXPECT_FALSE(edit.control("Combo_mediosdePago_Gasto").habilitado);

    abrir("BORRAR_GASTO");
    EXPECT_TRUE(app.log_messages().contains("el formulario se llamo con un valor del campo TIPO FORM =  "
                                            "'BORRAR_GASTO' y este valor no es admitido.."));
    EXPECT_TRUE(app.log_lines().filter("BORRAR_GASTO").first().contains("[ERR]"));
    EXPECT_TRUE(app.op.empty());

    abrir(kAgregarPago, 999);
    EXPECT_EQ(
        app.op.lines(),
        QStringList("warn|Recuperar Pago|No se pudo encontrar el pago con ID = '999'. Cierre la ventana e "
                    "intente nuevamente."));
}

TEST_F(FormularioPagos, TheDebtReadsItsStateAndWhatIsOwedAtTheCent)
{
    for (const auto &[total, pagos, estado, pagado, propuesto] :
         Rows<double, std::vector<double>, const char *, const char *, const char *>{
             {12000, {}, "No", "0", "12000"},
             {12000, {5000}, "Parcialmente", "5000", "7000"},
             {12000, {5000, 7000}, "Si", "12000", "0"},
             {0.88, {0.29, 0.29, 0.30}, "Si", "0,88", "0"},
         }) {
        const qint64 id = gasto(total);
        for (double p : pagos)
            pagar(id, p);
        const PaymentForm f = abrir(kAgregarPago, id);
        EXPECT_EQ(f.texto("Combo_pagada_pago"), estado) << total;
        EXPECT_EQ(f.texto("Text_pagos_anteriores"), pagado) << total;
        EXPECT_EQ(f.texto("Text_total_pago"), propuesto) << total;
    }
}

TEST_F(FormularioPagos, APaymentAboveTheDebtIsRefusedAndAFullOneLeavesNoDueDate)
{
    const qint64 id = gasto(12000);
    pagar(id, 5000);
    PaymentForm f = abrir(kAgregarPago, id);
    for (const auto &[monto, acepta, con_vencimiento] : Rows<const char *, bool, bool>{
             {"7000,01", false, true}, {"7000", true, false}, {"100", true, true}, {"", false, true}}) {
        app.op.clear();
        f.escribir("Text_total_pago", monto);
        EXPECT_EQ(f.salir_total_pago(), acepta) << monto;
        EXPECT_EQ(f.control("DTPicker_proximo_vencimiento").habilitado, con_vencimiento) << monto;
        EXPECT_EQ(f.control("DTPicker_proximo_vencimiento").fecha.isValid(), con_vencimiento) << monto;
    }
    f.escribir("Text_total_pago", "7000,01");
    app.op.clear();
    f.salir_total_pago();
    EXPECT_EQ(app.op.lines(),
              QStringList("warn|Error en los datos ingresados|El total del pago supera al importe "
                          "adeudado ($ 7000), por favor intente nuevamente."));
}

TEST_F(FormularioPagos, AnExpenseSavedAsPaidIsTwoRowsSummingZero)
{
    PaymentForm f = abrir(kAgregarGasto);
    f.elegir_destino_gasto("Servicios");
    EXPECT_FALSE(f.control("ComboBox_Proveedores_gasto").habilitado);
    f.escribir("Text_Total_Gasto", "12000");
    f.elegir_pagada_pago("Si");
    f.escribir("Combo_mediosdePago_Gasto", "Banco");
    ASSERT_TRUE(f.agregar());
    EXPECT_EQ(filas("SELECT TIPO, Medio_de_pago, Total_Pago, Destino_de_pago FROM Vendrix_Pagos ORDER BY ID"),
              QStringList({"GASTO||12000|Servicios", "PAGO|Banco|-12000|Servicios"}));
    EXPECT_EQ(q1("SELECT SUM(Total_Pago) FROM Vendrix_Pagos"), "0");
    EXPECT_EQ(app.op.lines(), QStringList("inform|Salvar Datos|Se agrego un Gasto correctamente"));
}

TEST_F(FormularioPagos, AnInvoiceOtherThanAHasNoTaxesAndItsNumbersArePadded)
{
    PaymentForm f = abrir(kAgregarFactura);
    f.elegir_proveedor_factura("Bulonera");
    f.escribir("Text_IVA", "21");
    f.elegir_letra("B");
    EXPECT_EQ(f.texto("Text_IVA"), "0");
    EXPECT_FALSE(f.control("Text_IVA").habilitado);
    EXPECT_FALSE(f.control("Label_OtrosImpuestos").habilitado);
    f.escribir("Text_neto", "1000,55");
    EXPECT_TRUE(f.salir_importe_factura("Text_neto"));
    EXPECT_EQ(f.texto("Text_total"), "1000,55");
    for (const auto &[campo, tecleado, queda] :
         Rows<const char *, const char *, const char *>{{"Text_factura_sucursal_factura", "12", "00012"},
                                                        {"Text_numero_factura_Factura", "345", "00000345"},
                                                        {"Text_factura_sucursal_factura", "123456", "23456"},
                                                        {"Text_factura_sucursal_factura", "12", "00012"}}) {
        f.escribir(campo, tecleado);
        EXPECT_TRUE(QString(campo).contains("sucursal") ? f.salir_sucursal() : f.salir_numero());
        EXPECT_EQ(f.texto(campo), queda);
    }
    ASSERT_TRUE(f.agregar());
    EXPECT_EQ(filas("SELECT TIPO, Proveedor, factura_letra, Factura_sucursal, factura_numero, Factura_iva, "
                    "Total_Pago, Pagado FROM Vendrix_Pagos"),
              QStringList("FACTURA|Bulonera|B|00012|00000345|0|1000.55|No"));
    EXPECT_EQ(app.op.texts().last(), "Se agrego una Factura correctamente");

    // The same number is refused for that supplier only.
    PaymentForm otra = abrir(kAgregarFactura);
    otra.elegir_letra("B");
    otra.escribir("Text_factura_sucursal_factura", "12");
    otra.escribir("Text_numero_factura_Factura", "345");
    app.op.clear();
    EXPECT_TRUE(otra.salir_sucursal());
    EXPECT_TRUE(otra.salir_numero());
    EXPECT_TRUE(otra.elegir_proveedor_factura("Fletes Sur"));
    EXPECT_FALSE(otra.elegir_proveedor_factura("Bulonera"));
    EXPECT_EQ(app.op.lines(), QStringList("warn|Error en los Datos|Existe ya una factura con número "
                                          "'B-00012-00000345' asociada al proveedor 'Bulonera'."));
    f.escribir("Text_numero_factura_Factura", "3a");
    EXPECT_FALSE(f.salir_numero());
    EXPECT_EQ(app.op.texts().last(), "El número de la factura tiene que ser un valor numérico");
}

TEST_F(FormularioPagos, AnInvoiceEnteredAsPaidGoesInWithItsPaymentOrNotAtAll)
{
    const auto nueva = [this](const QString &numero) {
        PaymentForm f = abrir(kAgregarFactura);
        f.elegir_proveedor_factura("Bulonera");
        f.escribir("Text_factura_sucursal_factura", "00001");
        f.escribir("Text_numero_factura_Factura", numero);
        f.escribir("Text_neto", "1000");
        f.salir_importe_factura("Text_neto");
        f.elegir_pagada_factura("Si");
        f.escribir("Combo_mediosdePago_factura", "Banco");
        return f;
    };
    app.failing_db().fail_matching("INSERT INTO Vendrix_Pagos");
    EXPECT_TRUE(nueva("00000001").agregar());
    EXPECT_EQ(app.op.lines().last(),
              "error|ERROR|Atención, se produjeron errores al intentar agregar la factura. "
              "consulte el log");
    EXPECT_EQ(q1("SELECT COUNT(*) FROM Vendrix_Pagos"), "0");

    app.failing_db().heal();
    EXPECT_TRUE(nueva("00000002").agregar());
    EXPECT_EQ(filas("SELECT TIPO, Medio_de_pago, Total_Pago, Proximo_Vencimiento FROM Vendrix_Pagos "
                    "ORDER BY ID"),
              QStringList({"FACTURA|Banco|1000|2026-11-23", "PAGO|Banco|-1000|2026-11-23"}));
}

TEST_F(FormularioPagos, EditingKeepsTheKindAndLinksAndRefusesAnExpenseBelowItsPayments)
{
    const qint64 fa = factura("Bulonera", "00000009"), g = gasto(1000);
    pagar(fa, 800);
    pagar(g, 800);
    PaymentForm fact = abrir(kModificarFactura, fa);
    EXPECT_TRUE(fact.salir_numero()); // not a duplicate of itself
    fact.escribir("Text_IVA", "0");
    fact.escribir("Text_neto", "500");
    EXPECT_TRUE(fact.salir_importe_factura("Text_neto")); // below what was paid, still allowed
    ASSERT_TRUE(fact.agregar());
    EXPECT_EQ(filas("SELECT TIPO, Total_Pago FROM Vendrix_Pagos WHERE ID = ?", {fa}),
              QStringList("FACTURA|500"));
    EXPECT_EQ(q1("SELECT COUNT(*) FROM Vendrix_Pagos WHERE ID_Factura_pagos = ?", "internal", {fa}), "1");
    EXPECT_EQ(app.op.texts().last(), "Se modificaron los datos correctamente");

    PaymentForm gas = abrir(kModificarGasto, g);
    app.op.clear();
    for (const auto &[total, acepta] : Rows<const char *, bool>{{"799,99", false}, {"800", true}}) {
        gas.escribir("Text_Total_Gasto", total);
        EXPECT_EQ(gas.salir_total_gasto(), acepta) << total;
    }
    EXPECT_EQ(app.op.lines(),
              QStringList("warn|Error en los datos ingresados|El valor del campo 'Total Pago' es "
                          "inferior a los pagos ya realizados. Si desea modificar el total del "
                          "pago a este valor, primero elimine los pagos existentes."));
}

TEST_F(FormularioPagos, DeletingFromTheHistoryRollsTheDueDateBack)
{
    const qint64 id = gasto(12000);
    pagar(id, 1000, QDate(2026, 12, 1));
    nq("UPDATE Vendrix_Pagos SET Fecha = '2026-11-21', Notas = 'segundo' WHERE ID = (SELECT MAX(ID) FROM "
       "Vendrix_Pagos)");
    pagar(id, 2500.5, QDate(2027, 1, 5));
    const QString ultimo = q1("SELECT MAX(ID) FROM Vendrix_Pagos");
    PaymentHistory h(app.ctx(), id);
    const std::vector<QStringList> filas_h = h.filas();
    ASSERT_EQ(filas_h.size(), 2u);
    EXPECT_EQ(filas_h[0].mid(1), QStringList({"21/11/2026", "Efectivo", "1000", "", "segundo"}));
    EXPECT_EQ(filas_h[1].mid(1, 3), QStringList({"20/11/2026", "Efectivo", "2500,5"}));
    EXPECT_EQ(h.titulo(), "Pago  - 21/11/2026");

    app.op.answers_in_order({false, true});
    EXPECT_FALSE(h.eliminar(ultimo.toLongLong()));
    EXPECT_FALSE(h.hubo_cambios());
    EXPECT_TRUE(h.eliminar(ultimo.toLongLong()));
    EXPECT_TRUE(h.hubo_cambios());
    EXPECT_EQ(app.op.lines().first(), "ask|Eliminar Pago|¿Desea eliminar el pago seleccionado?");
    EXPECT_EQ(q1("SELECT Proximo_Vencimiento FROM Vendrix_Pagos WHERE ID = ?", "internal", {id}),
              "2026-12-01");

    PaymentForm f = abrir(kAgregarPago, id);
    f.escribir("Text_total_pago", "1");
    f.historial_cambiado();
    EXPECT_EQ(f.texto("Text_pagos_anteriores"), "1000");
    EXPECT_EQ(f.texto("Text_total_pago"), "11000");
    EXPECT_FALSE(abrir(kAgregarGasto).puede_ver_historial());
    EXPECT_TRUE(app.log_messages().contains("Se intento ver el historial de pagos sin un ID FACTURA o ID.."));
}

TEST_F(FormularioPagos, SavingChecksInOrderAndWritesNothingWhenOneFails)
{
    const QString falta = "warn|Datos incompletos|";
    for (const auto &[modo, campos, esperado] :
         Rows<const char *, std::vector<std::pair<const char *, const char *>>, QString>{
             {kAgregarGasto,
              {{"Text_Total_Gasto", "0"}},
              falta + "Por favor seleccione un proveedor antes de continuar."},
             {kAgregarFactura, {}, falta + "Por favor seleccione un proveedor antes de continuar."},
             {kAgregarGasto,
              {{"ComboBox_Proveedores_gasto", "Bulonera"}, {"Text_Total_Gasto", ""}},
              falta + "El total tiene que ser mayor que cero."},
             {kAgregarFactura,
              {{"ComboBox_Proveedores_factura", "Bulonera"}, {"Text_factura_sucursal_factura", "1"}},
              falta + "Por favor seleccione un número de factura válido."},
             {kAgregarFactura,
              {{"ComboBox_Proveedores_factura", "Bulonera"}, {"Text_numero_factura_Factura", "1"}},
              falta + "Por favor seleccione un punto de venta válido para el número de factura."},
             {kAgregarFactura,
              {{"ComboBox_Proveedores_factura", "Bulonera"}},
              falta + "Por complete el punto de venta y el número de fa."},
             {kAgregarFactura,
              {{"ComboBox_Proveedores_factura", "Bulonera"},
               {"Text_numero_factura_Factura", "1"},
               {"Text_factura_sucursal_factura", "1"},
               {"Text_neto", "-5"}},
              "warn|Salvar Datos|El total tiene que ser mayor que cero."},
         }) {
        PaymentForm f = abrir(modo);
        for (const auto &[campo, texto] : campos)
            f.escribir(campo, texto);
        app.op.clear();
        EXPECT_FALSE(f.agregar()) << esperado.toStdString();
        EXPECT_EQ(app.op.lines(), QStringList(esperado));
    }
    const qint64 id = gasto(50);
    PaymentForm pago = abrir(kAgregarPago, id);
    pago.escribir("Text_total_pago", "0");
    app.op.clear();
    EXPECT_FALSE(pago.agregar());
    EXPECT_EQ(app.op.lines(), QStringList(falta + "El total tiene que ser mayor que cero."));
    EXPECT_EQ(q1("SELECT COUNT(*) FROM Vendrix_Pagos"), "1");
}

} // namespace
} // namespace vendrix

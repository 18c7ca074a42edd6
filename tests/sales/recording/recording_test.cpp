#include "core/numeric.h"
#include "core/rows.h"
#include "fiscal/front/fiscal_front.h"
#include "sales/carritos.h"
#include "sales/recording/document_numbers.h"
#include "sales/recording/sale_recording.h"
#include "sales/tienda.h"

namespace vendrix {
namespace {

// A printer that notes each call with the figures a ticket shows, and
// fails at the step named in `falla`.
struct Impresora final : FiscalDevice {
    Impresora(QStringList &r, const QString &f) : registro(r), falla(f) {}
    void paso(const QString &p)
    {
        registro << p;
        if (!falla.isEmpty() && p.startsWith(falla))
            throw FiscalError(7, QStringLiteral("Sin papel"));
    }
    void conectar() override { paso("conectar"); }
    void configurar() override {}
    QString probar() override { return {}; }
    std::optional<std::pair<int, QString>> modelo() override { return {}; }
    void abrir(DocumentoFiscal &d) override
    {
        paso("abrir " + d.letra + " " + d.nombre + " " + d.numero_doc);
    }
    void agregar(ItemFiscal &i) override
    {
        paso("agregar " + i.descripcion + " " + i.cantidad + " " +
             QString::number(valor_texto(i.precio), 'f', 2));
    }
    void cerrar(CierreFiscal &c) override { paso("cerrar " + QString::number(c.pago_credito)); }
    void cierre_x() override {}
    void cierre_z() override {}
    void desconectar() override { paso("desconectar"); }
    QStringList &registro;
    const QString &falla;
};

class RegistroTest : public test::Tienda {
protected:
    RegistroTest() : Tienda(true) {}

    void SetUp() override
    {
        Tienda::SetUp();
        for (const char *a :
             {"IF_Modelo=Hasar", "impresora_fiscal=1", "IF_max_efectivo=9999", "IF_max_tarjeta=9999",
              "IF_PuntoDeVenta=3", "IF_tipo_IVA=I - IVA RESPONSABLE INSCRIPTO", "iva=21"})
            ajuste(QString(a).section('=', 0, 0).toUtf8(), QString(a).section('=', 1));
        ASSERT_TRUE(app.db().execNQ("INSERT INTO Vendrix_FormasDePago (Forma_de_Pago, Recargo, Tipo) VALUES "
                                    "('Tarjeta', 5, 'Solo Cobro')",
                                    "cliente"));
        llenar();
    }

    // A catalogue line at 21 % and a line typed by hand at 10.5 %: 1000 in all.
    void llenar()
    {
        carritos.carrito(1).agregar_linea(
            linea("2|Tornillo 1/4|300|600|21|1|30|10+5|0|100|T1|Tornillos|Acme"));
        carritos.carrito(1).agregar_linea(linea("1|Clavos a mano|400|400|10,5|0|0|0|0|0|||"));
    }

    bool registrar(OpcionesVenta o, const std::function<void(Checkout &)> &preparar = {})
    {
        Checkout c(app.ctx(), carritos, 1);
        if (preparar)
            preparar(c);
        app.op.clear();
        SeguimientoVenta nada;
        return imprimir_y_guardar(app.ctx(), front, c, carritos, o, nada);
    }

    QStringList filas(const QString &sql)
    {
        const Matrix m = app.db().execQ_matriz(sql, "cliente");
        QStringList out;
        for (int r = 0; r < m.filas(); ++r)
            out << m.fila(r).join('|');
        return out;
    }
    QString cuantos()
    {
        return filas("SELECT (SELECT count(*) FROM vendrix_facturas) || '/' || count(*) FROM "
                     "vendrix_factura_items")
            .join("");
    }

    QStringList registro;
    QString falla;
    FiscalFront front{
        app.ctx(), [this](FamiliaFiscal, Context &) { return std::make_unique<Impresora>(registro, falla); }};
    Carritos carritos;
};

const OpcionesVenta kImprimir = opciones_de(PasoVenta::imprimir_y_guardar);
const OpcionesVenta kGuardar = opciones_de(PasoVenta::guardar);
const OpcionesVenta kCarrito = opciones_de(PasoVenta::guardar_carrito);
const OpcionesVenta kCredito{true, false, true, false};

TEST_F(RegistroTest, TheStoredFiguresFollowTheFactorsAndTheSign)
{
    // Discount, payment, options: the lines, then the header's totals.
    const Rows<const char *, const char *, OpcionesVenta, QStringList> cases = {
        {"",
         "Efectivo",
         kGuardar,
         {"Acme|T1|Tornillo 1/4|600|2|600|Tornillo 1/4|30|14.5", "|X|Clavos a mano|0|1|400|Clavos a mano|0|0",
          "1000|1000|857.859|142.141"}},
        {"10",
         "Tarjeta (Con recargo del 5%)",
         kGuardar,
         {"Acme|T1|Tornillo 1/4|600|2|567|Tornillo 1/4|30|14.5", "|X|Clavos a mano|0|1|378|Clavos a mano|0|0",
          "945|945|810.676|134.324"}},
        {"",
         "Efectivo",
         kCredito,
         {"Acme|T1|Tornillo 1/4|600|2|-600|Tornillo 1/4|30|14.5",
          "|X|Clavos a mano|0|1|-400|Clavos a mano|0|0", "-1000|-1000|-857.859|-142.141"}},
    };
    for (const auto &[dh, forma, o, esperado] : cases) {
        ASSERT_TRUE(registrar(o, [&](Checkout &c) {
            c.set_texto(&VistaCheckout::Text_dh, dh);
            c.cambiar_CC(o.es_credito);
            c.cambiar_forma_de_pago(forma);
        }));
        EXPECT_EQ(
            filas("SELECT Proveedor, Codigo, Descripcion, Costo_siva, cantidad, round(Precio_final, 9), "
                  "descripcion_nueva, ganancia, descuento FROM vendrix_factura_items ORDER BY Offset") +
                filas("SELECT Total, Total_facturado, total_neto, Total_iva FROM vendrix_facturas"),
            esperado)
            << dh << forma;
        EXPECT_TRUE(carritos.carrito(1).vacio());
        llenar();
    }
}

TEST_F(RegistroTest, WhatReachesThePrinter)
{
    carritos.carrito(1).set_celda(0, kColArticulo, " ");
    // Detailed ticket, description setting, payment: the calls after "conectar" and "abrir".
    const QString tarjeta = "Tarjeta (Con recargo del 5%)";
    const Rows<bool, const char *, QString, QStringList> cases = {
        {true,
         "Descripción",
         tarjeta,
         {"agregar Art. S/D 2 283.50", "agregar Clavos a mano 1 378.00", "cerrar 0"}},
        {true,
         "Grupo + Descripción",
         tarjeta,
         {"agregar Tornillos   2 283.50", "agregar  Clavos a mano 1 378.00", "cerrar 0"}},
        {false, "Descripción", tarjeta, {"agregar Varios 1 1050.00", "cerrar 0"}},
        {false, "Descripción", "Tarjeta de Crédito", {"agregar Varios 1 1000.00", "cerrar 900"}},
    };
    for (const auto &[detalle, modo, forma, esperado] : cases) {
        ajuste("IF_desc_art", modo);
        carritos.carrito(1).set_celda(1, kColIva, "21"); // one rate, so the ticket may be summarised
        registro.clear();
        ASSERT_TRUE(registrar(kImprimir, [&](Checkout &c) {
            c.set_texto(&VistaCheckout::Text_dh, "10");
            c.cambiar_forma_de_pago(forma);
            c.cambiar_resumido(detalle);
        }));
        EXPECT_EQ(registro, (QStringList{"conectar", "abrir B CONSUMIDOR FINAL 0"} + esperado));
        carritos.carrito(1).quitar_lineas();
        llenar();
        carritos.carrito(1).set_celda(0, kColArticulo, " ");
    }
}

TEST_F(RegistroTest, APrinterFailingAtAnyStepStoresNothing)
{
    for (const char *paso : {"conectar", "abrir", "agregar", "cerrar"}) {
        falla = paso;
        registro.clear();
        EXPECT_FALSE(registrar(kImprimir)) << paso;
        EXPECT_TRUE(registro.last().startsWith(paso)) << paso;
        EXPECT_EQ(cuantos(), "0/0");
        EXPECT_EQ(carritos.carrito(1).filas(), 2);
        EXPECT_EQ(app.op.shown.size(), 1u);
    }
}

TEST_F(RegistroTest, ADatabaseFaultLeavesTheWholeDocumentOrNone)
{
    for (int n = 1;; ++n) {
        app.db().execNQ("DELETE FROM vendrix_facturas", "cliente");
        app.db().execNQ("DELETE FROM vendrix_factura_items", "cliente");
        if (carritos.carrito(1).vacio())
            llenar();
        Checkout c(app.ctx(), carritos, 1);
        SeguimientoVenta nada;
        const int antes = app.failing_db().statements_seen();
        app.failing_db().fail_nth(n);
        const bool cerrado = imprimir_y_guardar(app.ctx(), front, c, carritos, kGuardar, nada);
        const bool fallo = app.failing_db().statements_seen() - antes >= n;
        app.failing_db().heal();
        EXPECT_EQ(cuantos(), cerrado ? "1/2" : "0/0") << n;
        EXPECT_EQ(carritos.carrito(1).vacio(), cerrado) << n;
        if (!fallo)
            break;
    }
}

TEST_F(RegistroTest, AStoredCartIsReplacedByItsSaleOrOverwrittenOnlyWhenTheOperatorSays)
{
    // The second recording of the cart reopened from its copy, the answer to
    // the overwrite question: the documents stored, "tipo|reference|lines".
    const Rows<OpcionesVenta, int, QStringList> cases = {
        {kGuardar, -1, {"Factura a emitir|261123-103000|2"}},
        {kCarrito, 1, {"Carrito|261123-103000|2"}},
        {kCarrito, 0, {"Carrito|261123-103000|2", "Carrito|261123-104500|2"}},
    };
    for (const auto &[segunda, respuesta, esperado] : cases) {
        app.clock.set(QDateTime(QDate(2026, 11, 23), QTime(10, 30, 0)));
        ASSERT_TRUE(registrar(kCarrito));
        llenar();
        carritos.carrito(1).set_marca_guardado(kPrefijoCarritoGuardado + "261123-103000");
        app.clock.set(QDateTime(QDate(2026, 11, 23), QTime(10, 45, 0)));
        if (respuesta >= 0)
            app.op.answer(respuesta == 1);
        ASSERT_TRUE(registrar(segunda));
        EXPECT_EQ(filas("SELECT tipo, nro_referencia, (SELECT count(*) FROM vendrix_factura_items WHERE "
                        "Factura_Id = f.ID) FROM vendrix_facturas f ORDER BY ID"),
                  esperado);
        EXPECT_TRUE(app.op.answers.empty());
        app.db().execNQ("DELETE FROM vendrix_facturas", "cliente");
        app.db().execNQ("DELETE FROM vendrix_factura_items", "cliente");
        llenar();
    }
}

TEST_F(RegistroTest, TheHeaderOfAPrintedTicket)
{
    ajuste("IF_ticket_A", "41");
    ASSERT_TRUE(registrar(kImprimir, [](Checkout &c) {
        c.cambiar_iva("I - IVA RESPONSABLE INSCRIPTO");
        for (auto [campo, texto] : {std::pair{&VistaCheckout::Text_cuit, "20-12345678-6"},
                                    {&VistaCheckout::Text_rz, "Gomez"},
                                    {&VistaCheckout::Text_dom, "Belgrano 10"},
                                    {&VistaCheckout::Text_loc, "Rosario"},
                                    {&VistaCheckout::Text_Notas, "ojo"}})
            c.set_texto(campo, texto);
    }));
    EXPECT_EQ(
        filas("SELECT nro_ticket, fecha, letra, Puntoventa, tipo, cliente, codigo, cuit, razon_social, "
              "Domicilio, Provincia, Descuentos, Iva, Descuento_habitual, forma_de_pago, carro, "
              "insert_timestamp, nro_referencia, TIPO_DOC, NOTAS, FDP_CC FROM vendrix_facturas"),
        QStringList{"41|23/11/2026 10:30:00|A|3|Factura|I - IVA RESPONSABLE INSCRIPTO||20-12345678-6|Gomez|"
                    "Belgrano 10|Rosario|100|21|0|Efectivo|Carrito 1|202611231030|261123-103000|CUIT|ojo|"});
    EXPECT_EQ(app.ctx().leer_parametro("IF_ticket_A"), "42");
    EXPECT_EQ(app.op.texts(), QStringList{"Se imprimio el Ticket Factura 41"});
}

TEST_F(RegistroTest, TheMessageAfterEachKindOfRecording)
{
    const Rows<OpcionesVenta, bool, QString> cases = {
        {kGuardar, false, "Se guardó la venta correctamente."},
        {kGuardar, true,
         "Se guardó la venta correctamente y NO se imprimió la nota de venta a pedido del usuario."},
        {kCarrito, false,
         "Se guardaron los datos del carrito correctamente con número de referencia: 261123-103000"},
        {kCredito, false, "Se guardaron los datos de la nota de crédito."},
    };
    for (const auto &[o, ndv, mensaje] : cases) {
        app.db().execNQ("DELETE FROM vendrix_facturas", "cliente");
        ASSERT_TRUE(registrar(o, [&](Checkout &c) { c.cambiar_NDV(ndv); }));
        EXPECT_EQ(app.op.texts(), QStringList{mensaje});
        EXPECT_TRUE(carritos.carrito(1).vacio() && carritos.carrito(1).marca_guardado().isEmpty());
        llenar();
    }
}

TEST_F(RegistroTest, AStoreFailingAfterThePrinterKeepsTheDocumentInTheLog)
{
    app.failing_db().fail_matching("INSERT INTO vendrix_factura_items");
    ASSERT_TRUE(registrar(kImprimir));
    EXPECT_EQ(cuantos(), "0/0");
    EXPECT_TRUE(carritos.carrito(1).vacio());
    EXPECT_TRUE(log_de("ERR").last().contains(
        "item 1: |X|Clavos a mano|0|361.99095022624437|1|10.5|400|Clavos a mano|0|0"));
    // Without a printed ticket nothing is lost: the cart stays for another try.
    llenar();
    EXPECT_FALSE(registrar(kGuardar));
    EXPECT_EQ(carritos.carrito(1).filas(), 2);
}

TEST(Comprobante, LetterAndNumber)
{
    test::TestApp app;
    // Shop's condition, buyer's condition: letter and whether the IVA shows apart.
    const Rows<const char *, const char *, const char *> letras = {
        {"M - RESPONSABLE MONOTRIBUTO", "I - IVA RESPONSABLE INSCRIPTO", "C0"},
        {"I - IVA RESPONSABLE INSCRIPTO", "I - IVA RESPONSABLE INSCRIPTO", "A1"},
        {"", "M - RESPONSABLE MONOTRIBUTO", "A1"},
        {"I - IVA RESPONSABLE INSCRIPTO", "F - CONSUMIDOR FINAL", "B0"},
    };
    for (const auto &[tienda, comprador, esperado] : letras) {
        app.ctx().escribir_parametro("IF_tipo_IVA", tienda);
        const LetraComprobante l = letra_comprobante(app.ctx(), comprador);
        EXPECT_EQ(l.letra + QString::number(l.discrimina), esperado) << tienda << comprador;
    }
    // Type, letter, counter before: the number, the counter after.
    const Rows<const char *, const char *, const char *, qint64, const char *> numeros = {
        {"Factura", "B", "", 1, "2"},          {"Factura", "B", "7", 7, "8"},
        {"Nota de Credito", "A", "3", 3, "4"}, {"Factura a emitir", "B", "7", 1, "7"},
        {"Carrito", "A", "3", 1, "3"},
    };
    for (const auto &[tipo, letra, antes, numero, despues] : numeros) {
        const QString clave = QString(tipo == QString("Nota de Credito") ? "IF_nc_" : "IF_ticket_") + letra;
        app.ctx().escribir_parametro(clave, antes);
        EXPECT_EQ(proximo_nro_ticket(app.ctx(), letra, tipo), numero) << tipo;
        EXPECT_EQ(app.ctx().leer_parametro(clave), despues) << tipo;
    }
}

} // namespace
} // namespace vendrix

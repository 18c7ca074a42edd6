// Electronic sales against the simulator with the shop's record of requests
// in flight: what is stored, what is settled later, and that no number is
// asked for twice.
#include "afip/invoice/afip_invoice_device.h"
#include "afip/invoice/cae_service.h"
#include "afip/invoice/pending_cae_store.h"
#include "afip/invoice/voucher_query.h"
#include "afip/simulated_afip.h"
#include "afip/transport/qt_http_client.h"
#include "core/db_helpers.h"
#include "core/migrations.h"
#include "fiscal/front/fiscal_front.h"
#include "fiscal/front/fiscal_models.h"
#include "sales/carritos.h"
#include "sales/recording/cae_recovery.h"
#include "sales/recording/sale_recording.h"

#include <QEventLoop>
#include <QProcess>
#include <QTimer>

namespace vendrix {
namespace {

using namespace std::chrono_literals;
using simulador::Modo;

class CaePendientes : public ::testing::Test {
protected:
    void SetUp() override
    {
        app.copy_seed("clientes.install", "clientes.vdrx");
        ejecutar_migraciones(app.ctx());
        test::preparar_tienda_afip(app, app.ruta("afip"), cred, sim);
        app.ctx().escribir_parametro("IF_Modelo", kModeloElectronica);
        app.ctx().escribir_parametro("IF_tipo_IVA", "I - IVA RESPONSABLE INSCRIPTO");
    }

    // One line of 1210, a minute after the sale before: its own reference.
    bool vender()
    {
        app.clock.set(app.clock.now().addSecs(60));
        carritos.carrito(1).quitar_lineas();
        carritos.carrito(1).agregar_linea(
            {"1", "Tornillos", "1210", "1210", "21", "0", "0", "0", "0", "0", "", "", ""});
        Checkout checkout(app.ctx(), carritos, 1);
        SeguimientoVenta nada;
        app.op.clear();
        return imprimir_y_guardar(app.ctx(), front, checkout, carritos,
                                  opciones_de(PasoVenta::imprimir_y_guardar), nada);
    }
    QStringList filas(const char *sql) { return test::filas(app.db(), sql, "cliente"); }
    // "reference|number|CAE|expiry|total" of each stored sale.
    QStringList facturas()
    {
        return filas("SELECT nro_referencia, FE_CAE_ID, FE_CAE_numero, FE_CAE_fechaVencimiento, Total FROM "
                     "vendrix_facturas ORDER BY ID");
    }
    QStringList pendientes() { return filas("SELECT referencia, CbteNro, CAE FROM vendrix_cae_pendientes"); }
    QString cae(int numero) { return consultar_comprobante(s, 6, 3, numero).cae; }
    long pedidos(const QString &operacion)
    {
        return std::count_if(sim->peticiones().begin(), sim->peticiones().end(),
                             [&](const PeticionRecibida &p) { return p.operacion == operacion; });
    }

    test::TestApp app{true};
    CredencialesSimulador cred;
    std::unique_ptr<SimuladorAfip> sim;
    ClienteHttpQt http{app.ctx(), 1s};
    ServiciosAfip s{app.ctx(), http};
    std::unique_ptr<RegistroCaePendiente> registro = registro_cae_de_la_tienda(app.ctx());
    Carritos carritos;
    FiscalFront front{app.ctx(), [](FamiliaFiscal, Context &c) {
                          return std::make_unique<AfipInvoiceDevice>(
                              c, std::make_unique<ServicioCae>(c, std::make_unique<ClienteHttpQt>(c, 1s)));
                      }};
};

TEST_F(CaePendientes, ASaleGoesWithItsRecordOrNeitherAndIsStoredFromItsDraftAsItWouldHaveBeen)
{
    ASSERT_TRUE(vender());
    // The store fails at the record: the sale's rows go back with it, and
    // the record keeps the CAE.
    app.failing_db().fail_matching("DELETE FROM vendrix_cae_pendientes");
    EXPECT_TRUE(vender());
    app.failing_db().heal();
    EXPECT_EQ(pendientes(), QStringList{"261123-103200|2|" + cae(2)});
    EXPECT_EQ(facturas().size(), 1);

    app.op.clear();
    app.clock.set(app.clock.now().addSecs(3600));
    EXPECT_TRUE(conciliar_cae_pendientes(app.ctx(), s));
    EXPECT_EQ(app.op.lines(),
              QStringList{"inform|Factura electrónica|La factura electrónica N° 0003-00000002 fue "
                          "autorizada por la AFIP (CAE " +
                          cae(2) + ") y no se había guardado: Vendrix la guardó ahora."});
    EXPECT_EQ(facturas(), QStringList({"261123-103100|1|" + cae(1) + "|20261203|1210",
                                       "261123-103200|2|" + cae(2) + "|20261203|1210"}));
    EXPECT_TRUE(pendientes().isEmpty());
    // Stored from its draft, the sale is what it would have been, with the
    // hour of the sale and not of its recovery.
    const QStringList ventas = filas(
        "SELECT substr(f.fecha, 1, 13), f.letra, f.tipo, f.cliente, f.Total_facturado, f.Descuentos, f.Iva, "
        "f.total_neto, f.Total_iva, f.forma_de_pago, f.carro, f.maquina, f.TIPO_DOC, i.Offset, i.Proveedor, "
        "i.Codigo, i.Descripcion, i.Costo_siva, i.venta_siva, i.cantidad, i.iva, i.Precio_final, "
        "i.descripcion_nueva, i.ganancia, i.descuento FROM vendrix_facturas f JOIN vendrix_factura_items i "
        "ON i.Factura_Id = f.ID");
    ASSERT_EQ(ventas.size(), 2);
    EXPECT_EQ(ventas[0], ventas[1]);
}

// The device asks AFIP at once about a request left without an answer.
TEST_F(CaePendientes, AnAnswerLostAfterTheCaeIsSettledWithThatCaeAndNoSecondNumber)
{
    sim->set_modo(Modo::procesar_sin_responder);
    EXPECT_TRUE(vender());
    EXPECT_TRUE(carritos.carrito(1).vacio());
    EXPECT_EQ(facturas(), QStringList{"261123-103100|1|" + cae(1) + "|20261203|1210"});
    EXPECT_TRUE(pendientes().isEmpty());
    EXPECT_EQ(pedidos("FECAESolicitar"), 1);
}

TEST_F(CaePendientes, WhatAfipSaysOfARequestDecidesItsFateAndAnUnsettledOneStopsTheNextInvoice)
{
    ASSERT_TRUE(vender());
    const QString n = "factura electrónica N° 0003-0000000";
    // The request recorded (number, total), how AFIP
    // answers: the box, and whether the record stays.
    const std::tuple<int, const char *, Modo, QString, bool> casos[] = {
        {2, "1210", Modo::normal,
         "La " + n + "2 no llegó a la AFIP: el número no se usó y la venta no se registró.", false},
        {1, "1500", Modo::normal,
         "La " + n +
             "1 que figura en la AFIP es otro comprobante (importe 1210, fecha 20261123): la venta no se "
             "registró.",
         false},
        {1, "1210", Modo::sin_respuesta,
         "No se pudo consultar a la AFIP por la " + n +
             "1; Vendrix volverá a consultar antes de la próxima factura.",
         true},
    };
    for (const auto &[numero, total, modo, aviso, queda] : casos) {
        ASSERT_TRUE(escribir_borrador_cae(app.ctx(), "R", "{}"));
        ASSERT_TRUE(registro->enviando({"R", 6, 3, numero, total, "20261123"}));
        sim->set_modo(modo);
        app.op.clear();
        EXPECT_EQ(conciliar_cae_pendientes(app.ctx(), s), !queda) << numero;
        EXPECT_EQ(app.op.texts(), QStringList{aviso}) << numero;
        EXPECT_EQ(pendientes().size(), queda ? 1 : 0) << numero;
    }
    // AFIP answers, but not about the voucher (it doesn't know the ticket):
    // no number is asked for while the last one is open.
    sim->set_modo(Modo::normal);
    app.ctx().escribir_parametro("FE_token", "ajeno");
    EXPECT_FALSE(vender());
    EXPECT_EQ(app.op.texts().last(), "No se puede emitir otra factura electrónica hasta saber si la AFIP "
                                     "autorizó la anterior. Verifique la conexión a Internet e intente "
                                     "nuevamente.");
    EXPECT_EQ(pedidos("FECAESolicitar"), 1);
    EXPECT_EQ(facturas().size(), 1);
}

TEST_F(CaePendientes, ASaleKilledOnceItsCaeIsRecordedIsStoredOnceAtTheNextStart)
{
    QProcess venta;
    QEventLoop espera;
    QObject::connect(&venta, &QProcess::finished, &espera, &QEventLoop::quit);
    QTimer::singleShot(30s, &espera, &QEventLoop::quit);
    venta.start(VENDRIX_KILLED_INVOICE, {app.carpeta()});
    espera.exec();
    ASSERT_EQ(venta.exitStatus(), QProcess::CrashExit) << venta.readAllStandardError().toStdString();
    const QStringList pendiente = pendientes();
    ASSERT_EQ(pendiente.size(), 1);
    EXPECT_TRUE(facturas().isEmpty());

    test::ScriptedOperator op;
    Context ctx(app.carpeta(), op, app.status, app.clock);
    ClienteHttpQt cliente(ctx, 1s);
    ServiciosAfip servicios{ctx, cliente};
    EXPECT_TRUE(conciliar_cae_pendientes(ctx, servicios));
    EXPECT_EQ(facturas(), QStringList{"261123-103000|1|" + pendiente[0].section('|', 2) + "|20261203|1210"});
    EXPECT_TRUE(pendientes().isEmpty());
    EXPECT_EQ(pedidos("FECAESolicitar"), 1);
    EXPECT_EQ(pedidos("FECompConsultar"), 0);
}

} // namespace
} // namespace vendrix

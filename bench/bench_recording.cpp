// Recording a sale of a 50-line cart: the ticket through an emulated Hasar
// printer, then the document and its lines stored durably (the shop
// database syncs every commit). The time reported is the storing alone,
// the one transaction of header and lines: goal 50 ms or less.
#include "catalogue/pricelist/price_file_connection.h"
#include "catalogue/pricelist/price_file_format.h"
#include "core/context.h"
#include "core/migrations.h"
#include "fiscal/emulator/hasar_emulator.h"
#include "fiscal/front/fiscal_front.h"
#include "sales/carritos.h"
#include "sales/checkout/checkout.h"
#include "sales/operar_carrito.h"
#include "sales/recording/document_store.h"
#include "sales/recording/fiscal_output.h"

#include <benchmark/benchmark.h>

#include <QCoreApplication>
#include <QFile>
#include <QTemporaryDir>

#include <chrono>

namespace {

using namespace vendrix;

// One second later at every reading, so each document has its own reference.
class RelojQueAvanza final : public Clock {
public:
    QDateTime now() const override { return inicio_.addSecs(++pasos_); }

private:
    QDateTime inicio_ = QDateTime::currentDateTime();
    mutable qint64 pasos_ = 0;
};

void BM_GuardarVentaDe50Lineas(benchmark::State &state)
{
    QTemporaryDir dir;
    QFile::copy(QStringLiteral(VENDRIX_SEED_DIR "/clientes.install"), dir.filePath("clientes.vdrx"));
    QFile::setPermissions(dir.filePath("clientes.vdrx"), QFile::ReadOwner | QFile::WriteOwner);
    {
        QString error;
        auto precios = PriceFileConnection::abrir(dir.filePath("Vendrix.vdrxdb"),
                                                  PriceFileConnection::Mode::Crear, error);
        crear_tablas_lista(*precios);
        crear_indices_lista(*precios);
        precios->ejecutar(
            "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < 50) "
            "INSERT INTO xls_listas (ID, Proveedor, Grupo, Codigo, Descripcion, Precio, Moneda) "
            "SELECT i, 'Acme', 'Tornillos', 'T' || i, 'Tornillo ' || i, '1000', '1' FROM n");
    }
    SilentOperator op;
    SilentStatus estado;
    RelojQueAvanza reloj;
    Context ctx(dir.path(), op, estado, reloj);
    ejecutar_migraciones(ctx);
    HasarEmulator emulador(HasarEmulator::Opciones{9, 'I', 50});
    emulador.iniciar();
    for (const auto &[clave, valor] : {std::pair{"IF_Modelo", QStringLiteral("Hasar")},
                                       {"IF_Port", emulador.ruta()},
                                       {"IF_velocidad", QStringLiteral("9600")},
                                       {"IF_max_efectivo", QStringLiteral("100000000")},
                                       {"IF_max_tarjeta", QStringLiteral("100000000")},
                                       {"impresora_fiscal", QStringLiteral("1")},
                                       {"IF_tipo_IVA", QStringLiteral("I - IVA RESPONSABLE INSCRIPTO")}})
        ctx.escribir_parametro(QString::fromLatin1(clave), valor);
    FiscalFront front(ctx);
    Carritos carritos;

    double impresora_ms = 0;
    for (auto _ : state) {
        // Half of the lines from the list, half typed by hand, at two rates.
        Carrito &carrito = carritos.carrito(1);
        for (int i = 1; i <= 50; ++i) {
            LineaCarrito l;
            const bool lista = i % 2 == 0;
            l = {QStringLiteral("2"),
                 QStringLiteral("Tornillo %1").arg(i),
                 QStringLiteral("605,5"),
                 QStringLiteral("1211"),
                 lista ? QStringLiteral("21") : QStringLiteral("10,5"),
                 lista ? QString::number(i) : QStringLiteral("0"),
                 QStringLiteral("30"),
                 QStringLiteral("10+5"),
                 QStringLiteral("0"),
                 QStringLiteral("500"),
                 QStringLiteral("T%1").arg(i),
                 QStringLiteral("Tornillos"),
                 QStringLiteral("Acme")};
            carrito.agregar_linea(l);
        }
        // An invoice A to a registered customer.
        Checkout checkout(ctx, carritos, 1);
        checkout.cambiar_iva(QStringLiteral("I - IVA RESPONSABLE INSCRIPTO"));
        checkout.set_texto(&VistaCheckout::Text_cuit, QStringLiteral("20123456786"));
        checkout.set_texto(&VistaCheckout::Text_rz, QStringLiteral("Gomez Juan"));
        checkout.set_texto(&VistaCheckout::Text_dom, QStringLiteral("Belgrano 10"));
        const FactoresPrecio f = factores_precio(checkout);
        Autorizacion autorizacion;
        const auto t0 = std::chrono::steady_clock::now();
        if (!emitir_comprobante(ctx, front, checkout, f, false, autorizacion)) {
            state.SkipWithError("the emulated printer refused the ticket");
            break;
        }
        DocumentoVenta doc =
            armar_documento(ctx, checkout, QStringLiteral("Factura"), false, f, autorizacion);
        doc.reemplaza = checkout.vista().Text_referenciaExterna;
        const auto t1 = std::chrono::steady_clock::now();
        if (guardar_documento(ctx, doc) == 0) {
            state.SkipWithError("the document was not stored");
            break;
        }
        const auto t2 = std::chrono::steady_clock::now();
        impresora_ms += std::chrono::duration<double, std::milli>(t1 - t0).count();
        state.SetIterationTime(std::chrono::duration<double>(t2 - t1).count());
        operar_carrito(ctx, carrito, VerboCarrito::vaciar, false);
    }
    state.counters["impresora_ms"] =
        benchmark::Counter(impresora_ms / std::max<double>(1, state.iterations()));
}
BENCHMARK(BM_GuardarVentaDe50Lineas)->UseManualTime()->Iterations(20)->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char **argv)
{
    // The serial port of the printer wants an application object.
    QCoreApplication app(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}

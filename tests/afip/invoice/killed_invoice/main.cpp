// Records one electronic sale in the application folder given on the command
// line, against the simulator of the test that started it (its address, its
// authority and the shop's certificate stand in the folder's Config.vdrx),
// and dies with SIGKILL the moment the CAE is recorded, before the sale is
// stored.
#include "afip/invoice/afip_invoice_device.h"
#include "afip/invoice/cae_service.h"
#include "afip/invoice/pending_cae.h"
#include "afip/transport/qt_http_client.h"
#include "core/context.h"
#include "fiscal/front/fiscal_front.h"
#include "sales/carritos.h"
#include "sales/recording/sale_recording.h"
#include "support/scripted_operator.h"

#include <QCoreApplication>

#include <csignal>

using namespace vendrix;

namespace {

class MuereAlAutorizar final : public RegistroCaePendiente {
public:
    explicit MuereAlAutorizar(Context &ctx) : tienda_(registro_cae_de_la_tienda(ctx)) {}
    bool enviando(const SolicitudCae &s) override { return tienda_->enviando(s); }
    void autorizado(const QString &referencia, const QString &cae, const QString &vto) override
    {
        tienda_->autorizado(referencia, cae, vto);
        std::raise(SIGKILL);
    }
    void descartado(const QString &referencia) override { tienda_->descartado(referencia); }

private:
    std::unique_ptr<RegistroCaePendiente> tienda_;
};

} // namespace

int main(int argc, char **argv)
{
    QCoreApplication app(argc, argv);
    if (argc < 2)
        return 2;
    test::ScriptedOperator op;
    test::RecordingStatus status;
    // The test's clock, which its simulator checks the dates against.
    const FixedClock clock(QDateTime(QDate(2026, 11, 23), QTime(10, 30), Qt::OffsetFromUTC, -3 * 3600));
    Context ctx(QString::fromLocal8Bit(argv[1]), op, status, clock);
    FiscalFront electronica(ctx, [](FamiliaFiscal, Context &c) {
        return std::make_unique<AfipInvoiceDevice>(
            c, std::make_unique<ServicioCae>(c, std::make_unique<ClienteHttpQt>(c, std::chrono::seconds(5)),
                                             std::make_unique<MuereAlAutorizar>(c)));
    });
    Carritos carritos;
    carritos.carrito(1).agregar_linea(
        {"1", "Tornillos a mano", "1210", "1210", "21", "0", "0", "0", "0", "0", "", "", ""});
    Checkout checkout(ctx, carritos, 1);
    SeguimientoVenta nada;
    imprimir_y_guardar(ctx, electronica, checkout, carritos, opciones_de(PasoVenta::imprimir_y_guardar),
                       nada);
    // Still alive: the sale never got its CAE.
    return 3;
}

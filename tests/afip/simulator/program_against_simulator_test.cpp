// The program's side of AFIP against the simulator, with nothing faked: the
// signature made in process, the HTTPS client, the shop's certificate issued
// by the simulator's authority.
#include "afip/auth/afip_services.h"
#include "afip/auth/connection_report.h"
#include "afip/auth/wsaa_ticket.h"
#include "afip/lookup/taxpayer_lookup.h"
#include "afip/simulated_afip.h"
#include "afip/simulator/taxpayer_service.h"
#include "afip/transport/qt_http_client.h"
#include "sales/carritos.h"
#include "sales/checkout/checkout.h"
#include "support/qt_print.h"
#include "support/test_context.h"

#include <gtest/gtest.h>

namespace vendrix {
namespace {

using namespace std::chrono_literals;
using simulador::Modo;

const QString kErrorWsaa = QStringLiteral(
    "error|Error WSAA|Se detectaron Errores durante la autenticación mediante WSAA a los servidores de la "
    "AFIP. Por favor verifique que esta conectado a Internet y que la configuración de Vendrix es correcta. "
    "Los detalles del intercambio de mensajes estan disponibles en el Log");

class ProgramaContraSimulador : public ::testing::Test {
protected:
    void SetUp() override
    {
        test::preparar_tienda_afip(app, app.ruta("afip"), cred, sim);
        app.op.clear();
    }
    QString param(const char *clave) { return app.ctx().leer_parametro(QLatin1String(clave)); }

    test::TestApp app;
    CredencialesSimulador cred;
    std::unique_ptr<SimuladorAfip> sim;
    ClienteHttpQt http{app.ctx(), 1s};
    ServiciosAfip s{app.ctx(), http, firmar_cms, leer_vencimiento, [] { return true; }};
};

TEST_F(ProgramaContraSimulador, TheTicketIsSignedStoredReusedAndATicketAfipStillHoldsIsToldApart)
{
    // The simulator checks the signature against its authority and the times
    // against its clock: a ticket means both passed.
    ASSERT_TRUE(obtener_TRA(s)) << app.log_messages().join('\n').toStdString();
    EXPECT_EQ(
        QStringList({param("FE_generationTime"), param("FE_expirationTime"), param("FE_cert_vence_en_30")}),
        QStringList({"2026-11-23T10:30:00.000-03:00", "2026-11-23T22:30:00.000-03:00", "True"}));
    EXPECT_FALSE(param("FE_token").isEmpty() || param("FE_sign").isEmpty());
    EXPECT_TRUE(obtener_TRA(s));
    EXPECT_EQ(sim->peticiones().size(), 1);

    // The program forgot its ticket; AFIP didn't.
    app.ctx().escribir_parametro("FE_expirationTime", "");
    EXPECT_FALSE(obtener_TRA(s));
    EXPECT_EQ(
        app.op.lines(),
        QStringList{"error|Error WSAA|El contribuyente fiscal ya posee un Ticket de Accesso valido para "
                    "el acceso al WSN solicitado, sin embargo, Vendrix lo desconoce. Por favor asegurese "
                    "de que no hay otros aplicativos intentandose conectar a la AFIP con su clave fiscal."});
    EXPECT_EQ(sim->peticiones().size(), 3);
}

TEST_F(ProgramaContraSimulador, AnAnswerWithoutSignOrNoAnswerEndsInTheWsaaBox)
{
    // The second attempt finds the ticket of the first, signless, held.
    sim->set_modo(Modo::sin_sign);
    EXPECT_FALSE(obtener_TRA(s));
    // What came before the missing sign stays.
    EXPECT_EQ(param("FE_expirationTime"), "2026-11-23T22:30:00.000-03:00");
    sim->set_modo(Modo::sin_respuesta);
    app.ctx().escribir_parametro("FE_expirationTime", "");
    EXPECT_FALSE(obtener_TRA(s));
    EXPECT_EQ(app.op.lines().mid(1), QStringList({kErrorWsaa}));
    EXPECT_TRUE(app.op.lines().value(0).contains("ya posee un Ticket de Accesso valido"));
    EXPECT_TRUE(app.log_messages().contains("La AFIP no respondió en 1 segundos (" + sim->url() +
                                            "/ws/services/LoginCms)."));
}

TEST_F(ProgramaContraSimulador, TheConnectionReportReadsTheServices)
{
    EXPECT_TRUE(AFIP_reporte_conexion(s));
    EXPECT_EQ(app.op.lines(),
              QStringList{"inform|Conexión con la AFIP|Verificando conexión a la AFIP, Ambiente "
                          "de \"Homologación\".\r\n\r\n"
                          "     OK - Certificado AFIP válido.\r\n"
                          "     OK - Hay conexión a Internet.\r\n"
                          "     OK - Los servidores de la AFIP Responden.\r\n"
                          "     OK - Se pudo obtener un TRA desde los servidores de la AFIP "
                          "Con validez hasta: 2026-11-23T22:30:00.000-03:00"});
}

TEST_F(ProgramaContraSimulador, TheLookupFillsTheCustomerFromTheRegisterOnlyOnYes)
{
    app.copy_seed("clientes.install", "clientes.vdrx");
    Carritos carritos;
    Checkout checkout(app.ctx(), carritos, 1);
    const VistaCheckout &v = checkout.vista();
    checkout.set_texto(&VistaCheckout::Text_cuit, simulador::kCuitEmpresa);
    app.op.answer(false);
    recuperar_datos_CUIT(s, checkout);
    EXPECT_TRUE(v.Text_rz.isEmpty());
    // A person with two addresses: the last one is taken.
    checkout.set_texto(&VistaCheckout::Text_cuit, simulador::kCuitPersona);
    app.op.answer(true);
    recuperar_datos_CUIT(s, checkout);
    EXPECT_EQ(
        QStringList({v.Text_rz, v.Text_dom, v.Text_loc, v.Combo_iva}),
        QStringList({"Maria Laura Gomez", "San Martin 456", "Cordoba", "I - IVA RESPONSABLE INSCRIPTO"}));
    EXPECT_TRUE(app.op.texts().value(0).contains("    Razón Social: EL ALERCE & HIJOS S.R.L.\r\n"));
}

} // namespace
} // namespace vendrix

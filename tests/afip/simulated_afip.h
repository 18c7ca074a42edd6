#pragma once

// A shop that reaches the AFIP simulator instead of AFIP: a clock in
// Argentina's zone (the ticket times are written in it), the simulator's
// credentials, the delivered templates, and the settings that point the
// program at the simulator.
#include "afip/simulator/afip_simulator.h"
#include "afip/simulator/simulator_credentials.h"
#include "core/startup_files.h"
#include "support/test_context.h"

#include <gtest/gtest.h>

#include <memory>

namespace vendrix::test {

// A new simulator over `cred`, listening, and the shop pointed at it.
inline void iniciar_simulador(TestApp &app, const CredencialesSimulador &cred,
                              std::unique_ptr<SimuladorAfip> &sim)
{
    sim = std::make_unique<SimuladorAfip>(
        SimuladorAfip::Opciones{0, cred.autoridad(), cred.servidor(), &app.clock});
    ASSERT_TRUE(sim->iniciar());
    app.ctx().escribir_parametro(QStringLiteral("FE_servidor_pruebas"), sim->url());
}

// The credentials made in `carpeta`, a simulator, and a shop at point of
// sale 3 that may sell to final consumers up to 9999.
inline void preparar_tienda_afip(TestApp &app, const QString &carpeta, CredencialesSimulador &cred,
                                 std::unique_ptr<SimuladorAfip> &sim)
{
    app.clock.set(QDateTime(QDate(2026, 11, 23), QTime(10, 30), Qt::OffsetFromUTC, -3 * 3600));
    ASSERT_TRUE(CredencialesSimulador::preparar(carpeta, app.clock.now(), false, cred));
    iniciar_simulador(app, cred, sim);
    asegurar_plantillas_fe(app.ctx());
    for (const auto &[clave, valor] : {std::pair{"IF_FE_Certificado", cred.tienda_certificado},
                                       {"IF_FE_Password", cred.tienda_llave},
                                       {"FE_CA_pruebas", cred.autoridad_certificado},
                                       {"IF_FE_Modo_Operacion", QStringLiteral("Homologación")},
                                       {"IF_PuntoDeVenta", QStringLiteral("3")},
                                       {"IF_CUIT", QStringLiteral("30-71234567-1")},
                                       {"IF_max_efectivo", QStringLiteral("9999")},
                                       {"IF_max_tarjeta", QStringLiteral("9999")}})
        app.ctx().escribir_parametro(QLatin1String(clave), valor);
}

} // namespace vendrix::test

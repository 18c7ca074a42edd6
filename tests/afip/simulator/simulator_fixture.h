#pragma once

#include "afip/simulator/afip_simulator.h"
#include "afip/simulator/simulator_credentials.h"
#include "core/clock.h"

#include <QNetworkAccessManager>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <memory>

namespace vendrix::test {

struct RespuestaPrueba {
    int estado = 0; // 0: no answer came
    QString cuerpo;
};

// The text of the first <tag> of `texto`, "N/A" when missing.
QString etiqueta(const QString &texto, const QString &tag);
// Every code inside <Err> or <Obs> entries, in order.
QList<int> codigos(const QString &texto, const QString &entrada = QStringLiteral("Err"));

// A signing certificate and its key, as files.
struct Firmante {
    QString certificado, llave;
};

// A simulator on a free port with the shop's credentials, a fixed clock,
// and a plain Qt client that trusts the test authority.
class SimuladorTest : public ::testing::Test {
protected:
    static void SetUpTestSuite();
    static void TearDownTestSuite();
    void SetUp() override;

    RespuestaPrueba post(const QString &ruta, const QString &cuerpo, int espera_ms = 10000);
    // A LoginCms request for `servicio` signed by `firmante`, with the
    // times the program sends: ten minutes either side of the clock.
    QString pedido_login(const Firmante &firmante, const QString &servicio = QStringLiteral("wsfe"),
                         int desde_min = -10, int hasta_min = 10) const;
    // A ticket for `servicio` from LoginCms: token and sign.
    std::pair<QString, QString> ticket(const QString &servicio);

    static inline QTemporaryDir *carpeta_ = nullptr;
    static inline CredencialesSimulador credenciales_;
    static inline Firmante tienda_;
    static inline Firmante ajena_; // from another authority
    static inline Firmante vencida_;

    FixedClock reloj_{QDateTime(QDate(2025, 3, 10), QTime(10, 0), Qt::OffsetFromUTC, -3 * 3600)};
    std::unique_ptr<SimuladorAfip> simulador_;
    QNetworkAccessManager red_;
};

} // namespace vendrix::test

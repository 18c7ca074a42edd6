#pragma once

#include "afip/crypto/test_authority.h"
#include "afip/simulator/simulator_mode.h"

#include <QByteArray>
#include <QHash>
#include <QList>
#include <QObject>
#include <QString>

#include <memory>
#include <utility>

class QSslServer;
class QSslSocket;

namespace vendrix {

class Clock;

namespace simulador {
class ServicioLogin;
class ServicioFacturas;
class ServicioPadron;
struct RespuestaSimulada;
} // namespace simulador

// A request the simulator received, kept for tests.
struct PeticionRecibida {
    QByteArray metodo;
    QString ruta;     // without the query
    QString consulta; // after '?', as sent
    QList<std::pair<QByteArray, QByteArray>> cabeceras;
    QByteArray cuerpo;
    QString operacion; // the SOAP body's element, when one was read

    QByteArray cabecera(const QByteArray &nombre) const;
};

// A local HTTPS server that answers like AFIP's services: WSAA's LoginCms,
// WSFEv1 and the taxpayer register A13, on their paths, with tickets,
// numbering and vouchers kept in memory. Fully asynchronous, so it can run
// in the thread of a client that waits in an event loop.
class SimuladorAfip : public QObject {
    Q_OBJECT
public:
    struct Opciones {
        quint16 puerto = 0;           // 0: any free port
        CertificadoPem autoridad;     // checks the signatures of LoginCms
        CertificadoPem servidor;      // the TLS certificate, issued for 127.0.0.1
        const Clock *reloj = nullptr; // the system's when null
    };

    explicit SimuladorAfip(Opciones opciones, QObject *parent = nullptr);
    ~SimuladorAfip() override;

    // Starts listening on 127.0.0.1; false with the reason in `error`.
    bool iniciar(QString *error = nullptr);
    quint16 puerto() const;
    QString url() const;

    void set_modo(simulador::Modo modo) { modo_ = modo; }
    simulador::Modo modo() const { return modo_; }

    const QList<PeticionRecibida> &peticiones() const { return peticiones_; }
    // The last number WSFEv1 authorized for a point of sale and class.
    qint64 ultimo_autorizado(int pto_vta, int tipo) const;

Q_SIGNALS:
    void peticion_recibida(const PeticionRecibida &peticion);

private:
    void al_conectar();
    void al_leer(QSslSocket *socket);
    simulador::RespuestaSimulada atender(PeticionRecibida &peticion);

    Opciones opciones_;
    std::unique_ptr<Clock> reloj_propio_;
    const Clock *reloj_;
    QSslServer *servidor_;
    QHash<QSslSocket *, QByteArray> recibido_;
    QList<PeticionRecibida> peticiones_;
    simulador::Modo modo_ = simulador::Modo::normal;
    std::unique_ptr<simulador::ServicioLogin> login_;
    std::unique_ptr<simulador::ServicioFacturas> facturas_;
    std::unique_ptr<simulador::ServicioPadron> padron_;
};

} // namespace vendrix

#include "afip/simulator/afip_simulator.h"

#include "afip/simulator/invoice_service.h"
#include "afip/simulator/login_service.h"
#include "afip/simulator/soap_answer.h"
#include "afip/simulator/taxpayer_service.h"
#include "afip/simulator/xml_tree.h"
#include "core/clock.h"

#include <QHostAddress>
#include <QSslConfiguration>
#include <QSslKey>
#include <QSslServer>
#include <QSslSocket>
#include <QUrlQuery>

namespace vendrix {

using simulador::RespuestaSimulada;

namespace {

// Requests larger than this are not AFIP's; the connection is dropped.
constexpr qsizetype kMaximoPedido = 8 * 1024 * 1024;

QByteArray motivo(int estado)
{
    switch (estado) {
    case 200:
        return "OK";
    case 404:
        return "Not Found";
    case 405:
        return "Method Not Allowed";
    default:
        return "Internal Server Error";
    }
}

} // namespace

QByteArray PeticionRecibida::cabecera(const QByteArray &nombre) const
{
    for (const auto &[clave, valor] : cabeceras) {
        if (clave.compare(nombre, Qt::CaseInsensitive) == 0)
            return valor;
    }
    return {};
}

SimuladorAfip::SimuladorAfip(Opciones opciones, QObject *parent)
    : QObject(parent), opciones_(std::move(opciones)), servidor_(new QSslServer(this))
{
    if (!opciones_.reloj)
        reloj_propio_ = std::make_unique<SystemClock>();
    reloj_ = opciones_.reloj ? opciones_.reloj : reloj_propio_.get();
    login_ = std::make_unique<simulador::ServicioLogin>(opciones_.autoridad.certificado, *reloj_);
    facturas_ = std::make_unique<simulador::ServicioFacturas>(*login_, *reloj_);
    padron_ = std::make_unique<simulador::ServicioPadron>(*login_, *reloj_);
    // A TLS connection is pending only once its handshake is over.
    connect(servidor_, &QTcpServer::pendingConnectionAvailable, this, &SimuladorAfip::al_conectar);
}

SimuladorAfip::~SimuladorAfip() = default;

bool SimuladorAfip::iniciar(QString *error)
{
    const QSslCertificate certificado(opciones_.servidor.certificado, QSsl::Pem);
    const QSslKey llave(opciones_.servidor.llave, QSsl::Rsa, QSsl::Pem);
    if (!QSslSocket::supportsSsl() || certificado.isNull() || llave.isNull()) {
        if (error)
            *error = QStringLiteral("No hay soporte TLS o el certificado del servidor no se pudo leer.");
        return false;
    }
    QSslConfiguration tls = QSslConfiguration::defaultConfiguration();
    tls.setLocalCertificate(certificado);
    tls.setPrivateKey(llave);
    tls.setPeerVerifyMode(QSslSocket::VerifyNone);
    servidor_->setSslConfiguration(tls);
    if (!servidor_->listen(QHostAddress::LocalHost, opciones_.puerto)) {
        if (error)
            *error = servidor_->errorString();
        return false;
    }
    return true;
}

quint16 SimuladorAfip::puerto() const
{
    return servidor_->serverPort();
}

QString SimuladorAfip::url() const
{
    return QStringLiteral("https://127.0.0.1:%1").arg(puerto());
}

qint64 SimuladorAfip::ultimo_autorizado(int pto_vta, int tipo) const
{
    return facturas_->ultimo(pto_vta, tipo);
}

void SimuladorAfip::al_conectar()
{
    while (servidor_->hasPendingConnections()) {
        auto *socket = qobject_cast<QSslSocket *>(servidor_->nextPendingConnection());
        if (!socket)
            continue;
        connect(socket, &QSslSocket::readyRead, this, [this, socket] { al_leer(socket); });
        connect(socket, &QSslSocket::disconnected, this, [this, socket] {
            recibido_.remove(socket);
            socket->deleteLater();
        });
        if (socket->bytesAvailable() > 0)
            al_leer(socket);
    }
}

// One request per connection: the head, then Content-Length bytes of body.
void SimuladorAfip::al_leer(QSslSocket *socket)
{
    QByteArray &datos = recibido_[socket];
    datos += socket->readAll();
    const qsizetype fin_cabeza = datos.indexOf("\r\n\r\n");
    if (datos.size() > kMaximoPedido) {
        socket->abort();
        return;
    }
    if (fin_cabeza < 0)
        return;
    const QList<QByteArray> lineas = datos.left(fin_cabeza).split('\n');
    const QList<QByteArray> primera = lineas.value(0).trimmed().split(' ');
    PeticionRecibida peticion;
    peticion.metodo = primera.value(0);
    const QString destino = QString::fromUtf8(primera.value(1));
    peticion.ruta = destino.section(QLatin1Char('?'), 0, 0);
    peticion.consulta = destino.section(QLatin1Char('?'), 1);
    qsizetype largo = 0;
    for (qsizetype i = 1; i < lineas.size(); ++i) {
        const qsizetype dos_puntos = lineas.at(i).indexOf(':');
        if (dos_puntos <= 0)
            continue;
        const QByteArray clave = lineas.at(i).left(dos_puntos).trimmed();
        const QByteArray valor = lineas.at(i).mid(dos_puntos + 1).trimmed();
        peticion.cabeceras.append({clave, valor});
        if (clave.compare("Content-Length", Qt::CaseInsensitive) == 0)
            largo = valor.toLongLong();
    }
    if (datos.size() < fin_cabeza + 4 + largo)
        return;
    peticion.cuerpo = datos.mid(fin_cabeza + 4, largo);
    recibido_.remove(socket);
    disconnect(socket, &QSslSocket::readyRead, this, nullptr);

    const RespuestaSimulada r = atender(peticion);
    peticiones_.append(peticion);
    Q_EMIT peticion_recibida(peticion);
    switch (r.entrega) {
    case RespuestaSimulada::Entrega::callar:
        return;
    case RespuestaSimulada::Entrega::cerrar:
        socket->abort();
        return;
    case RespuestaSimulada::Entrega::responder:
        break;
    }
    QByteArray salida = "HTTP/1.1 " + QByteArray::number(r.estado) + ' ' + motivo(r.estado) +
                        "\r\nContent-Type: " + r.tipo +
                        "\r\nContent-Length: " + QByteArray::number(r.cuerpo.size()) +
                        "\r\nConnection: close\r\n\r\n" + r.cuerpo;
    socket->write(salida);
    socket->disconnectFromHost();
}

RespuestaSimulada SimuladorAfip::atender(PeticionRecibida &peticion)
{
    if (peticion.metodo != "POST")
        return simulador::respuesta_texto(405, "Solo se atienden pedidos POST.\n");
    const std::optional<simulador::NodoXml> sobre =
        peticion.cuerpo.trimmed().isEmpty() ? std::nullopt : simulador::leer_xml(peticion.cuerpo);
    const simulador::NodoXml *cuerpo = sobre ? sobre->hijo(QStringLiteral("Body")) : nullptr;
    const simulador::NodoXml vacio;
    const simulador::NodoXml *operacion =
        cuerpo && !cuerpo->hijos.isEmpty() ? &cuerpo->hijos.first() : &vacio;
    peticion.operacion = operacion->nombre;
    if (peticion.operacion.isEmpty())
        peticion.operacion = QUrlQuery(peticion.consulta).queryItemValue(QStringLiteral("op"));

    RespuestaSimulada r;
    if (!sobre && !peticion.cuerpo.trimmed().isEmpty()) {
        r = simulador::falla_soap(QStringLiteral("soapenv:Client"),
                                  QStringLiteral("El pedido no es un XML valido."));
    } else if (peticion.ruta == QLatin1String("/ws/services/LoginCms")) {
        r = login_->login_cms(sobre ? *sobre : vacio, modo_);
    } else if (peticion.ruta == QLatin1String("/wsfev1/service.asmx")) {
        const QString ns = sobre ? sobre->espacio : QString::fromLatin1(simulador::kSobreSoap11);
        r = facturas_->atender(peticion.operacion, *operacion, ns, modo_);
    } else if (peticion.ruta == QLatin1String("/sr-padron/webservices/personaServiceA13")) {
        r = padron_->atender(peticion.operacion, *operacion);
    } else {
        r = simulador::respuesta_texto(404, "No existe el servicio " + peticion.ruta.toUtf8() + ".\n");
    }
    if (modo_ == simulador::Modo::sin_respuesta)
        r.entrega = RespuestaSimulada::Entrega::callar;
    return r;
}

} // namespace vendrix

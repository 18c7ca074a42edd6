#include "afip/transport/qt_http_client.h"

#include "core/context.h"

#include <QEventLoop>
#include <QNetworkProxy>
#include <QNetworkReply>
#include <QSslCertificate>
#include <QSslConfiguration>
#include <QSslSocket>
#include <QTimer>
#include <QUrl>

#include <algorithm>
#include <optional>

namespace vendrix {
namespace {

const QString kCerrada = QStringLiteral("La conexión se cerró antes de la respuesta de la AFIP.");

// "60" for whole seconds, "0,5" otherwise.
QString segundos(std::chrono::milliseconds limite)
{
    if (limite.count() % 1000 == 0)
        return QString::number(limite.count() / 1000);
    return QString::number(static_cast<double>(limite.count()) / 1000.0, 'f', 1)
        .replace(QLatin1Char('.'), QLatin1Char(','));
}

// The failures keep QNetworkReply's numbers, which the log has always shown.
QNetworkReply::NetworkError codigo_de(QAbstractSocket::SocketError error)
{
    switch (error) {
    case QAbstractSocket::SslHandshakeFailedError:
        return QNetworkReply::SslHandshakeFailedError;
    case QAbstractSocket::HostNotFoundError:
        return QNetworkReply::HostNotFoundError;
    case QAbstractSocket::ConnectionRefusedError:
        return QNetworkReply::ConnectionRefusedError;
    case QAbstractSocket::SocketTimeoutError:
        return QNetworkReply::TimeoutError;
    default:
        return QNetworkReply::UnknownNetworkError;
    }
}

QString texto_error(QNetworkReply::NetworkError codigo, const QString &host, const QString &detalle)
{
    QString texto;
    switch (codigo) {
    case QNetworkReply::SslHandshakeFailedError:
        texto = QStringLiteral("No se pudo establecer una conexión segura con %1.");
        break;
    case QNetworkReply::HostNotFoundError:
        texto = QStringLiteral("No se encontró el servidor %1. Verifique la conexión a Internet.");
        break;
    case QNetworkReply::ConnectionRefusedError:
        texto = QStringLiteral("El servidor %1 rechazó la conexión.");
        break;
    default:
        texto = QStringLiteral("No se pudo comunicar con %1.");
        break;
    }
    return texto.arg(host) + QStringLiteral(" Detalle: ") + detalle;
}

// The request's bytes: HTTP/1.1 on a connection used for it alone.
QByteArray pedido_http(const QUrl &url, const PeticionHttp &peticion)
{
    QByteArray destino = url.path(QUrl::FullyEncoded).toLatin1();
    if (destino.isEmpty())
        destino = "/";
    if (url.hasQuery())
        destino += '?' + url.query(QUrl::FullyEncoded).toLatin1();
    QByteArray pedido = "POST " + destino + " HTTP/1.1\r\nHost: " +
                        url.adjusted(QUrl::RemoveUserInfo).authority(QUrl::FullyEncoded).toLatin1() + "\r\n";
    bool con_agente = false;
    for (const auto &[nombre, valor] : peticion.cabeceras) {
        // These describe the connection, which is this client's to say.
        const QByteArray n = nombre.toLower();
        if (n != "host" && n != "content-length" && n != "connection" && n != "transfer-encoding")
            pedido += nombre + ": " + valor + "\r\n";
        con_agente = con_agente || n == "user-agent";
    }
    // Some firewalls turn away requests that don't name their program.
    if (!con_agente)
        pedido += "User-Agent: Vendrix\r\n";
    return pedido + "Content-Length: " + QByteArray::number(peticion.cuerpo.size()) +
           "\r\nConnection: close\r\n\r\n" + peticion.cuerpo;
}

// An HTTP/1.1 answer read as its bytes arrive: the status line and headers,
// then the body by Content-Length, by chunks, or up to the close.
class LectorRespuesta {
public:
    enum class Estado { incompleta, completa, invalida };

    Estado agregar(const QByteArray &datos)
    {
        datos_ += datos;
        while (estado_ == Estado::incompleta && avanzar()) {
        }
        return estado_;
    }

    // The server closed: only a body that runs up to the close is whole.
    Estado cerrar()
    {
        if (estado_ == Estado::incompleta && fase_ == Fase::hasta_cierre) {
            cuerpo_ += datos_;
            estado_ = Estado::completa;
        }
        return estado_;
    }

    int estado_http() const { return estado_http_; }
    const QByteArray &cuerpo() const { return cuerpo_; }

private:
    enum class Fase { cabeza, largo, largo_trozo, trozo, fin_trozo, hasta_cierre };

    // One step on the bytes at hand; false when more are needed.
    bool avanzar()
    {
        switch (fase_) {
        case Fase::cabeza:
            return leer_cabeza();
        case Fase::largo:
            return leer_cuerpo(Fase::largo);
        case Fase::trozo:
            return leer_cuerpo(Fase::fin_trozo);
        case Fase::largo_trozo: {
            const std::optional<QByteArray> linea = tomar_linea();
            if (!linea)
                return false;
            bool ok = false;
            restante_ = linea->split(';').value(0).trimmed().toLongLong(&ok, 16);
            if (!ok || restante_ < 0)
                return invalida();
            // The zero chunk ends the body; trailers don't matter here.
            if (restante_ == 0)
                estado_ = Estado::completa;
            fase_ = Fase::trozo;
            return true;
        }
        case Fase::fin_trozo: {
            const std::optional<QByteArray> linea = tomar_linea();
            if (!linea)
                return false;
            if (!linea->isEmpty())
                return invalida();
            fase_ = Fase::largo_trozo;
            return true;
        }
        case Fase::hasta_cierre:
            return false;
        }
        return false;
    }

    bool leer_cabeza()
    {
        const qsizetype fin = datos_.indexOf("\r\n\r\n");
        if (fin < 0)
            return false;
        const QList<QByteArray> lineas = datos_.left(fin).split('\n');
        datos_.remove(0, fin + 4);
        const QList<QByteArray> estado = lineas.value(0).trimmed().split(' ');
        bool ok = false;
        estado_http_ = estado.value(1).toInt(&ok);
        if (!estado.value(0).startsWith("HTTP/1.") || !ok)
            return invalida();
        // "100 Continue" and the like come before the true answer.
        if (estado_http_ >= 100 && estado_http_ < 200)
            return true;
        qint64 largo = -1; // no Content-Length
        bool trozos = false;
        for (qsizetype i = 1; i < lineas.size(); ++i) {
            const QByteArray &linea = lineas.at(i);
            const qsizetype dos_puntos = linea.indexOf(':');
            if (dos_puntos <= 0)
                continue;
            const QByteArray nombre = linea.left(dos_puntos).trimmed().toLower();
            const QByteArray valor = linea.mid(dos_puntos + 1).trimmed().toLower();
            if (nombre == "transfer-encoding") {
                trozos = valor.endsWith("chunked");
                if (!trozos)
                    largo = -1;
            } else if (nombre == "content-length") {
                const qint64 n = valor.toLongLong(&ok);
                if (!ok || n < 0 || (largo >= 0 && largo != n))
                    return invalida();
                largo = n;
            }
        }
        if (trozos) {
            fase_ = Fase::largo_trozo;
        } else if (estado_http_ == 204 || estado_http_ == 304) {
            estado_ = Estado::completa;
        } else if (largo >= 0) {
            restante_ = largo;
            fase_ = Fase::largo;
            estado_ = restante_ == 0 ? Estado::completa : Estado::incompleta;
        } else {
            fase_ = Fase::hasta_cierre;
        }
        return true;
    }

    // Takes up to `restante_` body bytes; `siguiente` once they are all in.
    bool leer_cuerpo(Fase siguiente)
    {
        const qsizetype n = std::min<qint64>(restante_, datos_.size());
        cuerpo_ += datos_.left(n);
        datos_.remove(0, n);
        restante_ -= n;
        if (restante_ > 0)
            return false;
        if (siguiente == Fase::largo)
            estado_ = Estado::completa;
        fase_ = siguiente;
        return true;
    }

    std::optional<QByteArray> tomar_linea()
    {
        const qsizetype fin = datos_.indexOf("\r\n");
        if (fin < 0)
            return std::nullopt;
        QByteArray linea = datos_.left(fin);
        datos_.remove(0, fin + 2);
        return linea;
    }

    bool invalida()
    {
        estado_ = Estado::invalida;
        return false;
    }

    QByteArray datos_;
    QByteArray cuerpo_;
    Fase fase_ = Fase::cabeza;
    Estado estado_ = Estado::incompleta;
    qint64 restante_ = 0;
    int estado_http_ = 0;
};

} // namespace

bool es_host_afip(const QString &host)
{
    const QString h = host.toLower();
    return h == QStringLiteral("afip.gov.ar") || h.endsWith(QStringLiteral(".afip.gov.ar"));
}

ClienteHttpQt::ClienteHttpQt(Context &ctx, std::chrono::milliseconds limite) : ctx_(ctx), limite_(limite)
{
}

bool ClienteHttpQt::configurar_tls(const QUrl &url, QSslConfiguration &tls, QString &error) const
{
    tls = QSslConfiguration::defaultConfiguration();
    const QString ca = ctx_.leer_parametro(QStringLiteral("FE_CA_pruebas"));
    if (!ca.isEmpty()) {
        const QList<QSslCertificate> certificados = QSslCertificate::fromPath(ca, QSsl::Pem);
        if (certificados.isEmpty()) {
            error = QStringLiteral("No se pudo leer el certificado de la autoridad de pruebas '%1'.").arg(ca);
            return false;
        }
        tls.addCaCertificates(certificados);
    }
    // Goes to OpenSSL's SSL_CONF_cmd after Qt's own cipher list.
    if (es_host_afip(url.host()))
        tls.setBackendConfigurationOption(QByteArrayLiteral("CipherString"),
                                          QByteArrayLiteral("DEFAULT@SECLEVEL=1"));
    return true;
}

RespuestaHttp ClienteHttpQt::post(const PeticionHttp &peticion)
{
    RespuestaHttp respuesta;
    const QUrl url(peticion.url);
    const bool seguro = url.scheme() == QStringLiteral("https");
    if (!seguro && url.scheme() != QStringLiteral("http")) {
        respuesta.codigo = QNetworkReply::ProtocolUnknownError;
        respuesta.error = texto_error(QNetworkReply::ProtocolUnknownError, url.host(),
                                      QStringLiteral("dirección no admitida: ") + peticion.url);
        return respuesta;
    }

    QSslSocket socket;
    socket.setProxy(QNetworkProxy::NoProxy);
    if (seguro) {
        QSslConfiguration tls;
        if (!configurar_tls(url, tls, respuesta.error)) {
            respuesta.codigo = QNetworkReply::SslHandshakeFailedError;
            return respuesta;
        }
        socket.setSslConfiguration(tls);
    }

    LectorRespuesta lector;
    LectorRespuesta::Estado estado = LectorRespuesta::Estado::incompleta;
    std::optional<QAbstractSocket::SocketError> falla;
    QString detalle;
    bool vencido = false;
    bool terminado = false;
    QEventLoop espera;
    const auto terminar = [&] {
        terminado = true;
        espera.quit();
    };
    const auto leer = [&] {
        estado = lector.agregar(socket.readAll());
        if (estado != LectorRespuesta::Estado::incompleta)
            terminar();
    };
    // The answer is judged once the server closes; nothing is ever re-sent.
    const auto cerrada = [&] {
        if (terminado)
            return;
        leer();
        if (estado == LectorRespuesta::Estado::incompleta)
            estado = lector.cerrar();
        terminar();
    };
    QObject::connect(&socket, seguro ? &QSslSocket::encrypted : &QSslSocket::connected,
                     [&] { socket.write(pedido_http(url, peticion)); });
    QObject::connect(&socket, &QIODevice::readyRead, leer);
    QObject::connect(&socket, &QAbstractSocket::disconnected, cerrada);
    QObject::connect(&socket, &QSslSocket::sslErrors, [&](const QList<QSslError> &errores) {
        for (const QSslError &e : errores)
            detalle += (detalle.isEmpty() ? QString() : QStringLiteral("; ")) + e.errorString();
    });
    QObject::connect(&socket, &QAbstractSocket::errorOccurred, [&](QAbstractSocket::SocketError error) {
        if (error == QAbstractSocket::RemoteHostClosedError)
            return cerrada();
        if (terminado)
            return;
        falla = error;
        if (detalle.isEmpty())
            detalle = socket.errorString();
        terminar();
    });
    QTimer reloj;
    reloj.setSingleShot(true);
    QObject::connect(&reloj, &QTimer::timeout, [&] {
        vencido = true;
        terminar();
    });

    const quint16 puerto = static_cast<quint16>(url.port(seguro ? 443 : 80));
    if (seguro)
        socket.connectToHostEncrypted(url.host(), puerto);
    else
        socket.connectToHost(url.host(), puerto);
    reloj.start(limite_);
    if (!terminado)
        espera.exec(QEventLoop::ExcludeUserInputEvents);
    reloj.stop();
    // Closing must not call back into this frame.
    QObject::disconnect(&socket, nullptr, nullptr, nullptr);
    socket.abort();

    if (vencido) {
        respuesta.codigo = QNetworkReply::TimeoutError;
        respuesta.error = QStringLiteral("La AFIP no respondió en %1 segundos (%2).")
                              .arg(segundos(limite_), url.toDisplayString());
    } else if (falla) {
        respuesta.codigo = codigo_de(*falla);
        respuesta.error = texto_error(codigo_de(*falla), url.host(), detalle);
    } else if (estado == LectorRespuesta::Estado::completa) {
        // AFIP answers its SOAP faults with status 500: the body is the answer.
        respuesta.ok = true;
        respuesta.estado = lector.estado_http();
        respuesta.texto = QString::fromUtf8(lector.cuerpo());
    } else if (estado == LectorRespuesta::Estado::invalida) {
        respuesta.codigo = QNetworkReply::ProtocolFailure;
        respuesta.error = texto_error(QNetworkReply::ProtocolFailure, url.host(),
                                      QStringLiteral("la respuesta no es HTTP válido."));
    } else {
        respuesta.codigo = QNetworkReply::RemoteHostClosedError;
        respuesta.error = kCerrada;
    }
    return respuesta;
}

} // namespace vendrix

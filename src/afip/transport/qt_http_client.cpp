#include "afip/transport/qt_http_client.h"

#include "core/context.h"

#include <QEventLoop>
#include <QNetworkReply>
#include <QNetworkRequest>
#include <QSslCertificate>
#include <QSslConfiguration>
#include <QTimer>
#include <QUrl>

#include <memory>

namespace vendrix {
namespace {

// "60" for whole seconds, "0,5" otherwise.
QString segundos(std::chrono::milliseconds limite)
{
    if (limite.count() % 1000 == 0)
        return QString::number(limite.count() / 1000);
    return QString::number(static_cast<double>(limite.count()) / 1000.0, 'f', 1)
        .replace(QLatin1Char('.'), QLatin1Char(','));
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
    case QNetworkReply::RemoteHostClosedError:
        texto = QStringLiteral("El servidor %1 cerró la conexión sin responder.");
        break;
    default:
        texto = QStringLiteral("No se pudo comunicar con %1.");
        break;
    }
    return texto.arg(host) + QStringLiteral(" Detalle: ") + detalle;
}

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
    QNetworkRequest pedido(url);
    if (url.scheme() == QStringLiteral("https")) {
        QSslConfiguration tls;
        if (!configurar_tls(url, tls, respuesta.error)) {
            respuesta.codigo = QNetworkReply::SslHandshakeFailedError;
            return respuesta;
        }
        pedido.setSslConfiguration(tls);
    }
    for (const auto &[nombre, valor] : peticion.cabeceras)
        pedido.setRawHeader(nombre, valor.isNull() ? QByteArray("") : valor);

    // Deleted here rather than later: the caller may never return to an
    // event loop that would run a deferred delete.
    const std::unique_ptr<QNetworkReply> reply(red_.post(pedido, peticion.cuerpo));
    QEventLoop espera;
    QTimer reloj;
    reloj.setSingleShot(true);
    bool vencido = false;
    QObject::connect(reply.get(), &QNetworkReply::finished, &espera, &QEventLoop::quit);
    QObject::connect(&reloj, &QTimer::timeout, &espera, [&] {
        vencido = true;
        reply->abort();
        espera.quit();
    });
    reloj.start(limite_);
    if (!reply->isFinished())
        espera.exec(QEventLoop::ExcludeUserInputEvents);
    reloj.stop();

    const QVariant estado = reply->attribute(QNetworkRequest::HttpStatusCodeAttribute);
    if (vencido) {
        respuesta.codigo = QNetworkReply::TimeoutError;
        respuesta.error = QStringLiteral("La AFIP no respondió en %1 segundos (%2).")
                              .arg(segundos(limite_), url.toDisplayString());
    } else if (estado.isValid()) {
        // AFIP answers its SOAP faults with status 500: the body is the answer.
        respuesta.ok = true;
        respuesta.estado = estado.toInt();
        respuesta.texto = QString::fromUtf8(reply->readAll());
    } else {
        respuesta.codigo = reply->error();
        respuesta.error = texto_error(reply->error(), url.host(), reply->errorString());
    }
    return respuesta;
}

} // namespace vendrix

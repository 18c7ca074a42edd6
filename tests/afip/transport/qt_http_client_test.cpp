#include "afip/crypto/test_authority.h"
#include "afip/transport/qt_http_client.h"
#include "support/test_context.h"

#include <QCoreApplication>
#include <QSslKey>
#include <QSslServer>
#include <QTimer>

#include <gtest/gtest.h>

namespace vendrix {
namespace {

using namespace std::chrono_literals;

// HTTPS on 127.0.0.1 with a certificate of `autoridad`: keeps the request's
// bytes and answers it 500 with `cuerpo`, or never when `cuerpo` is null.
struct Servidor {
    Servidor(const AutoridadPrueba &autoridad, const QByteArray &cuerpo)
    {
        const QDateTime ahora = QDateTime::currentDateTimeUtc();
        const CertificadoPem pem = autoridad.emitir(QStringLiteral("127.0.0.1"), ahora.addDays(-1),
                                                    ahora.addDays(1), {QStringLiteral("127.0.0.1")});
        QSslConfiguration tls = QSslConfiguration::defaultConfiguration();
        tls.setLocalCertificate(QSslCertificate(pem.certificado));
        tls.setPrivateKey(QSslKey(pem.llave, QSsl::Rsa));
        servidor.setSslConfiguration(tls);
        QObject::connect(&servidor, &QTcpServer::pendingConnectionAvailable, [this, cuerpo] {
            QTcpSocket *socket = servidor.nextPendingConnection();
            const auto leer = [this, socket, cuerpo] {
                pedido += socket->readAll();
                if (!cuerpo.isNull() && pedido.endsWith("</soap:Envelope>"))
                    socket->write("HTTP/1.1 500 Error\r\nContent-Length: " +
                                  QByteArray::number(cuerpo.size()) + "\r\n\r\n" + cuerpo);
            };
            QObject::connect(socket, &QIODevice::readyRead, leer);
            leer();
        });
        servidor.listen(QHostAddress::LocalHost);
    }
    QString url() const { return QStringLiteral("https://127.0.0.1:%1/ws").arg(servidor.serverPort()); }

    QSslServer servidor;
    QByteArray pedido;
};

class ClienteHttpQtTest : public ::testing::Test {
protected:
    static void SetUpTestSuite()
    {
        static int argc = 1;
        static char nombre[] = "test", *argv[] = {nombre};
        app_ = new QCoreApplication(argc, argv);
        autoridad_ = new AutoridadPrueba(
            AutoridadPrueba::crear(QStringLiteral("Autoridad"), QDateTime::currentDateTimeUtc().addDays(-2)));
    }
    void confiar()
    {
        app.write_file(QStringLiteral("ca.pem"), autoridad_->pem().certificado);
        app.ctx().escribir_parametro(QStringLiteral("FE_CA_pruebas"), app.ruta(QStringLiteral("ca.pem")));
    }
    static PeticionHttp peticion(const QString &url)
    {
        return {url,
                "<soap:Envelope>a\xc3\xb1o</soap:Envelope>",
                {{"Content-Type", "text/xml"}, {"SOAPAction", ""}}};
    }

    test::TestApp app;
    static inline QCoreApplication *app_ = nullptr;
    static inline AutoridadPrueba *autoridad_ = nullptr;
};

// The program's tests against the simulator take the answers, faults with
// status 500 and the time-out's text; here what only a bare server shows.
TEST_F(ClienteHttpQtTest, OnlyATrustedServerIsHeardAndTheRequestGoesAsGiven)
{
    Servidor servidor(*autoridad_, QStringLiteral("<faultstring>TA válido</faultstring>").toUtf8());
    const RespuestaHttp rechazo = ClienteHttpQt(app.ctx(), 5s).post(peticion(servidor.url()));
    EXPECT_FALSE(rechazo.ok);
    EXPECT_TRUE(
        rechazo.error.startsWith(QStringLiteral("No se pudo establecer una conexión segura con 127.0.0.1. ")))
        << rechazo.error.toStdString();

    confiar();
    const RespuestaHttp respuesta = ClienteHttpQt(app.ctx(), 5s).post(peticion(servidor.url()));
    EXPECT_EQ(respuesta.texto, QStringLiteral("<faultstring>TA válido</faultstring>"));
    // Headers as given, an empty SOAPAction too, and the body in UTF-8.
    for (const char *parte : {"POST /ws HTTP/1.1\r\n", "\r\nContent-Type: text/xml\r\n",
                              "\r\nSOAPAction: \r\n", "\r\n\r\n<soap:Envelope>a\xc3\xb1o<"})
        EXPECT_TRUE(servidor.pedido.contains(parte)) << servidor.pedido.toStdString();
}

TEST_F(ClienteHttpQtTest, AServerThatNeverAnswersIsLeftAfterTheTimeOutWhileEventsKeepRunning)
{
    confiar();
    Servidor servidor(*autoridad_, QByteArray());
    int latidos = 0;
    QTimer latido;
    QObject::connect(&latido, &QTimer::timeout, [&] { ++latidos; });
    latido.start(50);
    EXPECT_TRUE(
        ClienteHttpQt(app.ctx(), 500ms).post(peticion(servidor.url())).error.contains("0,5 segundos"));
    EXPECT_GE(latidos, 5);
}

TEST(AfipHostTest, OnlyAfipsOwnHostsGetTheLowerSecurityLevel)
{
    EXPECT_TRUE(es_host_afip(QStringLiteral("SERVICIOS1.AFIP.GOV.AR")));
    EXPECT_FALSE(es_host_afip(QStringLiteral("noafip.gov.ar")));
    EXPECT_FALSE(es_host_afip(QStringLiteral("afip.gov.ar.example.com")));
}

} // namespace
} // namespace vendrix

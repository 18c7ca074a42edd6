#include "afip/crypto/test_authority.h"
#include "afip/transport/qt_http_client.h"
#include "support/qt_print.h"
#include "support/test_context.h"

#include <QCoreApplication>
#include <QSslKey>
#include <QSslServer>
#include <QTimer>

#include <gtest/gtest.h>

namespace vendrix {
namespace {

using namespace std::chrono_literals;

const QString kCerrada = QStringLiteral("La conexión se cerró antes de la respuesta de la AFIP.");

// HTTPS on 127.0.0.1 with a certificate of `autoridad`: keeps the request's
// bytes and answers it with `partes`, 30 ms apart, then closes; never
// answers when there are none.
struct Servidor {
    Servidor(const AutoridadPrueba &autoridad, const QByteArrayList &partes)
    {
        const QDateTime ahora = QDateTime::currentDateTimeUtc();
        const CertificadoPem pem = autoridad.emitir(QStringLiteral("127.0.0.1"), ahora.addDays(-1),
                                                    ahora.addDays(1), {QStringLiteral("127.0.0.1")});
        QSslConfiguration tls = QSslConfiguration::defaultConfiguration();
        tls.setLocalCertificate(QSslCertificate(pem.certificado));
        tls.setPrivateKey(QSslKey(pem.llave, QSsl::Rsa));
        servidor.setSslConfiguration(tls);
        QObject::connect(&servidor, &QTcpServer::pendingConnectionAvailable, [this, partes] {
            QTcpSocket *socket = servidor.nextPendingConnection();
            const auto leer = [this, socket, partes] {
                pedido += socket->readAll();
                if (partes.isEmpty() || !pedido.endsWith("</soap:Envelope>"))
                    return;
                for (qsizetype i = 0; i <= partes.size(); ++i)
                    QTimer::singleShot(30 * i, socket, [socket, parte = partes.value(i)] {
                        parte.isNull() ? socket->disconnectFromHost() : void(socket->write(parte));
                    });
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
// status 500, the time-out's text and a lost answer never sent again; here
// what only a bare server shows.
TEST_F(ClienteHttpQtTest, OnlyATrustedServerIsHeardAndTheRequestGoesAsGiven)
{
    const QByteArray falla = QStringLiteral("<faultstring>TA válido</faultstring>").toUtf8();
    Servidor servidor(*autoridad_, {"HTTP/1.1 500 Error\r\nContent-Length: 37\r\n\r\n" + falla});
    const RespuestaHttp rechazo = ClienteHttpQt(app.ctx(), 5s).post(peticion(servidor.url()));
    EXPECT_FALSE(rechazo.ok);
    EXPECT_TRUE(
        rechazo.error.startsWith(QStringLiteral("No se pudo establecer una conexión segura con 127.0.0.1. ")))
        << rechazo.error.toStdString();

    confiar();
    const RespuestaHttp respuesta = ClienteHttpQt(app.ctx(), 5s).post(peticion(servidor.url()));
    EXPECT_EQ(respuesta.texto, QStringLiteral("<faultstring>TA válido</faultstring>"));
    // Headers as given, an empty SOAPAction too, and the body in UTF-8.
    for (const char *parte :
         {"POST /ws HTTP/1.1\r\nHost: 127.0.0.1:", "\r\nContent-Type: text/xml\r\n", "\r\nSOAPAction: \r\n",
          "\r\nContent-Length: 35\r\nConnection: close\r\n\r\n<soap:Envelope>a\xc3\xb1o<"})
        EXPECT_TRUE(servidor.pedido.contains(parte)) << servidor.pedido.toStdString();
}

TEST_F(ClienteHttpQtTest, TheBodyIsReadByChunksOrUpToTheCloseAndACutAnswerIsAnError)
{
    confiar();
    const QByteArray ok = "HTTP/1.1 200 OK\r\n";
    const struct {
        QByteArrayList partes;
        QString texto; // empty: the answer was cut
    } casos[] = {
        // A chunk ends inside the "ñ", the next one carries an extension.
        {{ok + "Transfer-Encoding: chunked\r\n\r\n6\r\n<r>a\xc3", "\xb1\r\n5;x=y\r\no</r>\r\n0\r\n\r\n"},
         QStringLiteral("<r>año</r>")},
        {{ok + "Content-Type: text/xml\r\n\r\n<r>", "año</r>"}, QStringLiteral("<r>año</r>")},
        {{ok + "Content-Length: 12\r\n\r\n<r>", "año</r>"}, {}},
        {{ok + "Transfer-Encoding: chunked\r\n\r\n3\r\n<r>\r\n"}, {}},
    };
    for (const auto &c : casos) {
        Servidor servidor(*autoridad_, c.partes);
        const RespuestaHttp r = ClienteHttpQt(app.ctx(), 5s).post(peticion(servidor.url()));
        EXPECT_EQ(r.ok, !c.texto.isEmpty()) << c.partes.join().toStdString();
        EXPECT_EQ(r.texto, c.texto);
        EXPECT_EQ(r.error, c.texto.isEmpty() ? kCerrada : QString());
    }
}

TEST_F(ClienteHttpQtTest, AServerThatNeverAnswersIsLeftAfterTheTimeOutWhileEventsKeepRunning)
{
    confiar();
    Servidor servidor(*autoridad_, {});
    int latidos = 0;
    QTimer latido;
    QObject::connect(&latido, &QTimer::timeout, [&] { ++latidos; });
    latido.start(50);
    EXPECT_TRUE(
        ClienteHttpQt(app.ctx(), 500ms).post(peticion(servidor.url())).error.contains("0,5 segundos"));
    EXPECT_GE(latidos, 5);
}

} // namespace
} // namespace vendrix

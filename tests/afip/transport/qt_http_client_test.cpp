#include "afip/auth/afip_services.h"
#include "afip/auth/wsaa_ticket.h"
#include "afip/crypto/test_authority.h"
#include "afip/simulator/afip_simulator.h"
#include "afip/simulator/simulator_credentials.h"
#include "afip/transport/qt_http_client.h"
#include "core/startup_files.h"
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
// status 500 and the time-out's text; here what only a bare server shows.
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

// A Monotributo invoice C of 121, number 1 of point of sale 1.
QByteArray factura(const QString &token, const QString &sign)
{
    return QStringLiteral(
               "<Envelope><Body><FECAESolicitar><Auth><Token>%1</Token><Sign>%2</Sign><Cuit>30712345671</"
               "Cuit>"
               "</Auth><FeCAEReq><FeCabReq><CantReg>1</CantReg><PtoVta>1</PtoVta><CbteTipo>11</CbteTipo>"
               "</FeCabReq><FeDetReq><FECAEDetRequest><Concepto>1</Concepto><DocTipo>99</DocTipo><DocNro>0"
               "</DocNro><CbteDesde>1</CbteDesde><CbteHasta>1</CbteHasta><CbteFch>20261123</CbteFch>"
               "<ImpTotal>121.00</ImpTotal><ImpTotConc>0</ImpTotConc><ImpNeto>121.00</ImpNeto><ImpOpEx>0"
               "</ImpOpEx><ImpTrib>0</ImpTrib><ImpIVA>0</ImpIVA><MonId>PES</MonId><MonCotiz>1</MonCotiz>"
               "<CondicionIVAReceptorId>5</CondicionIVAReceptorId></FECAEDetRequest></FeDetReq></FeCAEReq>"
               "</FECAESolicitar></Body></Envelope>")
        .arg(token, sign)
        .toUtf8();
}

// AFIP approves the invoice and the connection drops before its answer: a
// second send would spend another number, so the post fails instead.
TEST_F(ClienteHttpQtTest, ARequestWhoseAnswerIsLostIsSentOnceAndFails)
{
    app.clock.set(QDateTime(QDate(2026, 11, 23), QTime(10, 30), Qt::OffsetFromUTC, -3 * 3600));
    CredencialesSimulador cred;
    ASSERT_TRUE(CredencialesSimulador::preparar(app.ruta("afip"), app.clock.now(), false, cred));
    SimuladorAfip sim({0, cred.autoridad(), cred.servidor(), &app.clock});
    ASSERT_TRUE(sim.iniciar());
    asegurar_plantillas_fe(app.ctx());
    for (const auto &[clave, valor] : {std::pair{"IF_FE_Certificado", cred.tienda_certificado},
                                       {"IF_FE_Password", cred.tienda_llave},
                                       {"FE_CA_pruebas", cred.autoridad_certificado},
                                       {"FE_servidor_pruebas", sim.url()}})
        app.ctx().escribir_parametro(QLatin1String(clave), valor);
    ClienteHttpQt http(app.ctx(), 5s);
    ServiciosAfip s{app.ctx(), http};
    ASSERT_TRUE(obtener_TRA(s));

    sim.set_modo(simulador::Modo::procesar_sin_responder);
    const QString token = app.ctx().leer_parametro("FE_token"), sign = app.ctx().leer_parametro("FE_sign");
    const RespuestaHttp r = http.post({sim.url() + "/wsfev1/service.asmx", factura(token, sign), {}});
    EXPECT_EQ(std::pair(r.ok, r.error), std::pair(false, kCerrada));
    EXPECT_EQ(sim.ultimo_autorizado(1, 11), 1);
    EXPECT_EQ(std::ranges::count(sim.peticiones(), "FECAESolicitar", &PeticionRecibida::operacion), 1);
}

TEST(AfipHostTest, OnlyAfipsOwnHostsGetTheLowerSecurityLevel)
{
    EXPECT_TRUE(es_host_afip(QStringLiteral("SERVICIOS1.AFIP.GOV.AR")));
    EXPECT_FALSE(es_host_afip(QStringLiteral("noafip.gov.ar")));
    EXPECT_FALSE(es_host_afip(QStringLiteral("afip.gov.ar.example.com")));
}

} // namespace
} // namespace vendrix

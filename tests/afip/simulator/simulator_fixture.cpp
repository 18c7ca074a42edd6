#include "simulator_fixture.h"

#include <QEventLoop>
#include <QFile>
#include <QNetworkReply>
#include <QRegularExpression>
#include <QSslConfiguration>

#include "afip/crypto/cms_signature.h"

namespace vendrix::test {

QString etiqueta(const QString &texto, const QString &tag)
{
    const QRegularExpression re(QStringLiteral("<%1(?: [^>]*)?>(.*?)</%1>").arg(tag),
                                QRegularExpression::DotMatchesEverythingOption);
    const QRegularExpressionMatch m = re.match(texto);
    return m.hasMatch() ? m.captured(1) : QStringLiteral("N/A");
}

QList<int> codigos(const QString &texto, const QString &entrada)
{
    QList<int> lista;
    const QRegularExpression re(QStringLiteral("<%1><Code>(\\d+)</Code>").arg(entrada));
    for (auto it = re.globalMatch(texto); it.hasNext();)
        lista << it.next().captured(1).toInt();
    return lista;
}

void SimuladorTest::SetUpTestSuite()
{
    carpeta_ = new QTemporaryDir;
    const QDateTime ahora(QDate(2025, 3, 10), QTime(10, 0), Qt::OffsetFromUTC, -3 * 3600);
    ASSERT_TRUE(CredencialesSimulador::preparar(carpeta_->path(), ahora, false, credenciales_));
    CredencialesSimulador vencidas;
    ASSERT_TRUE(CredencialesSimulador::preparar(carpeta_->path(), ahora, true, vencidas));
    tienda_ = {credenciales_.tienda_certificado, credenciales_.tienda_llave};
    vencida_ = {vencidas.tienda_certificado, vencidas.tienda_llave};
    const CertificadoPem ajena =
        AutoridadPrueba::crear(QStringLiteral("Otra AC"), ahora.addDays(-1))
            .emitir(QStringLiteral("Vendrix Homologacion"), ahora.addDays(-1), ahora.addYears(1));
    ajena_ = {carpeta_->filePath(QStringLiteral("ajena.crt")),
              carpeta_->filePath(QStringLiteral("ajena.key"))};
    for (const auto &[ruta, pem] :
         {std::pair{ajena_.certificado, ajena.certificado}, {ajena_.llave, ajena.llave}}) {
        QFile f(ruta);
        ASSERT_TRUE(f.open(QIODevice::WriteOnly) && f.write(pem) == pem.size());
    }
}

void SimuladorTest::TearDownTestSuite()
{
    delete carpeta_;
    carpeta_ = nullptr;
}

void SimuladorTest::SetUp()
{
    simulador_ = std::make_unique<SimuladorAfip>(
        SimuladorAfip::Opciones{0, credenciales_.autoridad(), credenciales_.servidor(), &reloj_});
    QString error;
    ASSERT_TRUE(simulador_->iniciar(&error)) << error.toStdString();
}

RespuestaPrueba SimuladorTest::post(const QString &ruta, const QString &cuerpo, int espera_ms)
{
    QNetworkRequest pedido(QUrl(simulador_->url() + ruta));
    QSslConfiguration tls = QSslConfiguration::defaultConfiguration();
    tls.setCaCertificates(QSslCertificate::fromData(credenciales_.autoridad().certificado));
    pedido.setSslConfiguration(tls);
    pedido.setHeader(QNetworkRequest::ContentTypeHeader, QByteArray("text/xml; charset=utf-8"));
    pedido.setRawHeader("SOAPAction", "");
    pedido.setTransferTimeout(espera_ms);
    QNetworkReply *respuesta = red_.post(pedido, cuerpo.toUtf8());
    QEventLoop espera;
    QObject::connect(respuesta, &QNetworkReply::finished, &espera, &QEventLoop::quit);
    espera.exec();
    RespuestaPrueba r{respuesta->attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt(),
                      respuesta->isOpen() ? QString::fromUtf8(respuesta->readAll()) : QString()};
    respuesta->deleteLater();
    return r;
}

QString SimuladorTest::pedido_login(const Firmante &firmante, const QString &servicio, int desde_min,
                                    int hasta_min) const
{
    const auto hora = [this](int minutos) {
        return reloj_.now().addSecs(minutos * 60).toString(QStringLiteral("yyyy-MM-ddTHH:mm:ss")) +
               QStringLiteral(".000-03:00");
    };
    const QString tra =
        QStringLiteral("\r\n<loginTicketRequest>\r\n  <header>\r\n    <uniqueId>1</uniqueId>\r\n"
                       "    <generationTime>%1</generationTime>\r\n"
                       "    <expirationTime>%2</expirationTime>\r\n  </header>\r\n"
                       "  <service>%3</service>\r\n</loginTicketRequest>\r\n")
            .arg(hora(desde_min), hora(hasta_min), servicio);
    QByteArray base64 = firmar_cms(tra.toUtf8(), firmante.certificado, firmante.llave).der.toBase64();
    for (qsizetype i = 64; i < base64.size(); i += 65)
        base64.insert(i, '\n');
    return QStringLiteral(
               "<soapenv:Envelope xmlns:soapenv=\"http://schemas.xmlsoap.org/soap/envelope/\" "
               "xmlns:wsaa=\"http://wsaa.view.sua.dvadac.desein.afip.gov\"><soapenv:Header/><soapenv:Body>"
               "<wsaa:loginCms><wsaa:in0>\r\n%1</wsaa:in0></wsaa:loginCms></soapenv:Body>"
               "</soapenv:Envelope>")
        .arg(QString::fromLatin1(base64));
}

std::pair<QString, QString> SimuladorTest::ticket(const QString &servicio)
{
    const QString texto = post(QStringLiteral("/ws/services/LoginCms"), pedido_login(tienda_, servicio))
                              .cuerpo.replace(QStringLiteral("&lt;"), QStringLiteral("<"))
                              .replace(QStringLiteral("&gt;"), QStringLiteral(">"));
    return {etiqueta(texto, QStringLiteral("token")), etiqueta(texto, QStringLiteral("sign"))};
}

} // namespace vendrix::test

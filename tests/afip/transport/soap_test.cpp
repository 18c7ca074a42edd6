#include "afip/fake_afip.h"
#include "afip/transport/afip_hosts.h"
#include "afip/transport/soap.h"

#include <gtest/gtest.h>

namespace vendrix {
namespace {

TEST(EnviarSoapTest, OnlyWhatLooksLikeSoapIsPostedWithContentTypeAndAnEmptySoapAction)
{
    test::TestApp app;
    test::FakeHttp http;
    http.respuestas = {QStringLiteral("<faultstring/>")};
    const QString url = QStringLiteral("https://wswhomo.afip.gov.ar/wsfev1/service.asmx");
    for (const char *xml : {"  <?xml?><soap:Envelope><soap:Body></soap:Body>", // the mark starts too late
                            "<?xml?><soapenv:Envelope><soap:Body/>", "<?xml?><SOAP:Envelope><SOAP:Body>", ""})
        EXPECT_EQ(
            enviar_SOAP(app.ctx(), http, {}, url, {}, QString::fromLatin1(xml)),
            QStringLiteral("La estructura del archivo XML no parece correcta para ser un SOAP. Mira el log "
                           "para ver que paso"));
    EXPECT_TRUE(http.peticiones.empty());
    EXPECT_EQ(
        enviar_SOAP(app.ctx(), http, {}, url, {}, QStringLiteral(" <?xml?><soapenv:Envelope><soap:Body>")),
        QStringLiteral("<faultstring/>"));
    EXPECT_EQ(http.peticiones.at(0).cabeceras,
              (QList<std::pair<QByteArray, QByteArray>>{{"Content-Type", "text/xml; charset=utf-8"},
                                                        {"SOAPAction", ""}}));
    EXPECT_EQ(app.log_messages(),
              QStringList({QStringLiteral("PostWebservice: creo un objeto del tipo MSXML2.XMLHTTP."),
                           QStringLiteral("PostWebservice: SOAPAction.")}));
    // Unchecked and without "soap": no SOAPAction; no answer: the error's number and text.
    EXPECT_EQ(enviar_SOAP(app.ctx(), http, {}, url, {}, QStringLiteral("<Consulta/>"), true),
              QStringLiteral("Error: 5 - Se agotó el tiempo de espera"));
    EXPECT_EQ(http.peticiones.at(1).cabeceras.size(), 1);
}

TEST(LeerTagTest, TheFirstTagOfAnyCaseWithoutAttributes)
{
    const char *const casos[][3] = {
        {"Token", "<TOKEN>Abc</token><token>2</token>", "Abc"},
        {"cae", "<CAE></CAE>", ""},
        {"cae", "<CAE>123", "N/A"},
        {"cae", "</CAE><CAE>7", "N/A"},
        {"Obs", "<Obs code=\"10\">texto</Obs>", "N/A"},
        {"straße", "<STRASSE>x</STRASSE><straße>y</straße>", "y"},
    };
    for (const auto &c : casos)
        EXPECT_EQ(leer_tag(QString::fromUtf8(c[0]), QString::fromUtf8(c[1])), QString::fromUtf8(c[2]))
            << c[1];
}

TEST(ReplaceMore255Test, OnlyTheFirstMarkIsReplacedAndItsPlaceIsLogged)
{
    test::TestApp app;
    const QString largo(600, QLatin1Char('x'));
    EXPECT_EQ(replace_more255(app.ctx(), QStringLiteral("<t>%T%</t>%T%"), QStringLiteral("%T%"), largo),
              QStringLiteral("<t>") + largo + QStringLiteral("</t>%T%"));
    EXPECT_EQ(replace_more255(app.ctx(), QStringLiteral("sin"), QStringLiteral("%S%"), {}),
              QStringLiteral("sin"));
    EXPECT_EQ(app.log_messages(),
              QStringList({QStringLiteral("replace_more255 - en la posicion '4' por largo '600'.."),
                           QStringLiteral("replace_more255 - en la posicion '0' por largo '0'..")}));
}

TEST(UrlAfipTest, EachServiceHasItsHostPerEnvironmentUnlessATestServerIsSet)
{
    const std::tuple<ServicioAfip, bool, const char *, const char *> casos[] = {
        {ServicioAfip::wsaa, false, "", "https://wsaahomo.afip.gov.ar/r"},
        {ServicioAfip::wsaa, true, "", "https://wsaa.afip.gov.ar/r"},
        {ServicioAfip::wsfe, false, "", "https://wswhomo.afip.gov.ar/r"},
        {ServicioAfip::wsfe, true, "", "https://servicios1.afip.gov.ar/r"},
        {ServicioAfip::padron, false, "", "https://awshomo.afip.gov.ar/r"},
        {ServicioAfip::padron, true, "", "https://aws.afip.gov.ar/r"},
        {ServicioAfip::wsfe, true, "https://127.0.0.1:8443/", "https://127.0.0.1:8443/r"},
    };
    test::TestApp app;
    for (const auto &[servicio, produccion, servidor, url] : casos) {
        app.ctx().escribir_parametro(QStringLiteral("FE_servidor_pruebas"), QString::fromLatin1(servidor));
        EXPECT_EQ(url_afip(app.ctx(), servicio, produccion, QStringLiteral("/r")), QString::fromLatin1(url));
    }
}

} // namespace
} // namespace vendrix

#pragma once

#include "afip/auth/afip_services.h"
#include "afip/transport/http_client.h"
#include "support/qt_print.h"
#include "support/test_context.h"

#include <QFile>

#include <deque>
#include <vector>

namespace vendrix::test {

// An HTTPS client that records each request and gives the scripted answers
// in order; with none left it gives a time-out.
class FakeHttp final : public ClienteHttp {
public:
    RespuestaHttp post(const PeticionHttp &p) override
    {
        peticiones.push_back(p);
        if (respuestas.empty())
            return {false, 0, {}, QStringLiteral("Se agotó el tiempo de espera")};
        RespuestaHttp r = respuestas.front();
        respuestas.pop_front();
        return r;
    }
    void responder(const QString &texto) { respuestas.push_back({true, 200, texto, {}}); }

    std::deque<RespuestaHttp> respuestas;
    std::vector<PeticionHttp> peticiones;
};

// WSAA's answer with the ticket escaped inside; an empty value leaves its
// element out.
inline QString respuesta_wsaa(const QString &generacion, const QString &vence, const QString &token,
                              const QString &sign)
{
    const auto elemento = [](const char *tag, const QString &v) {
        return v.isEmpty() ? QString() : QStringLiteral("&lt;%1&gt;%2&lt;/%1&gt;").arg(QLatin1String(tag), v);
    };
    return QStringLiteral("<soapenv:Envelope><soapenv:Body><loginCmsResponse><loginCmsReturn>"
                          "&lt;loginTicketResponse&gt;&lt;header&gt;") +
           elemento("generationTime", generacion) + elemento("expirationTime", vence) +
           QStringLiteral("&lt;/header&gt;&lt;credentials&gt;") + elemento("token", token) +
           elemento("sign", sign) +
           QStringLiteral("&lt;/credentials&gt;&lt;/loginTicketResponse&gt;</loginCmsReturn>"
                          "</loginCmsResponse></soapenv:Body></soapenv:Envelope>");
}

// A shop set for electronic invoicing against a fake AFIP: the delivered
// templates in its folder, a signer that signs anything, a certificate
// that ends a year from the test clock, and a network that is there.
struct AfipFixture {
    AfipFixture()
    {
        for (const char *f : {"wsaa_token.xml", "wsaa_token_pers.xml", "wefe_dummy.xml"}) {
            QFile plantilla(QStringLiteral(VENDRIX_TEST_DATA "/../../data/") + QLatin1String(f));
            plantilla.open(QIODevice::ReadOnly);
            app.write_file(QLatin1String(f), plantilla.readAll());
        }
        app.ctx().escribir_parametro(QStringLiteral("IF_FE_Certificado"),
                                     app.ruta(QStringLiteral("cert.crt")));
        app.ctx().escribir_parametro(QStringLiteral("IF_FE_Password"), app.ruta(QStringLiteral("cert.key")));
        app.ctx().escribir_parametro(QStringLiteral("FE_servidor_pruebas"),
                                     QStringLiteral("https://127.0.0.1:8443"));
    }

    TestApp app;
    FakeHttp http;
    QByteArray der = QByteArray(100, 'S');
    QDateTime fin_certificado = app.clock.now().addYears(1);
    bool internet = true;
    ServiciosAfip s{
        app.ctx(), http,
        [this](const QByteArray &, const QString &, const QString &) {
            return FirmaCms{der, der.isEmpty() ? QStringLiteral("No se pudo leer la llave 'cert.key'.")
                                               : QString()};
        },
        [this](const QString &) {
            return fin_certificado.isValid()
                       ? VencimientoCertificado{fin_certificado, {}}
                       : VencimientoCertificado{std::nullopt, QStringLiteral("Certificado ilegible")};
        },
        [this] { return internet; }};
};

} // namespace vendrix::test

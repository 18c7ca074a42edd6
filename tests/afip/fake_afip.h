#pragma once

#include "afip/auth/afip_services.h"
#include "afip/transport/http_client.h"
#include "core/startup_files.h"
#include "support/qt_print.h"
#include "support/test_context.h"

#include <deque>
#include <vector>

namespace vendrix::test {

// An HTTPS client that records each request and gives the scripted answers
// in order; with none left it times out.
class FakeHttp final : public ClienteHttp {
public:
    RespuestaHttp post(const PeticionHttp &p) override
    {
        peticiones.push_back(p);
        if (respuestas.empty())
            return {false, 0, {}, QStringLiteral("Se agotó el tiempo de espera"), 5};
        const QString texto = respuestas.front();
        respuestas.pop_front();
        return {true, 200, texto, {}};
    }

    std::deque<QString> respuestas;
    std::vector<PeticionHttp> peticiones;
};

// WSAA's answer, the ticket escaped inside; "G|E|T|S" gives the four
// values, an empty one leaves its element out.
inline QString respuesta_wsaa(const QString &valores)
{
    const QStringList v = valores.split(QLatin1Char('|'));
    QString r = QStringLiteral("<loginCmsReturn>&lt;loginTicketResponse&gt;");
    const char *tags[] = {"generationTime", "expirationTime", "token", "sign"};
    for (int i = 0; i < 4; ++i)
        if (!v[i].isEmpty())
            r += QStringLiteral("&lt;%1&gt;%2&lt;/%1&gt;").arg(QLatin1String(tags[i]), v[i]);
    return r + QStringLiteral("&lt;/loginTicketResponse&gt;</loginCmsReturn>");
}

// A shop set for electronic invoicing against a scripted AFIP: the
// delivered templates, a signer that signs anything (fails with no `der`),
// a certificate ending a year after the test clock, a network.
struct AfipFixture {
    AfipFixture()
    {
        asegurar_plantillas_fe(app.ctx());
        app.ctx().escribir_parametro("FE_servidor_pruebas", "https://127.0.0.1:8443");
    }

    TestApp app;
    FakeHttp http;
    QByteArray der = QByteArray(100, 'S');
    QDateTime fin_certificado = app.clock.now().addYears(1);
    bool internet = true;
    ServiciosAfip s{app.ctx(), http,
                    [this](const QByteArray &, const QString &, const QString &) {
                        return FirmaCms{der, QStringLiteral("No se pudo leer la llave 'cert.key'.")};
                    },
                    [this](const QString &) {
                        return VencimientoCertificado{
                            fin_certificado.isValid() ? std::optional(fin_certificado) : std::nullopt,
                            "ilegible"};
                    },
                    [this] { return internet; }};
};

} // namespace vendrix::test

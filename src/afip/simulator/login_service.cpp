#include "afip/simulator/login_service.h"

#include "afip/crypto/openssl_files.h"
#include "afip/simulator/xml_tree.h"
#include "core/clock.h"

#include <QRandomGenerator>

#include <openssl/cms.h>
#include <openssl/pem.h>
#include <openssl/x509.h>
#include <openssl/x509_vfy.h>

#include <memory>

namespace vendrix::simulador {

namespace {

using openssl::Bio;
using openssl::Certificado;
using openssl::leer_bio;
using openssl::Liberar;
using Cms = std::unique_ptr<CMS_ContentInfo, Liberar<CMS_ContentInfo, CMS_ContentInfo_free>>;
using Almacen = std::unique_ptr<X509_STORE, Liberar<X509_STORE, X509_STORE_free>>;
using Contexto = std::unique_ptr<X509_STORE_CTX, Liberar<X509_STORE_CTX, X509_STORE_CTX_free>>;

void liberar_pila(STACK_OF(X509) * pila)
{
    sk_X509_pop_free(pila, X509_free);
}
using Pila = std::unique_ptr<STACK_OF(X509), Liberar<STACK_OF(X509), liberar_pila>>;

// What the signature check found: the signed text and the signer, or
// WSAA's fault code and text.
struct Verificacion {
    QByteArray contenido;
    QString titular;
    QString codigo;
    QString texto;
};

QString sujeto(X509 *cert)
{
    Bio bio(BIO_new(BIO_s_mem()));
    X509_NAME_print_ex(bio.get(), X509_get_subject_name(cert), 0, XN_FLAG_RFC2253);
    return QString::fromUtf8(leer_bio(bio.get()));
}

Verificacion verificar(const QByteArray &der, const QByteArray &ca_pem, const QDateTime &ahora)
{
    const Verificacion malo{{}, {}, QStringLiteral("ns1:cms.bad"), QStringLiteral("El CMS no es valido")};
    Bio entrada(BIO_new_mem_buf(der.constData(), static_cast<int>(der.size())));
    Cms cms(d2i_CMS_bio(entrada.get(), nullptr));
    if (!cms || CMS_is_detached(cms.get()))
        return malo;
    // The signature over the content first, the signer's certificate apart,
    // so that a good signature by an untrusted or expired certificate gets
    // its own fault.
    Almacen vacio(X509_STORE_new());
    Bio salida(BIO_new(BIO_s_mem()));
    if (CMS_verify(cms.get(), nullptr, vacio.get(), nullptr, salida.get(), CMS_NO_SIGNER_CERT_VERIFY) != 1)
        return {{},
                {},
                QStringLiteral("ns1:cms.sign.invalid"),
                QStringLiteral("Firma inválida o algoritmo no soportado")};
    STACK_OF(X509) *firmantes = CMS_get0_signers(cms.get());
    if (!firmantes || sk_X509_num(firmantes) == 0)
        return malo;
    X509 *firmante = sk_X509_value(firmantes, 0);
    sk_X509_free(firmantes);

    Bio ca_bio(BIO_new_mem_buf(ca_pem.constData(), static_cast<int>(ca_pem.size())));
    Certificado ca(PEM_read_bio_X509(ca_bio.get(), nullptr, nullptr, nullptr));
    Almacen almacen(X509_STORE_new());
    X509_STORE_add_cert(almacen.get(), ca.get());
    Pila adjuntos(CMS_get1_certs(cms.get()));
    Contexto ctx(X509_STORE_CTX_new());
    X509_STORE_CTX_init(ctx.get(), almacen.get(), firmante, adjuntos.get());
    X509_STORE_CTX_set_time(ctx.get(), 0, static_cast<time_t>(ahora.toSecsSinceEpoch()));
    if (X509_verify_cert(ctx.get()) != 1) {
        if (X509_STORE_CTX_get_error(ctx.get()) == X509_V_ERR_CERT_HAS_EXPIRED)
            return {{}, {}, QStringLiteral("ns1:cms.cert.expired"), QStringLiteral("Certificado expirado")};
        return {{},
                {},
                QStringLiteral("ns1:cms.cert.untrusted"),
                QStringLiteral("Certificado no emitido por AC de confianza")};
    }
    return {leer_bio(salida.get()), sujeto(firmante), {}, {}};
}

RespuestaSimulada falla_wsaa(const QString &codigo, const QString &texto)
{
    return falla_soap(
        codigo, texto,
        QStringLiteral("<ns2:exceptionName xmlns:ns2=\"http://xml.apache.org/axis/\">"
                       "gov.afip.desein.dvadac.sua.view.wsaa.LoginFault</ns2:exceptionName>"
                       "<ns3:hostname xmlns:ns3=\"http://xml.apache.org/axis/\">simulador</ns3:hostname>"));
}

QDateTime leer_hora(const QString &texto)
{
    QDateTime hora = QDateTime::fromString(texto, Qt::ISODateWithMs);
    return hora.isValid() ? hora : QDateTime::fromString(texto, Qt::ISODate);
}

// AFIP writes its times in Argentina's offset, with milliseconds.
QString hora_afip(const QDateTime &hora)
{
    return hora.toOffsetFromUtc(-3 * 3600).toString(Qt::ISODateWithMs);
}

QString base64_al_azar(int bytes)
{
    QByteArray datos(bytes, Qt::Uninitialized);
    QRandomGenerator::system()->generate(datos.begin(), datos.end());
    return QString::fromLatin1(datos.toBase64());
}

} // namespace

RespuestaSimulada ServicioLogin::login_cms(const NodoXml &sobre, Modo modo)
{
    const QDateTime ahora = reloj_.now();
    const NodoXml *in0 = sobre.buscar(QStringLiteral("in0"));
    if (!in0)
        return falla_soap(QStringLiteral("soapenv:Server.userException"),
                          QStringLiteral("No se encontro el parametro in0 del pedido loginCms"));
    // The base64 comes after a line break and may be broken in lines itself.
    QByteArray base64 = in0->texto.toLatin1();
    base64.replace('\r', "").replace('\n', "").replace(' ', "");
    const auto der = QByteArray::fromBase64Encoding(base64, QByteArray::AbortOnBase64DecodingErrors);
    if (!der || der.decoded.isEmpty())
        return falla_wsaa(QStringLiteral("ns1:cms.bad"), QStringLiteral("El CMS no es valido"));
    const Verificacion v = verificar(der.decoded, ca_pem_, ahora);
    if (!v.codigo.isEmpty())
        return falla_wsaa(v.codigo, v.texto);
    if (modo == Modo::certificado_vencido)
        return falla_wsaa(QStringLiteral("ns1:cms.cert.expired"), QStringLiteral("Certificado expirado"));

    const std::optional<NodoXml> pedido = leer_xml(v.contenido);
    const NodoXml *cabecera = pedido ? pedido->hijo(QStringLiteral("header")) : nullptr;
    if (!cabecera || pedido->nombre != QLatin1String("loginTicketRequest") ||
        pedido->texto_de(QStringLiteral("service")).isEmpty() ||
        cabecera->texto_de(QStringLiteral("uniqueId")).isEmpty())
        return falla_wsaa(QStringLiteral("ns1:xml.bad"),
                          QStringLiteral("No se ha podido interpretar el XML contra el SCHEMA"));
    const QDateTime generacion = leer_hora(cabecera->texto_de(QStringLiteral("generationTime")));
    const QDateTime expiracion = leer_hora(cabecera->texto_de(QStringLiteral("expirationTime")));
    if (modo == Modo::tiempos_invalidos || !generacion.isValid() || generacion > ahora)
        return falla_wsaa(QStringLiteral("ns1:xml.generationTime.invalid"),
                          QStringLiteral("generationTime posee formato o dato inválido"));
    if (!expiracion.isValid() || expiracion <= generacion || generacion.secsTo(expiracion) > 24 * 3600)
        return falla_wsaa(QStringLiteral("ns1:xml.expirationTime.invalid"),
                          QStringLiteral("expirationTime posee formato o dato inválido"));
    if (expiracion < ahora)
        return falla_wsaa(QStringLiteral("ns1:xml.expirationTime.expired"),
                          QStringLiteral("expirationTime expirado"));

    const QString servicio = pedido->texto_de(QStringLiteral("service"));
    if (servicio != QLatin1String("wsfe") && servicio != QLatin1String("ws_sr_padron_a13"))
        return falla_wsaa(QStringLiteral("ns1:coe.notAuthorized"),
                          QStringLiteral("Computador no autorizado a acceder al servicio"));
    bool ya_tiene = modo == Modo::ta_duplicado;
    for (const TicketEmitido &t : tickets_)
        ya_tiene = ya_tiene || (t.titular == v.titular && t.servicio == servicio && t.expiracion > ahora);
    if (ya_tiene)
        return falla_wsaa(QStringLiteral("ns1:coe.alreadyAuthenticated"),
                          QStringLiteral("El CEE ya posee un TA valido para el acceso al WSN solicitado"));

    TicketEmitido t;
    t.servicio = servicio;
    t.titular = v.titular;
    t.generacion = ahora;
    t.expiracion = ahora.addSecs(12 * 3600);
    const quint32 id = QRandomGenerator::system()->generate();
    const QString sso =
        QStringLiteral("<?xml version=\"1.0\" encoding=\"UTF-8\" standalone=\"yes\"?>\n"
                       "<sso version=\"2.0\"><id src=\"CN=wsaasim, O=Vendrix, C=AR\" dst=\"CN=%1\" "
                       "unique_id=\"%2\" gen_time=\"%3\" exp_time=\"%4\"/>%5</sso>\n")
            .arg(servicio)
            .arg(id)
            .arg(t.generacion.toSecsSinceEpoch())
            .arg(t.expiracion.toSecsSinceEpoch())
            .arg(base64_al_azar(24));
    t.token = QString::fromLatin1(sso.toUtf8().toBase64());
    t.sign = base64_al_azar(128);
    tickets_.append(t);

    QString ticket =
        QStringLiteral("<?xml version=\"1.0\" encoding=\"UTF-8\" standalone=\"yes\"?>\n"
                       "<loginTicketResponse version=\"1.0\">\n    <header>\n"
                       "        <source>CN=wsaasim, O=Vendrix, C=AR</source>\n") +
        QStringLiteral("        ") + elemento(QStringLiteral("destination"), v.titular) +
        QStringLiteral("\n        <uniqueId>%1</uniqueId>\n").arg(id) + QStringLiteral("        ") +
        elemento(QStringLiteral("generationTime"), hora_afip(t.generacion)) + QStringLiteral("\n        ") +
        elemento(QStringLiteral("expirationTime"), hora_afip(t.expiracion)) +
        QStringLiteral("\n    </header>\n    <credentials>\n        ") +
        elemento(QStringLiteral("token"), t.token) + QStringLiteral("\n");
    if (modo != Modo::sin_sign)
        ticket +=
            QStringLiteral("        ") + elemento(QStringLiteral("sign"), t.sign) + QStringLiteral("\n");
    ticket += QStringLiteral("    </credentials>\n</loginTicketResponse>\n");
    return sobre_soap(
        QLatin1String(kSobreSoap11),
        QStringLiteral("<loginCmsResponse xmlns=\"https://wsaahomo.afip.gov.ar/ws/services/LoginCms\">") +
            elemento(QStringLiteral("loginCmsReturn"), ticket) + QStringLiteral("</loginCmsResponse>"));
}

const TicketEmitido *ServicioLogin::ticket(const QString &token, const QString &sign,
                                           const QString &servicio) const
{
    for (const TicketEmitido &t : tickets_) {
        if (t.token == token && t.sign == sign && t.servicio == servicio)
            return &t;
    }
    return nullptr;
}

} // namespace vendrix::simulador

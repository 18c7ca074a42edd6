#include "afip/auth/wsaa_ticket.h"

#include "afip/auth/afip_services.h"
#include "afip/auth/certificate_checks.h"
#include "afip/transport/afip_hosts.h"
#include "afip/transport/http_client.h"
#include "afip/transport/soap.h"
#include "core/context.h"

#include <QFile>

namespace vendrix {

namespace {

// What sets the two tickets apart.
struct Variante {
    const char *servicio_log;  // "WSAA" or "WSAA PERSONA", in the log lines
    const char *prefijo_clave; // "FE_" or "FE_PERSONA_"
    const char *plantilla;
    const char *base_archivos; // wsaa.xml, wsaa.out, wsaa.out64...
    const char *token_log;     // "FE - Se intenta generar el token..."
    const char *homologacion_log;
    int intentos;
    bool persona;
};

constexpr Variante kFactura{"WSAA",
                            "FE_",
                            "wsaa_token.xml",
                            "wsaa",
                            "FE - Se intenta generar el token",
                            "Se enviará la peticion de TRA al ambiente de HOMOLOGACION",
                            2,
                            false};
constexpr Variante kPersona{"WSAA PERSONA",
                            "FE_PERSONA_",
                            "wsaa_token_pers.xml",
                            "wsaa_persona",
                            "FE - Se intenta generar el token WSAA Persona",
                            "Se enviará la peticion de TRA PERSONA al ambiente de HOMOLOGACION",
                            1,
                            true};

const QString kSoapEnv = QStringLiteral("http://schemas.xmlsoap.org/soap/envelope/");
const QString kWsaaNs = QStringLiteral("http://wsaa.view.sua.dvadac.desein.afip.gov");
// WSAA's own words when it still holds a ticket for the same service.
const QString kYaPoseeTa = QStringLiteral("El CEE ya posee un TA valido para el acceso al WSN solicitado");

class Tramite {
public:
    Tramite(ServiciosAfip &s, const Variante &v) : s_(s), ctx_(s.ctx), v_(v) {}

    bool correr();

private:
    void log(const QString &mensaje, const char *nivel = "I") const
    {
        // The log closes each line with its own full stop.
        ctx_.escribir_log(mensaje.endsWith(QLatin1Char('.')) ? mensaje.chopped(1) : mensaje,
                          QString::fromLatin1(nivel));
    }
    QString clave(const char *nombre) const
    {
        return QLatin1String(v_.prefijo_clave) + QLatin1String(nombre);
    }
    QString archivo(const char *extension) const
    {
        return ctx_.ruta(QLatin1String(v_.base_archivos) + QLatin1String(extension));
    }
    QString servicio() const { return QLatin1String(v_.servicio_log); }

    bool ticket_vigente() const;
    QString pedido_de_ticket() const;
    // One request; false when the answer lacked a field or none came.
    bool intentar(const QString &url);
    // Stores one value of the ticket under its key; false when it is missing.
    bool tomar_valor(const QString &respuesta, const char *tag, const char *log_recibido,
                     const char *log_falta);
    void terminar_con_error() const;

    ServiciosAfip &s_;
    Context &ctx_;
    const Variante &v_;
    QString ultima_respuesta_;
    QString error_firma_;
};

bool Tramite::ticket_vigente() const
{
    const QString prefijo = QStringLiteral("Se intento autenticar mediante el ") + servicio();
    const QString vence = ctx_.leer_parametro(clave("expirationTime"));
    if (vence.isEmpty()) {
        log(prefijo + QStringLiteral(" y no habia un Token Disponible. Se procede a obtener uno mediante el "
                                     "Web Service"));
        return false;
    }
    // AFIP's time without its zone, read as local time: there is no margin,
    // and the comparison is of the local clock against AFIP's time.
    const QString texto = vence.left(10) + QLatin1Char(' ') + vence.mid(11, 8);
    const QDateTime fin = QDateTime::fromString(texto, QStringLiteral("yyyy-MM-dd HH:mm:ss"));
    if (!fin.isValid()) {
        log(prefijo + QStringLiteral(" y el Token Disponible, no tenia un formato de fecha correcto. Se "
                                     "procede a obtener uno mediante el Web Service"));
        return false;
    }
    const QDateTime ahora = ctx_.reloj().now();
    if (fin > QDateTime(ahora.date(), ahora.time())) {
        log(prefijo + QStringLiteral(" y el Token Disponible todavia es valido. Continuo con el token "
                                     "existente sin invocar al WSAA"));
        return true;
    }
    log(prefijo + QStringLiteral(" y el Token Disponible, si bien tiene un formato valido, expirò. Se "
                                 "procede a obtener uno mediante el Web Service"));
    return false;
}

QString afip_fecha(const QDateTime &t)
{
    return t.toString(QStringLiteral("yyyy-MM-ddTHH:mm:ss")) + QStringLiteral(".000-03:00");
}

QString Tramite::pedido_de_ticket() const
{
    QFile f(ctx_.ruta(QLatin1String(v_.plantilla)));
    QString xml = f.open(QIODevice::ReadOnly) ? QString::fromUtf8(f.readAll()) : QString();
    const QDateTime ahora = ctx_.reloj().now();
    // The window AFIP wants: 10 minutes either side of the local clock,
    // written as Argentine time whatever the machine's zone.
    xml.replace(QStringLiteral("%UID%"), QStringLiteral("1"));
    xml.replace(QStringLiteral("%GENERATION%"), afip_fecha(ahora.addSecs(-10 * 60)));
    xml.replace(QStringLiteral("%EXPIRATION%"), afip_fecha(ahora.addSecs(10 * 60)));
    // These two lines have always shown other times than those sent; kept
    // so that old logs and new ones read alike.
    log(QStringLiteral("el WSAA se genera con fecha de generacion:") + afip_fecha(ahora.addSecs(-6 * 60)));
    log(QStringLiteral("el WSAA se genera con fecha de expiracion:") +
        afip_fecha(ahora.addSecs(11 * 3600 + 55 * 60)));
    if (xml.isEmpty())
        log(QStringLiteral("Se produjo un error generado el template de 'wsaa_token.xml'. El archivo esta "
                           "vacio y esto no puede pasar."),
            "E");
    return xml;
}

bool escribir(const QString &ruta, const QByteArray &datos)
{
    QFile f(ruta);
    return f.open(QIODevice::WriteOnly | QIODevice::Truncate) && f.write(datos) == datos.size();
}

// Base64 in lines of 64 characters, each ended by a line feed, as
// `openssl base64` writes it.
QByteArray base64_en_lineas(const QByteArray &datos)
{
    const QByteArray b64 = datos.toBase64();
    QByteArray out;
    for (qsizetype i = 0; i < b64.size(); i += 64)
        out += b64.mid(i, 64) + '\n';
    return out;
}

QString entre_comillas(const QString &ruta)
{
    return QLatin1Char('"') + ruta + QLatin1Char('"');
}

bool Tramite::intentar(const QString &url)
{
    const QByteArray pedido = pedido_de_ticket().toUtf8();
    const QString xml = archivo(".xml"), out = archivo(".out"), out64 = archivo(".out64");
    escribir(xml, pedido);
    log(QStringLiteral("Se creo el archivo: ") + xml);

    log(QLatin1String(v_.token_log));
    const QString certificado = ctx_.leer_parametro(QStringLiteral("IF_FE_Certificado"));
    const QString llave = ctx_.leer_parametro(QStringLiteral("IF_FE_Password"));
    log(QStringLiteral("FE - Se procede a firmar el archivo ") + QLatin1String(v_.base_archivos) +
        QStringLiteral(".xml con la llave ") + llave + QLatin1Char('.'));
    // The signature is made here by libcrypto; the log keeps the command
    // it stands for, so that a support person can repeat it by hand.
    log(QStringLiteral("openssl cms -sign -in ") + entre_comillas(xml) + QStringLiteral(" -signer ") +
        entre_comillas(certificado) + QStringLiteral(" -inkey ") + entre_comillas(llave) +
        QStringLiteral(" -nodetach -outform der -out ") + entre_comillas(out));
    const FirmaCms firma = s_.firmar(pedido, certificado, llave);
    if (firma.der.isEmpty()) {
        error_firma_ = firma.error;
        log(firma.error, "E");
        return false;
    }
    escribir(out, firma.der);

    log(QStringLiteral("FE - Se procede a codificar el resultado en base 64"));
    log(QStringLiteral("openssl base64 -in ") + entre_comillas(out) + QStringLiteral(" -e -out ") +
        entre_comillas(out64));
    const QByteArray base64 = base64_en_lineas(firma.der);
    escribir(out64, base64);

    log(QStringLiteral("FE - Se procede a invocar al web service: ") + url);
    const QString sobre = QStringLiteral("<soapenv:Envelope xmlns:soapenv=\"") + kSoapEnv +
                          QStringLiteral("\" xmlns:wsaa=\"") + kWsaaNs +
                          QStringLiteral("\"><soapenv:Header/><soapenv:Body><wsaa:loginCms><wsaa:in0>\r\n") +
                          QString::fromLatin1(base64) +
                          QStringLiteral("</wsaa:in0></wsaa:loginCms></soapenv:Body></soapenv:Envelope>");
    log(sobre, "X");

    PeticionHttp peticion{url, sobre.toUtf8(), {}};
    if (v_.persona)
        peticion.cabeceras = {{"Content-Type", "text/xml"},
                              {"SOAPAction", "LoginCms"},
                              {"CharSet", "utf-8"},
                              {"User-Agent", "Apache-HttpClient/4.1.1 (java 1.5)"}};
    else
        peticion.cabeceras = {{"Content-Type", "text/xml; charset=utf-8"}, {"SOAPAction", "LoginCms"}};
    const RespuestaHttp respuesta = s_.http.post(peticion);
    log(QStringLiteral("PostWebservice: SOAPActionLoginCms"));
    if (!respuesta.ok)
        log(respuesta.error, "E");

    QString texto = respuesta.texto;
    log(texto, "X");
    if (v_.persona)
        log(QStringLiteral("se procesa el resultado del web service de la AFIP WSAA PERSONA"));
    // The ticket travels as escaped XML inside the answer.
    texto.replace(QStringLiteral("&lt;"), QStringLiteral("<"))
        .replace(QStringLiteral("&gt;"), QStringLiteral(">"));
    ultima_respuesta_ = texto;

    bool ok = tomar_valor(texto, "generationTime", "Se recibio de la AFIP El Generation Time: ",
                          "No se encontro el 'generation time' en el ticket de respuesta de la AFIP");
    ok &= tomar_valor(texto, "expirationTime", "Se recibio de la AFIP El Expiration Time: ",
                      "No se encontro el 'expiration time' en el ticket de respuesta de la AFIP");
    ok &= tomar_valor(texto, "token", "Se recibio de la AFIP El Token: ",
                      "No se encontro el 'token' en el ticket de respuesta de la AFIP");
    ok &= tomar_valor(texto, "sign", "Se recivio de la AFIP El Sign: ",
                      "No se encontro el 'sign' en el ticket de respuesta de la AFIP");
    return ok;
}

bool Tramite::tomar_valor(const QString &respuesta, const char *tag, const char *log_recibido,
                          const char *log_falta)
{
    const QString valor = leer_tag(QLatin1String(tag), respuesta);
    if (valor == QLatin1String("N/A")) {
        log(QString::fromUtf8(log_falta), "E");
        return false;
    }
    // Stored at once: a later missing field leaves these in the settings.
    ctx_.escribir_parametro(clave(tag), valor);
    log(QString::fromUtf8(log_recibido) + valor);
    return true;
}

void Tramite::terminar_con_error() const
{
    log(QStringLiteral("Se detectaron Errores durante la autenticación mediante WSAA a los servidores de la "
                       "AFIP. por favor verifique que esta conectado a Internet y que la configuración de "
                       "Vendrix es correcta"),
        "E");
    QString texto;
    if (!error_firma_.isEmpty())
        texto = error_firma_;
    else if (ultima_respuesta_.contains(kYaPoseeTa))
        texto =
            QStringLiteral("El contribuyente fiscal ya posee un Ticket de Accesso valido para el acceso al "
                           "WSN solicitado, sin embargo, Vendrix lo desconoce. Por favor asegurese de que no "
                           "hay otros aplicativos intentandose conectar a la AFIP con su clave fiscal.");
    else
        texto =
            QStringLiteral("Se detectaron Errores durante la autenticación mediante WSAA a los servidores "
                           "de la AFIP. Por favor verifique que esta conectado a Internet y que la "
                           "configuración de Vendrix es correcta. Los detalles del intercambio de mensajes "
                           "estan disponibles en el Log");
    ctx_.op().error(QStringLiteral("Error WSAA"), texto);
}

bool Tramite::correr()
{
    bool ok = ticket_vigente();
    if (!ok) {
        const bool produccion = es_produccion(ctx_);
        log(produccion ? QStringLiteral("Se enviará la peticion de TRA al ambiente de PRODUCCION")
                       : QString::fromUtf8(v_.homologacion_log));
        const QString url =
            url_afip(ctx_, ServicioAfip::wsaa, produccion, QStringLiteral("/ws/services/LoginCms"));
        for (int intento = 1; intento <= v_.intentos; ++intento) {
            ok = intentar(url);
            // A certificate or key that can't be read fails the same way twice.
            if (ok || !error_firma_.isEmpty())
                break;
            log(QStringLiteral("El tentativo numero  ") + QString::number(intento) +
                QStringLiteral(" para obtener un WSAA valido no fue exitoso"));
        }
    }

    if (!v_.persona) {
        ctx_.escribir_parametro(QStringLiteral("FE_cert_fcha_vto"), certificado_fecha_vto(s_));
        ctx_.escribir_parametro(QStringLiteral("FE_cert_vence_en_30"), certificado_vigente_30(s_)
                                                                           ? QStringLiteral("True")
                                                                           : QStringLiteral("False"));
    }

    if (!ok) {
        terminar_con_error();
        return false;
    }
    log(QStringLiteral("Vendrix tiene un Token / Sign de la AFIP Valido para realizar facturas electronicas"),
        "A");
    return true;
}

} // namespace

bool obtener_TRA(ServiciosAfip &s)
{
    return Tramite(s, kFactura).correr();
}

bool obtener_TRA_persona(ServiciosAfip &s)
{
    return Tramite(s, kPersona).correr();
}

} // namespace vendrix

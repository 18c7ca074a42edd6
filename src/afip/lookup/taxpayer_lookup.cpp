#include "afip/lookup/taxpayer_lookup.h"

#include "afip/auth/afip_services.h"
#include "afip/auth/wsaa_ticket.h"
#include "afip/transport/afip_hosts.h"
#include "afip/transport/soap.h"
#include "core/context.h"
#include "online/html_entities.h"
#include "sales/checkout/checkout.h"

#include <QStringList>
#include <QXmlStreamReader>

#include <exception>
#include <stdexcept>

namespace vendrix {

namespace {

const QString kNoDisponible = QStringLiteral("N/A");
const QString kTituloDatos = QStringLiteral("Error en los datos ingresados.");

// Each word with its first letter in capitals and the rest in small
// letters: AFIP's register writes everything in capitals.
QString nombre_propio(const QString &texto)
{
    QString r = texto.toLower();
    bool inicio = true;
    for (QChar &c : r) {
        if (inicio)
            c = c.toUpper();
        inicio = c.isSpace();
    }
    return r;
}

// The busy indicator for the whole click, off again on every way out.
class Ocupado {
public:
    explicit Ocupado(StatusSink &estado) : estado_(estado)
    {
        estado_.actualizar_indicador(QStringLiteral("ocupado_on"));
    }
    ~Ocupado() { estado_.actualizar_indicador(QStringLiteral("ocupado_off")); }
    Ocupado(const Ocupado &) = delete;
    Ocupado &operator=(const Ocupado &) = delete;

private:
    StatusSink &estado_;
};

// What the register's answer says of the person: the first of each name
// element and AFIP's fault text, "N/A" when missing, and the `direccion`
// and `descripcionProvincia` of the last `domicilio` listed. Values come
// with XML's escapes undone.
struct Persona {
    QString nombre = kNoDisponible;
    QString apellido = kNoDisponible;
    QString razon_social = kNoDisponible;
    QString direccion = kNoDisponible;
    QString provincia = kNoDisponible;
    QString falla = kNoDisponible;
};

Persona leer_persona(const QString &respuesta)
{
    Persona p;
    const std::pair<const char *, QString Persona::*> primeros[] = {{"nombre", &Persona::nombre},
                                                                    {"apellido", &Persona::apellido},
                                                                    {"razonSocial", &Persona::razon_social},
                                                                    {"faultstring", &Persona::falla}};
    QXmlStreamReader xml(respuesta);
    bool en_domicilio = false;
    while (!xml.atEnd()) {
        xml.readNext();
        if (xml.isEndElement() && xml.name() == QLatin1String("domicilio"))
            en_domicilio = false;
        if (!xml.isStartElement())
            continue;
        const auto nombre = xml.name();
        if (nombre == QLatin1String("domicilio")) {
            // A later address replaces the one in hand, field by field.
            en_domicilio = true;
            p.direccion = p.provincia = kNoDisponible;
        } else if (en_domicilio && nombre == QLatin1String("direccion")) {
            p.direccion = xml.readElementText();
        } else if (en_domicilio && nombre == QLatin1String("descripcionProvincia")) {
            p.provincia = xml.readElementText();
        } else {
            for (const auto &[tag, campo] : primeros)
                if (nombre == QLatin1String(tag) && p.*campo == kNoDisponible)
                    p.*campo = xml.readElementText();
        }
    }
    return p;
}

void log(Context &ctx, const QString &mensaje, const char *nivel = "I")
{
    // The log closes each line with its own full stop.
    ctx.escribir_log(mensaje.endsWith(QLatin1Char('.')) ? mensaje.chopped(1) : mensaje,
                     QString::fromLatin1(nivel));
}

void consultar(ServiciosAfip &s, Checkout &checkout)
{
    Context &ctx = s.ctx;
    const VistaCheckout &v = checkout.vista();
    if (v.Combo_tipo_doc != QLatin1String("CUIT")) {
        ctx.op().error(
            kTituloDatos,
            QStringLiteral("Esta funcionalidad está solo disponible para tipo de documento CUIT."));
        return;
    }
    if (v.Text_cuit.isEmpty()) {
        ctx.op().error(kTituloDatos, QStringLiteral("El campo 'Número de Documento' esta vacío."));
        return;
    }
    const QString cuit = v.Text_cuit;
    const bool produccion = es_produccion(ctx);
    const QString ruta = QStringLiteral("/sr-padron/webservices/personaServiceA13");
    const QString url =
        url_afip(ctx, ServicioAfip::padron, produccion, produccion ? ruta : ruta + QStringLiteral("?WSDL"));
    log(ctx, produccion
                 ? QStringLiteral("Se enviará la peticion de DATOS USUARIO al ambiente de PRODUCCION")
                 : QStringLiteral("Se enviará la peticion de DATOS USUARIO al ambiente de HOMOLOGACION"));

    const QString pedido = create_BUSCAPERSONA_XML(s, QString(cuit).remove(QLatin1Char('-')));
    // Without a ticket the authentication has already said why.
    if (pedido.isEmpty())
        return;
    const QString respuesta = enviar_SOAP(ctx, s.http, QString(), url, QString(), pedido);
    log(ctx, respuesta, "X");
    if (respuesta.startsWith(QLatin1String("Error: ")))
        throw std::runtime_error(respuesta.toStdString());

    const Persona persona = leer_persona(respuesta);
    QString nombre = persona.nombre + QLatin1Char(' ') + persona.apellido;
    // A company has a name of its own instead.
    if (nombre.contains(kNoDisponible))
        nombre = persona.razon_social;
    nombre = html_a_texto(nombre);
    const QString direccion = html_a_texto(persona.direccion);
    const QString localidad = html_a_texto(persona.provincia);

    if ((nombre + direccion + localidad).contains(kNoDisponible)) {
        const QString texto = QStringLiteral("No se encontraron datos en AFIP asociados al CUIT '") + cuit +
                              QStringLiteral("'.\r\n") + persona.falla;
        ctx.op().warn(QStringLiteral("No se encontraron datos"), texto);
        log(ctx, texto);
        return;
    }

    const QStringList pregunta{
        QStringLiteral("Se encontraron los siguentes datos en AFIP asociados al CUIT '") + cuit +
            QStringLiteral("':"),
        QString(),
        QStringLiteral("    Razón Social: ") + nombre,
        QStringLiteral("    Dirección: ") + direccion,
        QStringLiteral("    Localidad: ") + localidad,
        QString(),
        QStringLiteral("¿Desea sobreescrivir los datos de Vendrix Con los de la AFIP?")};
    if (!ctx.op().ask(QStringLiteral("Datos del Cliente"), pregunta.join(QStringLiteral("\r\n")))) {
        log(ctx, QStringLiteral("Se encontraron datos en AFIP asociados al CUIT '") + cuit +
                     QStringLiteral("' y el usuario los ignoró."));
        return;
    }
    checkout.set_texto(&VistaCheckout::Text_rz, nombre_propio(nombre));
    checkout.set_texto(&VistaCheckout::Text_dom, nombre_propio(direccion));
    checkout.set_texto(&VistaCheckout::Text_loc, nombre_propio(localidad));
    // Whatever AFIP holds: the box asks the operator to check it.
    checkout.cambiar_iva(QStringLiteral("I - IVA RESPONSABLE INSCRIPTO"));
    ctx.op().inform(
        QStringLiteral("Datos del Cliente"),
        QStringLiteral("Se recuperaron los datos de la AFIP. Controle que la condición del IVA del "
                       "cliente sea correcta."));
    log(ctx, QStringLiteral("Se encontraron datos en AFIP asociados al CUIT '") + cuit +
                 QStringLiteral("' y el usuario los usa para sobreescrivir los datos de vendrix."));
}

} // namespace

QString create_BUSCAPERSONA_XML(ServiciosAfip &s, const QString &cuit)
{
    Context &ctx = s.ctx;
    if (!obtener_TRA_persona(s)) {
        log(ctx, QStringLiteral("WSAA PERSONA: token no disponible o invalido."), "E");
        return QString();
    }
    log(ctx,
        QStringLiteral("Se procede a generar el XML de la función 'create_BUSCAPERSONA_XML' para el CUIT=") +
            cuit);
    const QStringList lineas{
        QStringLiteral("<?xml version=\"1.0\" encoding=\"UTF-8\"?>"),
        QStringLiteral("<soapenv:Envelope xmlns:soapenv=\"http://schemas.xmlsoap.org/soap/envelope/\" "
                       "xmlns:a13=\"http://a13.soap.ws.server.puc.sr/\">"),
        QStringLiteral("     <soapenv:Header/>"),
        QStringLiteral("    <soapenv:Body>"),
        QStringLiteral("     <a13:getPersona>"),
        QStringLiteral("     <token>") + ctx.leer_parametro(QStringLiteral("FE_PERSONA_token")) +
            QStringLiteral("</token>"),
        QStringLiteral("     <sign>") + ctx.leer_parametro(QStringLiteral("FE_PERSONA_sign")) +
            QStringLiteral("</sign>"),
        QStringLiteral("     <cuitRepresentada>") +
            ctx.leer_parametro(QStringLiteral("IF_CUIT")).remove(QLatin1Char('-')) +
            QStringLiteral("</cuitRepresentada>"),
        QStringLiteral("     <idPersona>") + cuit + QStringLiteral("</idPersona>"),
        QStringLiteral("     </a13:getPersona>"),
        QStringLiteral("     </soapenv:Body>"),
        QStringLiteral("</soapenv:Envelope>")};
    const QString xml = lineas.join(QStringLiteral("\r\n"));
    log(ctx, xml, "X");
    return xml;
}

void recuperar_datos_CUIT(ServiciosAfip &s, Checkout &checkout)
{
    const Ocupado ocupado(s.ctx.estado());
    try {
        consultar(s, checkout);
    } catch (const std::exception &e) {
        s.ctx.op().error(
            QStringLiteral("Error al intentar recuperar datos de AFIP."),
            QStringLiteral("ER RC001: Se produjo un error al Intentar recuperar la información de "
                           "los clientes de los servicios de la AFIP."));
        log(s.ctx, QStringLiteral("ER RC001 - 0 recuperar_datos_CUIT ") + QString::fromStdString(e.what()),
            "E");
    }
}

} // namespace vendrix

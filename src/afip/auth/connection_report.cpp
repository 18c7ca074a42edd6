#include "afip/auth/connection_report.h"

#include "afip/auth/afip_services.h"
#include "afip/auth/certificate_checks.h"
#include "afip/auth/wsaa_ticket.h"
#include "afip/transport/afip_hosts.h"
#include "afip/transport/soap.h"
#include "core/context.h"

#include <QFile>
#include <QStringList>

namespace vendrix {

bool AFIP_test_dummy(ServiciosAfip &s)
{
    Context &ctx = s.ctx;
    QFile f(ctx.ruta(QStringLiteral("wefe_dummy.xml")));
    const QString xml = f.open(QIODevice::ReadOnly) ? QString::fromUtf8(f.readAll()) : QString();
    ctx.escribir_log(xml, QStringLiteral("X"));
    const QString url =
        url_afip(ctx, ServicioAfip::wsfe, false, QStringLiteral("/wsfev1/service.asmx?op=FEDummy"));
    const QString respuesta = enviar_SOAP(ctx, s.http, QString(), url, QString(), xml);
    ctx.escribir_log(respuesta, QStringLiteral("X"));
    // No answer at all ("Error: ..." from the transport) is a failure too.
    if (respuesta.contains(QLatin1String("ERROR")) || respuesta.startsWith(QLatin1String("Error: "))) {
        ctx.escribir_log(
            QStringLiteral("Se intento contactar con el Web Service Dummy de la factura electronica "
                           "y se detecto un error"),
            QStringLiteral("E"));
        return false;
    }
    ctx.escribir_log(
        QStringLiteral("Se contacto correctamente con el Web Service Dummy de la factura electronica"),
        QStringLiteral("I"));
    return true;
}

bool AFIP_reporte_conexion(ServiciosAfip &s)
{
    Context &ctx = s.ctx;
    const QString sangria = QStringLiteral("     ");
    QStringList r;
    r << QStringLiteral("Verificando conexión a la AFIP, Ambiente de \"") +
             ctx.leer_parametro(QStringLiteral("IF_FE_Modo_Operacion")) + QStringLiteral("\".")
      << QString();

    if (!certificado_vigente(s))
        r << sangria + QStringLiteral("ERROR - El certificado AFIP esta vencido.")
          << sangria + QStringLiteral("Para utilizar la factura electronica de la AFIP usted debe tener un "
                                      "certificado válido. Consulte a su contador para renovarlo.");
    else if (certificado_vigente_30(s))
        r << sangria + QStringLiteral("OK - Certificado AFIP válido.");
    else
        r << sangria + QStringLiteral("ATENCION - El Certificado AFIP vence en menos de 30 días.");

    if (s.hay_internet())
        r << sangria + QStringLiteral("OK - Hay conexión a Internet.");
    else
        r << sangria + QStringLiteral("ERROR - No hay conexión a Internet.")
          << sangria + QStringLiteral("Para utilizar la factura electronica de la AFIP usted debe tener una "
                                      "conexión a Internet todo el tiempo activa.");

    if (AFIP_test_dummy(s))
        r << sangria + QStringLiteral("OK - Los servidores de la AFIP Responden.");
    else
        r << sangria + QStringLiteral("ERROR - Los servidores de la AFIP no estan respondiendo.")
          << sangria + QStringLiteral("Parece que los servidores de la AFIP no responden. Esto se trata "
                                      "seguramente de un problema temporal, ajeno a Vendrix y a usted.");

    const bool ticket = obtener_TRA(s);
    if (ticket)
        r << sangria +
                 QStringLiteral(
                     "OK - Se pudo obtener un TRA desde los servidores de la AFIP Con validez hasta: ") +
                 ctx.leer_parametro(QStringLiteral("FE_expirationTime"));
    else
        r << sangria + QStringLiteral("ERROR - No se pudo obtener un TRA desde los servidores de la AFIP.")
          << sangria + QStringLiteral("Parece que los datos ingresados no son correctos. Por favor controle "
                                      "los datos como el CUIT, nombre y el certificado.");

    ctx.op().inform(QStringLiteral("Conexión con la AFIP"), r.join(QStringLiteral("\r\n")));
    return ticket;
}

} // namespace vendrix

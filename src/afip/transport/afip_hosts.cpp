#include "afip/transport/afip_hosts.h"

#include "core/context.h"

namespace vendrix {
namespace {

QString host_afip(ServicioAfip servicio, bool produccion)
{
    switch (servicio) {
    case ServicioAfip::wsaa:
        return produccion ? QStringLiteral("https://wsaa.afip.gov.ar")
                          : QStringLiteral("https://wsaahomo.afip.gov.ar");
    case ServicioAfip::wsfe:
        return produccion ? QStringLiteral("https://servicios1.afip.gov.ar")
                          : QStringLiteral("https://wswhomo.afip.gov.ar");
    case ServicioAfip::padron:
        return produccion ? QStringLiteral("https://aws.afip.gov.ar")
                          : QStringLiteral("https://awshomo.afip.gov.ar");
    }
    return {};
}

} // namespace

bool es_produccion(const Context &ctx)
{
    return ctx.leer_parametro(QStringLiteral("IF_FE_Modo_Operacion")) == QStringLiteral("Producción");
}

QString url_afip(const Context &ctx, ServicioAfip servicio, bool produccion, const QString &ruta)
{
    QString base = ctx.leer_parametro(QStringLiteral("FE_servidor_pruebas")).trimmed();
    while (base.endsWith(QLatin1Char('/')))
        base.chop(1);
    if (base.isEmpty())
        base = host_afip(servicio, produccion);
    return base + ruta;
}

} // namespace vendrix

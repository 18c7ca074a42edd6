#include "online/invoice_upload.h"

#include "afip/transport/http_client.h"
#include "core/context.h"
#include "core/cp1252.h"
#include "core/list_parameters.h"
#include "core/text_helpers.h"

#include <QFile>
#include <QFileInfo>

namespace vendrix {

namespace {

constexpr char kLimite[] = "AaB03x";

} // namespace

QByteArray cuerpo_subida_factura(const QString &nombre_archivo, const QByteArray &contenido)
{
    const QByteArray limite(kLimite);
    QByteArray cuerpo = "--" + limite + "\r\n";
    cuerpo +=
        cp1252::codificar(QStringLiteral("Content-Disposition: form-data; name=\"uploadfile\"; filename=\"") +
                          nombre_archivo + QLatin1Char('"'));
    cuerpo += "\r\nContent-Type: text/xml\r\n\r\n";
    cuerpo += contenido;
    cuerpo += "\r\n--" + limite + "--\r\n";
    return cuerpo;
}

QString subir_archivo_http(ClienteHttp &http, const QString &url, const QString &ruta)
{
    QFile archivo(ruta);
    if (!archivo.open(QIODevice::ReadOnly))
        return kErrorSubida;
    PeticionHttp peticion;
    peticion.url = url;
    peticion.cuerpo = cuerpo_subida_factura(QFileInfo(ruta).fileName(), archivo.readAll());
    peticion.cabeceras = {{"Content-Type", QByteArray("multipart/form-data; boundary=") + kLimite}};
    const RespuestaHttp respuesta = http.post(peticion);
    if (!respuesta.ok || respuesta.estado != 200)
        return kErrorSubida;
    return respuesta.texto;
}

QString nombre_comercio(Context &ctx)
{
    return parametro_de_lista(ctx, QStringLiteral("CLIENTE"));
}

QString subir_factura(Context &ctx, ClienteHttp &http, const QString &archivo,
                      const std::function<bool()> &conectado)
{
    const QString servicio = ctx.leer_parametro(QStringLiteral("servicio_url"));
    if (servicio.isEmpty()) {
        ctx.escribir_log(
            QStringLiteral("upload_factura: no hay un servicio configurado para subir el archivo ") + archivo,
            QStringLiteral("E"));
        return kErrorSubida;
    }
    if (!conectado()) {
        ctx.op().error(
            QStringLiteral("Error al conectarse a Internet"),
            QStringLiteral("Vendrix no puede conectarse a Internet. Por favor conéctese a internet e "
                           "inténtelo nuevamente"));
        return kErrorSubida;
    }
    QString url = servicio;
    while (url.endsWith(QLatin1Char('/')))
        url.chop(1);
    url += QStringLiteral("/upload_factura.php?cliente=") + codificar_url(nombre_comercio(ctx));
    // A link has no blanks: a line end after it is the server's, not the link's.
    const QString respuesta =
        subir_archivo_http(http, url, ctx.ruta(QStringLiteral("Facturas/") + archivo)).trimmed();
    if (respuesta != kErrorSubida) {
        ctx.escribir_log(QStringLiteral("Se subio el archivo ") + archivo + QStringLiteral("a la URL ") +
                             respuesta,
                         QStringLiteral("I"));
        return respuesta;
    }
    ctx.escribir_log(QStringLiteral("upload_factura error: No se pudo cargar el archio al FTP ") + archivo,
                     QStringLiteral("E"));
    ctx.op().error(QStringLiteral("Información no enviada"),
                   QStringLiteral("Se produjo un error y no se pudo enviar la información al servidor. "));
    return kErrorSubida;
}

} // namespace vendrix

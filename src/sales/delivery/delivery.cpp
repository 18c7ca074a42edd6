#include "sales/delivery/delivery.h"

#include "core/context.h"
#include "core/desktop.h"
#include "core/numeric.h"
#include "online/invoice_links.h"
#include "online/invoice_upload.h"
#include "sales/checkout/checkout.h"
#include "sales/recording/fiscal_output.h"
#include "sales/recording/recording_log.h"
#include "sales/recording/sale_document.h"

#include <QDir>
#include <QFileInfo>
#include <QUrl>

namespace vendrix {

namespace {

const QString kTituloEntrega = QStringLiteral("Enviar factura");

// Without the vendor's service: the mail program with the file attached,
// or the messaging page with a note; the operator learns where the file is.
void enviar_sin_servicio(ServiciosEntrega &s, const PedidoEntrega &pedido, const QString &archivo,
                         const QString &cliente)
{
    Context &ctx = s.ctx;
    const QString comercio = nombre_comercio(ctx);
    const QString ruta = QDir::toNativeSeparators(archivo);
    if (pedido.mail) {
        const QString cuerpo =
            texto_adjunto(cliente, comercio, true).replace(QLatin1String("\r\n"), QLatin1String("\n"));
        if (s.escritorio.redactar_correo(pedido.email, asunto_link(comercio), cuerpo, archivo)) {
            ctx.op().inform(kTituloEntrega, QStringLiteral("Se abrió un correo nuevo para ") + pedido.email +
                                                QStringLiteral(" con la factura adjunta. Si su programa de "
                                                               "correo no la adjuntó, agréguela desde: ") +
                                                ruta);
        } else {
            ctx.op().warn(kTituloEntrega,
                          QStringLiteral("No se pudo abrir un programa de correo. Envíe la factura a ") +
                              pedido.email + QStringLiteral(" adjuntando el archivo: ") + ruta);
        }
        return;
    }
    const QUrl direccion(url_whatsapp(pedido.telefono, texto_adjunto(cliente, comercio, false)));
    if (s.escritorio.abrir(direccion)) {
        ctx.op().inform(kTituloEntrega,
                        QStringLiteral("Se abrió WhatsApp con un mensaje para ") + pedido.telefono +
                            QStringLiteral(". Adjunte al mensaje la factura, que está en: ") + ruta);
    } else {
        ctx.op().warn(kTituloEntrega, QStringLiteral("No se pudo abrir WhatsApp. Envíe la factura al ") +
                                          pedido.telefono + QStringLiteral(" adjuntando el archivo: ") +
                                          ruta);
    }
}

} // namespace

std::vector<LineaFacsimil> lineas_facsimil(const QString &modo_descripcion, const Carrito &carrito,
                                           double factor)
{
    std::vector<LineaFacsimil> lineas;
    for (const LineaCarrito &l : carrito.lineas())
        lineas.push_back({valor_texto(l[kColCantidad]), descripcion_para_dispositivo(l, modo_descripcion),
                          valor_texto(l[kColPrecioUnitario]) * factor, valor_texto(l[kColIva])});
    return lineas;
}

OpcionesFacsimil opciones_facsimil_venta(Context &ctx, const Checkout &checkout, const DocumentoVenta &doc)
{
    // The habitual discount as the sale read it (the document keeps it) and
    // the surcharge of its payment method, as the stored lines have them.
    FactoresPrecio f;
    f.descuento = 1 - doc.cabecera.descuento_habitual / 100;
    f.recargo = 1 + valor_texto(checkout.recargo_forma_de_pago()) / 100;
    if (f.recargo == 0)
        f.recargo = 1;
    OpcionesFacsimil o;
    o.lineas_carrito =
        lineas_facsimil(ctx.leer_parametro(QStringLiteral("IF_desc_art")), checkout.carrito(), f.total());
    // The box reads "with detail": without it the ticket is one line.
    o.resumido = !checkout.vista().Check_resumido;
    o.tipo_doc_defecto = checkout.vista().Combo_tipo_doc;
    return o;
}

void entregar_factura(ServiciosEntrega &s, const PedidoEntrega &pedido, qint64 id_factura,
                      OpcionesFacsimil opciones, const QString &cliente)
{
    Context &ctx = s.ctx;
    if (pedido.facsimil) {
        log_registro(ctx, QStringLiteral("Se procede a generar el facsimil de la factura y mostrarlo."));
        opciones.mostrar = true;
        s.facsimil(ctx, s.escritorio, id_factura, opciones);
        return;
    }
    log_registro(
        ctx, QStringLiteral("Se procede a generar el facsimil de la factura y salvarlo (sin mostrarlo)."));
    opciones.mostrar = false;
    const Facsimil f = s.facsimil(ctx, s.escritorio, id_factura, opciones);
    if (!(pedido.mail || pedido.whatsapp) || !f.ok())
        return;
    // The PDF carries its pictures; the page would need its PNG files too.
    const QString archivo = f.pdf.isEmpty() ? f.html : f.pdf;
    if (ctx.leer_parametro(QStringLiteral("servicio_url")).isEmpty()) {
        log_registro(ctx, pedido.mail ? QStringLiteral("pidieron mandar por mail la factura.")
                                      : QStringLiteral("pidieron mandar por whatsapp la factura."));
        enviar_sin_servicio(s, pedido, archivo, cliente);
        return;
    }
    log_registro(ctx, QStringLiteral("El archivo a cargar en el sitio es: ") + archivo);
    const QString link = subir_factura(ctx, s.http, QFileInfo(archivo).fileName(), s.hay_internet);
    if (link == kErrorSubida)
        return;
    log_registro(ctx, QStringLiteral("se cargo la factura al sitio en el link: ") + link);
    if (pedido.mail) {
        log_registro(ctx, QStringLiteral("pidieron mandar por mail la factura."));
        enviar_link_por_mail(ctx, s.escritorio, pedido.email, cliente, link);
    } else {
        log_registro(ctx, QStringLiteral("pidieron mandar por whatsapp la factura."));
        enviar_link_por_whatsapp(ctx, s.escritorio, pedido.telefono, cliente, link);
    }
}

} // namespace vendrix

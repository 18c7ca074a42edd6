#include "online/invoice_links.h"

#include "core/context.h"
#include "core/desktop.h"
#include "core/text_helpers.h"
#include "online/invoice_upload.h"

#include <QStringList>
#include <QUrl>

namespace vendrix {

QString asunto_link(const QString &comercio)
{
    return comercio + QStringLiteral(" - Factura electrónica AFIP - POR FAVOR NO RESPONDA A ESTE MENSAJE");
}

namespace {

// The lines that close both notes.
QStringList firma(const QString &comercio, bool por_mail)
{
    return {
        por_mail ? QStringLiteral("Correo electrónico generado automáticamente por Vendrix.")
                 : QStringLiteral("Mensaje generado automáticamente por Vendrix."),
        QStringLiteral(
            "Vendrix no se responsabiliza por los datos ingresados en el detalle de la operación."),
        QString(),
        QStringLiteral("Atte. ") + comercio,
    };
}

} // namespace

QString texto_link(const QString &cliente, const QString &link, const QString &comercio, bool por_mail)
{
    const QStringList lineas =
        QStringList{
            QStringLiteral("Estimados ") + cliente + QLatin1Char(','),
            QString(),
            QStringLiteral("Le enviamos un link que contiene la imagen de la factura "
                           "electrónica AFIP realizada en el día de la fecha en nuestro "
                           "comercio."),
            QString(),
            link,
            QString(),
            QStringLiteral("La imagen permanecerá disponible por 30 días. "),
        } +
        firma(comercio, por_mail);
    return lineas.join(QStringLiteral("\r\n"));
}

QString texto_adjunto(const QString &cliente, const QString &comercio, bool por_mail)
{
    const QStringList lineas =
        QStringList{
            QStringLiteral("Estimados ") + cliente + QLatin1Char(','),
            QString(),
            QStringLiteral("Le enviamos adjunta la factura electrónica AFIP realizada en el "
                           "día de la fecha en nuestro comercio."),
            QString(),
        } +
        firma(comercio, por_mail);
    return lineas.join(QStringLiteral("\r\n"));
}

QString url_whatsapp(const QString &telefono, const QString &texto)
{
    return QLatin1String(kPaginaWhatsapp) + telefono + QStringLiteral("&text=") + codificar_url(texto);
}

QString url_link_por_mail(const QString &para, const QString &cliente, const QString &link,
                          const QString &comercio)
{
    return QLatin1String(kPaginaCorreoWeb) + para + QStringLiteral("&su=") +
           codificar_url(asunto_link(comercio)) + QStringLiteral("&body=") +
           codificar_url(texto_link(cliente, link, comercio, true));
}

QString url_link_por_whatsapp(const QString &telefono, const QString &cliente, const QString &link,
                              const QString &comercio)
{
    return url_whatsapp(telefono, texto_link(cliente, link, comercio, false));
}

bool enviar_link_por_mail(Context &ctx, Escritorio &escritorio, const QString &para, const QString &cliente,
                          const QString &link)
{
    return escritorio.abrir(QUrl(url_link_por_mail(para, cliente, link, nombre_comercio(ctx))));
}

bool enviar_link_por_whatsapp(Context &ctx, Escritorio &escritorio, const QString &telefono,
                              const QString &cliente, const QString &link)
{
    return escritorio.abrir(QUrl(url_link_por_whatsapp(telefono, cliente, link, nombre_comercio(ctx))));
}

} // namespace vendrix

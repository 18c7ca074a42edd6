// PROVISIONAL
// Stand-ins for the QR library until it is on main; deleted at merge.
#include "afip/qr/qr_payload.h"
#include "afip/qr/qr_picture.h"

#include <QByteArray>

namespace vendrix {

QString armar_QR_AFIP(Context &, const QString &cae)
{
    return QStringLiteral("{\"ver\":1,\"codAut\":") + cae + QLatin1Char('}');
}

QString codificar_base64(const QString &texto)
{
    return QString::fromLatin1(texto.toLatin1().toBase64());
}

QString url_QR_AFIP(Context &ctx, const QString &cae)
{
    return QLatin1String(kPaginaQrAfip) + codificar_base64(armar_QR_AFIP(ctx, cae));
}

QImage QR_raster(const QString &, int pixeles_por_modulo)
{
    const int lado = 33;
    QImage imagen(lado * pixeles_por_modulo, lado * pixeles_por_modulo, QImage::Format_Grayscale8);
    imagen.fill(255);
    for (int y = 4; y < lado - 4; ++y)
        for (int x = 4; x < lado - 4; ++x)
            if ((x * 7 + y * 3) % 5 < 2)
                for (int dy = 0; dy < pixeles_por_modulo; ++dy)
                    for (int dx = 0; dx < pixeles_por_modulo; ++dx)
                        imagen.setPixel(x * pixeles_por_modulo + dx, y * pixeles_por_modulo + dy,
                                        qRgb(0, 0, 0));
    return imagen;
}

} // namespace vendrix

// PROVISIONAL
// Stands in for the QR library until it is merged: an empty payload and an
// empty picture, so the completion screen and the sale's follow-up build.
#include "afip/qr/qr_payload.h"
#include "afip/qr/qr_picture.h"

namespace vendrix {

QString url_QR_AFIP(Context &, const QString &)
{
    return QLatin1String(kPaginaQrAfip);
}

QPicture QR_imagen(const QString &, const QColor &, int, bool, int, int, int, int, bool)
{
    return QPicture();
}

} // namespace vendrix

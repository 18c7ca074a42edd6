#include "afip/qr/qr_payload.h"

#include "afip/invoice/invoice_codes.h"
#include "afip/invoice/stored_voucher.h"
#include "core/context.h"
#include "core/numeric.h"

#include <cmath>

namespace vendrix {

namespace {

QString sin_guiones(QString texto)
{
    return texto.remove(QLatin1Char('-'));
}

// "yyyy-mm-dd" from a timestamp that begins yyyymmdd; a sale without one
// gives "".
QString fecha_de_timestamp(const QString &ts)
{
    if (ts.isEmpty())
        return {};
    return ts.mid(0, 4) + QLatin1Char('-') + ts.mid(4, 2) + QLatin1Char('-') + ts.mid(6, 2);
}

void log_inicio(Context &ctx, const QString &cae)
{
    const QString i = QStringLiteral("I");
    ctx.escribir_log(QStringLiteral("armar_QR_AFIP - Arranco a armar el QR"), i);
    ctx.escribir_log(
        QStringLiteral("armar_QR_AFIP - Recupero los datos de la factura encabezado asociada al CAE: ") + cae,
        i);
}

QString json_de(Context &ctx, const Matrix &m)
{
    const bool hay = !m.vacia();
    // Without a stored sale every value taken from it stays empty; what
    // comes from the settings and the constants are still written.
    const auto col = [&](ColumnaComprobante c) { return m.at(c, 0).trimmed(); };

    QString tipo_cmp;
    QString importe;
    QString tipo_doc_rec;
    QString nro_doc_rec;
    if (hay) {
        tipo_cmp = tipo_comprobante_AFIP(col(kCompLetra), col(kCompTipo)).trimmed().remove(QLatin1Char('0'));
        importe = formatear(std::abs(valor_texto(col(kCompTotal))), u"####0.00");
        importe.replace(kSeparadorDecimal, QLatin1Char('.'));
        // The QR names an anonymous buyer 96 even though the request to AFIP
        // sent 80 for it.
        tipo_doc_rec =
            col(kCompTipoDoc) == QLatin1String("CUIT") ? QStringLiteral("80") : QStringLiteral("96");
        nro_doc_rec = sin_guiones(col(kCompCuit));
        if (nro_doc_rec.isEmpty())
            nro_doc_rec = QStringLiteral("20111111112");
    }
    const int pto_vta =
        static_cast<int>(valor_texto(ctx.leer_parametro(QStringLiteral("IF_PuntoDeVenta")).trimmed()));

    QString json;
    json += QStringLiteral("{\"ver\":1");
    json += QStringLiteral(",\"fecha\":\"") + fecha_de_timestamp(col(kCompTimestamp)) + QLatin1Char('"');
    json +=
        QStringLiteral(",\"cuit\":") + sin_guiones(ctx.leer_parametro(QStringLiteral("IF_CUIT")).trimmed());
    json += QStringLiteral(",\"ptoVta\":") + QString::number(pto_vta);
    json += QStringLiteral(",\"tipoCmp\":") + tipo_cmp;
    json += QStringLiteral(",\"nroCmp\":") + col(kCompNumero);
    json += QStringLiteral(",\"importe\":") + importe;
    json += QStringLiteral(",\"moneda\":\"PES\"");
    json += QStringLiteral(",\"tipoDocRec\":") + tipo_doc_rec;
    json += QStringLiteral(",\"nroDocRec\":") + nro_doc_rec;
    json += QStringLiteral(",\"tipoCodAut\":\"E\"");
    json += QStringLiteral(",\"codAut\":") + col(kCompCae) + QLatin1Char('}');
    return json;
}

} // namespace

QString armar_QR_AFIP(Context &ctx, const QString &cae)
{
    log_inicio(ctx, cae);
    return json_de(ctx, leer_comprobante_por_cae(ctx, cae));
}

QString armar_QR_AFIP(Context &ctx, const Matrix &comprobante)
{
    log_inicio(ctx, comprobante.at(kCompCae, 0));
    return json_de(ctx, comprobante);
}

QString codificar_base64(const QString &texto)
{
    // toLatin1 turns every character it can't hold into "?".
    return QString::fromLatin1(texto.toLatin1().toBase64());
}

QString url_QR_AFIP(Context &ctx, const QString &cae)
{
    return QLatin1String(kPaginaQrAfip) + codificar_base64(armar_QR_AFIP(ctx, cae));
}

} // namespace vendrix

#include "sales/recording/cae_recovery.h"

#include "afip/auth/afip_services.h"
#include "afip/invoice/pending_cae_store.h"
#include "afip/invoice/voucher_query.h"
#include "afip/transport/qt_http_client.h"
#include "core/context.h"
#include "core/numeric.h"
#include "sales/recording/document_numbers.h"
#include "sales/recording/document_store.h"
#include "sales/recording/recording_log.h"
#include "sales/recording/sale_json.h"

#include <cmath>

namespace vendrix {

namespace {

const QString kTitulo = QStringLiteral("Factura electrónica");

// "factura electrónica N° 0003-00000012", as the operator reads it.
QString comprobante(const CaePendiente &p)
{
    const bool credito = p.tipo == 3 || p.tipo == 8 || p.tipo == 13;
    return (credito ? QStringLiteral("nota de crédito electrónica N° ")
                    : QStringLiteral("factura electrónica N° ")) +
           QStringLiteral("%1-%2")
               .arg(p.punto_de_venta, 4, 10, QLatin1Char('0'))
               .arg(p.numero, 8, 10, QLatin1Char('0'));
}

class Conciliacion {
public:
    Conciliacion(Context &ctx, ServiciosAfip &servicios) : ctx_(ctx), servicios_(servicios) {}

    // True when the record was settled, one way or the other.
    bool resolver(const CaePendiente &p)
    {
        if (!p.cae.isEmpty())
            return guardar(p, p.cae, p.cae_vto);
        if (p.numero <= 0) {
            // The sale stopped before its request went out: nothing to tell.
            log_registro(ctx_, QStringLiteral("Se descarta el borrador de la venta ") + p.referencia +
                                   QStringLiteral(", que no llegó a enviarse a la AFIP"));
            return borrar_cae_pendiente(ctx_.db(), p.referencia);
        }
        const ComprobanteAfip afip = consultar_comprobante(servicios_, p.tipo, p.punto_de_venta, p.numero);
        if (!afip.respondio) {
            avisar(QStringLiteral("No se pudo consultar a la AFIP por la ") + comprobante(p) +
                       QStringLiteral("; Vendrix volverá a consultar antes de la próxima factura."),
                   QStringLiteral(" (") + afip.error + QLatin1Char(')'));
            return false;
        }
        if (!afip.encontrado)
            return descartar(p,
                             QStringLiteral("La ") + comprobante(p) +
                                 QStringLiteral(" no llegó a la AFIP: el número no se usó y la venta no se "
                                                "registró."));
        if (std::fabs(afip.total - valor_texto(p.total)) >= 0.005 ||
            (!p.fecha.isEmpty() && afip.fecha != p.fecha))
            return descartar(
                p, QStringLiteral("La ") + comprobante(p) +
                       QStringLiteral(" que figura en la AFIP es otro comprobante (importe %1, fecha "
                                      "%2): la venta no se registró.")
                           .arg(texto_numero(afip.total), afip.fecha));
        return guardar(p, afip.cae, afip.cae_vto);
    }

private:
    // Stores the sale from its draft with AFIP's authorization, as it
    // would have been stored at once, closing the record in the same
    // transaction.
    bool guardar(const CaePendiente &p, const QString &cae, const QString &cae_vto)
    {
        const QString autorizada = QStringLiteral("La ") + comprobante(p) +
                                   QStringLiteral(" fue autorizada por la AFIP (CAE ") + cae;
        std::optional<DocumentoVenta> doc = documento_desde_json(p.documento.toUtf8());
        if (!doc)
            return descartar(p, autorizada +
                                    QStringLiteral("), pero Vendrix no tenía los datos de la venta para "
                                                   "guardarla."));
        autorizar_documento(doc->cabecera, {cae, QString::number(p.numero), cae_vto});
        doc->cabecera.nro_ticket = proximo_nro_ticket(ctx_, doc->cabecera.letra, doc->cabecera.tipo);
        doc->cae_pendiente = p.referencia;
        if (guardar_documento(ctx_, *doc) == 0) {
            avisar(autorizada +
                       QStringLiteral("), pero no se pudo guardar; Vendrix volverá a intentarlo antes de "
                                      "la próxima factura."),
                   QStringLiteral(" Datos: ") + texto_documento(*doc));
            return false;
        }
        const QString texto =
            autorizada + QStringLiteral(") y no se había guardado: Vendrix la guardó ahora.");
        log_registro(ctx_, texto, QStringLiteral("A"));
        ctx_.op().inform(kTitulo, texto);
        return true;
    }

    bool descartar(const CaePendiente &p, const QString &texto)
    {
        if (!borrar_cae_pendiente(ctx_.db(), p.referencia))
            return false;
        log_registro(ctx_, texto, QStringLiteral("A"));
        ctx_.op().warn(kTitulo, texto);
        return true;
    }

    // An invoice left unsettled: the box, and the log with the cause.
    void avisar(const QString &texto, const QString &detalle)
    {
        log_registro(ctx_, texto + detalle, QStringLiteral("E"));
        ctx_.op().warn(kTitulo, texto);
    }

    Context &ctx_;
    ServiciosAfip &servicios_;
};

} // namespace

bool conciliar_cae_pendientes(Context &ctx, ServiciosAfip &servicios)
{
    Conciliacion conciliacion(ctx, servicios);
    bool todo = true;
    for (const CaePendiente &p : cae_pendientes(ctx))
        todo = conciliacion.resolver(p) && todo;
    return todo;
}

bool conciliar_cae_pendientes(Context &ctx)
{
    if (cae_pendientes(ctx).empty())
        return true;
    ClienteHttpQt http(ctx);
    ServiciosAfip servicios{ctx, http};
    return conciliar_cae_pendientes(ctx, servicios);
}

} // namespace vendrix

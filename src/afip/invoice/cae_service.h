#pragma once

#include "afip/auth/afip_services.h"
#include "afip/invoice/pending_cae.h"
#include "afip/invoice/voucher_query.h"
#include "afip/transport/http_client.h"

#include <QString>

#include <functional>
#include <memory>
#include <optional>

namespace vendrix {

class Context;

// What AFIP authorised for one request.
struct CaeAutorizado {
    QString cae;
    QString vencimiento; // yyyymmdd
};

// The invoices' way to WSFEv1, shared by the fiscal front's electronic
// device and the credit notes: the ticket, the addresses of the
// environment, the last number of a class, and the FECAESolicitar with the
// shop's record of requests in flight around it.
class ServicioCae {
public:
    using Consulta =
        std::function<ComprobanteAfip(ServiciosAfip &, int tipo, int punto_de_venta, qint64 numero)>;

    // Null parts take the program's: an HTTPS client over the context, the
    // record in the shop database, FECompConsultar.
    explicit ServicioCae(Context &ctx, std::unique_ptr<ClienteHttp> http = {},
                         std::unique_ptr<RegistroCaePendiente> registro = {}, Consulta consultar = {});
    ~ServicioCae();
    ServicioCae(const ServicioCae &) = delete;
    ServicioCae &operator=(const ServicioCae &) = delete;

    Context &ctx() { return ctx_; }
    ServiciosAfip &servicios() { return servicios_; }

    // A valid ticket for `wsfe`, obtained if needed; on failure logs
    // "<quien>: No existe un TRA valido para realizar el pedido de CAE. ".
    bool ticket(const QString &quien);

    // The WSFEv1 address of `operacion` for `IF_FE_Modo_Operacion`.
    QString url(const QString &operacion) const;

    // The last number AFIP authorised for the class at the shop's point of
    // sale, by `wsfe_cae_fact_request.xml`: 0 before the first. When AFIP
    // answers with an error, or doesn't answer, the operator is told, the
    // error is logged (`linea_error`) and there's no number.
    std::optional<qint64> ultimo_numero(int tipo, const QString &quien, const QString &linea_error);

    // Sends a filled FECAESolicitar. The record of requests in flight has it
    // before it goes and learns its outcome. Returns the CAE when AFIP
    // authorised it, none when the answer carries neither CAE nor message.
    // Throws FiscalError when the record can't be written (nothing sent),
    // when AFIP refuses it (after the box with AFIP's message), and when no
    // answer came and FECompConsultar doesn't show the voucher authorised
    // with the same total.
    std::optional<CaeAutorizado> solicitar(const SolicitudCae &solicitud, const QString &xml);

private:
    std::optional<CaeAutorizado> sin_respuesta(const SolicitudCae &solicitud);

    Context &ctx_;
    std::unique_ptr<ClienteHttp> http_;
    ServiciosAfip servicios_;
    std::unique_ptr<RegistroCaePendiente> registro_;
    Consulta consultar_;
};

// The request template `wsaa_cae.xml` of the program's folder, "" when it
// can't be read.
QString leer_plantilla_cae(Context &ctx);

} // namespace vendrix

// PROVISIONAL: stand-ins so this branch links until the record of requests
// in flight and the voucher query are merged. Delete this file then.
#include "afip/invoice/pending_cae.h"
#include "afip/invoice/voucher_query.h"

namespace vendrix {

namespace {

class RegistroProvisional final : public RegistroCaePendiente {
public:
    bool enviando(const SolicitudCae &) override { return true; }
    void autorizado(const QString &, const QString &, const QString &) override {}
    void descartado(const QString &) override {}
};

} // namespace

std::unique_ptr<RegistroCaePendiente> registro_cae_de_la_tienda(Context &)
{
    return std::make_unique<RegistroProvisional>();
}

ComprobanteAfip consultar_comprobante(ServiciosAfip &, int, int, qint64)
{
    ComprobanteAfip c;
    c.error = QStringLiteral("PROVISIONAL: sin consulta");
    return c;
}

} // namespace vendrix

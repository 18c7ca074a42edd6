#pragma once

#include "afip/invoice/cae_service.h"
#include "afip/invoice/invoice_request.h"
#include "fiscal/fiscal_device.h"

#include <memory>
#include <optional>

namespace vendrix {

// The fiscal device of the electronic invoice: no printer, one FECAESolicitar
// request to AFIP per document. `abrir` authenticates, asks for the class's
// last number and fills `wsaa_cae.xml` for the buyer; `agregar` adds to the
// totals; `cerrar` puts the amounts in, sends the request and reads the
// CAE, which the front then hands to the sale.
class AfipInvoiceDevice : public FiscalDevice {
public:
    explicit AfipInvoiceDevice(Context &ctx, std::unique_ptr<ServicioCae> servicio = {});

    // Nothing to connect, set up, probe or close: AFIP is reached per request.
    void conectar() override {}
    void configurar() override {}
    QString probar() override { return {}; }
    std::optional<std::pair<int, QString>> modelo() override { return std::nullopt; }
    void cierre_x() override {}
    void cierre_z() override {}
    void desconectar() override {}

    // `FE_open_CAE_request`. Never fails the front: a missing ticket or
    // number is told and logged, and the document then has nothing to send.
    void abrir(DocumentoFiscal &doc) override;
    void agregar(ItemFiscal &item) override;
    void cerrar(CierreFiscal &cierre) override;

    std::optional<CaeEmitido> cae_emitido() const override;
    QString solicitud() const override { return xml_; }

private:
    Context &ctx_;
    std::unique_ptr<ServicioCae> servicio_;

    // One document, cleared when it opens.
    QString xml_;
    QString referencia_;
    int tipo_ = 0;
    qint64 numero_ = 0; // 0: AFIP gave no number, nothing is sent
    QString fecha_;
    TotalesFactura totales_;
    std::optional<CaeAutorizado> cae_;
};

} // namespace vendrix

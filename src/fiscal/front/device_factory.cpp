#include "fiscal/front/device_factory.h"

#include "afip/invoice/afip_invoice_device.h"
#include "fiscal/hasar/hasar_device.h"

namespace vendrix {

std::unique_ptr<FiscalDevice> crear_dispositivo(FamiliaFiscal familia, Context &ctx)
{
    if (familia == FamiliaFiscal::Hasar)
        return std::make_unique<HasarDevice>(ctx);
    if (familia == FamiliaFiscal::Electronica)
        return std::make_unique<AfipInvoiceDevice>(ctx);
    return nullptr;
}

} // namespace vendrix

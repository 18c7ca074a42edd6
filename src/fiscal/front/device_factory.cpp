#include "fiscal/front/device_factory.h"

#include "fiscal/hasar/hasar_device.h"

namespace vendrix {

std::unique_ptr<FiscalDevice> crear_dispositivo(FamiliaFiscal familia, Context &ctx)
{
    if (familia == FamiliaFiscal::Hasar)
        return std::make_unique<HasarDevice>(ctx);
    return nullptr;
}

} // namespace vendrix

#include "fiscal/front/device_factory.h"

namespace vendrix {

std::unique_ptr<FiscalDevice> crear_dispositivo(FamiliaFiscal, Context &)
{
    return nullptr;
}

} // namespace vendrix

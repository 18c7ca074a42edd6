#pragma once

#include "fiscal/fiscal_device.h"

#include <memory>

namespace vendrix {

class Context;

// The driver of a family, over the shop's settings; none for the families
// that have no driver yet.
std::unique_ptr<FiscalDevice> crear_dispositivo(FamiliaFiscal familia, Context &ctx);

} // namespace vendrix

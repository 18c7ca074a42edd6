#pragma once

namespace vendrix {

class Context;
class FiscalFront;

// The buttons of the configuration tab and of the printer screen that talk
// to the printer; the screens only call these.

// `cmd_cierrex`: the shift's close, with its box of success or failure.
bool cierre_x(Context &ctx, FiscalFront &front);
// `cmd_cierrez`: the day's close.
bool cierre_z(Context &ctx, FiscalFront &front);

// `Command_reporte_Impresora`: the printer's reports. In electronic mode the
// cross-check against AFIP belongs here; it is not part of the program yet,
// so the button does nothing and answers false.
bool reporte_impresora(Context &ctx, FiscalFront &front);

// `cmd_test`: tries the connection and tells the operator how it went.
bool probar_impresora(Context &ctx, FiscalFront &front);

} // namespace vendrix

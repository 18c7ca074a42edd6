#pragma once

#include "fiscal/fiscal_device.h"
#include "fiscal/hasar/hasar_printer.h"

namespace vendrix {

class Context;

// The driver of the first-generation Hasar printers, spoken to over the
// serial port of the settings (`IF_Port`, `IF_velocidad`). It keeps no state
// of a document: what fails half way stays open in the printer.
class HasarDevice : public FiscalDevice {
public:
    explicit HasarDevice(Context &ctx, const HasarTiempos &tiempos = {});

    void conectar() override;
    void configurar() override;
    QString probar() override;
    std::optional<std::pair<int, QString>> modelo() override;

    void abrir(DocumentoFiscal &doc) override;
    void agregar(ItemFiscal &item) override;
    void cerrar(CierreFiscal &cierre) override;
    void cierre_x() override;
    void cierre_z() override;
    void desconectar() override;

private:
    // Port and speed from the settings.
    void leer_puerto();
    void asegurar_conexion();
    // Reads the model and logs it; a failure here is ignored (number 0).
    void registrar_modelo();

    Context &ctx_;
    hasar::HasarPrinter printer_;
};

} // namespace vendrix

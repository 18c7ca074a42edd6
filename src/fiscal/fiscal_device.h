#pragma once

#include <QString>

#include <optional>
#include <stdexcept>

namespace vendrix {

// The printer families the front knows. A model of the combo belongs to one
// of them; `SinCodigo` covers the models with no driver, which succeed and do
// nothing.
enum class FamiliaFiscal { SinCodigo, Hasar, Epson, EpsonT900, EpsonU220, Electronica };

// A failure of the device, as the front's shared handler shows and logs it:
// the number and description go into the box, the source and the step into
// the log line.
struct FiscalError : std::runtime_error {
    FiscalError(int numero_, QString descripcion_, QString fuente_ = {}, QString paso_ = {})
        : std::runtime_error(descripcion_.toStdString()), numero(numero_),
          descripcion(std::move(descripcion_)), fuente(std::move(fuente_)), paso(std::move(paso_))
    {
    }
    int numero;
    QString descripcion;
    QString fuente;
    QString paso;
};

// `IF_Open`'s arguments. The driver may rewrite them (an empty address
// becomes a blank, ...) and fills `tipo_factura` with the document code it
// used, which the front's log block shows.
struct DocumentoFiscal {
    QString letra;
    QString nombre;
    QString domicilio;
    QString tipo_doc;
    QString numero_doc;
    QString iva_comprador;
    QString iva_emisor;
    bool es_nota_de_credito = false;
    QString tipo_factura;
    // The sale's reference, which an electronic invoice's request in flight
    // is kept under until the sale is stored.
    QString referencia;
};

// `IF_Add_Element`'s arguments: quantity and price are decimal text with a
// point, the price with IVA; the rate in percent.
struct ItemFiscal {
    QString descripcion;
    QString cantidad;
    QString precio;
    QString iva_comprador;
    double tasa_iva = 0;
};

// `IF_Close`'s arguments; at most one of the two card amounts is non-zero.
struct CierreFiscal {
    QString letra;
    QString mensaje;
    QString letra2;
    bool es_nota_de_credito = false;
    double pago_credito = 0;
    double pago_debito = 0;
};

// What AFIP authorised for an electronic document: its CAE, the number it
// went under and the CAE's expiry (yyyymmdd).
struct CaeEmitido {
    QString cae;
    QString numero;
    QString vencimiento;
};

// One printer family's driver. Each operation throws FiscalError on a
// failure; the front catches it, shows it and answers False. A driver reads
// its port and speed from the settings when it connects.
class FiscalDevice {
public:
    virtual ~FiscalDevice() = default;

    // Prepares the device for a document.
    virtual void conectar() = 0;
    // The same set-up at start and after the settings change; a driver
    // ignores the errors the front must not show.
    virtual void configurar() = 0;
    // Opens the connection, reads the device's status and closes it again;
    // gives the status as the log line shows it.
    virtual QString probar() = 0;
    // The model the device reports: its number and its name.
    virtual std::optional<std::pair<int, QString>> modelo() = 0;

    virtual void abrir(DocumentoFiscal &doc) = 0;
    virtual void agregar(ItemFiscal &item) = 0;
    virtual void cerrar(CierreFiscal &cierre) = 0;
    virtual void cierre_x() = 0;
    virtual void cierre_z() = 0;
    virtual void desconectar() = 0;

    // An electronic device's authorisation of the document `cerrar` just
    // sent; printers have none.
    virtual std::optional<CaeEmitido> cae_emitido() const { return std::nullopt; }
    // The request of the document in hand, which the front's error block
    // shows; printers have none.
    virtual QString solicitud() const { return {}; }
};

} // namespace vendrix

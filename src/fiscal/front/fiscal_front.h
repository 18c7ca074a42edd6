#pragma once

#include "fiscal/fiscal_device.h"
#include "fiscal/front/device_factory.h"

#include <QString>

#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <utility>
#include <vector>

namespace vendrix {

class Context;

// The one door of every fiscal document: a sale calls `IF_Conectar`,
// `IF_Open`, `IF_Add_Element` once a line, `IF_Close`, `IF_Obtener_CAE` in
// electronic mode, and `IF_Desconectar`. Each operation reads `IF_Modelo`
// afresh and hands the work to the driver of that model's family; a model
// with no driver (or a family whose driver doesn't exist yet) succeeds and
// does nothing, and the sale numbers its documents itself.
//
// Every operation but `IF_Configurar` shows the printer as busy while it
// runs and as on when it ends, whatever the result. A driver's failure
// lands in one handler: a box with the operation's text, an error line and
// a block of the values in hand in the log, and False.
//
// The front keeps one driver per family for its life, so the printer
// connection stays open between calls.
class FiscalFront {
public:
    using DeviceFactory = std::function<std::unique_ptr<FiscalDevice>(FamiliaFiscal, Context &)>;

    explicit FiscalFront(Context &ctx, DeviceFactory factory = crear_dispositivo);
    ~FiscalFront();
    FiscalFront(const FiscalFront &) = delete;
    FiscalFront &operator=(const FiscalFront &) = delete;

    // Tries the connection with the current settings and closes it again.
    bool IF_Test();
    bool IF_Conectar();
    // The driver may rewrite the arguments.
    bool IF_Open(DocumentoFiscal &doc);
    bool IF_Add_Element(ItemFiscal &item);
    bool IF_Close(CierreFiscal &cierre);
    // Copies out the authorisation received; False, arguments untouched,
    // when none is held.
    bool IF_Obtener_CAE(QString &cae, QString &nro_comprobante, QString &cae_vto);
    // True even when the printer could not be released.
    bool IF_Desconectar();
    bool IF_CierreX();
    bool IF_CierreZ();
    // Hands the port and speed of the settings to the driver; shows nothing.
    bool IF_Configurar();
    bool IF_Generar_Reportes_Fiscales();

    // The model the device of the current family reports (number and name),
    // none without a device or when it can't tell.
    std::optional<std::pair<int, QString>> modelo_dispositivo();

    // "Si"/"No": kept for the Epson library models only.
    const QString &conectado() const { return conectado_; }
    const QString &ticket_abierto() const { return ticket_abierto_; }

    // What the electronic invoice hands back once AFIP authorised a
    // document, and the request it sent, which the error block shows.
    void recibir_cae(const QString &cae, const QString &nro_comprobante, const QString &cae_vto);
    void set_solicitud(const QString &xml) { solicitud_ = xml; }

    // What `IF_Test` runs in electronic mode instead of touching a device:
    // the AFIP connection report, set by the front's owner.
    void set_prueba_electronica(std::function<bool()> prueba) { prueba_electronica_ = std::move(prueba); }

private:
    // The operation's code in the error line and the text of its box.
    struct Falla {
        const char *codigo;
        const char *texto;
    };
    using Valores = std::vector<std::pair<const char *, QString>>;

    // Runs `cuerpo` under the busy indicator; a driver's failure goes to the
    // handler with the extra values of `extras`.
    bool correr(const Falla &falla, const std::function<bool()> &cuerpo,
                const std::function<Valores()> &extras = {});
    void manejar_error(const Falla &falla, int numero, const QString &descripcion, const QString &fuente,
                       const QString &paso, const Valores &extras);
    FamiliaFiscal familia() const;
    // The driver of a family, made on first use; null for the models with
    // no code and the families with no driver.
    FiscalDevice *dispositivo(FamiliaFiscal familia);
    bool cierre(const Falla &falla, void (FiscalDevice::*operacion)());

    Context &ctx_;
    DeviceFactory factory_;
    std::map<FamiliaFiscal, std::unique_ptr<FiscalDevice>> dispositivos_;
    QString conectado_ = QStringLiteral("No");
    QString ticket_abierto_ = QStringLiteral("No");
    QString cae_;
    QString nro_comprobante_;
    QString cae_vto_;
    QString solicitud_;
    std::function<bool()> prueba_electronica_;
};

} // namespace vendrix

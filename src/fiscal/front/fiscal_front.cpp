#include "fiscal/front/fiscal_front.h"

#include "core/context.h"
#include "fiscal/front/fiscal_models.h"

#include <exception>

namespace vendrix {

namespace {

const QString kSi = QStringLiteral("Si");
const QString kNo = QStringLiteral("No");

// Busy while an operation runs, on again when it ends on any path: the
// indicator shows state, it doesn't stop a second caller.
class Guardia {
public:
    explicit Guardia(StatusSink &estado) : estado_(estado)
    {
        estado_.actualizar_indicador(QStringLiteral("impresora_ocupada"));
    }
    ~Guardia() { estado_.actualizar_indicador(QStringLiteral("impresora_on")); }
    Guardia(const Guardia &) = delete;
    Guardia &operator=(const Guardia &) = delete;

private:
    StatusSink &estado_;
};

QString si_no(bool valor)
{
    return valor ? QStringLiteral("Verdadero") : QStringLiteral("Falso");
}

} // namespace

FiscalFront::FiscalFront(Context &ctx, DeviceFactory factory) : ctx_(ctx), factory_(std::move(factory))
{
}

FiscalFront::~FiscalFront() = default;

FamiliaFiscal FiscalFront::familia() const
{
    return familia_de_modelo(ctx_.leer_parametro(QStringLiteral("IF_Modelo")));
}

FiscalDevice *FiscalFront::dispositivo(FamiliaFiscal familia)
{
    if (familia == FamiliaFiscal::SinCodigo || !factory_)
        return nullptr;
    auto it = dispositivos_.find(familia);
    if (it == dispositivos_.end())
        it = dispositivos_.emplace(familia, factory_(familia, ctx_)).first;
    return it->second.get();
}

bool FiscalFront::correr(const Falla &falla, const std::function<bool()> &cuerpo,
                         const std::function<Valores()> &extras)
{
    const Guardia guardia(ctx_.estado());
    try {
        return cuerpo();
    } catch (const FiscalError &e) {
        manejar_error(falla, e.numero, e.descripcion, e.fuente, e.paso, extras ? extras() : Valores{});
    } catch (const std::exception &e) {
        manejar_error(falla, 0, QString::fromLocal8Bit(e.what()), {}, {}, extras ? extras() : Valores{});
    }
    return false;
}

void FiscalFront::manejar_error(const Falla &falla, int numero, const QString &descripcion,
                                const QString &fuente, const QString &paso, const Valores &extras)
{
    const QString numero_texto = QString::number(numero);
    ctx_.op().error(QStringLiteral("Error en la conexión con la Impresora Fiscal"),
                    QString::fromUtf8(falla.texto) + QStringLiteral("\r\n") + numero_texto +
                        QStringLiteral(" - ") + descripcion);

    QStringList partes{numero_texto, fuente, descripcion, paso};
    partes.removeAll(QString());
    ctx_.escribir_log(QString::fromLatin1(falla.codigo) + QStringLiteral(" - ") +
                          partes.join(QLatin1Char(' ')),
                      QStringLiteral("E"));

    const QString modelo = ctx_.leer_parametro(QStringLiteral("IF_Modelo"));
    const QString puerto = ctx_.leer_parametro(QStringLiteral("IF_Port"));
    const QString velocidad = ctx_.leer_parametro(QStringLiteral("IF_velocidad"));
    const FamiliaFiscal fam = familia_de_modelo(modelo);
    // The maker's library describes its own error numbers; its driver puts
    // that text in the error it throws.
    if (es_epson_dll(fam))
        ctx_.escribir_log(modelo + QStringLiteral(" - Descripción del error de la impresora en el puerto '") +
                              puerto + QStringLiteral("' con velocidad '") + velocidad +
                              QStringLiteral("': ") + descripcion,
                          QStringLiteral("E"));

    Valores bloque{
        {"    Modelo Impresora   : ", modelo},          {"    Puerta             : ", puerto},
        {"    Velocidad          : ", velocidad},       {"    Conectado          : ", conectado_},
        {"    Ticket abierto     : ", ticket_abierto_}, {"    Codigo de error    : ", numero_texto},
        {"    Mensaje de error   : ", descripcion}};
    bloque.insert(bloque.end(), extras.begin(), extras.end());
    for (const auto &[etiqueta, valor] : bloque)
        ctx_.escribir_log(QString::fromUtf8(etiqueta) + valor, QStringLiteral("P"));

    // A library printer left half way would refuse the next connection.
    if (es_epson_dll(fam)) {
        if (FiscalDevice *dev = dispositivo(fam)) {
            try {
                dev->desconectar();
            } catch (const std::exception &) {
                // Nothing more to do: the connection is counted as closed.
            }
        }
        conectado_ = kNo;
    }
}

bool FiscalFront::IF_Test()
{
    static constexpr Falla falla{"ERR TEST001",
                                 "ERR TEST001: Se produjo un error de conexión. Intente nuevamente. "};
    return correr(falla, [this] {
        const FamiliaFiscal fam = familia();
        if (fam == FamiliaFiscal::Electronica && prueba_electronica_)
            return prueba_electronica_();
        FiscalDevice *dev = dispositivo(fam);
        if (!dev)
            return true;
        const QString resultado = dev->probar();
        if (es_epson_dll(fam))
            conectado_ = kNo;
        if (fam != FamiliaFiscal::Electronica)
            ctx_.escribir_log(
                QStringLiteral("Conexión con la impresora '") +
                    ctx_.leer_parametro(QStringLiteral("IF_Modelo")) + QStringLiteral("' en el puerto '") +
                    ctx_.leer_parametro(QStringLiteral("IF_Port")) + QStringLiteral("' con velocidad '") +
                    ctx_.leer_parametro(QStringLiteral("IF_velocidad")) +
                    QStringLiteral("' dio resultado = '") + resultado + QStringLiteral("'"),
                QStringLiteral("P"));
        return true;
    });
}

bool FiscalFront::IF_Conectar()
{
    static constexpr Falla falla{"ERR CONN001",
                                 "ERR CONN001: Se produjo un error de conexión. Intente nuevamente."};
    // A new document starts from nothing: no ticket, no authorisation, no
    // request of the last one.
    ticket_abierto_ = kNo;
    cae_.clear();
    nro_comprobante_.clear();
    cae_vto_.clear();
    solicitud_.clear();
    return correr(falla, [this] {
        const FamiliaFiscal fam = familia();
        FiscalDevice *dev = dispositivo(fam);
        if (!dev)
            return true;
        dev->conectar();
        if (es_epson_dll(fam))
            conectado_ = kSi;
        return true;
    });
}

bool FiscalFront::IF_Open(DocumentoFiscal &doc)
{
    static constexpr Falla falla{"ERR OPE001",
                                 "ERR OPE001: Se produjo un error de conexión. Intente nuevamente."};
    return correr(
        falla,
        [this, &doc] {
            const FamiliaFiscal fam = familia();
            FiscalDevice *dev = dispositivo(fam);
            if (!dev)
                return true;
            dev->abrir(doc);
            if (es_epson_dll(fam))
                ticket_abierto_ = kSi;
            return true;
        },
        [&doc] {
            return Valores{{"    Tipo factura a usar: ", doc.tipo_factura},
                           {"    Letra factura      : ", doc.letra},
                           {"    Nota de Credito    : ", si_no(doc.es_nota_de_credito)},
                           {"    CUIT               : ", doc.numero_doc},
                           {"    Nombre comprador   : ", doc.nombre},
                           {"    Direccion 1        : ", doc.domicilio},
                           {"    Direccion 2        : ", QString()}};
        });
}

bool FiscalFront::IF_Add_Element(ItemFiscal &item)
{
    static constexpr Falla falla{"ERR ADD001", "ERR ADD001: Se produjo un error. Intente nuevamente."};
    return correr(
        falla,
        [this, &item] {
            FiscalDevice *dev = dispositivo(familia());
            if (dev)
                dev->agregar(item);
            return true;
        },
        [&item] {
            return Valores{
                {"    Descripcion        : ", item.descripcion},
                {"    Cantidad           : ", item.cantidad},
                {"    Precio             : ", item.precio.isEmpty() ? QStringLiteral("0") : item.precio},
                {"    IVA comprador      : ", item.iva_comprador},
                {"    Tasa IVA           : ", QString::number(item.tasa_iva)}};
        });
}

bool FiscalFront::IF_Close(CierreFiscal &cierre)
{
    static constexpr Falla falla{"ERR CLO001",
                                 "ERR CLO001: Se produjo un error de conexión. Intente nuevamente."};
    return correr(
        falla,
        [this, &cierre] {
            const FamiliaFiscal fam = familia();
            FiscalDevice *dev = dispositivo(fam);
            if (!dev)
                return true;
            // An electronic device's request goes into the error block
            // whether the close failed or not.
            const auto tomar_solicitud = [this, dev] {
                if (QString xml = dev->solicitud(); !xml.isEmpty())
                    solicitud_ = std::move(xml);
            };
            try {
                dev->cerrar(cierre);
            } catch (...) {
                tomar_solicitud();
                throw;
            }
            tomar_solicitud();
            if (const std::optional<CaeEmitido> cae = dev->cae_emitido())
                recibir_cae(cae->cae, cae->numero, cae->vencimiento);
            if (es_epson_dll(fam))
                ticket_abierto_ = kNo;
            return true;
        },
        [this, &cierre] {
            Valores valores{{"    id Modificador     : ", cierre.letra2},
                            {"    pago T. Credito    : ", QString::number(cierre.pago_credito)},
                            {"    pago T. Debito     : ", QString::number(cierre.pago_debito)}};
            if (!solicitud_.isEmpty())
                valores.emplace_back("    XML     : ", solicitud_);
            return valores;
        });
}

bool FiscalFront::IF_Obtener_CAE(QString &cae, QString &nro_comprobante, QString &cae_vto)
{
    const Guardia guardia(ctx_.estado());
    if (cae_.isEmpty())
        return false;
    cae = cae_;
    nro_comprobante = nro_comprobante_;
    cae_vto = cae_vto_;
    return true;
}

void FiscalFront::recibir_cae(const QString &cae, const QString &nro_comprobante, const QString &cae_vto)
{
    cae_ = cae;
    nro_comprobante_ = nro_comprobante;
    cae_vto_ = cae_vto;
}

bool FiscalFront::IF_Desconectar()
{
    const Guardia guardia(ctx_.estado());
    conectado_ = kNo;
    const FamiliaFiscal fam = familia();
    FiscalDevice *dev = es_epson_dll(fam) ? dispositivo(fam) : nullptr;
    if (!dev)
        return true;
    ctx_.escribir_log(QStringLiteral("Procedo a desconectar la impresora fiscal"), QStringLiteral("P"));
    try {
        dev->desconectar();
        ctx_.escribir_log(QStringLiteral("Vendrix se desconecto de la impresora fiscal correctamente"),
                          QStringLiteral("P"));
    } catch (const std::exception &) {
        ctx_.escribir_log(
            QStringLiteral("Vendrix no pudo desconectarse de la impresora fiscal correctamente"),
            QStringLiteral("E"));
    }
    // The sale has nothing to do about a printer that stays connected.
    return true;
}

bool FiscalFront::cierre(const Falla &falla, void (FiscalDevice::*operacion)())
{
    return correr(falla, [this, operacion] {
        const FamiliaFiscal fam = familia();
        // AFIP has no daily close.
        if (fam == FamiliaFiscal::Electronica)
            return true;
        FiscalDevice *dev = dispositivo(fam);
        if (!dev)
            return true;
        if (es_epson_dll(fam) && conectado_ != kSi && !IF_Conectar())
            return false;
        (dev->*operacion)();
        return true;
    });
}

bool FiscalFront::IF_CierreX()
{
    static constexpr Falla falla{"ERR CLO00X",
                                 "ERR CLO00X: Se produjo un error de conexión. Intente nuevamente."};
    return cierre(falla, &FiscalDevice::cierre_x);
}

bool FiscalFront::IF_CierreZ()
{
    static constexpr Falla falla{"ERR CLO00Z",
                                 "ERR CLO00Z: Se produjo un error de conexión. Intente nuevamente."};
    return cierre(falla, &FiscalDevice::cierre_z);
}

bool FiscalFront::IF_Configurar()
{
    // A model with no driver has nothing to set up.
    FiscalDevice *dev = dispositivo(familia());
    if (!dev)
        return true;
    try {
        dev->configurar();
    } catch (const FiscalError &e) {
        ctx_.escribir_log(
            QStringLiteral("FACTURA - No se pudieron modificar los parámetros del controlador: ") +
                QString::number(e.numero) + QStringLiteral(" - ") + e.descripcion,
            QStringLiteral("E"));
        return false;
    }
    ctx_.escribir_log(QStringLiteral("FACTURA - Parámetros del controlador modificados"),
                      QStringLiteral("A"));
    return true;
}

bool FiscalFront::IF_Generar_Reportes_Fiscales()
{
    // The box names this operation; the log line keeps the code of the
    // ticket's close, as the shops' support staff know it.
    static constexpr Falla falla{"ERR CLO001",
                                 "ERR REPO01: Se produjo un error de conexión. Intente nuevamente."};
    return correr(falla, [this] {
        const QString modelo = ctx_.leer_parametro(QStringLiteral("IF_Modelo"));
        const FamiliaFiscal fam = familia_de_modelo(modelo);
        Operator &op = ctx_.op();
        switch (fam) {
        case FamiliaFiscal::Epson:
        case FamiliaFiscal::Hasar:
            op.inform(
                QStringLiteral("No hay reportes para descargar"),
                QStringLiteral("Las impresoras Fiscales de primera generación no disponen de reportes para "
                               "descargar"));
            ctx_.escribir_log(
                QStringLiteral(
                    "Se intento generar un reporte con una impresora fiscal de primera generación: ") +
                    modelo,
                QStringLiteral("E"));
            break;
        case FamiliaFiscal::Electronica:
            op.inform(QStringLiteral("No hay reportes para descargar"),
                      QStringLiteral("Los reportes están disponibles en el sitio de AFIP"));
            break;
        case FamiliaFiscal::EpsonU220:
            op.inform(QStringLiteral("Reportes no disponibles"),
                      QStringLiteral("Vendrix no dispone al momento los reportes de la impresora Epson "
                                     "TM-U220AFII."));
            break;
        case FamiliaFiscal::EpsonT900:
            // The download of the pending period is the library's; its driver
            // brings it. Until then only the connection is made.
            if (FiscalDevice *dev = dispositivo(fam); dev && conectado_ != kSi) {
                dev->conectar();
                conectado_ = kSi;
            }
            break;
        case FamiliaFiscal::SinCodigo:
            break;
        }
        return true;
    });
}

std::optional<std::pair<int, QString>> FiscalFront::modelo_dispositivo()
{
    FiscalDevice *dev = dispositivo(familia());
    if (!dev)
        return std::nullopt;
    try {
        return dev->modelo();
    } catch (const std::exception &) {
        return std::nullopt;
    }
}

} // namespace vendrix

#include "fiscal/hasar/hasar_device.h"

#include "core/context.h"
#include "fiscal/hasar/hasar_models.h"
#include "fiscal/hasar/hasar_text.h"
#include "fiscal/port/serial_port_names.h"

#include <QRegularExpression>

namespace vendrix {

namespace {

// Character codes the printer takes for the buyer's document and IVA.
constexpr int kDocCuit = 'C';
constexpr int kDocDni = '2';
constexpr int kDocNinguno = ' ';
constexpr int kIvaInscripto = 'I';
constexpr int kIvaConsumidor = 'C';
constexpr int kFacturaA = '0';
constexpr int kFacturaOtra = '1';
constexpr int kCreditoA = 'R';
constexpr int kCreditoOtra = 'S';

constexpr int kLargoNombre = 20;
constexpr int kLargoDescripcion = 100;

// The number at the start of a text, as the old numeric conversion read it:
// "2.5" is 2.5, "3 kg" is 3, "" and "abc" are 0.
double valor(const QString &texto)
{
    static const QRegularExpression numero(QStringLiteral("^\\s*[-+]?(\\d+\\.?\\d*|\\.\\d+)"));
    const QRegularExpressionMatch m = numero.match(texto);
    return m.hasMatch() ? m.captured(0).trimmed().toDouble() : 0.0;
}

} // namespace

HasarDevice::HasarDevice(Context &ctx, const HasarTiempos &tiempos) : ctx_(ctx), printer_(tiempos)
{
}

void HasarDevice::leer_puerto()
{
    // "COMn" names the platform's port n by its last character; anything
    // else is a device name or path of its own.
    static const QRegularExpression com(QStringLiteral("^COM\\d+$"),
                                        QRegularExpression::CaseInsensitiveOption);
    const QString puerto = ctx_.leer_parametro(QStringLiteral("IF_Port")).trimmed();
    printer_.puerto(com.match(puerto).hasMatch() ? ruta_puerto(QStringLiteral("COM") + puerto.right(1))
                                                 : ruta_puerto(puerto));
    printer_.velocidad(static_cast<int>(valor(ctx_.leer_parametro(QStringLiteral("IF_velocidad")))));
}

void HasarDevice::asegurar_conexion()
{
    if (!printer_.abierto()) {
        leer_puerto();
        printer_.iniciar();
    }
}

void HasarDevice::registrar_modelo()
{
    int numero = 0;
    try {
        // A port that didn't open is not tried again just for the model.
        if (printer_.abierto())
            numero = printer_.modelo();
    } catch (const FiscalError &) {
    }
    ctx_.escribir_log(QStringLiteral("IMP HASAR001 - Se detecto la impresora Hasar modelo: %1").arg(numero),
                      QStringLiteral("P"));
}

void HasarDevice::conectar()
{
    leer_puerto();
    printer_.iniciar();
    printer_.preparar();
    printer_.modo_reintento(false);
    printer_.comenzar();
    registrar_modelo();
}

void HasarDevice::configurar()
{
    leer_puerto();
    try {
        printer_.iniciar();
        printer_.preparar_config();
        printer_.modo_reintento(false);
        printer_.comenzar();
    } catch (const FiscalError &) {
    }
    registrar_modelo();
}

QString HasarDevice::probar()
{
    leer_puerto();
    printer_.iniciar();
    const int estado = printer_.estado();
    printer_.cerrar();
    return QString::number(estado);
}

std::optional<std::pair<int, QString>> HasarDevice::modelo()
{
    asegurar_conexion();
    const int numero = printer_.modelo();
    return std::make_pair(numero, hasar::nombre_modelo(numero));
}

void HasarDevice::abrir(DocumentoFiscal &doc)
{
    asegurar_conexion();
    int tipo = doc.tipo_doc == QLatin1String("CUIT") ? kDocCuit : kDocDni;
    // The sale hands a final consumer who gave no document as number "0".
    const QString sin_guiones = QString(doc.numero_doc).remove(QLatin1Char('-')).trimmed();
    const bool sin_numero =
        sin_guiones.isEmpty() || sin_guiones.count(QLatin1Char('0')) == sin_guiones.size();
    const bool faltan_datos = doc.tipo_doc.isEmpty() || sin_numero;
    if (doc.domicilio.isEmpty())
        doc.domicilio = QStringLiteral(" ");
    if (doc.numero_doc.isEmpty())
        doc.numero_doc = QStringLiteral("00000000000");
    doc.numero_doc.remove(QLatin1Char('-'));
    if (doc.iva_comprador.isEmpty())
        doc.iva_comprador = QStringLiteral("I");
    if (doc.iva_emisor.isEmpty())
        doc.iva_emisor = QStringLiteral("I");
    // A final consumer who gave nothing: no document at all.
    if (doc.iva_comprador == QLatin1String("F") && faltan_datos) {
        tipo = kDocNinguno;
        doc.numero_doc = QStringLiteral("00000000");
    }
    printer_.datos_cliente(hasar::filtrar_texto(doc.nombre, kLargoNombre), doc.numero_doc, tipo,
                           doc.iva_emisor == QLatin1String("I") ? kIvaInscripto : kIvaConsumidor,
                           doc.domicilio);

    const bool letra_a = doc.letra == QLatin1String("A");
    const int codigo =
        doc.es_nota_de_credito ? (letra_a ? kCreditoA : kCreditoOtra) : (letra_a ? kFacturaA : kFacturaOtra);
    doc.tipo_factura = QString::number(codigo);
    printer_.abrir_comprobante(codigo);

    // The shop's identification, with the line ends the settings store as "|".
    const QString id_fiscal =
        ctx_.leer_parametro(QStringLiteral("IF_IDFiscal")).replace(QLatin1Char('|'), QStringLiteral("\r\n"));
    if (!id_fiscal.isEmpty())
        printer_.texto_fiscal(id_fiscal);
}

void HasarDevice::agregar(ItemFiscal &item)
{
    asegurar_conexion();
    if (item.descripcion.isEmpty())
        item.descripcion = QStringLiteral(" ");
    item.descripcion = hasar::filtrar_texto(item.descripcion, kLargoDescripcion);
    if (item.precio.isEmpty())
        item.precio = QStringLiteral("0");
    printer_.imprimir_item(item.descripcion, valor(item.cantidad), valor(item.precio), item.tasa_iva, 0.0);
}

void HasarDevice::cerrar(CierreFiscal &)
{
    // The closing text and the card payments stay with the program: the
    // printer prints its own trailer.
    asegurar_conexion();
    printer_.cerrar_comprobante();
}

void HasarDevice::cierre_x()
{
    asegurar_conexion();
    printer_.reporte_x();
}

void HasarDevice::cierre_z()
{
    asegurar_conexion();
    printer_.reporte_z();
}

void HasarDevice::desconectar()
{
    printer_.cerrar();
}

} // namespace vendrix

#include "fiscal/hasar/hasar_printer.h"

#include "fiscal/hasar/hasar_errors.h"
#include "fiscal/hasar/hasar_models.h"
#include "fiscal/hasar/hasar_text.h"
#include "fiscal/port/byte_channel.h"

#include <QRandomGenerator>
#include <QRegularExpression>

namespace vendrix::hasar {

namespace {

// Command codes.
const QByteArray kEstado("\x2a");
const QByteArray kDatosCliente("\x62");
const QByteArray kAbrirFiscal("\x40");
const QByteArray kTextoFiscal("\x41");
const QByteArray kItem("\x42");
const QByteArray kCerrarFiscal("\x45");
const QByteArray kCierreDiario("\x39");
const QByteArray kComprobanteOriginal("\x93");
const QByteArray kVersion("\x1b\x7f");
const QByteArray kAbrirNotaCredito("\x1b\x80");
const QByteArray kCerrarNotaCredito("\x1b\x81");

// Field sizes of the commands.
constexpr int kLargoNombre = 30;
constexpr int kLargoDomicilio = 40;
constexpr int kLargoTexto = 30;
constexpr int kLargoDescripcion = 20;

// The number of the original document a credit note must name; the sale
// doesn't give it, so the note carries a blank one.
const QByteArray kSinComprobanteOriginal("0000-00000000");

quint16 palabra(const Frame &f, int campo, const QString &paso)
{
    bool ok = false;
    const uint value = f.campos.value(campo).toUInt(&ok, 16);
    if (!ok || f.campos.value(campo).size() != 4)
        throw error_hasar(kEstadoIlegible, paso);
    return static_cast<quint16>(value);
}

QByteArray corto(const QString &texto, int largo)
{
    return a_bytes(texto.left(largo));
}

} // namespace

HasarPrinter::HasarPrinter(const HasarTiempos &tiempos) : tiempos_(tiempos)
{
}

HasarPrinter::~HasarPrinter() = default;

void HasarPrinter::iniciar()
{
    cerrar();
    const QString paso = QStringLiteral("iniciar");
    if (ruta_.isEmpty())
        throw error_hasar(kSinPuerto, paso);
    if (velocidad_ <= 0)
        throw error_hasar(kVelocidadInvalida, paso, QString::number(velocidad_));
    QString por_que;
    std::unique_ptr<SerialChannel> channel = SerialChannel::abrir(ruta_, velocidad_, por_que);
    if (!channel)
        throw error_hasar(kPuertoNoAbre, paso, ruta_ + QStringLiteral(" (") + por_que + QLatin1Char(')'));
    channel_ = std::move(channel);
    // A random start: a program that opens the port again must not repeat
    // the number of the printer's last command, or it would get that
    // command's stored answer instead of running its own.
    const auto sn = static_cast<unsigned char>(kPrimerSN + 2 * QRandomGenerator::global()->bounded(48));
    link_ = std::make_unique<HasarLink>(*channel_, tiempos_, sn);
    try {
        link_->enviar(kEstado, {}, paso, true);
    } catch (...) {
        cerrar();
        throw;
    }
}

void HasarPrinter::cerrar()
{
    link_.reset();
    channel_.reset();
    modelo_ = -1;
}

void HasarPrinter::preparar()
{
    if (channel_)
        channel_->descartar_entrada();
}

Frame HasarPrinter::comando(const QByteArray &codigo, const QList<QByteArray> &campos, const QString &paso,
                            bool inicia_documento)
{
    if (!link_)
        iniciar();
    for (int envio = 0;; ++envio) {
        const Frame respuesta = link_->enviar(codigo, campos, paso);
        const int error =
            error_de_estado(palabra(respuesta, 0, paso), palabra(respuesta, 1, paso), inicia_documento);
        if (error == kBaseImpresora + 6 && reintentar_ && envio < tiempos_.reintentos)
            continue;
        if (error != 0)
            throw error_hasar(error, paso);
        return respuesta;
    }
}

Frame HasarPrinter::estado_completo(const QString &paso)
{
    if (!link_)
        iniciar();
    const Frame respuesta = link_->enviar(kEstado, {}, paso);
    palabra(respuesta, 0, paso);
    palabra(respuesta, 1, paso);
    return respuesta;
}

void HasarPrinter::comenzar()
{
    comando(kEstado, {}, QStringLiteral("comenzar"));
}

int HasarPrinter::modelo()
{
    if (modelo_ >= 0)
        return modelo_;
    const QString paso = QStringLiteral("modelo");
    if (!link_)
        iniciar();
    const Frame respuesta = link_->enviar(kVersion, {}, paso);
    if (palabra(respuesta, 1, paso) & kFiscalComandoDesconocido) {
        modelo_ = 0;
    } else {
        if (const int error = error_de_estado(palabra(respuesta, 0, paso), palabra(respuesta, 1, paso)))
            throw error_hasar(error, paso);
        modelo_ = modelo_de_version(respuesta.campos.value(2));
    }
    return modelo_;
}

int HasarPrinter::estado()
{
    return palabra(estado_completo(QStringLiteral("estado")), 1, QStringLiteral("estado"));
}

void HasarPrinter::datos_cliente(const QString &nombre, const QString &numero_doc, int tipo_doc, int iva,
                                 const QString &domicilio)
{
    const QString paso = QStringLiteral("datos_cliente");
    QList<QByteArray> campos{corto(nombre, kLargoNombre), a_bytes(numero_doc), QByteArray(1, char(iva)),
                             QByteArray(1, char(tipo_doc))};
    // The older models keep the buyer's address in the header lines instead.
    if (es_segunda_serie(modelo()))
        campos << corto(domicilio, kLargoDomicilio);
    comando(kDatosCliente, campos, paso, true);
}

void HasarPrinter::abrir_comprobante(int codigo)
{
    const QString paso = QStringLiteral("abrir_comprobante");
    switch (codigo) {
    case '0':
        comando(kAbrirFiscal, {"A", "T"}, paso, true);
        return;
    case '1':
        comando(kAbrirFiscal, {"B", "T"}, paso, true);
        return;
    case 'R':
    case 'S':
        if (!es_segunda_serie(modelo()))
            throw error_hasar(kSinNotaDeCredito, paso);
        comando(kComprobanteOriginal, {"1", kSinComprobanteOriginal}, paso, true);
        comando(kAbrirNotaCredito, {QByteArray(1, char(codigo)), "S", "0"}, paso, true);
        return;
    default:
        throw error_hasar(kBaseFiscal + 4, paso);
    }
}

void HasarPrinter::texto_fiscal(const QString &texto)
{
    static const QRegularExpression fin_de_linea(QStringLiteral("\r\n|\r|\n"));
    // In a ticket-factura the P-615F takes three fiscal texts in a row, the
    // others four; the older models can't be told apart, so three for them.
    const int modelo_actual = modelo();
    const int maximo = modelo_actual == 0 || nombre_modelo(modelo_actual) == QLatin1String("P-615F") ? 3 : 4;
    const QStringList lineas = texto.split(fin_de_linea, Qt::SkipEmptyParts);
    for (int i = 0; i < lineas.size() && i < maximo; ++i)
        comando(kTextoFiscal, {corto(lineas.at(i), kLargoTexto), "0"}, QStringLiteral("texto_fiscal"));
}

void HasarPrinter::imprimir_item(const QString &descripcion, double cantidad_, double precio, double tasa_iva,
                                 double impuestos_internos)
{
    // A negative line (a discount) is an amount to subtract.
    const bool resta = cantidad_ * precio < 0;
    comando(kItem,
            {corto(descripcion, kLargoDescripcion), cantidad(std::abs(cantidad_)), monto(std::abs(precio)),
             monto(tasa_iva), resta ? "m" : "M", QByteArray::number(impuestos_internos, 'f', 8), "0", "T"},
            QStringLiteral("imprimir_item"));
}

void HasarPrinter::cerrar_comprobante()
{
    const QString paso = QStringLiteral("cerrar_comprobante");
    // The document status tells a credit note (40, 41, 42) from the rest.
    const QByteArray documento = estado_completo(paso).campos.value(5);
    const bool nota_de_credito =
        documento.startsWith("40") || documento.startsWith("41") || documento.startsWith("42");
    comando(nota_de_credito ? kCerrarNotaCredito : kCerrarFiscal, {}, paso);
}

void HasarPrinter::reporte_z()
{
    comando(kCierreDiario, {"Z"}, QStringLiteral("reporte_z"), true);
}

void HasarPrinter::reporte_x()
{
    comando(kCierreDiario, {"X"}, QStringLiteral("reporte_x"), true);
}

} // namespace vendrix::hasar

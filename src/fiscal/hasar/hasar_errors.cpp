#include "fiscal/hasar/hasar_errors.h"

#include <array>
#include <utility>

namespace vendrix::hasar {

namespace {

constexpr std::array<std::pair<int, const char *>, 29> kTextos{{
    {kSinPuerto, "No hay un puerto configurado para la impresora fiscal."},
    {kPuertoNoAbre, "No se pudo abrir el puerto de la impresora fiscal: %1"},
    {kVelocidadInvalida, "La velocidad configurada para la impresora fiscal no es válida: '%1'."},
    {kSinRespuesta, "La impresora fiscal no responde. Compruebe que esté encendida y conectada."},
    {kRechazado, "La impresora fiscal rechaza los comandos por errores de transmisión."},
    {kOcupadaDemasiado, "La impresora fiscal no terminó el comando en el tiempo esperado."},
    {kRespuestaConErrores, "Las respuestas de la impresora fiscal llegan con errores de transmisión."},
    {kRespuestaPerdida, "La impresora fiscal recibió el comando pero no envió la respuesta."},
    {kRespuestaAjena, "La impresora fiscal respondió a otro comando."},
    {kEstadoIlegible, "La impresora fiscal envió un estado ilegible."},
    {kSinPapelDemasiado, "La impresora fiscal está sin papel y no terminó el comando."},
    {kEscrituraFallida, "No se pudo escribir en el puerto de la impresora fiscal."},
    {kBaseImpresora + 2, "Error de impresora: se interrumpió la conexión con el controlador fiscal."},
    {kBaseImpresora + 3, "La impresora está fuera de línea."},
    {kBaseImpresora + 4, "Falta papel del diario."},
    {kBaseImpresora + 5, "Falta papel de tickets."},
    {kBaseImpresora + 6, "El buffer de la impresora está lleno; el comando no se ejecutó."},
    {kBaseImpresora + 8, "La tapa de la impresora está abierta."},
    {kBaseFiscal + 0, "Error en la memoria fiscal: la impresora no funcionará."},
    {kBaseFiscal + 1, "Error en la memoria de trabajo: la impresora no funcionará."},
    {kBaseFiscal + 3, "La impresora fiscal no reconoce el comando."},
    {kBaseFiscal + 4, "Datos no válidos en un campo del comando."},
    {kBaseFiscal + 5, "Comando no válido para el estado fiscal actual."},
    {kBaseFiscal + 6, "Desborde del total del comprobante o de la jornada."},
    {kBaseFiscal + 7, "La memoria fiscal está llena, bloqueada o dada de baja."},
    {kBaseFiscal + 11, "La fecha de la impresora fiscal no es válida."},
    {kComprobanteAbierto, "Hay un comprobante abierto en la impresora fiscal."},
    {kSinNotaDeCredito, "Este modelo de impresora fiscal no emite notas de crédito."},
    {0, ""},
}};

// Bits that stop a command, in the order they are reported.
constexpr std::array kBitsImpresora{2, 3, 4, 5, 6, 8};
constexpr std::array kBitsFiscales{0, 1, 7, 11, 3, 4, 5, 6};

} // namespace

QString texto_error(int numero, const QString &detalle)
{
    for (const auto &[n, texto] : kTextos) {
        if (n == numero) {
            const QString t = QString::fromUtf8(texto);
            return t.contains(QLatin1String("%1")) ? t.arg(detalle) : t;
        }
    }
    return QStringLiteral("Error %1 de la impresora fiscal.").arg(numero);
}

FiscalError error_hasar(int numero, const QString &paso, const QString &detalle)
{
    return FiscalError(numero, texto_error(numero, detalle), QStringLiteral("Hasar"), paso);
}

int error_de_estado(quint16 impresora, quint16 fiscal, bool inicia_documento)
{
    for (const int bit : kBitsImpresora) {
        if (impresora & (1u << bit))
            return kBaseImpresora + bit;
    }
    for (const int bit : kBitsFiscales) {
        if (!(fiscal & (1u << bit)))
            continue;
        if (bit == 5 && inicia_documento && (fiscal & kFiscalDocumentoAbierto))
            return kComprobanteAbierto;
        return kBaseFiscal + bit;
    }
    return 0;
}

} // namespace vendrix::hasar

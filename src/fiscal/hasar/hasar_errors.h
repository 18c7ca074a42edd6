#pragma once

#include "fiscal/fiscal_device.h"

#include <QString>

namespace vendrix::hasar {

// The numbers of the driver's FiscalError, one per condition. The front shows
// the number and the text in its box and writes them to the log.
//
// | Number | Condition                                                          |
// |--------|--------------------------------------------------------------------|
// | 1001   | no port in the settings                                            |
// | 1002   | the port can't be opened                                           |
// | 1003   | the speed of the settings is not a number                          |
// | 1010   | no byte came back to a command, after every re-send                |
// | 1011   | every send of a command was refused (NAK)                          |
// | 1012   | the printer kept saying "busy" (DC2) beyond the wait bound         |
// | 1013   | every reply came with a bad checksum                               |
// | 1014   | the command was taken (ACK) but no reply came, after every re-send |
// | 1015   | the reply belongs to another command                               |
// | 1016   | the status words of the reply aren't hexadecimal                   |
// | 1017   | the printer kept saying "out of paper" (DC4) beyond the wait bound |
// | 1018   | writing to the port failed                                         |
// | 1100+b | bit b of the printer status: 2, 3, 4, 5, 6, 8                      |
// | 1200+b | bit b of the fiscal status: 0, 1, 3, 4, 5, 6, 7, 11                |
// | 1213   | a command refused because a document is already open               |
// | 1301   | a credit note on a model that has none                             |
enum Error {
    kSinPuerto = 1001,
    kPuertoNoAbre = 1002,
    kVelocidadInvalida = 1003,
    kSinRespuesta = 1010,
    kRechazado = 1011,
    kOcupadaDemasiado = 1012,
    kRespuestaConErrores = 1013,
    kRespuestaPerdida = 1014,
    kRespuestaAjena = 1015,
    kEstadoIlegible = 1016,
    kSinPapelDemasiado = 1017,
    kEscrituraFallida = 1018,
    kBaseImpresora = 1100,
    kBaseFiscal = 1200,
    kComprobanteAbierto = 1213,
    kSinNotaDeCredito = 1301,
};

// The text of a number of the table; `detalle` completes the texts that name
// a port or a value.
QString texto_error(int numero, const QString &detalle = {});

// The error with the table's text, marked with the driver's source and the
// step that failed.
FiscalError error_hasar(int numero, const QString &paso, const QString &detalle = {});

// The first error that two status words of a reply show (printer conditions
// before fiscal ones), or 0 when the command went through. Warnings (low
// battery, fiscal memory almost full) and plain state bits are not errors.
// For a command that starts a document, a refusal while one is open is told
// as such.
int error_de_estado(quint16 impresora, quint16 fiscal, bool inicia_documento = false);

// Fiscal status bits the driver reads besides the errors.
inline constexpr quint16 kFiscalDocumentoAbierto = 1u << 13;
inline constexpr quint16 kFiscalComandoDesconocido = 1u << 3;

} // namespace vendrix::hasar

#pragma once

#include <QString>
#include <QStringList>

#include <optional>

namespace vendrix::simulador {

// How the simulator misbehaves, to try the program's failure paths. The
// WSAA modes touch LoginCms only, the WSFEv1 ones FECAESolicitar only;
// `sin_respuesta` leaves every request unanswered.
enum class Modo {
    normal,
    ta_duplicado,           // LoginCms: the certificate "already holds a ticket"
    certificado_vencido,    // LoginCms: the signer's certificate is expired
    tiempos_invalidos,      // LoginCms: the ticket request's times are refused
    sin_sign,               // LoginCms: the ticket comes without its sign
    sin_respuesta,          // every request: accepted and never answered
    observaciones,          // FECAESolicitar: approved with an observation
    rechazo,                // FECAESolicitar: rejected with an observation
    procesar_sin_responder, // FECAESolicitar: approved, then the connection is dropped
};

// The words of the modes for the command line, in the enum's order.
QStringList nombres_de_modos();
QString nombre_de_modo(Modo modo);
std::optional<Modo> modo_desde_nombre(const QString &nombre);

} // namespace vendrix::simulador

#pragma once

#include <QString>

namespace vendrix {

class Context;

enum class ServicioAfip { wsaa, wsfe, padron };

// `IF_FE_Modo_Operacion` = "Producción" selects AFIP's production hosts;
// any other value the homologation ones.
bool es_produccion(const Context &ctx);

// The address of a service's path on AFIP's host for the environment. The
// setting `FE_servidor_pruebas` ("https://127.0.0.1:8443"), when set,
// takes the place of scheme, host and port, for the simulator.
QString url_afip(const Context &ctx, ServicioAfip servicio, bool produccion, const QString &ruta);

} // namespace vendrix

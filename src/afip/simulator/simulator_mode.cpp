#include "afip/simulator/simulator_mode.h"

namespace vendrix::simulador {

QStringList nombres_de_modos()
{
    return {"normal",
            "ta-duplicado",
            "certificado-vencido",
            "tiempos-invalidos",
            "sin-sign",
            "sin-respuesta",
            "observaciones",
            "rechazo",
            "procesar-sin-responder"};
}

QString nombre_de_modo(Modo modo)
{
    return nombres_de_modos().value(static_cast<int>(modo));
}

std::optional<Modo> modo_desde_nombre(const QString &nombre)
{
    const qsizetype i = nombres_de_modos().indexOf(nombre);
    if (i < 0)
        return std::nullopt;
    return static_cast<Modo>(i);
}

} // namespace vendrix::simulador

#pragma once

#include <QString>

namespace vendrix {

class Context;

// A data file of the folder and the seed copy an installation ships for it.
// The seed is copied only when the working file is missing, so an installer
// may overwrite the seeds without touching a shop's live data.
struct Semilla {
    const char *semilla;
    const char *archivo;
};

inline constexpr Semilla kSemillaListas{"Vendrix.install", "Vendrix.vdrxdb"};
inline constexpr Semilla kSemillaClientes{"clientes.install", "clientes.vdrx"};
inline constexpr Semilla kSemillaFactura{"factura.install", "factura.html"};

enum class EstadoArchivo {
    presente, // the working file was there
    copiado,  // copied from its seed now
    creado,   // written with its default content now
    faltante, // neither the file nor its seed
    error,    // the seed is there but couldn't be copied
};

// Makes sure of a working file: copies its seed when the file is missing and
// logs "Se copio el archivo <seed> como <file>" at "A".
EstadoArchivo asegurar_archivo(Context &ctx, const Semilla &semilla);

// Writes the default `Config.vdrx` when it is missing and logs it.
// `presente`, `creado` or `error`.
EstadoArchivo asegurar_config(Context &ctx);

} // namespace vendrix

#pragma once

// The list builder: turns suppliers' lists into a price database file
// (`.vdrxdb`) for a shop.

#include "catalogue/pricelist/price_file_format.h"
#include "catalogue/pricelist/price_file_reader.h"

#include <vector>

namespace vendrix {

struct BuildOptions {
    QString salida;  // the file to make; replaced only when the build succeeds
    QString cliente; // CLIENTE: the shop the list is made for
    QString version; // VERSION: the program version the list asks for
    QString fecha;   // FECHA: the build date, "AAAA-MM-DD"
    // Rows of `xls_reportes` and `xls_tips`; when empty, those of the former
    // file are kept.
    std::vector<ListReport> reportes;
    std::vector<ListTip> tips;
};

struct BuildResult {
    QString error;
    int articulos = 0;
    int proveedores = 0;
    int proveedores_conservados = 0; // suppliers of the former file with no new list
    int altas = 0;
    int bajas = 0;
    int cambios_precio = 0;
    int cambios_texto = 0;
    int precios_viejos = 0;

    bool ok() const { return error.isEmpty(); }
};

// Builds the file from the new lists and, when given, the former file's
// content:
// - suppliers without a new list keep their articles, old prices and
//   `xls_proveedores` row; a new list with no articles drops its supplier;
// - `xls_Novedades` holds what changed in each new list against the former
//   one (nothing when there is no former file);
// - `xls_listas_viejos` holds the last known prices of articles that now
//   read zero.
// Suppliers are matched by name regardless of case and accents; articles go
// in by supplier name, then in the order of each list. The file is written
// under a temporary name beside `salida` and renamed at the end: on failure
// neither a half-written output nor the temporary file is left, and a former
// file of that name stays as it was.
BuildResult construir_lista(const BuildOptions &opciones,
                                      const std::vector<SupplierList> &nuevas,
                                      const PriceFileContent *anterior = nullptr);

// The temporary name the build writes to.
QString ruta_temporal_lista(const QString &salida);

} // namespace vendrix

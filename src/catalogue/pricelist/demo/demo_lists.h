#pragma once

// The demo shop: price lists of an Argentine hardware and home store, made up
// from a seed, for first runs, tests and benchmarks.

#include "catalogue/pricelist/build/csv_list_reader.h"
#include "catalogue/pricelist/build/price_file_builder.h"
#include "catalogue/pricelist/price_file_reader.h"

#include <QDate>

#include <vector>

namespace vendrix {

inline constexpr int kArticulosDemo = 300000;
inline constexpr quint64 kSemillaDemo = 1;
// Pesos per dollar in a demo shop's settings.
inline constexpr const char *kDolarDemo = "1450";

// Twelve suppliers' lists as they stand now, and the former file they
// update: nine suppliers send a new list, three keep the one they sent
// before. The lists hold what real ones do: repeated and empty codes, lists
// in dollars, reduced-rate articles (codes 101 and 102), zero prices (most
// of them with a former price), names with "'", "Ñ", accents, "/" and "%",
// descriptions with "[X]", "%" and "_", and a few very long descriptions. Against the former lists, some
// articles came in, some left, many changed price and a few their text.
//
// The same seed and size give the same lists, article by article.
struct DemoLists {
    PriceFileContent anterior;
    std::vector<SupplierList> nuevas;
    std::vector<CsvStyle> estilos; // how each new list is written as a CSV file
};

// `articulos` is the count of the file built from them (new lists plus the
// kept ones). `fecha` is the date of the newest list.
DemoLists generar_listas_demo(int articulos, quint64 semilla, QDate fecha = QDate(2026, 11, 2));

struct DemoOptions {
    QString carpeta; // the application folder to fill
    int articulos = kArticulosDemo;
    quint64 semilla = kSemillaDemo;
    QString cliente;          // CLIENTE of the list
    QString version;          // VERSION of the list
    QString fecha;            // FECHA: the build date, "AAAA-MM-DD"
    QString semilla_clientes; // the built `clientes.install` to copy
    QString carpeta_csv;      // when not empty, the new lists are also written there as CSV files
};

struct DemoResult {
    QString error;
    BuildResult lista;

    bool ok() const { return error.isEmpty(); }
};

// Fills an application folder for a first run: `Vendrix.install` built from
// the demo lists (with the sample reports and tips), `clientes.install`
// copied from the built seed, the `factura.install` template, the invoice
// request `wsaa_cae.xml`, and, when the folder has none, `Config.vdrx` with
// the default settings and `Valor_Dolar` at kDolarDemo. Existing `.install`
// files and the request are replaced; the live files beside them are not
// touched.
DemoResult crear_carpeta_demo(const DemoOptions &opciones);

} // namespace vendrix

#pragma once

// The words the demo lists are made of: the store's groups ("rubros") with
// their products, and its suppliers.

#include "catalogue/pricelist/build/csv_list_reader.h"

#include <vector>

namespace vendrix::demo {

using Words = std::vector<const char *>;

struct ProductGroup {
    const char *grupo;
    Words productos;
    Words atributos;
    Words medidas;
    Words marcas;
    Words unidades;
    double precio_minimo; // in pesos
    double precio_maximo;
    bool reducido; // capital goods: reduced IVA rate
};

enum class CodeStyle {
    Prefijo,  // "FIS-01234"
    Numerico, // "104233"
    Letras,   // "TA0412"
};

struct Supplier {
    const char *nombre;
    const char *codigo_interno;
    int peso; // share of the articles
    std::vector<int> rubros;
    CodeStyle estilo_codigo;
    bool dolares;    // the list is in dollars
    bool mayusculas; // descriptions in capitals
    bool conserva;   // sends no new list: the former one stays
    CsvStyle csv;
};

const std::vector<ProductGroup> &rubros();
const std::vector<Supplier> &proveedores();
// Colours and packs added to some descriptions.
const Words &variantes();
const Words &observaciones();
// Tails that make a description long.
const Words &detalles_largos();

} // namespace vendrix::demo

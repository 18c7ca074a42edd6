#pragma once

// The words the demo lists are made of: the store's groups ("rubros") with
// their products, and its suppliers.

#include "catalogue/lista_csv.h"

#include <vector>

namespace vendrix::demo {

using Palabras = std::vector<const char *>;

struct Rubro {
    const char *grupo;
    Palabras productos;
    Palabras atributos;
    Palabras medidas;
    Palabras marcas;
    Palabras unidades;
    double precio_minimo; // in pesos
    double precio_maximo;
    bool reducido; // capital goods: reduced IVA rate
};

enum class EstiloCodigo {
    Prefijo,  // "FIS-01234"
    Numerico, // "104233"
    Letras,   // "TA0412"
};

struct Proveedor {
    const char *nombre;
    const char *codigo_interno;
    int peso; // share of the articles
    std::vector<int> rubros;
    EstiloCodigo estilo_codigo;
    bool dolares;    // the list is in dollars
    bool mayusculas; // descriptions in capitals
    bool conserva;   // sends no new list: the former one stays
    EstiloCsv csv;
};

const std::vector<Rubro> &rubros();
const std::vector<Proveedor> &proveedores();
// Colours and packs added to some descriptions.
const Palabras &variantes();
const Palabras &observaciones();
// Tails that make a description long.
const Palabras &detalles_largos();

} // namespace vendrix::demo

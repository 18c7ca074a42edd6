#pragma once

// A whole build as the list maker asks for it: the suppliers' CSV files, the
// former price database if any, and the file to make.

#include "catalogue/lista_builder.h"
#include "catalogue/lista_csv.h"

#include <QStringList>

#include <vector>

namespace vendrix {

struct PedidoLista {
    OpcionesConstruccion opciones; // with no reports or tips, a first build gets the sample ones
    QStringList archivos;          // one CSV file per supplier
    OpcionesCsv csv;
    QString anterior; // the former `.vdrxdb`; empty for a first build
};

// Reads every file, then builds. The first file that can't be read stops
// everything with its message (file and line) before the output is touched.
// `leidas`, when given, receives how each file was read.
ResultadoConstruccion construir_desde_archivos(const PedidoLista &pedido,
                                               std::vector<LecturaCsv> *leidas = nullptr);

} // namespace vendrix

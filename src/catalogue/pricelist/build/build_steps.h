#pragma once

// A whole build as the list maker asks for it: the suppliers' CSV files, the
// former price database if any, and the file to make.

#include "catalogue/pricelist/build/csv_list_reader.h"
#include "catalogue/pricelist/build/price_file_builder.h"

#include <QStringList>

#include <vector>

namespace vendrix {

struct BuildRequest {
    BuildOptions opciones; // with no reports or tips, a first build gets the sample ones
    QStringList archivos;          // one CSV file per supplier
    CsvOptions csv;
    QString anterior; // the former `.vdrxdb`; empty for a first build
};

// Reads every file, then builds. The first file that can't be read stops
// everything with its message (file and line) before the output is touched.
// `leidas`, when given, receives how each file was read.
BuildResult construir_desde_archivos(const BuildRequest &pedido,
                                               std::vector<CsvRead> *leidas = nullptr);

} // namespace vendrix

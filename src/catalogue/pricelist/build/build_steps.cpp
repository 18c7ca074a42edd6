#include "catalogue/pricelist/build/build_steps.h"

#include "catalogue/pricelist/build/extra_rows.h"
#include "catalogue/pricelist/price_file_reader.h"

namespace vendrix {

BuildResult construir_desde_archivos(const BuildRequest &pedido, std::vector<CsvRead> *leidas)
{
    BuildResult result;
    PriceFileContent previous;
    if (!pedido.anterior.isEmpty() && !leer_contenido_lista(pedido.anterior, previous, result.error))
        return result;

    std::vector<SupplierList> lists;
    for (const QString &path : pedido.archivos) {
        CsvRead read = leer_lista_csv(path, pedido.csv);
        if (!read.ok()) {
            result.error = read.error;
            return result;
        }
        if (leidas)
            leidas->push_back(read); // the articles' texts are shared, not copied
        lists.push_back(std::move(read.lista));
    }

    BuildOptions options = pedido.opciones;
    if (pedido.anterior.isEmpty() && options.reportes.empty())
        options.reportes = reportes_predeterminados();
    if (pedido.anterior.isEmpty() && options.tips.empty())
        options.tips = tips_predeterminados(options.version);
    return construir_lista(options, lists, pedido.anterior.isEmpty() ? nullptr : &previous);
}

} // namespace vendrix

#include "catalogue/lista_construccion.h"

#include "catalogue/lista_anterior.h"
#include "catalogue/lista_extras.h"

namespace vendrix {

ResultadoConstruccion construir_desde_archivos(const PedidoLista &pedido, std::vector<LecturaCsv> *leidas)
{
    ResultadoConstruccion result;
    ContenidoLista previous;
    if (!pedido.anterior.isEmpty() && !leer_contenido_lista(pedido.anterior, previous, result.error))
        return result;

    std::vector<ListaProveedor> lists;
    for (const QString &path : pedido.archivos) {
        LecturaCsv read = leer_lista_csv(path, pedido.csv);
        if (!read.ok()) {
            result.error = read.error;
            return result;
        }
        if (leidas)
            leidas->push_back(read); // the articles' texts are shared, not copied
        lists.push_back(std::move(read.lista));
    }

    OpcionesConstruccion options = pedido.opciones;
    if (pedido.anterior.isEmpty() && options.reportes.empty())
        options.reportes = reportes_predeterminados();
    if (pedido.anterior.isEmpty() && options.tips.empty())
        options.tips = tips_predeterminados(options.version);
    return construir_lista(options, lists, pedido.anterior.isEmpty() ? nullptr : &previous);
}

} // namespace vendrix

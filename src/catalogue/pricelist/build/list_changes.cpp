#include "catalogue/pricelist/build/list_changes.h"

#include <QHash>
#include <QSet>

namespace vendrix {

namespace {

using CodeCounts = QHash<QString, int>;

CodeCounts contar_codigos(const SupplierList &lista)
{
    CodeCounts counts;
    for (const ListArticle &a : lista.articulos) {
        if (!a.codigo.isEmpty())
            ++counts[a.codigo];
    }
    return counts;
}

// The key by which an article is looked for in the other list.
QString clave(const ListArticle &a, const CodeCounts &old_counts, const CodeCounts &new_counts)
{
    const QChar unit(0x1F);
    if (!a.codigo.isEmpty() && old_counts.value(a.codigo) == 1 && new_counts.value(a.codigo) == 1)
        return a.codigo;
    return unit + a.codigo + unit + a.descripcion;
}

bool cambio_texto(const ListArticle &a, const ListArticle &b)
{
    return a.descripcion != b.descripcion || a.grupo != b.grupo || a.marca != b.marca || a.unidad != b.unidad;
}

bool cambio_precio(const ListArticle &a, const ListArticle &b)
{
    return valor_precio(a.precio) != valor_precio(b.precio) || a.moneda != b.moneda;
}

// For each article of the new list, the index of the same article in the
// former list, or -1.
std::vector<int> emparejar(const SupplierList &anterior, const SupplierList &nueva)
{
    const CodeCounts old_counts = contar_codigos(anterior);
    const CodeCounts new_counts = contar_codigos(nueva);
    QHash<QString, std::vector<int>> old_by_key;
    for (int i = 0; i < static_cast<int>(anterior.articulos.size()); ++i)
        old_by_key[clave(anterior.articulos[i], old_counts, new_counts)].push_back(i);
    QHash<QString, size_t> used;
    std::vector<int> match(nueva.articulos.size(), -1);
    for (size_t i = 0; i < nueva.articulos.size(); ++i) {
        const QString key = clave(nueva.articulos[i], old_counts, new_counts);
        const auto found = old_by_key.constFind(key);
        if (found == old_by_key.cend())
            continue;
        size_t &next = used[key];
        if (next < found->size())
            match[i] = found->at(next++);
    }
    return match;
}

} // namespace

ListComparison comparar_listas(const SupplierList &anterior, const SupplierList &nueva,
                                  const std::vector<OldArticle> &viejos_anteriores)
{
    ListComparison result;
    const std::vector<int> match = emparejar(anterior, nueva);
    std::vector<bool> old_matched(anterior.articulos.size(), false);

    for (size_t i = 0; i < nueva.articulos.size(); ++i) {
        const ListArticle &now = nueva.articulos[i];
        ListChange row;
        row.proveedor = nueva.proveedor;
        row.codigo = now.codigo;
        row.fecha_nueva = nueva.fecha;
        row.nueva = &now;
        if (match[i] < 0) {
            row.alta = true;
        } else {
            const ListArticle &before = anterior.articulos[static_cast<size_t>(match[i])];
            old_matched[static_cast<size_t>(match[i])] = true;
            row.anterior = &before;
            row.fecha_anterior = anterior.fecha;
            row.cambiotexto = cambio_texto(before, now);
            row.cambioprecio = cambio_precio(before, now);
            if (!row.cambiotexto && !row.cambioprecio)
                continue;
        }
        result.novedades.push_back(row);
    }
    for (size_t i = 0; i < anterior.articulos.size(); ++i) {
        if (old_matched[i])
            continue;
        ListChange row;
        row.proveedor = nueva.proveedor;
        row.codigo = anterior.articulos[i].codigo;
        row.baja = true;
        row.fecha_anterior = anterior.fecha;
        row.anterior = &anterior.articulos[i];
        result.novedades.push_back(row);
    }

    QHash<QString, const OldArticle *> old_prices;
    for (const OldArticle &v : viejos_anteriores)
        old_prices.insert(v.articulo.codigo, &v);
    QSet<QString> done;
    for (size_t i = 0; i < nueva.articulos.size(); ++i) {
        const ListArticle &now = nueva.articulos[i];
        if (now.codigo.isEmpty() || valor_precio(now.precio) != 0.0 || done.contains(now.codigo))
            continue;
        done.insert(now.codigo);
        const ListArticle *before =
            match[i] < 0 ? nullptr : &anterior.articulos[static_cast<size_t>(match[i])];
        if (before && valor_precio(before->precio) != 0.0) {
            result.viejos.push_back({nueva.proveedor, anterior.fecha, *before});
        } else if (const OldArticle *kept = old_prices.value(now.codigo)) {
            result.viejos.push_back({nueva.proveedor, kept->fecha, kept->articulo});
        }
    }
    return result;
}

} // namespace vendrix

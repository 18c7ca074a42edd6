#include "catalogue/pricelist/build/price_file_builder.h"

#include "catalogue/pricelist/build/list_changes.h"
#include "catalogue/pricelist/build/list_values.h"
#include "catalogue/pricelist/price_file_connection.h"
#include "catalogue/search/search_index.h"

#include <QFile>
#include <QFileInfo>
#include <QHash>

#include <algorithm>
#include <cstdio>

namespace vendrix {

namespace {

// One supplier of the file to make.
struct Supplier {
    const SupplierList *lista = nullptr;
    const SupplierList *anterior = nullptr; // its former list, when there is one
    bool nueva = false;                     // came with a new list
    QString plegado;                        // the name as suppliers are matched and sorted
};

// The prepared inserts of one build.
class FileWriter {
public:
    explicit FileWriter(sqlite3 *db)
        : listas_(db, "INSERT INTO xls_listas (Proveedor, FechaLista, Grupo, Codigo, Descripcion, Marca, "
                      "UnidaddeMedida, Precio, Moneda, Observaciones) VALUES (?,?,?,?,?,?,?,?,?,?)"),
          viejos_(db,
                  "INSERT INTO xls_listas_viejos (Proveedor, FechaLista, Grupo, Codigo, Descripcion, Marca, "
                  "UnidaddeMedida, Precio, Moneda, Observaciones) VALUES (?,?,?,?,?,?,?,?,?,?)"),
          proveedores_(db, "INSERT INTO xls_proveedores (Proveedor, Ult_Actualizacion, codigo_interno) "
                           "VALUES (?,?,?)"),
          novedades_(db,
                     "INSERT INTO xls_Novedades (Proveedor, Codigo, alta, baja, cambiotexto, cambioprecio, "
                     "FechaLisAnt, GrupoLisAnt, DescripLisAnt, MarcaLisAnt, MonedaLisAnt, UMLisAnt, "
                     "PrecioLisAnt, ObsLisAnt, FechaLisNva, GrupoLisNva, DescripLisNva, MarcaLisNva, "
                     "MonedaLisNva, UMLisNva, PrecioLisNva, ObsLisNva) "
                     "VALUES (?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?)"),
          parametros_(db, "INSERT INTO xls_parametros (CLAVE, VALOR) VALUES (?,?)"),
          reportes_(db,
                    "INSERT INTO xls_reportes (report_nombre, report_descripcion, report_filtro, report_db, "
                    "report_tabla_query, report_totales, report_query_grafico, report_grafico_titulo, "
                    "report_tipo_grafico) VALUES (?,?,?,?,?,?,?,?,?)"),
          tips_(db, "INSERT INTO xls_tips (tip, version) VALUES (?,?)")
    {
    }

    bool valido() const
    {
        return listas_.valida() && viejos_.valida() && proveedores_.valida() && novedades_.valida() &&
               parametros_.valida() && reportes_.valida() && tips_.valida();
    }

    bool lista(const SupplierList &l, const QString &codigo_interno)
    {
        for (const ListArticle &a : l.articulos) {
            if (!articulo(listas_, l.proveedor, l.fecha, a))
                return false;
        }
        proveedores_.texto(1, l.proveedor);
        proveedores_.texto(2, l.ult_actualizacion.isEmpty() ? l.fecha : l.ult_actualizacion);
        proveedores_.texto(3, codigo_interno);
        return proveedores_.ejecutar();
    }

    bool viejo(const OldArticle &v) { return articulo(viejos_, v.proveedor, v.fecha, v.articulo); }

    bool novedad(const ListChange &n)
    {
        const auto mark = [](bool on) { return on ? QStringLiteral("x") : QString(QLatin1String("")); };
        novedades_.texto(1, n.proveedor);
        novedades_.texto(2, n.codigo);
        novedades_.texto(3, mark(n.alta));
        novedades_.texto(4, mark(n.baja));
        novedades_.texto(5, mark(n.cambiotexto));
        novedades_.texto(6, mark(n.cambioprecio));
        lado(7, n.fecha_anterior, n.anterior);
        lado(15, n.fecha_nueva, n.nueva);
        return novedades_.ejecutar();
    }

    bool parametro(const QString &key, const QString &value)
    {
        parametros_.texto(1, key);
        parametros_.texto(2, value);
        return parametros_.ejecutar();
    }

    bool reporte(const ListReport &r)
    {
        const QStringList values{r.nombre,  r.descripcion,   r.filtro,         r.db,          r.tabla_query,
                                 r.totales, r.query_grafico, r.grafico_titulo, r.tipo_grafico};
        for (int i = 0; i < values.size(); ++i)
            reportes_.texto(i + 1, values.at(i));
        return reportes_.ejecutar();
    }

    bool tip(const ListTip &t)
    {
        tips_.texto(1, t.tip);
        tips_.texto(2, t.version);
        return tips_.ejecutar();
    }

private:
    static bool articulo(PriceFileStatement &insert, const QString &supplier, const QString &date,
                         const ListArticle &a)
    {
        insert.texto(1, supplier);
        insert.texto(2, date);
        insert.texto(3, a.grupo);
        insert.texto(4, a.codigo);
        insert.texto(5, a.descripcion);
        insert.texto(6, a.marca);
        insert.texto(7, a.unidad);
        insert.texto(8, a.precio);
        insert.texto(9, a.moneda);
        insert.texto(10, a.observaciones);
        return insert.ejecutar();
    }

    // One side of a change row: Fecha, Grupo, Descrip, Marca, Moneda, UM,
    // Precio, Obs; all empty when the side has no article.
    void lado(int first, const QString &date, const ListArticle *a)
    {
        const QStringList values = a ? QStringList{date,      a->grupo,  a->descripcion, a->marca,
                                                   a->moneda, a->unidad, a->precio,      a->observaciones}
                                     : QStringList(8, QString(QLatin1String("")));
        for (int i = 0; i < values.size(); ++i)
            novedades_.texto(first + i, values.at(i));
    }

    PriceFileStatement listas_, viejos_, proveedores_, novedades_, parametros_, reportes_, tips_;
};

QString validar(const std::vector<SupplierList> &nuevas, const PriceFileContent *anterior)
{
    if (nuevas.empty() && !anterior)
        return QStringLiteral("No hay listas para construir la base de precios.");
    QHash<QString, QString> seen;
    for (const SupplierList &l : nuevas) {
        if (l.proveedor.trimmed().isEmpty())
            return QStringLiteral("Hay una lista sin nombre de proveedor.");
        if (l.fecha.isEmpty())
            return QStringLiteral("La lista de '%1' no tiene fecha.").arg(l.proveedor);
        const QString folded = plegar_sin_acentos(l.proveedor.trimmed());
        if (seen.contains(folded))
            return QStringLiteral("El proveedor '%1' viene en dos listas ('%2' y '%1').")
                .arg(l.proveedor, seen.value(folded));
        seen.insert(folded, l.proveedor);
    }
    return {};
}

std::vector<Supplier> planear(const std::vector<SupplierList> &nuevas, const PriceFileContent *anterior)
{
    QHash<QString, const SupplierList *> former;
    if (anterior) {
        for (const SupplierList &l : anterior->listas)
            former.insert(plegar_sin_acentos(l.proveedor.trimmed()), &l);
    }
    std::vector<Supplier> plan;
    for (const SupplierList &l : nuevas) {
        const QString folded = plegar_sin_acentos(l.proveedor.trimmed());
        plan.push_back({&l, former.take(folded), true, folded});
    }
    if (anterior) {
        for (const SupplierList &l : anterior->listas) {
            const QString folded = plegar_sin_acentos(l.proveedor.trimmed());
            if (former.contains(folded))
                plan.push_back({&l, nullptr, false, folded});
        }
    }
    std::stable_sort(plan.begin(), plan.end(),
                     [](const Supplier &a, const Supplier &b) { return a.plegado < b.plegado; });
    return plan;
}

// Writes everything inside one transaction; the reason on failure.
QString escribir(PriceFileConnection &db, const BuildOptions &opciones, const std::vector<Supplier> &plan,
                 const PriceFileContent *anterior, BuildResult &r)
{
    // The pages the index frees while it merges go back at the end, so the
    // file holds no empty pages.
    if (!db.ejecutar("PRAGMA auto_vacuum = FULL; PRAGMA journal_mode = OFF; PRAGMA synchronous = OFF; "
                     "PRAGMA cache_size = -65536; BEGIN") ||
        !crear_tablas_lista(db))
        return db.error();
    FileWriter out(db.db());
    if (!out.valido())
        return db.ultimo_error();

    QHash<QString, std::vector<OldArticle>> former_prices;
    if (anterior) {
        for (const OldArticle &v : anterior->viejos)
            former_prices[plegar_sin_acentos(v.proveedor.trimmed())].push_back(v);
    }
    const SupplierList none;
    for (const Supplier &p : plan) {
        // A new list with no articles drops its supplier; its changes still
        // tell what left.
        if (!p.lista->articulos.empty()) {
            // A new list keeps the shop's code of its supplier unless it brings one.
            const QString &code = p.lista->codigo_interno.isEmpty() && p.anterior ? p.anterior->codigo_interno
                                                                                  : p.lista->codigo_interno;
            if (!out.lista(*p.lista, code))
                return db.ultimo_error();
            ++r.proveedores;
            r.articulos += static_cast<int>(p.lista->articulos.size());
            r.proveedores_conservados += p.nueva ? 0 : 1;
        }
        const std::vector<OldArticle> &prices = former_prices[p.plegado];
        if (!p.nueva) {
            for (const OldArticle &v : prices) {
                if (!out.viejo(v))
                    return db.ultimo_error();
            }
            r.precios_viejos += static_cast<int>(prices.size());
            continue;
        }
        if (!anterior)
            continue;
        const ListComparison changes = comparar_listas(p.anterior ? *p.anterior : none, *p.lista, prices);
        for (const ListChange &n : changes.novedades) {
            if (!out.novedad(n))
                return db.ultimo_error();
            r.altas += n.alta ? 1 : 0;
            r.bajas += n.baja ? 1 : 0;
            r.cambios_precio += n.cambioprecio ? 1 : 0;
            r.cambios_texto += n.cambiotexto ? 1 : 0;
        }
        for (const OldArticle &v : changes.viejos) {
            if (!out.viejo(v))
                return db.ultimo_error();
        }
        r.precios_viejos += static_cast<int>(changes.viejos.size());
    }
    const auto &reports = !opciones.reportes.empty() || !anterior ? opciones.reportes : anterior->reportes;
    const auto &tips = !opciones.tips.empty() || !anterior ? opciones.tips : anterior->tips;
    for (const ListReport &report : reports) {
        if (!out.reporte(report))
            return db.ultimo_error();
    }
    for (const ListTip &tip : tips) {
        if (!out.tip(tip))
            return db.ultimo_error();
    }
    if (!out.parametro(QStringLiteral("CLIENTE"), opciones.cliente) ||
        !out.parametro(QStringLiteral("FECHA"), opciones.fecha) ||
        !out.parametro(QStringLiteral("VERSION"), opciones.version) ||
        !out.parametro(QStringLiteral("TOTREG"), QString::number(r.articulos)))
        return db.ultimo_error();
    if (!crear_indices_lista(db))
        return db.error();
    if (!asegurar_indice_busqueda(db.db()))
        return db.ultimo_error();
    if (!db.ejecutar("COMMIT"))
        return db.error();
    return {};
}

} // namespace

QString ruta_temporal_lista(const QString &salida)
{
    return salida + QStringLiteral(".construyendo");
}

BuildResult construir_lista(const BuildOptions &opciones, const std::vector<SupplierList> &nuevas,
                            const PriceFileContent *anterior)
{
    BuildResult result;
    result.error = validar(nuevas, anterior);
    if (!result.ok())
        return result;
    const std::vector<Supplier> plan = planear(nuevas, anterior);

    const QString temp = ruta_temporal_lista(opciones.salida);
    const QString file = QFileInfo(opciones.salida).fileName();
    QFile::remove(temp);
    QString why;
    auto db = PriceFileConnection::abrir(temp, PriceFileConnection::Mode::Crear, why);
    if (db) {
        why = escribir(*db, opciones, plan, anterior, result);
        if (!db->cerrar() && why.isEmpty())
            why = db->error();
    }
    if (why.isEmpty() &&
        std::rename(QFile::encodeName(temp).constData(), QFile::encodeName(opciones.salida).constData()) != 0)
        why = QStringLiteral("no se pudo renombrar el archivo temporal");
    if (!why.isEmpty()) {
        QFile::remove(temp);
        result = BuildResult{};
        result.error = QStringLiteral("No se pudo escribir la base de precios '%1': %2").arg(file, why);
    }
    return result;
}

} // namespace vendrix

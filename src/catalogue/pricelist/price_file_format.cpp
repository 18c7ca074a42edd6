#include "catalogue/pricelist/price_file_format.h"

#include "catalogue/pricelist/price_file_connection.h"

namespace vendrix {

namespace {

// Text columns compare without regard to case, as the queries of the program
// expect of names such as `Proveedor` and `Codigo`.
constexpr const char *kEsquema = R"sql(
CREATE TABLE xls_listas (
    ID INTEGER PRIMARY KEY AUTOINCREMENT,
    Proveedor TEXT COLLATE NOCASE, FechaLista TEXT, Grupo TEXT COLLATE NOCASE,
    Codigo TEXT COLLATE NOCASE, Descripcion TEXT COLLATE NOCASE, Marca TEXT COLLATE NOCASE,
    UnidaddeMedida TEXT COLLATE NOCASE, Precio TEXT, Moneda TEXT, Observaciones TEXT COLLATE NOCASE);
CREATE TABLE xls_listas_viejos (
    ID INTEGER PRIMARY KEY AUTOINCREMENT,
    Proveedor TEXT COLLATE NOCASE, FechaLista TEXT, Grupo TEXT COLLATE NOCASE,
    Codigo TEXT COLLATE NOCASE, Descripcion TEXT COLLATE NOCASE, Marca TEXT COLLATE NOCASE,
    UnidaddeMedida TEXT COLLATE NOCASE, Precio TEXT, Moneda TEXT, Observaciones TEXT COLLATE NOCASE);
CREATE TABLE xls_proveedores (
    Proveedor TEXT COLLATE NOCASE PRIMARY KEY, Ult_Actualizacion TEXT, codigo_interno TEXT);
CREATE TABLE xls_parametros (CLAVE TEXT COLLATE NOCASE PRIMARY KEY, VALOR TEXT);
CREATE TABLE xls_Novedades (
    id INTEGER PRIMARY KEY AUTOINCREMENT,
    Proveedor TEXT COLLATE NOCASE, Codigo TEXT COLLATE NOCASE,
    alta TEXT NOT NULL DEFAULT '', baja TEXT NOT NULL DEFAULT '',
    cambiotexto TEXT NOT NULL DEFAULT '', cambioprecio TEXT NOT NULL DEFAULT '',
    FechaLisAnt TEXT, GrupoLisAnt TEXT, DescripLisAnt TEXT, MarcaLisAnt TEXT, MonedaLisAnt TEXT,
    UMLisAnt TEXT, PrecioLisAnt TEXT, ObsLisAnt TEXT,
    FechaLisNva TEXT, GrupoLisNva TEXT, DescripLisNva TEXT, MarcaLisNva TEXT, MonedaLisNva TEXT,
    UMLisNva TEXT, PrecioLisNva TEXT, ObsLisNva TEXT);
CREATE TABLE xls_tips (tip TEXT, version TEXT);
CREATE TABLE xls_reportes (
    report_nombre TEXT, report_descripcion TEXT, report_filtro TEXT, report_db TEXT,
    report_tabla_query TEXT, report_totales TEXT, report_query_grafico TEXT,
    report_grafico_titulo TEXT, report_tipo_grafico TEXT);
)sql";

constexpr const char *kIndices = R"sql(
CREATE INDEX xls_listas_codigo ON xls_listas (Codigo);
CREATE INDEX xls_listas_viejos_proveedor_codigo ON xls_listas_viejos (Proveedor, Codigo);
)sql";

} // namespace

double valor_precio(const QString &precio)
{
    QString text = precio.trimmed();
    text.replace(QLatin1Char(','), QLatin1Char('.'));
    bool ok = false;
    const double value = text.toDouble(&ok);
    return ok ? value : 0.0;
}

bool crear_tablas_lista(PriceFileConnection &db)
{
    return db.ejecutar(kEsquema) &&
           db.ejecutar(QStringLiteral("PRAGMA user_version = %1").arg(kFormatoLista).toUtf8().constData());
}

bool crear_indices_lista(PriceFileConnection &db)
{
    return db.ejecutar(kIndices);
}

} // namespace vendrix

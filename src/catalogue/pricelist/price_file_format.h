#pragma once

// The `.vdrxdb` price database file: its tables, its format version, and the
// records the list builder moves between supplier files and that database.
//
// Every value is text. Dates are ISO text "AAAA-MM-DD" (`FechaLista`,
// `Ult_Actualizacion`, `FECHA`), so that a query can compare and subtract
// them; `Precio` is a decimal number written with "." and no thousands mark;
// `Moneda` is one of the codes "1", "2", "101", "102".

#include <QString>

#include <vector>

namespace vendrix {

class PriceFileConnection;

// The version of the file's layout, kept both in `PRAGMA user_version` and in
// `xls_parametros` under `FORMATO`. Version 1: the list tables plus the search
// index `xls_busqueda`. Version 2: the index text keeps accents and ends in a
// blank. Version 3: the index keeps only which articles hold each trigram.
// A file of an older version gets its index remade.
inline constexpr int kFormatoLista = 3;
inline constexpr const char *kClaveFormato = "FORMATO";

// Currency codes of `Moneda`.
inline constexpr const char *kMonedaPesos = "1";
inline constexpr const char *kMonedaDolares = "2";
inline constexpr const char *kMonedaPesosReducido = "101";
inline constexpr const char *kMonedaDolaresReducido = "102";

// One article of a supplier's list, as `xls_listas` holds it.
struct ListArticle {
    QString grupo;
    QString codigo;
    QString descripcion;
    QString marca;
    QString unidad; // UnidaddeMedida
    QString precio; // "1234.5"
    QString moneda; // "1", "2", "101", "102"
    QString observaciones;

    bool operator==(const ListArticle &) const = default;
};

// One supplier's list: its articles in the order of the supplier's file.
struct SupplierList {
    QString proveedor;
    QString fecha;             // FechaLista of every article, "AAAA-MM-DD"
    QString ult_actualizacion; // for `xls_proveedores`; empty means `fecha`
    QString codigo_interno;    // the shop's own code for the supplier, may be empty
    std::vector<ListArticle> articulos;
};

// A row of `xls_listas_viejos`: the last known price of an article that now
// reads zero.
struct OldArticle {
    QString proveedor;
    QString fecha;
    ListArticle articulo;
};

// A row of `xls_reportes`, all text (see the reports tab).
struct ListReport {
    QString nombre, descripcion, filtro, db, tabla_query, totales, query_grafico, grafico_titulo,
        tipo_grafico;
};

// A row of `xls_tips`.
struct ListTip {
    QString tip;
    QString version;
};

// The numeric value of a `Precio` text the way the program reads it: "," as
// ".", anything unreadable as 0.
double valor_precio(const QString &precio);

// Creates every table and index of an empty price database, and writes the
// format version into `PRAGMA user_version`. False on failure (see
// `db.error()`).
bool crear_tablas_lista(PriceFileConnection &db);
// The lookup indexes by code; made after a bulk load, which is
// faster than keeping them up to date row by row.
bool crear_indices_lista(PriceFileConnection &db);

} // namespace vendrix

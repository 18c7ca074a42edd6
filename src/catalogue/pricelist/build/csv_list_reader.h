#pragma once

// A supplier's price list as a CSV file: one header row that names the
// columns, one article a row.
//
// - Encoding: UTF-8 or Windows-1252 (also UTF-16 with a byte order mark),
//   found from the bytes.
// - Separator: ";", "," or tab, the one the header row uses most.
// - Fields may be quoted with `"`, with `""` for a quote inside and line
//   breaks allowed inside; blanks around a field don't count.
// - Columns, in any order and any case, accents or not: `Grupo` (or
//   `Rubro`), `Codigo`, `Descripcion`, `Marca`, `UnidaddeMedida` (or
//   `Unidad de Medida`, `UM`), `Precio`, `Moneda`, `Observaciones`.
//   `Codigo`, `Descripcion` and `Precio` are required; other columns are
//   ignored.
// - `Precio` with either decimal mark (see `detectar_decimal`); an empty
//   price means none (zero).
//
// The supplier's name and the list's date come from the options or from the
// file name "Proveedor_AAAA-MM-DD.csv" (the date may also be written
// DD-MM-AAAA or AAAAMMDD; underscores in the name stand for blanks).

#include "catalogue/pricelist/price_file_format.h"

#include <QChar>
#include <QString>

namespace vendrix {

struct CsvOptions {
    QString proveedor; // empty: from the file name
    QString fecha;     // "AAAA-MM-DD"; empty: from the file name
    QChar decimal;     // null: found from the prices
};

// A list read from a file, or the reason it was refused. The error names the
// file and, where there is one, the line.
struct CsvRead {
    SupplierList lista;
    QString error;
    QString codificacion;
    QChar separador;
    QChar decimal;

    bool ok() const { return error.isEmpty(); }
};

CsvRead leer_lista_csv(const QString &ruta, const CsvOptions &opciones = {});

// A date written "AAAA-MM-DD", "DD-MM-AAAA", "DD/MM/AAAA" or "AAAAMMDD", as
// "AAAA-MM-DD"; empty when it is no date.
QString leer_fecha(const QString &text);

// How a list file is written: encoding, separator and decimal mark.
struct CsvStyle {
    bool windows_1252 = false;
    QChar separador = QLatin1Char(';');
    QChar decimal = QLatin1Char(',');
    bool miles = false; // thousands marks in prices ("1.234,5")
};

// Writes a list with the eight columns in the usual order, quoting the
// fields that need it. False with the reason in `error` on failure.
bool escribir_lista_csv(const SupplierList &lista, const QString &ruta, const CsvStyle &estilo,
                        QString &error);

} // namespace vendrix

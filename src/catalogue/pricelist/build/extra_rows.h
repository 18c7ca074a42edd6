#pragma once

// The rows a new price database gets besides the lists, and the invoice
// template of a new application folder. Their text lives in `data/` and is
// built into the program.

#include "catalogue/pricelist/price_file_format.h"

#include <QByteArray>

#include <vector>

namespace vendrix {

// The sample reports of `xls_reportes`: sales by month, by payment method,
// the best sold articles, a customer's purchases, a supplier's sales, and the
// lists by supplier.
std::vector<ListReport> reportes_predeterminados();

// The tips of `xls_tips`, each marked with the given program version.
std::vector<ListTip> tips_predeterminados(const QString &version);

// The facsimile template `factura.install`.
QByteArray plantilla_factura();

} // namespace vendrix

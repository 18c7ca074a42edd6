#pragma once

#include <QString>
#include <QStringList>

namespace vendrix {

class Database;

// The shared vocabulary of `vendrix_clientes`: one table holds customers
// and suppliers, told apart by `TIPO_RECORD`.

inline const QString kClientes = QStringLiteral("Internal");
inline const QString kCliente = QStringLiteral("Cliente");
inline const QString kProveedorMercaderia = QStringLiteral("Proveedor Mercadería");
inline const QString kConsumidorFinal = QStringLiteral("F - CONSUMIDOR FINAL");

// The four kinds of record, customers first.
QStringList tipos_de_registro();
// The seven IVA conditions of the tab and the add form, in their order.
QStringList condiciones_iva_clipro();
// The headings of `LynxGrid_clipro`. The second one, "TIPO", receives the
// record's `BORRABLE`; the sixth keeps its trailing blank.
QStringList columnas_clipro();

// A supplier of goods gets its discount from the price lists' rules, so its
// record keeps none: the discount box is off and empty.
bool lleva_descuento(const QString &tipo_registro);

// The discount as stored: an empty or non-numeric text is 0.
double descuento_a_guardar(const QString &texto);

// Registers the SQL function `plegar(text)` on the shop connection: the text
// folded as the catalogue folds it, so that LIKE ignores case for "ñ", "á"
// and the like, not only for ASCII letters. Registered again after the
// connection was reopened. False when the connection can't be had.
bool registrar_plegado(Database &db);

} // namespace vendrix

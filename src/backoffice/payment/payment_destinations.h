#pragma once

#include "backoffice/payment/payment_rows.h"

#include <QStringList>

#include <optional>
#include <vector>

namespace vendrix {

class Context;

// The purposes a payment goes to (`Vendrix_DestinosDePago`), kept by
// `FrmDestinosDePago`; the ledger offers them when money goes out.

// The columns of its grid `DataGridViewFdP`, in order; the first two are
// hidden and the last one deletes its row.
enum class ColumnaDestino { ID, READONLY, Nombre, Descripcion, RequiereProveedor, Eliminar };
QStringList columnas_destinos_de_pago();
// The answers of `Combo_proveedor`: whether a payment to it names a supplier.
QStringList respuestas_requiere_proveedor();

// The rows by name: cells name, description, supplier required.
std::optional<std::vector<FilaDePago>> cargar_destinos_de_pago(Context &ctx);

struct NuevoDestino {
    QString nombre;
    QString descripcion;
    QString requiere_proveedor;
};

// `Command_clipro_salvar`: a name is required, then the operator is asked.
// The new row's id, or nullopt when nothing was stored.
std::optional<qint64> salvar_destino(Context &ctx, const NuevoDestino &nuevo);

// A click on "Eliminar": asks, deletes, tells. Seeded rows are kept.
bool eliminar_destino(Context &ctx, const FilaDePago &fila);

} // namespace vendrix

#pragma once

#include "backoffice/payment/payment_rows.h"

#include <QStringList>

#include <optional>
#include <vector>

namespace vendrix {

class Context;

// The methods by which money is paid or collected (`Vendrix_FormasDePago`),
// kept by `frmMediosDePago`. Checkout and the ledger take their choices
// from this table.

// The columns of its grid `DataGridViewFdP`, in order; the first two are
// hidden and the last one deletes its row.
enum class ColumnaMedio { ID, READONLY, Nombre, Descripcion, Cuotas, Recargo, Tipo, Eliminar };
QStringList columnas_medios_de_pago();
// The kinds of `Combo_tipo_de_medio` and of the grid's editor; the last one
// is where a new method starts.
QStringList tipos_de_medio();

// The rows by name: cells name, description, instalments, surcharge, kind.
std::optional<std::vector<FilaDePago>> cargar_medios_de_pago(Context &ctx);

// The checks on leaving a field of the form. A name already in use is only
// a warning (false): the box keeps it and saving goes on. Instalments must
// be a whole number and the surcharge a number; otherwise their message,
// and the text the box goes back to ("1" or "0") is returned.
bool validar_nombre_medio(Context &ctx, const QString &nombre);
QString validar_cuotas(Context &ctx, const QString &cuotas);
QString validar_recargo(Context &ctx, const QString &recargo);

struct NuevoMedio {
    QString nombre;
    QString descripcion;
    QString cuotas;
    QString recargo;
    QString tipo;
};

// `Command_clipro_salvar`: a name is required, instalments and surcharge go
// through the same checks as on leaving their boxes, then the operator is
// asked. The new row's id, or nullopt when nothing was stored.
std::optional<qint64> salvar_medio(Context &ctx, const NuevoMedio &nuevo);

// A click on "Eliminar": asks, deletes, tells. Seeded rows are kept.
bool eliminar_medio(Context &ctx, const FilaDePago &fila);

// An edit in place of instalments, surcharge or kind of a row the shop
// added: a bad value shows "Error los datos" and nothing is stored. The text
// the cell shows on success.
std::optional<QString> editar_medio(Context &ctx, const FilaDePago &fila, ColumnaMedio columna,
                                    const QString &valor);

} // namespace vendrix

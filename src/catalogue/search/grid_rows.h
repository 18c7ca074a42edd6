#pragma once

// Filling a grid of a screen from the database, without the grid itself:
// the screens adapt their LynxGrid to `GridSink`, tests collect the rows.

#include "catalogue/search/shop_marks.h"
#include "core/database.h"

#include <QString>
#include <QStringList>

#include <functional>

namespace vendrix {

class Context;

// One row for a grid: its cells in the grid's column order, and the marks
// that give it a colour or an image.
struct ListGridRow {
    QStringList celdas;
    RowMarks marcas;
    bool marcador = false; // the "more results" row of the price list

    bool operator==(const ListGridRow &) const = default;
};

// The colour a row of the price list takes from its marks: a sentinel, a
// witness, a pending order or a placed order colours the row when its count
// is 1 (the count is what the list's query gave; a row with two orders of
// the same article keeps its plain colour, as it always did). With several
// marks, orders come before price control.
enum class RowColour { ninguno, centinela, testigo, pedido_pendiente, pedido };
RowColour color_de_fila(const RowMarks &marcas);

// Where a filler puts rows.
class GridSink {
public:
    virtual ~GridSink() = default;

    // Removes the rows; the columns stay.
    virtual void limpiar() = 0;
    // Off holds painting back while many rows go in.
    virtual void redibujar(bool on) = 0;
    virtual void agregar(const ListGridRow &fila) = 0;
};

// Makes the grid row of the cursor's current row.
using RowBuilder = std::function<ListGridRow(const Cursor &row)>;

// The generic filler of the grids: busy state on, clear, hold painting,
// one grid row per row of the query (every column as text unless `armar`
// says otherwise), painting back on, busy state off. On failure the operator
// sees "ER GR001: ..." titled "Error al intentar cargar las Grillas." and the
// log gets "ER GR001 - " with the database's error; false is returned.
bool llenar_grilla(Context &ctx, GridSink &grilla, const QString &sql, const QString &target,
                   const SqlParams &params = {}, const RowBuilder &armar = {});

// The failure of a grid load: the message box, the log line "ER <word> - "
// with the error ("number description errno") and the routine's name, and
// the busy state off.
void avisar_error_grilla(Context &ctx, const QString &palabra, const QString &mensaje, const QString &error,
                         const char *rutina);

} // namespace vendrix

#pragma once

#include <QString>
#include <Qt>

#include <array>
#include <vector>

namespace vendrix {

class Log;
class StatusSink;

// What the log viewer shows, without its widgets: the frame's caption, the
// rows of the grid filtered by level, the text of the detail box, the row
// colours and the "Borrar" button's work.

// One row of the viewer's grid: "Fecha", "Tipo", "Log".
struct FilaLog {
    QString fecha; // what stands inside the line's first brackets
    QString tipo;  // INFO, ERROR, ACTION, SQL or XML
    QString texto; // the message, with the ";;" of the file turned back into ","

    bool operator==(const FilaLog &) const = default;
};

// The viewer's level check boxes, in the order of their indexes.
enum FiltroLog : int {
    kFiltroInfo = 0,
    kFiltroError = 1,
    kFiltroAccion = 2,
    kFiltroSql = 3,
    kFiltroImpresora = 4,
    kFiltroXml = 5,
};
using FiltrosLog = std::array<bool, 6>;
inline constexpr FiltrosLog kTodosLosNiveles = {true, true, true, true, true, true};

// "1023 Bytes", "1,50 KB", "2,00 MB", "1,00 GB"; "0 Bytes" for an empty log.
QString texto_tamano_log(qint64 bytes);
// The caption of the viewer's frame: "Log (" + size text + ")"; a missing
// file counts as empty.
QString titulo_marco_log(const QString &log_path);

// The rows of a log's text whose level box is ticked, in file order. Lines
// without "]" and lines of a level the viewer doesn't know (bare text) are left
// out.
std::vector<FilaLog> filas_log(const QString &text, const FiltrosLog &filtros);
// The same from the file; a missing file gives no rows.
std::vector<FilaLog> leer_filas_log(const QString &log_path, const FiltrosLog &filtros);

// The text of the detail box for a row: XML made readable, one tag a line.
QString detalle_log(const FilaLog &fila);

// The colour of a row by its type.
Qt::GlobalColor color_fila_log(const QString &tipo);

// Deletes the log at the operator's request, logs that it did, and turns the
// error indicator off. False when the file could not be deleted.
bool borrar_log(const Log &log, StatusSink &status);

} // namespace vendrix

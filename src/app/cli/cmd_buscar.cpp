// vendrix-cli buscar: the rows the price list's grid would show for a search
// text, with the search settings of the folder's Config.vdrx.
#include "commands.h"
#include "console_operator.h"

#include "catalogue/search/list_search.h"
#include "core/context.h"

#include <QTextStream>

namespace vendrix::cli {

namespace {

// Each row as one line, its cells tab-separated in the grid's order.
class FilasEnSalida final : public GridSink {
public:
    void limpiar() override {}
    void redibujar(bool) override {}
    void agregar(const ListGridRow &fila) override { out_ << fila.celdas.join(QLatin1Char('\t')) << '\n'; }

private:
    QTextStream out_{stdout};
};

} // namespace

int cmd_buscar(const CliArgs &args)
{
    if (args.positional.size() != 1) {
        QTextStream(stderr) << "Uso: vendrix-cli buscar \"texto\" [--todos] [--carpeta DIR]\n";
        return 2;
    }
    ConsoleOperator op(false);
    SilentStatus status;
    SystemClock clock;
    Context ctx(args.carpeta(), op, status, clock);
    // "Buscar Todos" is the second press, which lifts the cap.
    QString caption = QLatin1String(args.flag(QStringLiteral("--todos")) ? kBotonBuscarTodos : kBotonBuscar);
    FilasEnSalida rows;
    return buscar_articulos(ctx, args.positional.front(), caption, rows) == SearchResult::hecha ? 0 : 1;
}

} // namespace vendrix::cli

// vendrix-cli precio ID: the price panel of one article of the price list,
// with the shop's rules and settings of the folder, for checks by hand, by
// scripts and in benchmarks.
#include "commands.h"
#include "console_operator.h"

#include "catalogue/pricing/article_record.h"
#include "catalogue/pricing/price_panel.h"
#include "catalogue/pricing/rules.h"
#include "core/context.h"

#include <QTextStream>

namespace vendrix::cli {

int cmd_precio(const CliArgs &args)
{
    QTextStream out(stdout);
    QTextStream err(stderr);
    bool es_id = false;
    const qint64 id = args.positional.value(0).toLongLong(&es_id);
    if (!es_id) {
        err << "Uso: vendrix-cli precio ID [--carpeta DIR]\n";
        return 2;
    }

    ConsoleOperator op(args.flag(QStringLiteral("--si")));
    SilentStatus status;
    SystemClock clock;
    Context ctx(args.carpeta(), op, status, clock);

    const ArticleRead lectura = leer_articulo(ctx, id);
    if (!lectura.ok) {
        err << "No se pudo leer la lista de precios de " << ctx.carpeta() << ".\n";
        return 1;
    }
    if (!lectura.encontrado) {
        err << "No existe el artículo con ID=" << id << ".\n";
        return 1;
    }
    const PricedArticle &articulo = lectura.articulo;
    const std::optional<RuleTable> reglas = leer_reglas_proveedor(ctx, articulo.proveedor);
    if (!reglas) {
        err << "No se pudieron leer las reglas de descuento y ganancia.\n";
        return 1;
    }
    const PricePanel panel = cargar_panel(articulo, leer_unidades(ctx, articulo.proveedor, articulo.codigo),
                                           *reglas, PriceSettings::leer(ctx));

    // The fields first, then the messages in the order the operator sees them.
    for (int i = 0; i < kCamposPanel; ++i) {
        const auto campo = static_cast<PanelField>(i);
        out << PricePanel::nombre(campo) << '\t' << panel[campo].text << '\n';
    }
    out.flush();
    publicar_panel(ctx, panel);
    return panel.errores.isEmpty() ? 0 : 1;
}

} // namespace vendrix::cli

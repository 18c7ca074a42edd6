// Pricing a whole price list through the full chain: rules, formulas, dollar
// conversion, units, IVA rates, the shop's rounding and the card price.
// Goal: the 300 000 articles of the demo list in under one second.
//
// The articles are those of the demo shop's list (pesos and dollars, full and
// reduced rate, zero prices); the shop's rules are made up over its suppliers
// and groups: a list row each, group rows, single-article rows, some cells
// empty; one article in twenty is sold by units.
#include "catalogue/pricelist/demo/demo_lists.h"
#include "catalogue/pricing/formula.h"
#include "catalogue/pricing/price_by_id.h"
#include "catalogue/pricing/price_panel.h"
#include "catalogue/pricing/price_settings.h"
#include "catalogue/pricing/rounding.h"
#include "catalogue/pricing/rules.h"

#include <benchmark/benchmark.h>

#include <QSet>

#include <random>
#include <vector>

namespace {

using namespace vendrix;

struct Lista {
    std::vector<PricedArticle> articulos;
    std::vector<std::optional<double>> unidades;
    RuleTable reglas;
};

const Lista &lista()
{
    static const Lista kLista = [] {
        const DemoLists demo = generar_listas_demo(kArticulosDemo, kSemillaDemo);
        // The file holds the new lists and the former lists of the suppliers
        // that sent none.
        std::vector<const SupplierList *> listas;
        QSet<QString> con_lista_nueva;
        for (const SupplierList &l : demo.nuevas) {
            listas.push_back(&l);
            con_lista_nueva.insert(l.proveedor);
        }
        for (const SupplierList &l : demo.anterior.listas) {
            if (!con_lista_nueva.contains(l.proveedor))
                listas.push_back(&l);
        }

        std::mt19937 rng(300000);
        auto azar = [&](int n) { return std::uniform_int_distribution<int>(0, n - 1)(rng); };
        const char *descuentos[] = {"10+5", "20", "", "5-2", "12,5", "30+10+5"};
        const char *ganancias[] = {"30", "40+10", "25", "", "35,5", "50"};
        auto formula = [&](const char *const(&opciones)[6]) { return QString::fromUtf8(opciones[azar(6)]); };
        const QString kTodos = QStringLiteral("Todos los articulos del grupo");

        Lista out;
        std::vector<RuleRow> filas;
        qint64 id = 0;
        for (const SupplierList *l : listas) {
            filas.push_back({l->proveedor, QStringLiteral("General para la lista"), kTodos,
                             formula(descuentos), formula(ganancias)});
            QSet<QString> grupos;
            for (const ListArticle &a : l->articulos) {
                if (!grupos.contains(a.grupo)) {
                    grupos.insert(a.grupo);
                    if (azar(4) == 0)
                        filas.push_back(
                            {l->proveedor, a.grupo, kTodos, formula(descuentos), formula(ganancias)});
                }
                if (!a.codigo.isEmpty() && azar(200) == 0)
                    filas.push_back({l->proveedor, a.grupo, a.codigo + QStringLiteral(" - ") + a.descripcion,
                                     formula(descuentos), formula(ganancias)});
                out.articulos.push_back(
                    {++id, l->proveedor, a.grupo, a.codigo, a.descripcion, a.precio, a.moneda});
                out.unidades.push_back(azar(20) == 0 ? std::optional<double>(6 + azar(20)) : std::nullopt);
            }
        }
        out.reglas = RuleTable(std::move(filas));
        return out;
    }();
    return kLista;
}

PriceSettings ajustes()
{
    return {QStringLiteral("21"),
            QStringLiteral("350,5"),
            QStringLiteral("10"),
            {QStringLiteral("2"), QStringLiteral("1"), QStringLiteral("De 10 en 10"), QString()}};
}

// The price panel of every article: every figure with its text, as the
// screen and the carts get it.
void BM_PanelDeTodaLaLista(benchmark::State &state)
{
    const Lista &l = lista();
    const PriceSettings a = ajustes();
    for (auto _ : state) {
        size_t mensajes = 0;
        for (size_t i = 0; i < l.articulos.size(); ++i) {
            const PricePanel panel = cargar_panel(l.articulos[i], l.unidades[i], l.reglas, a);
            mensajes += panel.mensajes.size();
            benchmark::DoNotOptimize(panel[PanelField::lPrecioSolotarjeta].text.size());
        }
        benchmark::DoNotOptimize(mensajes);
    }
    state.SetItemsProcessed(static_cast<int64_t>(state.iterations() * l.articulos.size()));
}
BENCHMARK(BM_PanelDeTodaLaLista)->Unit(benchmark::kMillisecond);

// The price with IVA of every article, as the carts re-price their lines.
void BM_PrecioFinalDeTodaLaLista(benchmark::State &state)
{
    const Lista &l = lista();
    const PriceSettings a = ajustes();
    for (auto _ : state) {
        double total = 0;
        for (const PricedArticle &art : l.articulos)
            total += precio_final(art, l.reglas, a);
        benchmark::DoNotOptimize(total);
    }
    state.SetItemsProcessed(static_cast<int64_t>(state.iterations() * l.articulos.size()));
}
BENCHMARK(BM_PrecioFinalDeTodaLaLista)->Unit(benchmark::kMillisecond);

void BM_RedondearPrecio(benchmark::State &state)
{
    const Rounder redondeo(ajustes().redondeo);
    double precio = 1344.915;
    for (auto _ : state) {
        benchmark::DoNotOptimize(redondeo.aplicar(precio));
        precio += 0.01;
    }
}
BENCHMARK(BM_RedondearPrecio);

void BM_FormulaAPorcentaje(benchmark::State &state)
{
    const QString formula = QStringLiteral("30+10+5");
    for (auto _ : state)
        benchmark::DoNotOptimize(formula_a_porcentaje(formula, u"descuento"));
}
BENCHMARK(BM_FormulaAPorcentaje);

} // namespace

BENCHMARK_MAIN();

// Pricing a whole price list through the full chain: rules, formulas, dollar
// conversion, units, IVA rates, the shop's rounding and the card price.
// Goal: the 300 000 articles of a large list in under one second.
//
// The list is made in memory with the shapes of a real one: a few dozen
// suppliers with list, group and single-article rules (some cells empty),
// articles in pesos and dollars at full and reduced rate, some sold by units.
#include "catalogue/formula.h"
#include "catalogue/price_by_id.h"
#include "catalogue/price_panel.h"
#include "catalogue/price_settings.h"
#include "catalogue/rounding.h"
#include "catalogue/rules.h"

#include <benchmark/benchmark.h>

#include <random>
#include <vector>

namespace {

using namespace vendrix;

constexpr int kArticulos = 300000;
constexpr int kProveedores = 40;
constexpr int kGruposPorProveedor = 60;

struct Lista {
    std::vector<ArticuloPrecio> articulos;
    std::vector<std::optional<double>> unidades;
    TablaReglas reglas;
};

QString proveedor(int p)
{
    return QStringLiteral("Proveedor %1").arg(p, 2, 10, QLatin1Char('0'));
}

QString grupo(int g)
{
    return QStringLiteral("Grupo %1").arg(g);
}

const Lista &lista()
{
    static const Lista kLista = [] {
        std::mt19937 rng(300000);
        auto azar = [&](int n) { return std::uniform_int_distribution<int>(0, n - 1)(rng); };
        const char *descuentos[] = {"10+5", "20", "", "5-2", "12,5", "30+10+5"};
        const char *ganancias[] = {"30", "40+10", "25", "", "35,5", "50"};

        std::vector<FilaRegla> filas;
        for (int p = 0; p < kProveedores; ++p) {
            filas.push_back({proveedor(p), QStringLiteral("General para la lista"),
                             QStringLiteral("Todos los articulos del grupo"),
                             QString::fromUtf8(descuentos[azar(6)]), QString::fromUtf8(ganancias[azar(6)])});
            for (int g = 0; g < 12; ++g)
                filas.push_back({proveedor(p), grupo(azar(kGruposPorProveedor)),
                                 QStringLiteral("Todos los articulos del grupo"),
                                 QString::fromUtf8(descuentos[azar(6)]),
                                 QString::fromUtf8(ganancias[azar(6)])});
        }
        Lista out;
        out.articulos.reserve(kArticulos);
        out.unidades.reserve(kArticulos);
        static const char *kMonedas[] = {"1", "1", "1", "1", "1", "1", "1", "2", "2", "101", "101", "102"};
        for (int i = 0; i < kArticulos; ++i) {
            const int p = azar(kProveedores);
            const QString codigo = QStringLiteral("C%1").arg(i);
            const QString descripcion = QStringLiteral("Articulo de prueba %1").arg(i);
            const QString g = grupo(azar(kGruposPorProveedor));
            if (azar(200) == 0)
                filas.push_back({proveedor(p), g, codigo + QStringLiteral(" - ") + descripcion,
                                 QString::fromUtf8(descuentos[azar(6)]),
                                 QString::fromUtf8(ganancias[azar(6)])});
            const QString precio =
                QStringLiteral("%1.%2").arg(1 + azar(250000)).arg(azar(100), 2, 10, QLatin1Char('0'));
            out.articulos.push_back(
                {i + 1, proveedor(p), g, codigo, descripcion, precio, QString::fromUtf8(kMonedas[azar(12)])});
            out.unidades.push_back(azar(20) == 0 ? std::optional<double>(6 + azar(20)) : std::nullopt);
        }
        out.reglas = TablaReglas(std::move(filas));
        return out;
    }();
    return kLista;
}

AjustesPrecio ajustes()
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
    const AjustesPrecio a = ajustes();
    for (auto _ : state) {
        size_t mensajes = 0;
        for (size_t i = 0; i < l.articulos.size(); ++i) {
            const PanelPrecio panel = cargar_panel(l.articulos[i], l.unidades[i], l.reglas, a);
            mensajes += panel.mensajes.size();
            benchmark::DoNotOptimize(panel[CampoPanel::lPrecioSolotarjeta].text.size());
        }
        benchmark::DoNotOptimize(mensajes);
    }
    state.SetItemsProcessed(static_cast<int64_t>(state.iterations()) * kArticulos);
}
BENCHMARK(BM_PanelDeTodaLaLista)->Unit(benchmark::kMillisecond);

// The price with IVA of every article, as the carts re-price their lines.
void BM_PrecioFinalDeTodaLaLista(benchmark::State &state)
{
    const Lista &l = lista();
    const AjustesPrecio a = ajustes();
    for (auto _ : state) {
        double total = 0;
        for (const ArticuloPrecio &art : l.articulos)
            total += precio_final(art, l.reglas, a);
        benchmark::DoNotOptimize(total);
    }
    state.SetItemsProcessed(static_cast<int64_t>(state.iterations()) * kArticulos);
}
BENCHMARK(BM_PrecioFinalDeTodaLaLista)->Unit(benchmark::kMillisecond);

void BM_RedondearPrecio(benchmark::State &state)
{
    const Redondeo redondeo(ajustes().redondeo);
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

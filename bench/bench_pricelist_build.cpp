// Times the build of the demo price database (300 000 articles unless
// VENDRIX_BENCH_ARTICULOS says otherwise):
// the lists are made once, then each run writes the file, its news of
// changes and its search index.
#include "catalogue/pricelist/build/extra_rows.h"
#include "catalogue/pricelist/demo/demo_lists.h"
#include "demo_shop_folder.h"

#include <QFile>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>

namespace {

using namespace vendrix;

void BM_GenerarListasDemo(benchmark::State &state)
{
    for (auto _ : state) {
        DemoLists demo = generar_listas_demo(static_cast<int>(state.range(0)), kSemillaDemo);
        benchmark::DoNotOptimize(demo.nuevas.data());
    }
}

void BM_ConstruirListaDemo(benchmark::State &state)
{
    const DemoLists demo = generar_listas_demo(static_cast<int>(state.range(0)), kSemillaDemo);
    QTemporaryDir dir;
    const QString path = dir.filePath(QStringLiteral("Vendrix.install"));
    const BuildOptions options{path,
                               QStringLiteral("Ferretería y Bazar Demo"),
                               QStringLiteral("1.0.0"),
                               QStringLiteral("2026-11-23"),
                               reportes_predeterminados(),
                               tips_predeterminados(QStringLiteral("1.0.0"))};
    for (auto _ : state) {
        const BuildResult r = construir_lista(options, demo.nuevas, &demo.anterior);
        if (!r.ok()) {
            state.SkipWithError(r.error.toStdString().c_str());
            break;
        }
        state.counters["articulos"] = r.articulos;
        state.counters["novedades"] = r.altas + r.bajas + r.cambios_precio + r.cambios_texto;
        state.counters["MB"] = static_cast<double>(QFile(path).size()) / 1e6;
    }
}

} // namespace

BENCHMARK(BM_GenerarListasDemo)
    ->Arg(vendrix::bench::articulos_demo())
    ->Unit(benchmark::kSecond)
    ->Iterations(1);
BENCHMARK(BM_ConstruirListaDemo)
    ->Arg(vendrix::bench::articulos_demo())
    ->Unit(benchmark::kSecond)
    ->Iterations(2);

BENCHMARK_MAIN();

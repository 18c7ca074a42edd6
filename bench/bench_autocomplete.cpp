// The completion of the search box: loading its items (suppliers, groups and
// brands) from a price list of a million articles, the goal being 500 ms;
// and a typed key among 100 000 items, the goal being 1 ms, both the bare
// lookup and the whole key with the drop-down's rows.
//
// The million-article demo list takes long to build (about 46 s in Release):
// it is made once, in a child process, into the temporary folder, and
// reused by the next runs. A shop folder given in
// VENDRIX_BENCH_CARPETA_MILLON is read as it is, never rebuilt.
//
// Figures on the 2-core development machine (Release, load average 4.5
// from other builds), 1 000 000 articles, 78 items:
//   load of the items:           235-258 ms a load (the union of three plain
//                                DISTINCT scans took 2 270 ms)
//   lookup among 100 000 items:  p50 2.5 us, max 80-320 us; the first
//                                lookup sorts the items: 100 ms
//   a whole key (lookup, text, up to 200 rows of the list):
//                                p50 10.7 us, max 107-253 us
#include "catalogue/search/search_suggestions.h"
#include "core/context.h"
#include "demo_shop_folder.h"
#include "widgets/autocomplete.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>

#include <benchmark/benchmark.h>

#include <algorithm>
#include <vector>

namespace {

using namespace vendrix;

constexpr int kArticulos = 1000000;
constexpr int kItems = 100000;

class Operador final : public Operator {
public:
    void inform(const QString &, const QString &) override {}
    void warn(const QString &, const QString &) override {}
    void error(const QString &, const QString &text) override { fprintf(stderr, "%s\n", qPrintable(text)); }
    bool ask(const QString &, const QString &) override { return false; }
};

// The demo folder with the million-article list, built once.
QString carpeta_demo()
{
    return bench::carpeta_demo("VENDRIX_BENCH_CARPETA_MILLON", QStringLiteral("vendrix_bench_millon"),
                               kArticulos);
}

struct Entorno {
    Entorno() : folder(carpeta_demo()), ctx(folder, op, status, clock) {}
    QString folder;
    Operador op;
    SilentStatus status;
    SystemClock clock;
    Context ctx;
};

void BM_CargarSugerencias_Millon(benchmark::State &state)
{
    static Entorno e;
    widgets::AutoComplete completion;
    for (auto _ : state) {
        completion.Cleartems();
        completion.AddItemsQuery(e.ctx.db(), consulta_sugerencias());
        // The first key also sorts the items for the lookups.
        benchmark::DoNotOptimize(completion.Lookup(QStringLiteral("t")));
    }
    state.counters["items"] = static_cast<double>(completion.GetList().size());
}

// Names as a list of customers or articles has them: a word of a few, a
// second word and a number, so that prefixes of one to many letters share
// many items.
QStringList items_sinteticos()
{
    const char *const primeras[] = {"Tornillo", "Tramontano", "Taladro", "Tuerca", "Arandela", "Amoladora",
                                    "Caño",     "Cable",      "Canilla", "Llave",  "Látex",    "Martillo",
                                    "Ñandú",    "Pinza",      "Pincel",  "Sierra", "Serrucho", "Válvula"};
    const char *const segundas[] = {"zincado", "profesional", "cromado", "blanco", "de bronce", "inoxidable"};
    QStringList out;
    out.reserve(kItems);
    for (int i = 0; i < kItems; ++i)
        out << QStringLiteral("%1 %2 %3")
                   .arg(QString::fromUtf8(primeras[(i * 7) % std::size(primeras)]),
                        QString::fromUtf8(segundas[i % std::size(segundas)]))
                   .arg(i);
    return out;
}

const std::vector<QString> kPrefijos{QStringLiteral("t"),         QStringLiteral("tra"),
                                     QStringLiteral("ñan"),       QStringLiteral("CAÑO CROMADO"),
                                     QStringLiteral("sierra de"), QStringLiteral("xyz"),
                                     QStringLiteral("l"),         QStringLiteral("tornillo zincado 9")};

void informar(benchmark::State &state, std::vector<double> &us)
{
    std::sort(us.begin(), us.end());
    state.counters["p50_us"] = us[us.size() / 2];
    state.counters["max_us"] = us.back();
}

void BM_Lookup_100k(benchmark::State &state)
{
    widgets::AutoComplete completion;
    completion.AddItems(items_sinteticos());
    QElapsedTimer indice;
    indice.start();
    completion.Lookup(QString()); // sorts the items once
    state.counters["indice_ms"] = static_cast<double>(indice.nsecsElapsed()) / 1e6;
    std::vector<double> us;
    size_t next = 0;
    for (auto _ : state) {
        QElapsedTimer clock;
        clock.start();
        benchmark::DoNotOptimize(completion.Lookup(kPrefijos[next++ % kPrefijos.size()]));
        us.push_back(static_cast<double>(clock.nsecsElapsed()) / 1e3);
    }
    informar(state, us);
}

// A whole key into a box that holds the prefix less its last letter: the
// lookup, the completed text and the drop-down's rows.
void BM_Tecla_100k(benchmark::State &state)
{
    widgets::AutoComplete completion;
    completion.AddItems(items_sinteticos());
    completion.Lookup(QString());
    std::vector<double> us;
    size_t next = 0;
    for (auto _ : state) {
        const QString &prefijo = kPrefijos[next++ % kPrefijos.size()];
        const QString antes = prefijo.chopped(1);
        completion.Change(antes, static_cast<int>(antes.size()), 0);
        QElapsedTimer clock;
        clock.start();
        completion.KeyPress(prefijo.back());
        us.push_back(static_cast<double>(clock.nsecsElapsed()) / 1e3);
        benchmark::DoNotOptimize(completion.ListRows().size());
    }
    informar(state, us);
}

} // namespace

BENCHMARK(BM_CargarSugerencias_Millon)->Unit(benchmark::kMillisecond)->Iterations(5);
BENCHMARK(BM_Lookup_100k)->Unit(benchmark::kMicrosecond)->Iterations(8000);
BENCHMARK(BM_Tecla_100k)->Unit(benchmark::kMicrosecond)->Iterations(8000);

BENCHMARK_MAIN();

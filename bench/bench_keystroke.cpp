// Typing into the real main window on the 300 000-article demo shop, as a
// fast operator does: one key every 60 ms, driven by the event loop, for a
// fixed mix of texts (one round unmeasured, then three). For each key, the
// time from posting it to the grid `DataGridViewListas` having painted the
// rows of the text typed so far.
// A key whose search was overtaken by the next key counts until the rows
// of a later text are painted (that is when the operator sees a result);
// a key whose text is too short to search counts until the box has painted
// it. Counters: p50_ms, p95_ms, keys, searches, and rss_mb, the process's
// resident memory (VmRSS) at the end, after all the searches.
//
// The window works on a copy of the shop (see program_shop_folder.h);
// VENDRIX_BENCH_CARPETA names another shop to copy (the 1 000 000-article
// one, say). Runs offscreen unless QT_QPA_PLATFORM says otherwise.
// VENDRIX_BENCH_DETALLE=1 prints each measured key's time and text.
//
// Figures on the 2-core development machine (Release, shared with other
// builds), 225 keys, 300 searches; at a load of about 2, then of about 5:
//   300 000 articles:    p50 3.4 ms, p95 8.3 ms (12.5 ms), rss 48 MB
//   1 000 000 articles:  p50 2.6 ms, p95 16 ms (21 ms),    rss 59 MB
// The search itself takes about 1.5 ms of the worker per key; the UI
// thread's share is mostly text layout for painting the box and the grid.
// The slowest keys are those whose text ends in a two-letter word ("ca",
// "llave de", "látex in"): a pair is looked up among the index's trigrams.
#include "bench_figures.h"
#include "core/context.h"
#include "core/status_relay.h"
#include "program_shop_folder.h"
#include "screens/lists/tab_listas.h"
#include "screens/main_window/frm_main.h"
#include "widgets/lynx_grid.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QKeyEvent>
#include <QLineEdit>
#include <QTableView>
#include <QTimer>

#include <benchmark/benchmark.h>

#include <algorithm>
#include <fstream>
#include <string>
#include <vector>

namespace {

using namespace vendrix;

const std::vector<const char *> kTextos{"tornillo zincado", "caño cobre",    "llave de paso",
                                        "cable 2,5",        "amoladora 115", "látex interior"};
constexpr int kPausaTeclaMs = 60;
constexpr int kRondasMedidas = 3;

// Watches the box and the grid's viewport and times each key to the paint
// that shows it.
class Cronometro final : public QObject {
public:
    Cronometro(screens::TabListas &tab, QWidget &viewport) : tab_(tab), viewport_(viewport)
    {
        tab.textoBuscar()->installEventFilter(this);
        viewport.installEventFilter(this);
        QObject::connect(&tab, &screens::TabListas::vistaPreviaPintada, this,
                         [this](const QString &texto) { filas_de_ = texto; });
    }

    // A key about to be posted; its text once typed is `texto`.
    void tecla(const QString &texto, bool buscable)
    {
        pendientes_.push_back({texto, buscable, QElapsedTimer()});
        pendientes_.back().reloj.start();
    }
    bool en_espera() const { return !pendientes_.empty(); }
    // Keys never seen painted are dropped and counted.
    void descartar()
    {
        perdidas += static_cast<int>(pendientes_.size());
        pendientes_.clear();
    }

    std::vector<double> ms;
    bool medir = true;
    int busquedas = 0;
    int perdidas = 0;

private:
    struct Tecla {
        QString texto;
        bool buscable;
        QElapsedTimer reloj;
    };

    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (event->type() != QEvent::Paint || pintando_ || pendientes_.empty())
            return false;
        // The paint itself counts: it runs here, then the keys are timed.
        pintando_ = true;
        QCoreApplication::sendEvent(watched, event);
        pintando_ = false;
        if (watched == &viewport_ && !filas_de_.isEmpty())
            cerrar_hasta_filas();
        else if (watched == tab_.textoBuscar())
            cerrar_cortas();
        return true;
    }

    // Rows of `filas_de_` painted: that key and every earlier one are done.
    void cerrar_hasta_filas()
    {
        auto last = std::find_if(pendientes_.rbegin(), pendientes_.rend(),
                                 [this](const Tecla &t) { return t.buscable && t.texto == filas_de_; });
        filas_de_.clear();
        if (last == pendientes_.rend())
            return;
        ++busquedas;
        const auto end = last.base();
        for (auto it = pendientes_.begin(); it != end; ++it)
            anotar(*it);
        pendientes_.erase(pendientes_.begin(), end);
    }

    // The box painted: the leading keys that search nothing are done.
    void cerrar_cortas()
    {
        while (!pendientes_.empty() && !pendientes_.front().buscable &&
               tab_.textoBuscar()->text().startsWith(pendientes_.front().texto)) {
            anotar(pendientes_.front());
            pendientes_.erase(pendientes_.begin());
        }
    }

    void anotar(const Tecla &t)
    {
        if (medir)
            ms.push_back(static_cast<double>(t.reloj.nsecsElapsed()) / 1e6);
        if (medir && qEnvironmentVariableIsSet("VENDRIX_BENCH_DETALLE"))
            std::fprintf(stderr, "KEY %.2f '%s'\n", ms.back(), qPrintable(t.texto));
    }

    screens::TabListas &tab_;
    QWidget &viewport_;
    std::vector<Tecla> pendientes_;
    QString filas_de_;
    bool pintando_ = false;
};

// Types `texto` key by key into the box, one key every `kPausaTeclaMs`, then
// waits until the last key is painted.
void escribir(Context &ctx, screens::TabListas &tab, Cronometro &crono, const QString &texto)
{
    QLineEdit *box = tab.textoBuscar();
    box->clear();
    QEventLoop loop;
    QTimer teclas;
    int next = 0;
    int waits = 0;
    QObject::connect(&teclas, &QTimer::timeout, &loop, [&] {
        if (next == texto.size()) {
            // A few seconds at most for the last paint.
            if (crono.en_espera() && ++waits > 50)
                crono.descartar();
            if (!crono.en_espera())
                loop.quit();
            return;
        }
        const QString typed = texto.left(++next);
        crono.tecla(typed, rechazo_busqueda(ctx, typed).isEmpty());
        const QString key = texto.mid(next - 1, 1);
        QCoreApplication::postEvent(box, new QKeyEvent(QEvent::KeyPress, 0, Qt::NoModifier, key));
        QCoreApplication::postEvent(box, new QKeyEvent(QEvent::KeyRelease, 0, Qt::NoModifier, key));
    });
    teclas.start(kPausaTeclaMs);
    loop.exec();
}

void informar(benchmark::State &state, const std::vector<double> &ms, int busquedas, int perdidas)
{
    state.counters["p50_ms"] = bench::percentil(ms, 0.50);
    state.counters["p95_ms"] = bench::percentil(ms, 0.95);
    state.counters["keys"] = static_cast<double>(ms.size());
    state.counters["searches"] = busquedas;
    state.counters["lost_keys"] = perdidas;
    state.counters["rss_mb"] = bench::memoria_mb("VmRSS");
}

void BM_TeclaHastaGrilla(benchmark::State &state)
{
    QTemporaryDir copia;
    const QString folder =
        bench::carpeta_programa(copia, {QStringLiteral(VENDRIX_SEED_DIR), QStringLiteral(VENDRIX_DATA_DIR)});
    if (folder.isEmpty()) {
        state.SkipWithError("no se pudo copiar la carpeta de la tienda");
        return;
    }
    bench::OperadorMudo op;
    StatusRelay status;
    SystemClock clock;
    Context ctx(folder, op, status, clock);
    FrmMain window(ctx);
    status.conectar(&window);
    window.cargar();
    window.show();
    screens::TabListas &tab = *window.busqueda();
    Cronometro crono(tab, *tab.grilla()->view()->viewport());

    for (auto _ : state) {
        // A first round opens the files and warms the caches, unmeasured.
        crono.medir = false;
        for (const char *text : kTextos)
            escribir(ctx, tab, crono, QString::fromUtf8(text));
        crono.medir = true;
        for (int round = 0; round < kRondasMedidas; ++round) {
            for (const char *text : kTextos)
                escribir(ctx, tab, crono, QString::fromUtf8(text));
        }
    }
    status.conectar(nullptr);
    informar(state, crono.ms, crono.busquedas, crono.perdidas);
}

} // namespace

BENCHMARK(BM_TeclaHastaGrilla)->Unit(benchmark::kMillisecond)->Iterations(1)->UseRealTime();

int main(int argc, char **argv)
{
    return vendrix::bench::correr_con_qt<QApplication>(argc, argv);
}

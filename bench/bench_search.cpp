// The catalogue search on the demo list (300 000 articles, or
// VENDRIX_BENCH_ARTICULOS): the capped search (the grid's first ten rows and
// the marker) and "Buscar Todos" for a fixed mix of texts, each beside the
// full scan the earlier program ran (the same statement shape on SQLite:
// favourites joined, the haystack concatenated and tested with LIKE per
// term on every row, TOP per branch, UNION, ORDER BY). The mix runs with the
// widening options (prepositions, similar terms, spelling, comments) off,
// then on. Counters: p50_ms and p95_ms over the mix, rows, primera_ms (the
// slowest search of a first round of the mix, the file's pages not yet
// read by the process: it is timed apart and not part of the mix), and
// peak_rss_mb, the process's peak resident memory so far (the list is
// built in a child process so that it doesn't count; the price file is
// read in place, and the pages read count). Each text's median goes to stderr, slowest first.
//
// The demo folder is made once in the temporary folder with favourites,
// comments, marks and orders in the shop database, and the program's
// default settings, a cap of 10 rows. A shop folder given in
// VENDRIX_BENCH_CARPETA is searched as it is, with its own settings:
// nothing in it is rebuilt or written.
//
// Figures on the 2-core development machine (Release), 51 favourites, 16
// comments, 100 orders:
//                          300 000 articles      1 000 000 articles
//   capped, index:         p50 0.30, p95 1.1 ms  p50 0.69, p95 3.4 ms
//   capped, full scan:     p50 325 ms, p95 5.2 s p50 3.0 s, p95 48 s (comments on)
//   Buscar Todos, index:   p50 8.3, p95 13 ms    p50 29-41, p95 51-65 ms
//   Buscar Todos, scan:    p50 304, p95 312 ms   p50 1.46, p95 1.51 s (options off)
// The scan uses SQLite's own LIKE, which ignores the case of A-Z only: it
// finds fewer rows for texts with accents, and is the cheapest a scan gets.
#include "bench_figures.h"
#include "catalogue/search/list_search.h"
#include "core/context.h"
#include "core/migrations.h"
#include "core/seed_files.h"
#include "demo_shop_folder.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>

#include <benchmark/benchmark.h>
#include <sqlite3.h>

#include <algorithm>
#include <fstream>
#include <string>
#include <vector>

namespace {

using namespace vendrix;

const std::vector<const char *> kCapadas{
    "tornillo",  "tornillo zincado", "llave de paso", "caño cobre 1/2", "termofusión",
    "cable 2,5", "amoladora 115",    "o'ring",        "ñandú",          "M8",
    "xyzzy",     "látex interior 20"};
const std::vector<const char *> kTodos{"tornillo zincado", "llave paso",     "caño cobre",
                                       "cable unipolar",   "látex interior", "amoladora profesional"};

// Errors are printed; `callado` says nothing (the migrations on the empty
// shop file of the demo fail for the tables the search doesn't read).
class Operador final : public Operator {
public:
    explicit Operador(bool callado = false) : callado_(callado) {}
    void inform(const QString &, const QString &) override {}
    void warn(const QString &, const QString &) override {}
    void error(const QString &, const QString &text) override
    {
        if (!callado_)
            fprintf(stderr, "%s\n", qPrintable(text));
    }
    bool ask(const QString &, const QString &) override { return false; }

private:
    bool callado_;
};

class Contador final : public GridSink {
public:
    void limpiar() override { filas = 0; }
    void redibujar(bool) override {}
    void agregar(const ListGridRow &fila) override
    {
        benchmark::DoNotOptimize(fila.celdas.size());
        ++filas;
    }
    int filas = 0;
};

void marcar(Context &ctx)
{
    Database &db = ctx.db();
    const QString shop = QStringLiteral("internal");
    Transaction t(db, shop);
    const Matrix some = db.execQ_matriz(
        QStringLiteral(
            "SELECT Proveedor, Codigo, Descripcion, Grupo FROM listas.xls_listas WHERE Codigo <> '' "
            "AND ID % 3001 = 7"),
        shop);
    for (int r = 0; r < some.filas(); ++r) {
        const QString kind = QString(QLatin1String("FFFCTU").at(r % 6));
        db.execNQ(
            QStringLiteral("INSERT INTO vendrix_articulos_testigo (Proveedor, Codigo, Tipo, Descripcion) "
                           "VALUES (?, ?, ?, ?)"),
            shop, {some.at(0, r), some.at(1, r), kind, QStringLiteral("oferta de la semana")});
        db.execNQ(QStringLiteral("INSERT INTO vendrix_pedidos (Descripcion, Grupo, Estado) VALUES (?, ?, ?)"),
                  shop,
                  {some.at(2, r), some.at(3, r),
                   r % 2 ? QStringLiteral("Pedido") : QStringLiteral("Pedido Pendiente")});
    }
    t.commit();
}

// The demo shop with favourites, comments, marks and orders.
QString carpeta_demo()
{
    return bench::carpeta_demo("VENDRIX_BENCH_CARPETA", QStringLiteral("vendrix_bench_busqueda"),
                               bench::articulos_demo(), [](const QString &folder) {
                                   Operador op(true);
                                   SilentStatus status;
                                   SystemClock clock;
                                   Context ctx(folder, op, status, clock);
                                   // only the tables the search reads matter here
                                   ejecutar_migraciones(ctx);
                                   marcar(ctx);
                               });
}

struct Entorno {
    Entorno() : folder(carpeta_demo()), ctx(folder, op, status, clock)
    {
        if (qEnvironmentVariableIsSet("VENDRIX_BENCH_CARPETA")) {
            // The shop as the program opens it: missing working files
            // copied from their seeds, the shop database brought up to date.
            asegurar_archivo(ctx, kSemillaListas);
            asegurar_archivo(ctx, kSemillaClientes);
            ejecutar_migraciones(ctx);
            return;
        }
        ctx.escribir_parametro(QStringLiteral("busqueda_cantidad_resultados"), QStringLiteral("1"));
        ctx.escribir_parametro(QStringLiteral("busqueda_cantidad_resultados_combo"), QStringLiteral("10"));
        opciones(false);
    }

    // The options that widen a search, all off or all on (a given shop
    // keeps its own).
    void opciones(bool on)
    {
        if (qEnvironmentVariableIsSet("VENDRIX_BENCH_CARPETA"))
            return;
        for (const char *key : {"busqueda_ignorarPreposiciones", "busqueda_terminos_similares",
                                "busqueda_ortografia", "busqueda_buscar_en_comentarios"})
            ctx.escribir_parametro(QLatin1String(key), on ? QStringLiteral("1") : QStringLiteral("0"));
    }
    QString folder;
    CatalogueSearcher buscador; // the price tab's own, kept between searches
    Operador op;
    SilentStatus status;
    SystemClock clock;
    Context ctx;
};

Entorno &entorno()
{
    static Entorno e;
    return e;
}

// The earlier program's statement on SQLite: the same shape, the built-in
// LIKE on the concatenated fields of every row, each text of a term an
// alternative, with an escape so that `%` and `_` in a term match
// themselves, as in the indexed search; the user's comment closes the
// haystack when the search takes comments.
QString sentencia_escaneo(const SearchCondition &condition, bool capped)
{
    const QString comment =
        condition.con_comentario
            ? QStringLiteral("ifnull((SELECT Descripcion FROM clientes.vendrix_articulos_testigo "
                             "WHERE Codigo = l.Codigo AND Proveedor = l.Proveedor AND "
                             "Tipo = 'U'), '')")
            : QStringLiteral("''");
    const QString haystack = QStringLiteral("(ifnull(l.Proveedor,'') || ' ' || ifnull(l.Grupo,'') || ' ' || "
                                            "ifnull(l.Observaciones,'') || ' ' || "
                                            "ifnull(l.Descripcion,'') || ' ' || ifnull(l.Marca,'') || ' ' || "
                                            "ifnull(l.Codigo,'') || ' ' || ") +
                             comment + QLatin1Char(')');
    QString where;
    for (const QStringList &term : condition.terminos) {
        QStringList any;
        for (qsizetype i = 0; i < term.size(); ++i)
            any << haystack + QStringLiteral(" LIKE ? ESCAPE '\\'");
        where += QLatin1Char('(') + any.join(QStringLiteral(" OR ")) + QStringLiteral(") AND ");
    }
    where += QStringLiteral("1");
    const QString marks = QStringLiteral(
        "(SELECT count(*) FROM clientes.vendrix_articulos_testigo t WHERE l.Proveedor = t.Proveedor AND "
        "l.Codigo <> '' AND l.Codigo = t.Codigo AND t.Tipo = 'C') AS centinela, "
        "(SELECT count(*) FROM clientes.vendrix_articulos_testigo t WHERE l.Proveedor = t.Proveedor AND "
        "l.Codigo <> '' AND l.Codigo = t.Codigo AND t.Tipo = 'T') AS testigo, "
        "(SELECT count(*) FROM clientes.vendrix_pedidos p WHERE l.Descripcion = p.Descripcion AND "
        "l.Grupo = p.Grupo AND p.Estado = 'Pedido Pendiente') AS pendiente, "
        "(SELECT count(*) FROM clientes.vendrix_pedidos p WHERE l.Descripcion = p.Descripcion AND "
        "l.Grupo = p.Grupo AND p.Estado = 'Pedido') AS pedido");
    const QString row = QStringLiteral(
        "l.ID, l.Proveedor, l.Grupo, l.Descripcion, iif(Moneda='1' or Moneda='101','Pesos',"
        "iif(Moneda='2' or Moneda='102','Dolares',Moneda)) AS MonedaA, l.Marca, l.Precio, l.Codigo, ");
    return QStringLiteral("SELECT * FROM (SELECT ") + row + QStringLiteral("1 AS favorito, ") + marks +
           QStringLiteral(
               " FROM xls_listas l JOIN clientes.vendrix_articulos_testigo atest ON (l.Proveedor = "
               "atest.Proveedor AND l.Codigo <> '' AND l.Codigo = atest.Codigo AND atest.Tipo = 'F') "
               "WHERE ") +
           where + QStringLiteral(" UNION SELECT * FROM (SELECT ") + row +
           QStringLiteral(
               "(SELECT count(*) FROM clientes.vendrix_articulos_testigo t WHERE l.Proveedor = "
               "t.Proveedor AND l.Codigo <> '' AND l.Codigo = t.Codigo AND t.Tipo = 'F') AS favorito, ") +
           marks + QStringLiteral(" FROM xls_listas l WHERE ") + where +
           (capped ? QStringLiteral(" LIMIT 11") : QStringLiteral(" LIMIT 100001")) +
           QStringLiteral(")) ORDER BY favorito DESC, ID");
}

// A term for `LIKE ? ESCAPE '\'`: every character of it stands for itself.
QString literal_like(QString term)
{
    term.replace(QLatin1Char('\\'), QLatin1String("\\\\"));
    term.replace(QLatin1Char('%'), QLatin1String("\\%"));
    return term.replace(QLatin1Char('_'), QLatin1String("\\_"));
}

// The scan of the text with the shop's options, as the search reads them.
int escanear(Context &ctx, const char *text, bool capped)
{
    const SearchOptions options = leer_opciones_busqueda(ctx);
    const SearchCondition condition =
        consulta_de_texto(options, texto_de_trabajo(options, QString::fromUtf8(text)), kLimiteTodos)
            .condicion;
    const QByteArray sql = sentencia_escaneo(condition, capped).toUtf8();
    sqlite3 *db = ctx.db().conexion(QStringLiteral("external"));
    sqlite3_stmt *stmt = nullptr;
    sqlite3_prepare_v2(db, sql.constData(), -1, &stmt, nullptr);
    int n = 0;
    for (int branch = 0; branch < 2; ++branch) {
        for (const QStringList &term : condition.terminos) {
            for (const QString &alternative : term) {
                const QByteArray pattern =
                    (QLatin1Char('%') + literal_like(texto_literal(alternative)) + QLatin1Char('%')).toUtf8();
                sqlite3_bind_text(stmt, ++n, pattern.constData(), -1, SQLITE_TRANSIENT);
            }
        }
    }
    int rows = 0;
    while (sqlite3_step(stmt) == SQLITE_ROW && (!capped || rows < 11)) {
        QStringList cells;
        for (int c = 0; c < 7; ++c)
            cells << QString::fromUtf8(reinterpret_cast<const char *>(sqlite3_column_text(stmt, c)));
        benchmark::DoNotOptimize(cells.size());
        ++rows;
    }
    sqlite3_finalize(stmt);
    return rows;
}

void informar(benchmark::State &state, const std::vector<double> &ms, int rows)
{
    state.counters["p50_ms"] = bench::percentil(ms, 0.50);
    state.counters["p95_ms"] = bench::percentil(ms, 0.95);
    state.counters["rows"] = rows;
    state.counters["peak_rss_mb"] = bench::memoria_mb("VmHWM");
}

// Each text's median, slowest first, to stderr: where the time goes.
void detallar(const char *name, const std::vector<const char *> &texts, const std::vector<double> &ms)
{
    std::vector<std::pair<double, const char *>> medians;
    for (size_t t = 0; t < texts.size(); ++t) {
        std::vector<double> own;
        for (size_t i = t; i < ms.size(); i += texts.size())
            own.push_back(ms[i]);
        medians.emplace_back(bench::percentil(own, 0.5), texts[t]);
    }
    std::sort(medians.rbegin(), medians.rend());
    fprintf(stderr, "%s, mediana por texto:", name);
    for (const auto &[median, text] : medians)
        fprintf(stderr, " \"%s\" %.2f ms;", text, median);
    fprintf(stderr, "\n");
}

// `con_opciones`: the mix's second round, and every other, with the
// widening options on.
void correr(benchmark::State &state, const std::vector<const char *> &texts, bool capped, bool indexed,
            bool con_opciones = true)
{
    Entorno &e = entorno();
    Contador grid;
    std::vector<double> ms;
    int rows = 0;
    size_t next = 0;
    // The first search of each text reads the file's pages into the
    // process: that round is the first search of a session, timed on its
    // own (`primera_ms`, the slowest of the round) and left out of the mix.
    double first = 0;
    if (indexed) {
        e.opciones(false);
        for (const char *text : texts) {
            QString caption = QLatin1String(capped ? kBotonBuscar : kBotonBuscarTodos);
            QElapsedTimer clock;
            clock.start();
            buscar_articulos(e.ctx, QString::fromUtf8(text), caption, grid, {}, &e.buscador);
            first = std::max(first, static_cast<double>(clock.nsecsElapsed()) / 1e6);
        }
        state.counters["primera_ms"] = first;
    }
    for (auto _ : state) {
        // The mix with the widening options off, then on.
        state.PauseTiming();
        const size_t round = next / texts.size();
        if (next % texts.size() == 0)
            e.opciones(con_opciones && round % 2 == 1);
        state.ResumeTiming();
        const char *text = texts[next++ % texts.size()];
        QElapsedTimer clock;
        clock.start();
        if (indexed) {
            QString caption = QLatin1String(capped ? kBotonBuscar : kBotonBuscarTodos);
            buscar_articulos(e.ctx, QString::fromUtf8(text), caption, grid, {}, &e.buscador);
            rows += grid.filas;
        } else {
            rows += escanear(e.ctx, text, capped);
        }
        ms.push_back(static_cast<double>(clock.nsecsElapsed()) / 1e6);
    }
    if (indexed)
        detallar(capped ? "capada" : "Buscar Todos", texts, ms);
    e.opciones(false);
    informar(state, ms, rows);
}

void BM_BuscarCapado_Indice(benchmark::State &state)
{
    correr(state, kCapadas, true, true);
}
void BM_BuscarCapado_Escaneo(benchmark::State &state)
{
    correr(state, kCapadas, true, false);
}
void BM_BuscarTodos_Indice(benchmark::State &state)
{
    correr(state, kTodos, false, true);
}
// With the comments on, the scan reads a comment per article and term: a
// minute a search at a million articles. Its figures are those of the
// options off, which flatter it.
void BM_BuscarTodos_Escaneo(benchmark::State &state)
{
    correr(state, kTodos, false, false, false);
}

} // namespace

BENCHMARK(BM_BuscarCapado_Indice)->Unit(benchmark::kMillisecond)->Iterations(240);
BENCHMARK(BM_BuscarCapado_Escaneo)->Unit(benchmark::kMillisecond)->Iterations(24);
BENCHMARK(BM_BuscarTodos_Indice)->Unit(benchmark::kMillisecond)->Iterations(60);
BENCHMARK(BM_BuscarTodos_Escaneo)->Unit(benchmark::kMillisecond)->Iterations(6);

BENCHMARK_MAIN();

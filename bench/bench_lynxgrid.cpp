// The grid with a full price list: filling 300 000 rows of 7 cells between
// setRedraw(false) and setRedraw(true), sorting them by a number and by a text column, and
// painting one scroll step of the rows on screen.
//
// Memory: a row costs its GridRow record (40 bytes, plus the vector's
// spare room) and one string with its cells joined by tabs (2 bytes a
// character plus a header, and what spare room the caller's string had).
// The "bytes_per_row" counter measured about 360 bytes for these rows of
// some 110 characters, so about 110 MB for 300 000 rows.
//
// Figures on the 2-core development machine (Release, offscreen, CPU time
// with the machine shared): fill 300 000 rows 116 ms (442 ms counting the
// building of the lines), sort by price 163 ms, by description 446 ms,
// one page of scrolling painted 4.5 ms.
#include "bench_figures.h"
#include "widgets/lynx_grid.h"

#include <QApplication>
#include <QScrollBar>
#include <QTableView>

#include <benchmark/benchmark.h>
#include <malloc.h>

#include <vector>

using vendrix::widgets::ColumnSpec;
using vendrix::widgets::ColumnType;
using vendrix::widgets::LynxGrid;

namespace {

constexpr int kRows = 300000;

// A price-list row: ID, supplier, group, description, currency, brand, price.
QString price_row(int i)
{
    return QString::number(100000 + i) + "\tFERRETERA DEL SUR SA\tBULONERIA " + QString::number(i % 40) +
           "\tTORNILLO AUTOPERFORANTE CABEZA HEXAGONAL 14 X " + QString::number(i % 97) +
           " ZINCADO\tPesos\tFISCHER\t" + QString::number((i * 7919) % 100000 / 100.0, 'f', 2);
}

const std::vector<QString> &price_rows()
{
    static const std::vector<QString> rows = [] {
        std::vector<QString> r;
        r.reserve(kRows);
        for (int i = 0; i < kRows; ++i)
            r.push_back(price_row(i));
        return r;
    }();
    return rows;
}

void add_price_columns(LynxGrid &grid)
{
    grid.AddColumn({.heading = "ID", .width = 800, .type = ColumnType::Number});
    grid.AddColumn({.heading = "Proveedor", .width = 2000});
    grid.AddColumn({.heading = "Grupo", .width = 2000});
    grid.AddColumn({.heading = "Descripción", .width = 5000});
    grid.AddColumn({.heading = "Moneda", .width = 800});
    grid.AddColumn({.heading = "Marca", .width = 1200});
    grid.AddColumn({.heading = "Precio",
                    .width = 1000,
                    .alignment = Qt::AlignRight | Qt::AlignVCenter,
                    .type = ColumnType::Number});
}

// An empty price-list grid, shown on the offscreen screen.
std::unique_ptr<LynxGrid> price_grid()
{
    auto grid = std::make_unique<LynxGrid>();
    add_price_columns(*grid);
    grid->resize(1200, 700);
    grid->show();
    return grid;
}

void fill(LynxGrid &grid, const std::vector<QString> &rows)
{
    grid.setRedraw(false);
    for (const QString &row : rows)
        grid.AddItem(row);
    grid.setRedraw(true);
}

// The grid's own cost: the lines exist already (shared, not copied).
void BM_Fill300k(benchmark::State &state)
{
    const std::vector<QString> &rows = price_rows();
    for (auto _ : state) {
        state.PauseTiming();
        auto grid = price_grid();
        state.ResumeTiming();
        fill(*grid, rows);
        state.PauseTiming();
        grid.reset();
        state.ResumeTiming();
    }
}
BENCHMARK(BM_Fill300k)->Unit(benchmark::kMillisecond);

size_t heap_in_use()
{
    const struct mallinfo2 info = mallinfo2();
    return info.uordblks + info.hblkhd;
}

// As a filler reading a recordset does it: each line is built, then added.
// The heap the grid keeps afterwards, per row, is the memory a row costs.
void BM_Fill300kBuildingLines(benchmark::State &state)
{
    double bytes_per_row = 0;
    for (auto _ : state) {
        state.PauseTiming();
        auto grid = price_grid();
        const size_t before = heap_in_use();
        state.ResumeTiming();
        grid->setRedraw(false);
        for (int i = 0; i < kRows; ++i)
            grid->AddItem(price_row(i));
        grid->setRedraw(true);
        state.PauseTiming();
        bytes_per_row = double(heap_in_use() - before) / kRows;
        grid.reset();
        state.ResumeTiming();
    }
    state.counters["bytes_per_row"] = bytes_per_row;
}
BENCHMARK(BM_Fill300kBuildingLines)->Unit(benchmark::kMillisecond);

LynxGrid &filled_grid()
{
    static LynxGrid *grid = [] {
        LynxGrid *g = price_grid().release();
        fill(*g, price_rows());
        return g;
    }();
    return *grid;
}

// By price (a number column, arg 6) and by description (text, arg 3).
void BM_Sort300k(benchmark::State &state)
{
    LynxGrid &grid = filled_grid();
    const int col = int(state.range(0));
    bool ascending = true;
    for (auto _ : state) {
        grid.Sort(col, ascending);
        ascending = !ascending;
    }
}
BENCHMARK(BM_Sort300k)->Arg(6)->Arg(3)->Unit(benchmark::kMillisecond);

// One page down through the list, and the rows on screen painted.
void BM_ScrollStepPaint(benchmark::State &state)
{
    LynxGrid &grid = filled_grid();
    QScrollBar *bar = grid.view()->verticalScrollBar();
    for (auto _ : state) {
        const int next = bar->value() + bar->pageStep();
        bar->setValue(next > bar->maximum() ? 0 : next);
        benchmark::DoNotOptimize(grid.view()->viewport()->grab());
    }
}
BENCHMARK(BM_ScrollStepPaint)->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char **argv)
{
    const int result = vendrix::bench::correr_con_qt<QApplication>(argc, argv);
    delete &filled_grid();
    return result;
}

#!/usr/bin/env python3
"""Prints the goals table from the benchmarks' JSON files in a folder.

Each file is <benchmark>_<articles>.json as written by --benchmark_out.
"""
import json
import os
import sys

SIZES = [(300000, "300k"), (1000000, "1M")]


def counters(folder, bench, size):
    path = os.path.join(folder, f"{bench}_{size}.json")
    if not os.path.exists(path):
        return {}
    with open(path, encoding="utf-8") as f:
        data = json.load(f)
    return {b["name"].split("/")[0]: b for b in data.get("benchmarks", [])}


def value(runs, name, counter):
    run = runs.get(name)
    return None if run is None or counter not in run else float(run[counter])


def cell(v, fmt):
    return "-" if v is None else fmt.format(v)


def main():
    folder = sys.argv[1]
    rows = []
    for size, label in SIZES:
        search = counters(folder, "bench_search", size)
        build = counters(folder, "bench_pricelist_build", size)
        keys = counters(folder, "bench_keystroke", size)
        start = counters(folder, "bench_startup", size)
        big = size >= 1000000
        cap_goal = (2, 5) if big else (0.5, 1)
        cap50 = value(search, "BM_BuscarCapado_Indice", "p50_ms")
        cap95 = value(search, "BM_BuscarCapado_Indice", "p95_ms")
        scan50 = value(search, "BM_BuscarCapado_Escaneo", "p50_ms")
        scan95 = value(search, "BM_BuscarCapado_Escaneo", "p95_ms")
        all95 = value(search, "BM_BuscarTodos_Indice", "p95_ms")
        all50 = value(search, "BM_BuscarTodos_Indice", "p50_ms")
        allscan95 = value(search, "BM_BuscarTodos_Escaneo", "p95_ms")
        capfirst = value(search, "BM_BuscarCapado_Indice", "primera_ms")
        allfirst = value(search, "BM_BuscarTodos_Indice", "primera_ms")
        key95 = next((value(keys, n, "p95_ms") for n in keys), None)
        key50 = next((value(keys, n, "p50_ms") for n in keys), None)
        rss = next((value(keys, n, "rss_mb") for n in keys), None)
        st50 = next((value(start, n, "start_p50_s") for n in start), None)
        st95 = next((value(start, n, "start_p95_s") for n in start), None)
        mb = value(build, "BM_ConstruirListaDemo", "MB")
        secs = None
        if "BM_ConstruirListaDemo" in build:
            run = build["BM_ConstruirListaDemo"]
            secs = float(run["real_time"]) * {"s": 1, "ms": 1e-3}.get(run.get("time_unit", "s"), 1)

        def ok(v, goal):
            return "" if v is None else ("sí" if v <= goal else "NO")

        def ratio(scan, idx):
            return "-" if scan is None or not idx else f"{scan / idx:.0f}x"

        rows += [
            (label, "búsqueda capada p50 (ms)", cell(cap50, "{:.2f}"), cap_goal[0], ok(cap50, cap_goal[0]),
             cell(scan50, "{:.0f}"), ratio(scan50, cap50)),
            (label, "búsqueda capada p95 (ms)", cell(cap95, "{:.2f}"), cap_goal[1], ok(cap95, cap_goal[1]),
             cell(scan95, "{:.0f}"), ratio(scan95, cap95)),
            (label, "Buscar Todos p95 (ms)", cell(all95, "{:.1f}"), 30 if big else 10,
             ok(all95, 30 if big else 10), cell(allscan95, "{:.0f}"), ratio(allscan95, all95)),
            (label, "Buscar Todos p50 (ms)", cell(all50, "{:.1f}"), "", "", "", ""),
            (label, "primera búsqueda, la más lenta: capada / Todos (ms)",
             cell(capfirst, "{:.1f}") + " / " + cell(allfirst, "{:.1f}"), "", "", "", ""),
            (label, "tecla a grilla pintada p95 (ms)", cell(key95, "{:.1f}"), 33 if big else 16,
             ok(key95, 33 if big else 16), "", ""),
            (label, "tecla a grilla pintada p50 (ms)", cell(key50, "{:.1f}"), "", "", "", ""),
            (label, "inicio a ventana p50 / p95 (s)",
             cell(st50, "{:.2f}") + " / " + cell(st95, "{:.2f}"), 0.8 if big else 0.5,
             ok(st95, 0.8 if big else 0.5), "", ""),
            (label, "archivo de precios (MB)", cell(mb, "{:.0f}"), 330 if big else 100,
             ok(mb, 330 if big else 100), "", ""),
            (label, "construcción del archivo (s)", cell(secs, "{:.1f}"), 30 if big else 8,
             ok(secs, 30 if big else 8), "", ""),
            (label, "memoria tras 100 búsquedas (MB)", cell(rss, "{:.0f}"), 300 if big else 150,
             ok(rss, 300 if big else 150), "", ""),
        ]
    head = ("Lista", "Medida", "Vendrix", "Objetivo", "Cumple", "Escaneo", "Relación")
    widths = [max(len(str(r[i])) for r in rows + [head]) for i in range(len(head))]
    line = lambda r: "| " + " | ".join(str(c).ljust(w) for c, w in zip(r, widths)) + " |"
    print(line(head))
    print("|" + "|".join("-" * (w + 2) for w in widths) + "|")
    for r in rows:
        print(line(r))


if __name__ == "__main__":
    main()

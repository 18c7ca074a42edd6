#!/usr/bin/env bash
# The search and price-file goals at both list sizes, as one table: each
# benchmark runs once per size on the same demo shop (made on the first run
# in the temporary folder, then reused), writes its figures as JSON, and
# goals_table.py sets them against the goals.
set -euo pipefail

BUILD="${1:?la carpeta de la compilación}"
OUT="$(mktemp -d)"
trap 'rm -rf "$OUT"' EXIT
HERE="$(cd "$(dirname "$0")" && pwd)"

for n in 300000 1000000; do
  for b in bench_pricelist_build bench_search bench_keystroke bench_startup; do
    exe="$BUILD/bench/$b"
    [ -x "$exe" ] || continue
    filter=.
    [ "$b" = bench_pricelist_build ] && filter=Construir
    echo "== $b, $n artículos" >&2
    VENDRIX_BENCH_ARTICULOS=$n "$exe" --benchmark_filter="$filter" \
      --benchmark_out="$OUT/${b}_$n.json" --benchmark_out_format=json >&2
  done
done
python3 "$HERE/goals_table.py" "$OUT"

#!/usr/bin/env bash
# vendrix-cli buscar on a small demo shop: the capped grid with its marker
# row, the uncapped second press, texts with brackets, "%" and "_", and a
# refused text.
set -euo pipefail
cli="$1"
work="$(mktemp -d)"
trap 'rm -rf "$work"' EXIT
fail() { echo "FALLA: $*" >&2; exit 1; }

"$cli" demo --articulos 2000 --carpeta "$work" >/dev/null || fail "demo: código $?"
"$cli" verificar --carpeta "$work" >/dev/null || fail "verificar: código $?"

# The default settings cap the grid at 10 rows.
out="$("$cli" buscar "tornillo" --carpeta "$work")" || fail "buscar: código $?"
[ "$(wc -l <<<"$out")" -eq 11 ] || fail "se esperaban 10 filas y la marca: $out"
tail -n1 <<<"$out" | grep -qxP '\.\.\.VENDRIX\.\.\.\t\.\.\.VENDRIX\.\.\.\t\.\.\.\t\.\.\. Haga click aquí para ver mas resultados \.\.\.\t\.\.\.\t\.\.\.\t\.\.\.' ||
  fail "falta la fila de más resultados: $(tail -n1 <<<"$out")"
head -n1 <<<"$out" | grep -qP '^\d+\t[^\t]+\t[^\t]+\t[^\t]*TORNILLO[^\t]*\t(Pesos|Dolares)\t[^\t]*\t[0-9,]+$' -i ||
  fail "fila inesperada: $(head -n1 <<<"$out")"

all="$("$cli" buscar "tornillo" --todos --carpeta "$work")" || fail "buscar --todos: código $?"
[ "$(wc -l <<<"$all")" -gt 10 ] || fail "--todos dio $(wc -l <<<"$all") filas"
grep -q "VENDRIX" <<<"$all" && fail "--todos muestra la marca"
[ "$(head -n10 <<<"$all")" == "$(head -n10 <<<"$out")" ] || fail "las primeras filas difieren"

# Every character of a term stands for itself: brackets, "%" and "_" too.
for text in "[X] DE" "50%" "A_B"; do
  term="${text%% *}"
  out="$("$cli" buscar "$text" --carpeta "$work")" || fail "buscar $text: código $?"
  rows="$(grep -v VENDRIX <<<"$out" || true)"
  [ -n "$rows" ] || fail "$text no encontró nada"
  other="$(grep -viF -- "$term" <<<"$rows" || true)"
  [ -z "$other" ] || fail "$text: filas sin $term: $other"
done

set +e
out="$("$cli" buscar "" --carpeta "$work")"
code=$?
set -e
[ "$code" -eq 1 ] || fail "texto vacío: código $code"
[ "$out" == $'MENSAJE\tBúsqueda de Artículos\tPor favor ingrese al menos un término en la búsqueda.' ] ||
  fail "texto vacío: $out"
echo "1 passed, 0 failed"

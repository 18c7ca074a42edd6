#!/usr/bin/env bash
# vendrix-cli verificar on fresh folders: a first run from the seed, a second
# run with nothing to do, and a shop file that can't be opened.
set -euo pipefail
cli="$1"
seeds="$2"
work="$(mktemp -d)"
trap 'rm -rf "$work"' EXIT
fail() { echo "FALLA: $*" >&2; exit 1; }

mkdir "$work/nueva"
cp "$seeds/clientes.install" "$work/nueva/"
out="$("$cli" verificar --carpeta "$work/nueva")" || fail "primera verificación: código $?"
grep -qx "clientes.vdrx: copiado de clientes.install" <<<"$out" || fail "no copió la semilla: $out"
grep -qx "Config.vdrx: creado con los valores por defecto" <<<"$out" || fail "no creó Config.vdrx"
grep -qx "Actualizado: se agrego la tabla Vendrix_Pagos." <<<"$out" || fail "no actualizó el esquema"
[ -f "$work/nueva/update.bat" ] || fail "no escribió update.bat"

out="$("$cli" verificar --carpeta "$work/nueva")" || fail "segunda verificación: código $?"
grep -qx "El esquema de la base de datos ya estaba al día." <<<"$out" || fail "segunda verificación: $out"

mkdir "$work/rota"
printf 'no es una base de datos%.0s' {1..100} >"$work/rota/clientes.vdrx"
set +e
err="$("$cli" verificar --carpeta "$work/rota" 2>&1 >/dev/null)"
code=$?
set -e
[ "$code" -eq 1 ] || fail "base dañada: código $code"
grep -q "^No se puede abrir la base de datos del comercio (clientes.vdrx): 26 file is not a database" <<<"$err" ||
  fail "base dañada: $err"
echo "1 passed, 0 failed"

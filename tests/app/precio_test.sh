#!/usr/bin/env bash
# vendrix-cli precio on a folder with a small price list: the panel of an
# article field by field, the messages the operator would see, and the exit
# codes of a missing article and of a bad call.
set -euo pipefail
cli="$1"
seeds="$2"
work="$(mktemp -d)"
trap 'rm -rf "$work"' EXIT
fail() { echo "FALLA: $*" >&2; exit 1; }

cp "$seeds/clientes.install" "$work/"
"$cli" verificar --carpeta "$work" >/dev/null || fail "verificar: código $?"
sed -i 's/^recargo_tarjeta=0/recargo_tarjeta=10/' "$work/Config.vdrx"
sqlite3 "$work/Vendrix.vdrxdb" \
  "CREATE TABLE xls_listas (ID INTEGER PRIMARY KEY AUTOINCREMENT, Proveedor TEXT, FechaLista TEXT, Grupo TEXT,
     Codigo TEXT, Descripcion TEXT, Marca TEXT, UnidaddeMedida TEXT, Precio TEXT, Moneda TEXT, Observaciones TEXT);
   INSERT INTO xls_listas (ID, Proveedor, Grupo, Codigo, Descripcion, Precio, Moneda) VALUES
     (1, 'Acme', 'Tornillos', 'T1', 'Tornillo', '1000', '1'),
     (2, 'Otro', 'Tuercas', 'X1', 'Tuerca', '1000', '1');"
sqlite3 "$work/clientes.vdrx" \
  "INSERT INTO vendrix_descuentos (Proveedor, Grupo, Articulo, Descuento, Ganancia, borrable) VALUES
     ('Acme', 'General para la lista', 'Todos los articulos del grupo', '10+5', '30', 'false'),
     ('Otro', 'General para la lista', 'Todos los articulos del grupo', '101', '30', 'false');"

expected="$(printf '%s\n' \
  $'Label50\t(IVA 21%)' \
  $'articulo_label\tPrecio de Venta con IVA (21%)' \
  $'TextBox_PLista\t1000' \
  $'TextBox_PLista_original\t1344,915' \
  $'TextBox_PLista_grilla\t1000' \
  $'TextBox_PLista_grilla_unidad\t1000' \
  $'Label_PListacustomBig\t' \
  $'Label_PListacustom\t' \
  $'TextBox_Ganancia\t30' \
  $'TextBox_Descuento\t10+5' \
  $'Textbox_desusr\t0' \
  $'TextBox_Costo\t855' \
  $'TextBox_PTotal\t1111,5' \
  $'TextBox_PTotal_civa\t1344,92' \
  $'lPrecioSolo\t1344,92' \
  $'lPrecioSolotarjeta\t1479,41')"
out="$("$cli" precio 1 --carpeta "$work")" || fail "precio 1: código $?"
[ "$out" = "$expected" ] || fail "precio 1: $out"

out="$("$cli" precio 2 --carpeta "$work")" || fail "precio 2: código $?"
messages="$(grep '^MENSAJE' <<<"$out")"
[ "$messages" = "$(printf '%s\n' \
  $'MENSAJE\tError en el valor total del descuento\tEl valor del descuento debe estar entre 0 y 100.  Por favor modifique el descuento y vuelva a intentarlo.' \
  $'MENSAJE\tControlar Ganancia y Descuentos\tAtención: El precio final sin IVA es menor al costo del artículo. Por favor verifique los datos ingresados.')" ] ||
  fail "precio 2, mensajes: $messages"
[ "$(head -n 16 <<<"$out" | tail -n 1)" = $'lPrecioSolotarjeta\t-17,3' ] || fail "precio 2: $out"

set +e
err="$("$cli" precio 9 --carpeta "$work" 2>&1 >/dev/null)"
code=$?
set -e
[ "$code" -eq 1 ] || fail "artículo inexistente: código $code"
[ "$err" = "No existe el artículo con ID=9." ] || fail "artículo inexistente: $err"
set +e
"$cli" precio --carpeta "$work" >/dev/null 2>&1
code=$?
set -e
[ "$code" -eq 2 ] || fail "sin ID: código $code"
echo "1 passed, 0 failed"

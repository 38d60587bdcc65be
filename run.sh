#!/usr/bin/env bash
# Makes an example drawing with TABLE, once from nothing and once from a CSV file, draws it and exports its tables. On a
# machine with a display the drawing then opens in a window.
#   ./run.sh [CSV]      results go to out/
set -euo pipefail
here=$(cd "$(dirname "$0")" && pwd)
csv=$(realpath -m -- "${1:-$here/examples/parts.csv}")
cd "$here"

refuse() { echo "$csv $1" >&2; exit 1; }
[[ -f $csv && -r $csv ]] || refuse "can't be read."
[[ -s $csv ]] || refuse "is empty."
[[ ${csv,,} == *.csv ]] || refuse "is no CSV file."
iconv -f UTF-8 -t UTF-8 "$csv" >/dev/null 2>&1 || refuse "isn't text in UTF-8."
grep -qv '^,' "$csv" || refuse "has no rows: each of its lines begins with a comma."

scripts/build release kdhost TvxTable TvxTableRes
kdhost=build/release/bin/kdhost

name=$(basename -- "$csv")
name=${name%.*}
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
cat >"$work/run.kds" <<SCRIPT
; A small table is made in the dialog, placed, and filled in the cell editor; its last cell adds two others.
TABLE
@set IDC_TABLEINSERT_COLUMN_EDIT 2
@set IDC_TABLEINSERT_COLUMNWIDTH_EDIT 60
@click IDOK
0,70
@edit TAB Ordered
@edit TAB Item
@edit TAB Count
@edit TAB Bolts
@edit TAB 30
@edit TAB Washers
@edit TAB 12
@edit TAB Sum
@edit ENTER =B3+B4
; The other one is read from the file.
TABLE
@click IDC_TABLEINSERT_DATALINK_BUTTON
@click IDC_TABLEINSERT_DATALINKMAN_BUTTON
@click IDC_BTN_SELPATH
@file $csv
@click IDOK
@click IDOK
0,0
TABLEEXPORT
@cells #0 A1
@file $work/$name-typed.csv
TABLEEXPORT
@cells #1 A1
@file $work/$name.csv
SCRIPT

# Settings of its own: what the user chose in the dialog last doesn't matter here.
if ! XDG_CONFIG_HOME="$work/settings" "$kdhost" --headless --lang en --script "$work/run.kds" \
        --dump "$work/$name.json" --render "$work/$name.png" --save "$work/$name.dxf" >"$work/log" 2>"$work/errors"; then
    # One line for the user: what is wrong, without the place in the script above.
    head -n 1 "$work/errors" | sed -E "s|^$work/run.kds:[0-9]+: ||" >&2
    exit 1
fi

mkdir -p out
mv -f -- "$work/$name"{-typed.csv,.csv,.json,.png,.dxf} out/
read -r rows columns sum < <(python3 - "out/$name.json" <<'PY'
import json, sys
made, read = json.load(open(sys.argv[1]))["tables"]
print(read["rows"], read["columns"], made["cells"][4][1]["text"])
PY
)
cat <<TOLD
Made a table in the dialog of TABLE and filled it (its sum is $sum); read $csv into another (rows: $rows, columns: $columns).
  out/$name.png    a picture of the drawing
  out/$name.dxf    the drawing
  out/$name.csv    the table of the file as TABLEEXPORT wrote it; out/$name-typed.csv the other one
  out/$name.json   everything the drawing holds
TOLD
if [[ -n ${DISPLAY:-}${WAYLAND_DISPLAY:-} ]]; then
    echo "Try first: type TABLE and press Enter, press OK, click a place, and type into the cells."
    "$kdhost" --open "out/$name.dxf"
fi

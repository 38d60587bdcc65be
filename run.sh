#!/usr/bin/env bash
# Reads a CSV file into a table of a new drawing, draws the table, and writes it out again.
#   ./run.sh [CSV]      results go to out/
set -euo pipefail
here=$(cd "$(dirname "$0")" && pwd)
csv=$(realpath -m -- "${1:-$here/examples/parts.csv}")
cd "$here"

scripts/build release kdhost TvxTable TvxTableRes

name=$(basename -- "$csv")
name=${name%.*}
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
cat >"$work/run.kds" <<SCRIPT
TABLEIMPORT
$csv
0,0
TABLEEXPORT
@cells #0 A1
@file $work/$name.csv
SCRIPT

if ! build/release/bin/kdhost --headless --script "$work/run.kds" --dump "$work/$name.json" \
        --render "$work/$name.png" >"$work/log" 2>"$work/errors"; then
    # One line for the user: what is wrong, without the place in the script above.
    head -n 1 "$work/errors" | sed -E "s|^$work/run.kds:[0-9]+: ||" >&2
    exit 1
fi

mkdir -p out
mv -f -- "$work/$name.csv" "$work/$name.json" "$work/$name.png" out/
read -r rows columns < <(python3 - "out/$name.json" <<'PY'
import json, sys
table = json.load(open(sys.argv[1]))["tables"][0]
print(table["rows"], table["columns"])
PY
)
cat <<TOLD
Read $csv into a table of $rows rows and $columns columns, through the loaded table module.
  out/$name.png   a picture of the drawing
  out/$name.csv   the table as TABLEEXPORT wrote it
  out/$name.json  everything the drawing holds
TOLD

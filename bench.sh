#!/usr/bin/env bash
# Measures everything in bench/ and prints one table: what each operation costs, beside a peer of the same run or beside
# itself on a tenth of the cells. A missed goal is marked, and no failure: a goal is no test.
#   ./bench.sh [PROGRAM ...]      the programs of bench/, all unless some are named
set -euo pipefail
cd "$(dirname "$0")"

all=(bench/*.cpp)
all=("${all[@]##*/}")
programs=("${@:-${all[@]%.cpp}}")
scripts/build release kdhost TvxTable TvxTableRes emptywindow "${programs[@]}"

# Other work on the machine makes a figure worse, never better: the best of five short ones counts.
often=(--benchmark_repetitions=5 --benchmark_min_time=0.1 --benchmark_color=false)
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
export QT_QPA_PLATFORM=offscreen XDG_CONFIG_HOME=$work XDG_RUNTIME_DIR=$work
failed=()
for program in "${programs[@]}"; do
    echo "Measuring $program ..." >&2
    "build/release/bin/$program" "${often[@]}" >"$work/$program.txt" 2>"$work/errors" || failed+=("$program")
done
python3 bench/table.py "$work"/*.txt
for program in "${failed[@]}"; do echo "$program could not be measured." >&2; done
((${#failed[@]} == 0))

#!/usr/bin/env bash
# Builds everything and runs all tests. ./test.sh [preset]; the preset is release unless another is named.
set -euo pipefail
cd "$(dirname "$0")"
preset=${1:-release}

scripts/build "$preset"
ctest --preset "$preset" --output-on-failure

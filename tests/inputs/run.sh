#!/usr/bin/env bash
# Fills the fields of all windows at random, under the sanitizers: run.sh [ROUNDS [SEED]], 500 rounds of seed 1 where
# none are given. The steps of what failed are kept in build/sanitize/inputs, to be played by orv-scenario.
set -uo pipefail
cd "$(dirname "$0")/../.." || exit 1
cmake --preset sanitize >/dev/null && cmake --build --preset sanitize --target orv-inputs || exit 1
export LSAN_OPTIONS=suppressions=$PWD/tests/leaks.supp:print_suppressions=0 UBSAN_OPTIONS=print_stacktrace=1
build/sanitize/tests/orv-inputs --rounds "${1:-500}" --seed "${2:-1}" --failures build/sanitize/inputs

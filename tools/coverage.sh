#!/usr/bin/env bash
# Tells how much of src the tests have run in build/coverage since its counters were last removed; ./test coverage does
# both. coverage.sh [FLOOR]: fails where less than FLOOR percent of the lines ran, by default 98. build/coverage/coverage.txt
# names the others. Branches have no floor, and those that only an exception takes aren't counted.
set -uo pipefail
here=$(cd "$(dirname "$0")/.." && pwd)
cd "$here" || exit 1
floor=${1:-98}
gcovr --root . --object-directory build/coverage --filter 'src/' -j "$(nproc)" \
    --exclude-throw-branches --exclude-unreachable-branches \
    --print-summary --txt build/coverage/coverage.txt --fail-under-line "$floor" build/coverage

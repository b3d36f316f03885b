#!/usr/bin/env bash
# Tells how much of src the tests have run in build/coverage since its counters were last removed (./test coverage does
# both), and fails where less than 98 % of the lines did. build/coverage/coverage.txt names the lines that did not.
# Branches are told without a floor: those that only an exception takes aren't counted.
set -uo pipefail
here=$(cd "$(dirname "$0")/.." && pwd)
cd "$here" || exit 1
floor=98
gcovr --root . --object-directory build/coverage --filter 'src/' -j "$(nproc)" \
    --exclude-throw-branches --exclude-unreachable-branches \
    --print-summary --txt build/coverage/coverage.txt --fail-under-line "$floor" build/coverage

#!/usr/bin/env bash
# Tells how much of src the tests have run in build/sanitize since its counters were last removed; ./test sanitize does
# both. coverage.sh [FLOOR]: fails where less than FLOOR percent of the lines ran, by default 98. build/sanitize/coverage.txt
# names the others. Branches have no floor, and those that only an exception takes aren't counted. Two threads that count
# one branch at once may leave a number below zero: such a branch is left out.
set -uo pipefail
here=$(cd "$(dirname "$0")/.." && pwd)
cd "$here" || exit 1
floor=${1:-98}
# The compiler may place an inline function of a header a line higher in one object than in the others. gcovr 5 takes that
# for an error, and where one of its threads fails it waits for ever: so it is told to take either line.
timeout 900 /usr/bin/python3 -c '
import sys
from gcovr import merging
merging.DEFAULT_MERGE_OPTIONS.ignore_function_lineno = True
from gcovr.__main__ import main
sys.exit(main(sys.argv[1:]))' \
    --root . --object-directory build/sanitize --filter 'src/' -j "$(nproc)" \
    --exclude-throw-branches --exclude-unreachable-branches --gcov-ignore-parse-errors \
    --print-summary --txt build/sanitize/coverage.txt --fail-under-line "$floor" build/sanitize/src

#!/usr/bin/env bash
# run.sh PROGRAM [full]: the power cuts and the failing calls, after the harness has shown that it finds what is lost
# where names, or names and contents, aren't synced. 2,000 cuts and 300 failing calls; full: 100,000 and 20,000; and a
# tenth of the cuts for imports.txt.
set -uo pipefail
here=$(cd "$(dirname "$0")" && pwd)
program=$1
points=2000 errors=300
[ "${2:-}" = full ] && points=100000 errors=20000

for which in folders all; do
    if "$program" --weaken $which --points 300 --reports 0 --only "people are entered" "$here/workloads.txt" >/dev/null; then
        echo "The harness doesn't find what is lost without the syncs: $which."
        exit 1
    fi
done
failed=0
"$program" --points $points --errors $errors "$here/workloads.txt" || failed=1
"$program" --points $((points / 10)) "$here/imports.txt" || failed=1
exit $failed

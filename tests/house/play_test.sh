#!/usr/bin/env bash
# Shows that tools/play.sh counts and names what comes of the tests, whatever becomes of the processes that play them. The
# programs are small scripts that tell what the real ones tell.
# Prints the trials that failed, and how many there were.
set -uo pipefail
here=$(cd "$(dirname "$0")/../.." && pwd)
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
. "$here/tools/play.sh"
cd "$folder" || exit 1
mkdir -p tests/unit/cards tests/unit/store tests/scenarios/cards tests/scenarios/acts programs told
touch tests/scenarios/cards/b.txt tests/scenarios/cards/a.txt tests/scenarios/acts/c.txt tests/scenarios/walks.txt
trials=0 failures=0

# unit BODY: the program of the unit tests. In BODY, `part` is the number of the part; begin COUNT opens the report, good
# NAME and bad NAME play a test, and begun NAME one that doesn't come to its end.
unit() {
    cat >programs/orv-unit <<EOF
#!/usr/bin/env bash
part=\$GTEST_SHARD_INDEX
begin() { echo "[==========] Running \$1 tests from 1 test suite."; }
begun() { echo "[ RUN      ] \$1"; }
good() { begun "\$1"; echo "[       OK ] \$1 (1 ms)"; }
skipped() { begun "\$1"; echo "why"; echo "[  SKIPPED ] \$1 (1 ms)"; }
bad() { begun "\$1"; echo "a_test.cpp:1: Failure"; echo "[  FAILED  ] \$1 (1 ms)"; }
$1
EOF
    chmod +x programs/orv-unit
}

# scenarios BODY: the program that plays the scenarios.
scenarios() {
    printf '#!/usr/bin/env bash\n%s\n' "$1" >programs/orv-scenario
    chmod +x programs/orv-scenario
}

# trial NAME EXPECTED [ROOM...]: plays, and compares what is told, and the counts behind it.
trial() {
    local name=$1 expected=$2 told
    shift 2
    told=$(passed=0 failed=0 && play_tests programs told "$@" 2>&1 && echo "$passed passed, $failed failed")
    trials=$((trials + 1))
    if [ "$told" != "$expected" ]; then
        printf 'not ok: %s\n  expected: %s\n  told: %s\n' "$name" "$expected" "$told"
        failures=$((failures + 1))
    fi
}

# Two cores, and so eight parts.
nproc() { echo 2; }
three_good='echo "1 passed, 0 failed"'
quiet='begin 2; good A.Um$part; good A.Dois$part; echo "[  PASSED  ] 2 tests."'

unit "$quiet"
scenarios "$three_good"
trial "all hold" "17 passed, 0 failed"

unit 'begin 1; skipped A.Um$part; echo "[  PASSED  ] 0 tests."'
trial "what is skipped is neither" "1 passed, 0 failed"

unit '[ $part -gt 0 ] || sleep 0.3; begin 2; good A.Um$part
case $part in 0|5) bad A.Dois$part; echo "[  FAILED  ] 1 test, listed below:"; echo "[  FAILED  ] A.Dois$part"; exit 1 ;;
*) good A.Dois$part ;; esac'
trial "what fails is told in the order of the parts" "[ RUN      ] A.Dois0
a_test.cpp:1: Failure
[  FAILED  ] A.Dois0 (1 ms)
[ RUN      ] A.Dois5
a_test.cpp:1: Failure
[  FAILED  ] A.Dois5 (1 ms)
15 passed, 2 failed"

unit 'begin 3; good A.Um$part; [ $part != 3 ] || { begun A.Morre; echo "last words"; kill -SEGV $$; }
good A.Dois$part; good A.Tres$part'
trial "a process that dies is named with its test, and what it leaves over is counted" "[ RUN      ] A.Morre
last words
The unit tests ended early, with status 139, in A.Morre; 2 of them are not over.
23 passed, 1 failed"

unit 'begin 3; bad A.Um$part; [ $part != 3 ] || { begun A.Morre; kill -KILL $$; }; good A.Dois$part; good A.Tres$part
exit 1' # of every part the first test has failed before
trial "and also behind one that has failed" "$(for part in 0 1 2 3 4 5 6 7; do
    printf '[ RUN      ] A.Um%s\na_test.cpp:1: Failure\n[  FAILED  ] A.Um%s (1 ms)\n' $part $part
    [ $part != 3 ] || printf '[ RUN      ] A.Morre\nThe unit tests ended early, with status 137, in A.Morre; 2 of them are not over.\n'
done)
15 passed, 9 failed"

unit "$quiet; [ \$part != 1 ] || exit 3"
trial "an end behind the last test that isn't in order" "The unit tests ended early, with status 3; 0 of them are not over.
17 passed, 1 failed"

rm programs/orv-unit
trial "no program of the unit tests" "$(for part in 0 1 2 3 4 5 6 7; do
    echo "The unit tests ended early, with status 127; 0 of them are not over."
done)
1 passed, 8 failed"

unit 'begin 1; [ $part != 7 ] || { begun A.Preso; sleep 20; }; good A.Um$part'
ORV_PART_LIMIT=1 trial "a test that hangs" "[ RUN      ] A.Preso
The unit tests ran out of time, in A.Preso; 1 of them are not over.
8 passed, 1 failed"

unit "$quiet"
scenarios 'printf "ok a:1 um\nnot ok a:2 dois: porque\n   | um\n   | dois\n   | tres\n   | quatro\nok a:3 tres\n"
echo "2 passed, 1 failed"; exit 1'
trial "scenarios that fail, with the last words of their process" "not ok a:2 dois: porque
   | um
   | dois
   | tres
18 passed, 1 failed"

scenarios 'echo "ok a:1 um"; kill -SEGV $$'
trial "a runner that dies" "The scenario runner ended early, with status 139.
16 passed, 1 failed"

unit 'begin 1; good A.Um; [ $part != 0 ] || echo "$*" >told/options'
scenarios 'echo "$*" >told/files; echo "1 passed, 0 failed"'
# trial_options NAME UNIT SCENARIOS [ROOM...]: what the two programs are asked for.
trial_options() {
    local name=$1 unit=$2 scenarios=$3 counted=0
    shift 3
    rm -f told/options told/files
    [ -z "$unit" ] || counted=8
    [ -z "$scenarios" ] || counted=$((counted + 1))
    trial "$name" "$counted passed, 0 failed" "$@"
    [ "$(cat told/options 2>/dev/null)" = "$unit" ] && [ "$(cat told/files 2>/dev/null)" = "$scenarios" ] && return
    printf 'not ok: %s\n  asked: %s / %s\n' "$name" "$(cat told/options 2>/dev/null)" "$(cat told/files 2>/dev/null)"
    failures=$((failures + 1))
}
all="tests/scenarios/acts/c.txt tests/scenarios/cards/a.txt tests/scenarios/cards/b.txt tests/scenarios/walks.txt"
common="--gtest_brief=0 --gtest_color=no"
trial_options "all rooms" "$common" "--jobs 3 $all"
trial_options "a room of both kinds" "$common --room=cards" \
    "--jobs 3 tests/scenarios/cards/a.txt tests/scenarios/cards/b.txt" cards
trial_options "a room of unit tests alone" "$common --room=store" "" store
trial_options "a room of scenarios alone" "" "--jobs 3 tests/scenarios/acts/c.txt" acts
trial_options "several rooms" "$common --room=store" "--jobs 3 tests/scenarios/acts/c.txt" store acts

# expect NAME TOLD EXPECTED
expect() {
    trials=$((trials + 1))
    [ "$2" != "$3" ] || return
    printf 'not ok: %s\n  expected: %s\n  told: %s\n' "$1" "$3" "$2"
    failures=$((failures + 1))
}
expect "what is built for all" "$(programs_for)" $'orv-unit\norv-scenario'
expect "what is built for a room of scenarios" "$(programs_for acts)" orv-scenario
expect "what is built for a room of unit tests" "$(programs_for store)" orv-unit
expect "rooms that there are" "$(require_rooms cards store acts 2>&1 && echo known)" known
expect "a room that there isn't" "$(require_rooms cards card 2>&1 || echo unknown)" \
    $'There is no room "card" that has tests.\nThe rooms are: acts cards store\nunknown'

# running FILE...: those of the processes noted in the files that are still at work.
running() {
    local file
    for file in "$@"; do
        grep -Hs '^State:' "/proc/$(cat "$file")/status" | grep -v 'Z (zombie)'
    done
}
unit 'echo $$ >told/pid.$part; sleep 30'
scenarios 'echo $$ >told/pid.scenarios; sleep 30'
(
    trap 'stop_tests; exit 130' TERM
    play_tests programs told
) &
until [ -s told/pid.0 ] && [ -s told/pid.1 ] && [ -s told/pid.scenarios ]; do sleep 0.05; done
kill $!
wait $!
status=$?
for ((i = 0; i < 20; ++i)); do
    [ -z "$(running told/pid.*)" ] || sleep 0.1
done
expect "a stop in the middle" "$status $(running told/pid.*)" "130 "

[ $failures -eq 0 ] || echo "$failures of $trials trials of tools/play.sh failed."
[ $failures -eq 0 ]

# Sourced by ./test: plays the tests that are built, the unit tests in parts and the scenarios beside them, on all cores.

# require_rooms [ROOM...]: fails, and names the rooms that there are, where one of these has no tests.
require_rooms() {
    local known room unknown=0
    known=$(find tests/unit tests/scenarios -mindepth 1 -maxdepth 1 -type d -printf '%f\n' | LC_ALL=C sort -u)
    for room in "$@"; do
        grep -qxF -- "$room" <<<"$known" && continue
        echo "There is no room \"$room\" that has tests." >&2
        unknown=1
    done
    [ "$unknown" -eq 0 ] && return
    echo "The rooms are:" $known >&2
    return 1
}

# rooms_with KIND [ROOM...]: those that have a folder in tests/KIND, one a line.
rooms_with() {
    local kind=$1 room
    shift
    for room in "$@"; do
        [ ! -d "tests/$kind/$room" ] || echo "$room"
    done
}

# programs_for [ROOM...]: what has to be built for the tests of these rooms, or for all, one target a line.
programs_for() {
    [ $# -gt 0 ] && [ -z "$(rooms_with unit "$@")" ] || echo orv-unit
    [ $# -gt 0 ] && [ -z "$(rooms_with scenarios "$@")" ] || echo orv-scenario
}

# play_units PROGRAM FOLDER PARTS CORES [OPTION...]: plays the unit tests in parts, each in a process of its own, as many
# at once as there are cores. FOLDER/unit.N is what a part has told, FOLDER/unit.N.status how it ended: 124 where its time
# ran out.
play_units() {
    local program=$1 folder=$2 parts=$3 cores=$4 part
    shift 4
    for ((part = 0; part < parts; ++part)); do
        [ "$part" -lt "$cores" ] || wait -n
        {
            GTEST_TOTAL_SHARDS=$parts GTEST_SHARD_INDEX=$part \
                timeout --foreground --kill-after=10 "${ORV_PART_LIMIT:-1800}" \
                "$program" --gtest_brief=0 --gtest_color=no "$@" >"$folder/unit.$part" 2>&1
            echo $? >"$folder/unit.$part.status"
        } 2>/dev/null & # the shell tells of signals, too
    done
    wait
}

# tell_part LOG STATUS: what each failed test told, where the process ended if that was early, and as the last line
# "passed failed".
tell_part() {
    awk -v status="$2" '
        /^\[==========\] Running / { total = $3 }
        match($0, /\[ RUN      \] /) {
            name = substr($0, RSTART + RLENGTH)
            told = $0
            runs = 1
            next
        }
        !runs { next }
        { told = told "\n" $0 }
        /\[       OK \] / { ++passed; runs = 0 }
        /\[  SKIPPED \] / { ++skipped; runs = 0 }
        /\[  FAILED  \] / { ++failed; runs = 0; print told }
        END {
            missed = total - passed - skipped - failed
            if (runs) print told
            if (missed > 0 || (status != 0 && failed == 0)) {
                ended = status == 124 ? "ran out of time" : "ended early, with status " status
                print "The unit tests " ended (runs ? ", in " name : "") "; " missed + 0 " of them are not over."
                ++failed
            }
            print passed + 0, failed + 0
        }' "$1"
}

# add_units FOLDER PARTS: prints what has failed, part by part, and adds to passed and failed.
add_units() {
    local part counts
    for ((part = 0; part < $2; ++part)); do
        tell_part "$1/unit.$part" "$(cat "$1/unit.$part.status")" >"$1/told"
        sed '$d' "$1/told"
        read -r -a counts < <(tail -n 1 "$1/told")
        passed=$((passed + counts[0]))
        failed=$((failed + counts[1]))
    done
}

# add_scenarios LOG STATUS: the same of the scenarios.
add_scenarios() {
    local counts
    grep '^not ok' -A 3 "$1"
    counts=$(tail -n 1 "$1")
    if [[ $counts =~ ^([0-9]+)\ passed,\ ([0-9]+)\ failed$ ]]; then
        passed=$((passed + BASH_REMATCH[1]))
        failed=$((failed + BASH_REMATCH[2]))
    else
        echo "The scenario runner ended early, with status $2."
        failed=$((failed + 1))
    fi
}

playing=() # the groups of processes that play_tests has under way

stop_tests() {
    local group
    for group in "${playing[@]}"; do
        kill -- "-$group"
    done 2>/dev/null # one may be over
    wait
}

# play_tests PROGRAMS FOLDER [ROOM...]: plays what is built in PROGRAMS, of these rooms alone where some are named; FOLDER
# takes what is told meanwhile. Prints what has failed, the unit tests first and then the scenarios in the order of their
# files, and adds to passed and failed. Meanwhile stop_tests, in a trap, ends all that it has started.
play_tests() {
    local programs=$1 folder=$2 cores parts group status=0 units=() folders=('') files=()
    shift 2
    cores=$(nproc)
    parts=$((4 * cores)) # so that no core is left alone for long with the slow ones
    if [ $# -gt 0 ]; then
        mapfile -t units < <(rooms_with unit "$@")
        mapfile -t folders < <(rooms_with scenarios "$@")
        [ ${#units[@]} -gt 0 ] || parts=0
    fi
    [ ${#folders[@]} -eq 0 ] ||
        mapfile -t files < <(find "${folders[@]/#/tests/scenarios/}" -name '*.txt' | sort -u)

    set -m # each in a group of its own, with the processes that it starts
    play_units "$programs/orv-unit" "$folder" "$parts" "$cores" "${units[@]/#/--room=}" </dev/null &
    playing=($!)
    if [ ${#files[@]} -gt 0 ]; then
        # Who waits for the disk leaves a core to another.
        "$programs/orv-scenario" --jobs $((cores + (cores + 1) / 2)) "${files[@]}" </dev/null >"$folder/scenarios" &
        playing+=($!)
    fi
    set +m
    for group in "${playing[@]}"; do
        wait "$group"
        status=$? # in the end that of the scenarios
    done 2>/dev/null # the shell tells of signals
    playing=()
    add_units "$folder" "$parts"
    [ ${#files[@]} -eq 0 ] || add_scenarios "$folder/scenarios" "$status"
}

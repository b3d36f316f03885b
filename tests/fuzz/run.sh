#!/usr/bin/env bash
# Builds the targets of the fuzzer and lets it search each for a while: run.sh [SECONDS], 20 each where none are given.
# It begins with the corpus beside this file. What breaks a target is kept in build/fuzz/found, and this fails.
set -uo pipefail
cd "$(dirname "$0")/../.." || exit 1
seconds=${1:-20}
command -v clang++ >/dev/null || { echo "The fuzzer takes clang."; exit 1; }
cmake --preset fuzz >/dev/null && cmake --build --preset fuzz || exit 1
found=$PWD/build/fuzz/found
mkdir -p "$found"
failed=0
for corpus in tests/fuzz/corpus/*; do
    target=$(basename "$corpus")
    new=build/fuzz/corpus/$target # what it has learnt goes on from one run to the next
    mkdir -p "$new"
    if "build/fuzz/tests/fuzz/fuzz-$target" "$new" "$corpus" -max_total_time="$seconds" -timeout=10 -rss_limit_mb=3000 \
        -artifact_prefix="$found/$target-" -print_final_stats=1 >"build/fuzz/$target.log" 2>&1; then
        echo "$target: $(sed -n 's/^stat::number_of_executed_units: *//p' "build/fuzz/$target.log") inputs, none breaks it"
    else
        failed=$((failed + 1))
        tail -n 30 "build/fuzz/$target.log"
        echo "$target: broken; what did it is in $found"
    fi
done
exit $((failed > 0))

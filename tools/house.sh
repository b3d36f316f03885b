#!/usr/bin/env bash
# The guards of the house: what every change has to keep, beside passing the tests. house.sh [BASE]
# BASE is the commit that clang-tidy compares with; tools/tidy.sh tells which one it is otherwise.
# All checks are run; it then fails with the count of those that found something.
set -uo pipefail
here=$(cd "$(dirname "$0")/.." && pwd)
cd "$here" || exit 1
. tools/packages.sh
install_packages "$here" run screen test ci || exit 1
checks=0 failed=0

check() {
    echo "-- $1"
    checks=$((checks + 1))
    "${@:2}" && return
    echo "-- $1: not in order"
    failed=$((failed + 1))
}

format() {
    local files
    mapfile -t files < <(git ls-files -co --exclude-standard '*.cpp' '*.h' | xargs ls -d 2>/dev/null)
    clang-format --dry-run -Werror "${files[@]}"
}

cppcheck_all() {
    cppcheck --enable=warning,style,performance,portability --std=c++20 --language=c++ --library=qt --library=googletest \
        --suppressions-list=tools/cppcheck.txt -I src -I tests -I tests/unit -I tests/runner -I tools/demo \
        -j "$(nproc)" --quiet --error-exitcode=1 src tests tools bench
}

check "the guard of the rooms itself" tests/house/rooms_test.sh
check "the count of the tests" tests/house/play_test.sh
check "what is installed, and by whom" tests/house/packages_test.sh
check "the copy of the demonstration" tests/house/demonstration_test.sh
check "the check of the manuals itself" tests/house/manuals_test.sh
check "the manual and the tutorial" tools/manuals/check.sh
check "the rooms and the forms" tools/rooms.sh
check "clang-format" format
check "cppcheck" cppcheck_all
check "clang-tidy on what has changed" tools/tidy.sh "$@"

if [ $failed -gt 0 ]; then
    echo "The house is not in order: $failed of $checks checks found something."
    exit 1
fi
echo "The house is in order."

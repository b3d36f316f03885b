#!/usr/bin/env bash
# Runs clang-tidy on what has changed: tidy.sh [BASE]
# Compared is the tree as it stands, uncommitted files too, with the newest commit that it shares with BASE or
# $HOUSE_BASE. Where neither is given, that is main as it is here or at the origin, if the work is ahead of it; on main
# itself, the last commit that is four hours, half a working day, older than the newest one.
# What has changed is looked at, side by side on all cores; one file takes six to ten seconds. Where no commit was named,
# that is the twenty-four sources that were changed last, some three minutes; of a large merge the others are told by their
# number alone, and are looked at where a commit is named. A header is read with its own source, or with the first one
# that includes it.
set -uo pipefail
here=$(cd "$(dirname "$0")/.." && pwd -P)
cd "$here" || exit 1

newest_earlier_state() {
    local named=${1:-${HOUSE_BASE:-}} ref shared newest
    if [ -n "$named" ]; then
        git merge-base HEAD "$named" 2>/dev/null
        return
    fi
    for ref in origin/main main; do
        shared=$(git merge-base HEAD "$ref" 2>/dev/null) || continue
        [ "$shared" = "$(git rev-parse HEAD)" ] && continue
        echo "$shared"
        return
    done
    newest=$(git show -s --format=%ct HEAD)
    git rev-list -1 --before=$((newest - 4 * 3600)) HEAD
}

# The source that shows a changed file: itself, or the one that a header is read with, also by way of another header.
# Nothing where there is none.
source_of() {
    local user
    if [ "${1%.cpp}" != "$1" ]; then
        echo "$1"
    elif [ -f "${1%.h}.cpp" ]; then
        echo "${1%.h}.cpp"
    else
        user=$(user_of "$1" '*.cpp')
        user=${user:-$(user_of "$1" '*.h')}
        [ -z "$user" ] || [ "$user" = "$1" ] || source_of "$user"
    fi
}

# user_of HEADER PATTERN: the first file of the pattern that includes the header.
user_of() {
    git ls-files -co --exclude-standard "$2" | sort |
        xargs grep -lE "#include [\"<](.*/)?$(basename "$1")[\">]" 2>/dev/null | head -n 1
}

base=$(newest_earlier_state "${1:-}") || {
    echo "There is no commit ${1:-${HOUSE_BASE:-}} to compare with."
    exit 1
}
# A history that is all newer than that is looked at as a whole: compared with an empty tree.
base=${base:-$(git hash-object -t tree /dev/null)}
since=$base..HEAD
[ "$(git cat-file -t "$base" 2>/dev/null)" = commit ] || since=HEAD
differs=$(git diff --name-only --diff-filter=d "$base" -- '*.cpp' '*.h')
# Those changed last come first.
mapfile -t changed < <({
    git ls-files -o --exclude-standard '*.cpp' '*.h'
    git diff --name-only --diff-filter=d HEAD -- '*.cpp' '*.h'
    git log --format= --name-only "$since" -- '*.cpp' '*.h' | grep -Fx "$differs"
    echo "$differs"
} | awk 'NF && !seen[$0]++')
[ ${#changed[@]} -gt 0 ] || exit 0

# What the build generates has to be there, and each source by itself, where the build compiles several as one. Its
# precompiled headers are the compiler's own, which clang can't read.
cmake --preset release >/dev/null && cmake --build --preset release --target autogen form_headers >/dev/null || exit 1
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
cmake --preset release -B "$folder/alone" -DORV_UNITY=OFF >/dev/null || exit 1
sed -E "s# -Winvalid-pch -include [^ ]*cmake_pch\.hxx##; s#$folder/alone#$here/build/release#g" \
    "$folder/alone/compile_commands.json" >"$folder/compile_commands.json"

: >"$folder/sources"
for file in "${changed[@]}"; do
    source=$(source_of "$file")
    if [ -n "$source" ] && grep -qF "\"file\": \"$here/$source\"" "$folder/compile_commands.json"; then
        echo "$source" >>"$folder/sources"
    else
        echo "Left out, as nothing that is built includes it: $file"
    fi
done
awk '!seen[$0]++' "$folder/sources" >"$folder/all"
most=24
[ -z "${1:-}${HOUSE_BASE:-}" ] || most=$(wc -l <"$folder/all")
head -n "$most" "$folder/all" >"$folder/sources"
echo "Changed since $(git rev-parse --short "$base"): ${#changed[@]} files, shown by $(wc -l <"$folder/all") sources; looked at: $(wc -l <"$folder/sources")"

# Only our own headers are judged, not those that the build makes; what clang-tidy says of itself is dropped. A file may
# be built with an option of gcc's that clang doesn't know.
one='told=$(clang-tidy -p "$0" --quiet --extra-arg=-Wno-unknown-warning-option --warnings-as-errors="*" --header-filter="$1" "$2" 2>&1)
status=$?
[ $status -eq 0 ] || printf "%s\n" "$told" | grep -vE "^[0-9]+ warnings? .*generated\.$"
exit $status'
xargs -P "$(nproc)" -n 1 sh -c "$one" "$folder" "^$here/(src|tests|bench|tools)/" <"$folder/sources"

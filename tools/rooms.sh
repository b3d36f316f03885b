#!/usr/bin/env bash
# Checks the rooms of src: rooms.sh [SRC [TABLE]]
# - every #include, and every header that a .ui names, is one that the table (tools/rooms.txt) lets its room use;
# - the table names every room and no other, and has no circle but on one floor;
# - every form that is named in src, by a text or by its class, is made known in shell/startup.cpp;
# - no control of another form is found by its name outside platform/forms.
# Prints each finding as "file:line: reason" and fails where there is one. Headers that the build makes (ui_*.h) and
# those of libraries belong to no room.
set -uo pipefail
here=$(cd "$(dirname "$0")/.." && pwd)
src=$(realpath --relative-to="$PWD" "${1:-$here/src}")
table=$(realpath --relative-to="$PWD" "${2:-$here/tools/rooms.txt}")
[ -d "$src" ] && [ -f "$table" ] || exit 2

in_order() {
    LC_ALL=C sort -t: -k1,1 -k2,2n
}

# Every header that is asked for, as "file:line:header".
includes() {
    {
        grep -rnE --include='*.cpp' --include='*.h' '^\s*#\s*include\s*["<]' "$src" |
            sed -E 's/^([^:]*:[0-9]+):[^"<]*["<]([^">]*).*/\1:\2/'
        grep -rnoE --include='*.ui' '<header[^>]*>[^<]*' "$src" | sed -E 's/^([^:]*:[0-9]+):<header[^>]*>/\1:/'
    } | in_order
}

check_uses() {
    {
        sed 's/#.*//' "$table"
        echo "%files"
        find "$src" -type f \( -name '*.cpp' -o -name '*.h' -o -name '*.ui' \) | LC_ALL=C sort
        echo "%includes"
        includes
    } | awk -v src="$src" -v table="$table" '
        function path_in_src(file) { return substr(file, length(src) + 2) }
        function room_of(file,   step) {
            if (file !~ /\//) return file
            split(file, step, "/")
            return step[1] == "platform" || step[1] == "study" ? step[1] "/" step[2] : step[1]
        }
        # The file of src that an include means, as the compiler finds it; "" where it is none of ours.
        function target_of(header, file,   beside) {
            beside = file
            sub(/[^\/]*$/, header, beside)
            if (beside in exists) return beside
            return header in exists ? header : ""
        }
        function allowed(from, to) {
            if (from == to || (from, to) in use) return 1
            if ((from, "*") in use) return to != "main.cpp"
            return to ~ /^platform\// && (from, "platform/*") in use
        }
        function tell(where, what) {
            print where ": " what
            bad = 1
        }
        function read_table(   room, other, i) {
            if (NF == 3 && $2 == "~") {
                one_floor[$1, $3] = one_floor[$3, $1] = 1
                return
            }
            room = $1
            if (!sub(/:$/, "", room) || room in may) {
                tell(table ":" NR, "not understood: " $0)
                return
            }
            rooms[++count] = room
            line_of[room] = NR
            may[room] = NF == 1 ? "no other room" : ""
            for (i = 2; i <= NF; ++i) {
                other = $i
                named[other] = NR
                use[room, other] = 1
                may[room] = may[room] (i > 2 ? ", " : "") other
            }
        }
        function read_file(   file, room) {
            file = path_in_src($0)
            room = room_of(file)
            exists[file] = 1
            if (!(room in may) && !(room in present)) tell($0, room " is no room of " table)
            present[room] = 1
        }
        function read_include(   field, file, from, target, to) {
            split($0, field, ":")
            file = path_in_src(field[1])
            if (field[3] ~ /\.\.\//) {
                tell(field[1] ":" field[2], field[3] " is not named from src")
                return
            }
            target = target_of(field[3], file)
            from = room_of(file)
            to = room_of(target)
            if (target == "" || !(from in may) || allowed(from, to)) return
            tell(field[1] ":" field[2], from " must not use " to " (" target "); it may use " may[from])
        }
        function check_table(   room, i, j, k, reach) {
            for (i = 1; i <= count; ++i)
                if (!(rooms[i] in present)) tell(table ":" line_of[rooms[i]], rooms[i] " is no room of " src)
            for (room in named)
                if (!(room in may) && room !~ /\*$/) tell(table ":" named[room], room " has no line of its own")
            for (i = 1; i <= count; ++i)
                for (j = 1; j <= count; ++j)
                    reach[i, j] = allowed(rooms[i], rooms[j])
            for (k = 1; k <= count; ++k)
                for (i = 1; i <= count; ++i)
                    for (j = 1; j <= count; ++j)
                        if (reach[i, k] && reach[k, j]) reach[i, j] = 1
            for (i = 1; i <= count; ++i)
                for (j = i + 1; j <= count; ++j)
                    if (reach[i, j] && reach[j, i] && !((rooms[i], rooms[j]) in one_floor))
                        tell(table ":" line_of[rooms[j]], "a circle: " rooms[i] " and " rooms[j] " reach each other")
        }

        /^%/ { part = $0; next }
        part == "" && NF > 0 { read_table() }
        part == "%files" { read_file() }
        part == "%includes" { read_include() }
        END { check_table(); exit bad }'
}

# The main window is a form to nobody: it isn't shown by its name.
check_forms() {
    local known bad=0 file line name
    known=$(grep -ohE 'Forms::add\("\w+"' "$src/shell/startup.cpp" | sed -E 's/.*"(.*)"/\1/')
    while IFS=: read -r file line name; do
        grep -qx "$name" <<<"$known" && continue
        echo "$file:$line: the form $name is not made known in $src/shell/startup.cpp"
        bad=1
    done < <(grep -rnoE --include='*.cpp' --include='*.h' '"frm[A-Z]\w*"|\bName = "\w+"' "$src" |
        sed -E 's/^([^:]*:[0-9]+):.*"(\w+)"$/\1:\2/' | in_order)
    return $bad
}

check_finds() {
    ! grep -rnE --include='*.cpp' --include='*.h' '\bfindChild(ren)?\b|\bsetProperty\("text"' "$src" |
        grep -v "^$src/platform/forms/" |
        sed -E 's/^([^:]*:[0-9]+):.*/\1: a control of another form is found by its name/' |
        in_order
}

failed=0
for check in check_uses check_forms check_finds; do
    $check || failed=1
done
exit $failed

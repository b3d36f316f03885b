#!/usr/bin/env bash
# run.sh PROGRAM BDP: writes the BDP as GEDCOM 5.5.1 with orv-estudo and has Gramps read it, without a screen and in a
# home of its own. Fails where Gramps has anything to say of the file, or has other people, families or events than the
# BDP; so it does with a copy of the BDP in which every column of a card tells something. Before, a file that Gramps
# can't understand has to be found out.
set -uo pipefail
here=$(cd "$(dirname "$0")" && pwd)
program=$1 bdp=$2

if ! command -v gramps >/dev/null; then
    echo "There is no Gramps here to read the file with: it was left out."
    exit 0
fi
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
export HOME=$folder LANG=C.UTF-8 LC_ALL=C.UTF-8 LANGUAGE=en DBUS_SESSION_BUS_ADDRESS=disabled:
unset DISPLAY WAYLAND_DISPLAY

# read_by_gramps GEDCOM TREE: what Gramps says goes to $folder/said; fails where it found anything wrong.
read_by_gramps() {
    timeout --kill-after=10 "${ORV_GRAMPS_LIMIT:-300}" gramps -q -y -i "$1" -e "$2" >"$folder/said" 2>&1
    [ -s "$2" ] && grep -qF 'GEDCOM import report: No errors detected' "$folder/said"
}

# make_pictures GEDCOM: the files that it refers to, which are looked for beside it.
make_pictures() {
    sed -n 's/^[0-9] FILE //p' "$1" | sort -u | while read -r path; do
        mkdir -p "$folder/$(dirname "$path")" && : >"$folder/$path"
    done
}

# findings: what Gramps complains of, by kinds.
findings() {
    grep -aoE '(Line ignored|Tag recognized|Skipped subordinate|Error|Warn|Invalid|Unknown)[A-Za-z ]*|Line +[0-9]+: .*' \
        "$folder/said" | head -n 20
    tail -n 2 "$folder/said"
}

failed=0
for which in demonstration full; do
    copy=$folder/$which.orv gedcom=$folder/$which.ged tree=$folder/$which.gramps
    cp "$bdp" "$copy" && chmod u+w "$copy"
    [ "$which" = demonstration ] || python3 "$here/fill.py" "$copy" || exit 1
    "$program" exportar gedcom "$copy" "$gedcom" --limite 0 >/dev/null || exit 1
    make_pictures "$gedcom"
    if ! read_by_gramps "$gedcom" "$tree"; then
        echo "$which: Gramps complains of the file:"
        findings
        failed=1
        continue
    fi
    python3 "$here/compare.py" "$copy" "$gedcom" "$tree" | sed "s/^/$which: /" || failed=1
done

sed '0,/^1 BIRT$/s//1 BIRT\n2 MARCA x/' "$folder/demonstration.ged" >"$folder/broken.ged"
if read_by_gramps "$folder/broken.ged" "$folder/broken.gramps"; then
    echo "A line that Gramps doesn't understand isn't found out."
    failed=1
fi
sed '0,/^1 CHR$/s//1 BARM/; 0,/^2 DATE ABT/s//2 DATE/' "$folder/demonstration.ged" >"$folder/broken.ged"
if ! read_by_gramps "$folder/broken.ged" "$folder/other.gramps"; then
    echo "Gramps can't read a file with another event."
    failed=1
elif python3 "$here/compare.py" "$bdp" "$folder/demonstration.ged" "$folder/other.gramps" >"$folder/found"; then
    echo "Other events and dates than those of the BDP aren't found out."
    failed=1
fi
exit $failed

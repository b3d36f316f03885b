#!/usr/bin/env bash
# Takes the pictures of the manual in three looks and lays them side by side, for the eye: looks.sh [OUT] [FILE...]
# The looks are a screen of 1366 x 768, the same at 200 %, and the dark colours of a desktop. The scenarios are those of
# docs/pictures, or the FILEs. OUT (build/looks) gets the folders light, twice and dark with a picture each, and
# sheet-1.png, sheet-2.png, ... with the three looks of each window in a row. Fails where a scenario does.
# It takes Xvfb and ImageMagick, and what the preset release has built: orv-scenario and demo.
set -euo pipefail
here=$(cd "$(dirname "$0")/.." && pwd)
out=$(realpath -m "${1:-$here/build/looks}")
[ $# -eq 0 ] || shift
cd "$here"
files=("$@")
[ ${#files[@]} -gt 0 ] || files=(docs/pictures/*.txt)
built=build/${ORV_PRESET:-release}
rows_a_sheet=4

rm -rf "$out"/{light,twice,dark} "$out"/sheet-*.png
mkdir -p "$out"/{light,twice,dark}
desktop=$(mktemp -d) # the runner gives each scenario a home of its own, so these are settings of the machine
trap 'rm -rf "$desktop"' EXIT
mkdir "$desktop/plain" "$desktop/dark"
cat >"$desktop/dark/kdeglobals" <<'END'
[Colors:Window]
BackgroundNormal=42,46,50
ForegroundNormal=252,252,252
[Colors:View]
BackgroundNormal=27,30,32
BackgroundAlternate=35,38,41
ForegroundNormal=252,252,252
ForegroundInactive=161,169,177
ForegroundLink=29,153,243
ForegroundVisited=155,89,182
[Colors:Button]
BackgroundNormal=49,54,59
ForegroundNormal=252,252,252
[Colors:Selection]
BackgroundNormal=61,174,233
ForegroundNormal=252,252,252
[Colors:Tooltip]
BackgroundNormal=49,54,59
ForegroundNormal=252,252,252
END

# take LOOK WIDTHxHEIGHT SETTINGS [VARIABLE=VALUE...]
take() {
    local look=$1 screen=$2 settings=$3
    shift 3
    echo "$look" >&2
    env XDG_CONFIG_DIRS="$desktop/$settings" QT_QPA_PLATFORM=xcb "$@" \
        xvfb-run -a -s "-screen 0 ${screen}x24" \
        "$built/tests/orv-scenario" --limit 300 --shots "$out/$look" --bring "$built/demo/demo.orv" "${files[@]}" >&2
}

status=0
take light 1366x768 plain || status=1
take twice 2732x1536 plain QT_SCALE_FACTOR=2 || status=1
take dark 1366x768 dark XDG_CURRENT_DESKTOP=KDE KDE_SESSION_VERSION=5 || status=1

# The three looks of a window in a row, its name below.
row=() sheet=0
lay() {
    [ ${#row[@]} -gt 0 ] || return 0
    sheet=$((sheet + 1))
    montage -font /usr/share/fonts/truetype/dejavu/DejaVuSans.ttf -label '%f' "${row[@]}" -tile 3x \
        -geometry '640x480>+6+6' -background gray80 "$out/sheet-$sheet.png"
    row=()
}
for picture in "$out"/light/*.png; do
    name=$(basename "$picture")
    for look in light twice dark; do
        if [ -e "$out/$look/$name" ]; then row+=("$out/$look/$name"); else row+=(null:); fi
    done
    [ ${#row[@]} -lt $((3 * rows_a_sheet)) ] || lay
done
lay
echo "$out: $(find "$out"/{light,twice,dark} -name '*.png' | wc -l) pictures, $sheet sheets"
exit $status

#!/usr/bin/env bash
# Starts a program on the display at hand, saves a picture of its main window, and ends it: picture.sh FILE.png PROGRAM...
# Fails where no window comes up within thirty seconds.
set -euo pipefail
picture=$1
shift
"$@" &
program=$!
trap 'kill $program 2>/dev/null || true' EXIT
for _ in $(seq 60); do
    kill -0 $program
    if window=$(xdotool search --onlyvisible --pid $program --name 'ORV - ' 2>/dev/null | head -n 1) && [ -n "$window" ]; then
        sleep 2 # the cards paint
        import -window root "$picture"
        exit 0
    fi
    sleep 0.5
done
echo "No window came up." >&2
exit 1

#!/usr/bin/env bash
# Looks the sources of the manual and the tutorial through: tools/manuals/check.sh [FILE.md]...
# With files, tells only what is wrong in them.
here=$(cd "$(dirname "$0")" && pwd)
for python in python3 /usr/bin/python3; do
    "$python" -c 'import markdown' 2>/dev/null && exec "$python" -B "$here/manuals.py" check "$@"
done
echo "The package python3-markdown is missing." >&2
exit 1

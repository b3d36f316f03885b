#!/usr/bin/env bash
# Shows that tools/rooms.sh finds what it is there to find: each trial spoils a small house that is in order, in one way.
# Prints the trials that failed, and how many there were.
set -uo pipefail
here=$(cd "$(dirname "$0")/../.." && pwd)
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
trials=0 failed=0

# A house in order, in an empty folder: what the table allows, what the build makes, what the library gives.
build_house() {
    rm -rf "${folder:?}"/*
    cd "$folder" || exit 1
    mkdir -p src/platform/jet src/platform/forms src/store src/common src/cards src/shell
    cat >rooms.txt <<'EOF'
# the rooms
platform/jet:
platform/forms:
store: platform/* common
common: platform/* store # one floor with it
cards: platform/* common
shell: *
main.cpp: shell

store ~ common
EOF
    echo '#include <vector>' >src/platform/jet/row.h
    printf '#include <QWidget>\nQWidget* named = form->findChild<QWidget*>(name);\n' >src/platform/forms/form.h
    printf '#include "common/dates.h"\n#include "row.h"\n' >src/store/session.h
    printf '#include "store/session.h"\n#include "platform/jet/row.h"\n' >src/common/dates.h
    printf '#include "common/dates.h"\nstatic constexpr auto Name = "frmInd";\n' >src/cards/frmInd.h
    printf '#include "frmInd.h"\n#include "ui_frmInd.h"\n  #  include "platform/forms/form.h"\n' >src/cards/frmInd.cpp
    echo '<header>platform/forms/form.h</header>' >src/cards/frmInd.ui
    echo '#include <QString>' >src/shell/startup.h
    printf '#include "cards/frmInd.h"\nForms::add("frmInd", make);\nForms::show("frmInd");\n' >src/shell/startup.cpp
    echo '#include "shell/startup.h"' >src/main.cpp
}

# trial NAME EXPECTED: the lines that the checker prints, and with them whether it fails.
trial() {
    local told status=0 expected=0
    told=$("$here/tools/rooms.sh" src rooms.txt) || status=1
    [ -z "$2" ] || expected=1
    trials=$((trials + 1))
    if [ "$told" != "$2" ] || [ $status -ne $expected ]; then
        printf 'not ok: %s\n  expected: %s\n  told, with status %s: %s\n' "$1" "$2" $status "$told"
        failed=$((failed + 1))
    fi
    build_house
}

build_house
trial "a house in order" ""

echo '#include "cards/frmInd.h"' >>src/store/session.h
trial "a room above" \
    "src/store/session.h:3: store must not use cards (cards/frmInd.h); it may use platform/*, common"

echo '#include "platform/forms/form.h"' >>src/platform/jet/row.h
trial "a room beside, where no other may be used" \
    "src/platform/jet/row.h:2: platform/jet must not use platform/forms (platform/forms/form.h); it may use no other room"

echo '#include <store/session.h>' >>src/cards/frmInd.cpp
trial "a wrong room between angles" \
    "src/cards/frmInd.cpp:4: cards must not use store (store/session.h); it may use platform/*, common"

echo '<header location="global">store/session.h</header>' >>src/cards/frmInd.ui
trial "a wrong room in a drawn form" \
    "src/cards/frmInd.ui:2: cards must not use store (store/session.h); it may use platform/*, common"

echo '#include "../store/session.h"' >>src/cards/frmInd.cpp
trial "a way round by the folder above" "src/cards/frmInd.cpp:4: ../store/session.h is not named from src"

mkdir src/attic && echo '#include <QString>' >src/attic/old.h
trial "a room that the table doesn't know" "src/attic/old.h: attic is no room of rooms.txt"

echo 'cellar: common' >>rooms.txt
trial "a line for no room" "rooms.txt:11: cellar is no room of src"

sed -i 's/^cards: .*/& comon/' rooms.txt
trial "a slip in the table" "rooms.txt:6: comon has no line of its own"

echo 'cards common' >>rooms.txt
trial "a line without a sense" "rooms.txt:11: not understood: cards common"

sed -i 's/^store ~ common//' rooms.txt
trial "a circle" "rooms.txt:5: a circle: store and common reach each other"

sed -i 's/^platform\/jet:/& cards/' rooms.txt
trial "a circle over other rooms" "rooms.txt:4: a circle: platform/jet and store reach each other
rooms.txt:5: a circle: platform/jet and common reach each other
rooms.txt:6: a circle: platform/jet and cards reach each other
rooms.txt:6: a circle: store and cards reach each other
rooms.txt:6: a circle: common and cards reach each other"

echo 'Forms::show("frmFam");' >>src/cards/frmInd.cpp
trial "a form that is shown and not made known" \
    "src/cards/frmInd.cpp:4: the form frmFam is not made known in src/shell/startup.cpp"

sed -i '/Forms::add/d' src/shell/startup.cpp
trial "a class of a form that is not made known" \
    "src/cards/frmInd.h:2: the form frmInd is not made known in src/shell/startup.cpp
src/shell/startup.cpp:2: the form frmInd is not made known in src/shell/startup.cpp"

echo 'form.findChild<QWidget*>("cmbLoc")->setProperty("text", texto);' >>src/cards/frmInd.cpp
echo 'const auto all = form.findChildren<QWidget*>();' >>src/store/session.h
trial "controls of another form" "src/cards/frmInd.cpp:4: a control of another form is found by its name
src/store/session.h:3: a control of another form is found by its name"

echo '#include "store/session.h"' >>src/cards/frmInd.cpp
echo 'Forms::show("frmFam");' >>src/cards/frmInd.cpp
echo 'form.findChild<QWidget*>("cmbLoc");' >>src/cards/frmInd.cpp
trial "several at once" \
    "src/cards/frmInd.cpp:4: cards must not use store (store/session.h); it may use platform/*, common
src/cards/frmInd.cpp:5: the form frmFam is not made known in src/shell/startup.cpp
src/cards/frmInd.cpp:6: a control of another form is found by its name"

[ $failed -eq 0 ] || echo "$failed of $trials trials of tools/rooms.sh failed."
[ $failed -eq 0 ]

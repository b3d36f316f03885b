#!/usr/bin/env bash
# Shows that tools/demonstration.sh never writes over what somebody worked on, and finds their documents. Prints the trials
# that failed, and how many there were.
set -uo pipefail
here=$(cd "$(dirname "$0")/../.." && pwd)
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
. "$here/tools/demonstration.sh"
cd "$folder" || exit 1
trials=0 failures=0

# trial NAME EXPECTED TOLD
trial() {
    trials=$((trials + 1))
    if [ "$3" != "$2" ]; then
        printf 'not ok: %s\n  expected: %s\n  told: %s\n' "$1" "$2" "$3"
        failures=$((failures + 1))
    fi
}

# opened DEMONSTRATION: the copy that is opened once the build has made a demonstration of these bytes, what it holds, and
# what else stands there.
opened() {
    local path
    echo "$1" >fresh.orv
    path=$(copy_to_work_on fresh.orv work) || return
    echo "$path: $(cat "$path"); $(cd work && echo *)"
}

trial "the first copy" "work/demonstracao.orv: one; demonstracao.orv" "$(opened one)"
trial "the same again" "work/demonstracao.orv: one; demonstracao.orv" "$(opened one)"
trial "a newer one, beside what nobody worked on" \
    "work/demonstracao 2.orv: two; demonstracao 2.orv demonstracao.orv" "$(opened two)"
echo mine >"work/demonstracao 2.orv"
trial "what was worked on stays, whatever is newer" \
    "work/demonstracao 2.orv: mine; demonstracao 2.orv demonstracao.orv" "$(opened three)"
mv "work/demonstracao 2.orv" work/minha.orv
trial "one that was named otherwise makes room" \
    "work/demonstracao 2.orv: three; demonstracao 2.orv demonstracao.orv minha.orv" "$(opened three)"
trial "and stays as it is" "mine" "$(cat work/minha.orv)"
rm -r work && mkdir work && echo "of old" >work/demonstracao.orv
trial "one of which nothing is known stays" "work/demonstracao.orv: of old; demonstracao.orv" "$(opened one)"
rm -r work && echo one >fresh.orv && chmod a-w fresh.orv && copy_to_work_on fresh.orv work >copied
trial "the copy can be written where its source can't" "-rw" "$(stat -c %A work/demonstracao.orv | cut -c 1-3)"

# desktop FOLDER: what the desktop tells of the documents.
desktop() {
    mkdir -p "$HOME/.config"
    echo "XDG_DOCUMENTS_DIR=\"$1\"" >"$HOME/.config/user-dirs.dirs"
}
export HOME=$folder/home
unset XDG_CONFIG_HOME
mkdir -p "$HOME/Papéis"
trial "no desktop has told of any" "$HOME" "$(documents_folder)"
mkdir "$HOME/Documents"
trial "where a desktop would make them" "$HOME/Documents" "$(documents_folder)"
desktop '$HOME/Papéis'
trial "the documents, as the desktop has them" "$HOME/Papéis" "$(documents_folder)"
desktop '$HOME/'
trial "a desktop without documents" "$HOME/" "$(documents_folder)"
desktop "$HOME/Gone"
trial "documents that aren't there" "$HOME" "$(documents_folder)"

[ $failures -eq 0 ] || echo "$failures of $trials trials of tools/demonstration.sh failed."
[ $failures -eq 0 ]

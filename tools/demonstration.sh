# Sourced by ./run: the copy of the demonstration BDP that people work on.

# documents_folder: where the user's documents stand, by the rule of the program's dialogs; the home where there is no
# such folder.
documents_folder() {
    local named='' told=${XDG_CONFIG_HOME:-$HOME/.config}/user-dirs.dirs
    [ ! -f "$told" ] || named=$(. "$told" && echo "${XDG_DOCUMENTS_DIR:-}")
    named=${named:-$HOME/Documents}
    [ -d "$named" ] && echo "$named" || echo "$HOME"
}

# free_name FOLDER: a name of the demonstration that no file there bears, as the program counts its copies.
free_name() {
    local name=demonstracao.orv number=2
    while [ -e "$1/$name" ]; do
        name="demonstracao $number.orv"
        number=$((number + 1))
    done
    echo "$name"
}

# copy_to_work_on FRESH FOLDER: prints the path of the copy in FOLDER that is to be opened. No file is ever written over. A
# copy that was worked on stays the one; beside one that wasn't, a newer demonstration gets a name of its own, and takes its
# place. FOLDER/.demonstracao tells, as sha256sum does, which copy was made last and what its bytes were.
copy_to_work_on() {
    local fresh=$1 folder=$2 name=''
    mkdir -p "$folder" || return 1
    if [ -f "$folder/.demonstracao" ]; then
        name=$(sed -n '1s/^[0-9a-f]* [ *]//p' "$folder/.demonstracao")
    elif [ -e "$folder/demonstracao.orv" ]; then
        echo "$folder/demonstracao.orv" # of which nobody knows what it was
        return
    fi
    if [ -n "$name" ] && [ -e "$folder/$name" ]; then
        if cmp -s "$fresh" "$folder/$name" || ! (cd "$folder" && sha256sum --check --status .demonstracao); then
            echo "$folder/$name"
            return
        fi
    fi
    name=$(free_name "$folder")
    cp --no-clobber "$fresh" "$folder/$name" && chmod u+w "$folder/$name" &&
        (cd "$folder" && sha256sum "$name" >.demonstracao) && echo "$folder/$name"
}

#!/usr/bin/env bash
# Shows that tools/packages.sh installs what is missing and nothing else, by whatever right there is, and tells what has to
# be done where there is none. The system's programs are small scripts that tell how they were called. Prints the trials
# that failed, and how many there were.
set -uo pipefail
here=$(cd "$(dirname "$0")/../.." && pwd)
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
mkdir "$folder/programs"
cd "$folder" || exit 1
trials=0 failures=0

# program NAME BODY
program() {
    printf '#!/usr/bin/env bash\n%s\n' "$2" >"programs/$1"
    chmod +x "programs/$1"
}

cat >packages.txt <<'EOF'
# What is needed.
[run] # the program
cmake # of late
qt-dev

[test]
gtest-dev
[ci]
chromium
EOF

# a_machine: cmake is there, the rest isn't; apt knows it all; a user without any right.
a_machine() {
    rm -f programs/*
    echo cmake >there
    program id 'echo "${ORV_USER:-1000}"'
    program dpkg-query 'grep -qx -- "${@: -1}" there && echo "install ok installed"'
    program apt-get 'case "$*" in
        *--assume-no*) printf "%s\n" "Reading package lists..." "0 upgraded, 7 newly installed, 0 to remove." \
            "Need to get 12.5 MB/20 MB of archives." \
            "After this operation, 61 MB of additional disk space will be used." "Abort." && exit 1 ;;
        *) echo "apt-get $*, as ${RIGHT:-nobody}, $DEBIAN_FRONTEND" ;;
        esac'
}

# asked PART...: what install_packages tells, in a script that ends where anything fails, and as the last line how it ended.
asked() {
    PATH=$folder/programs:$PATH bash -euo pipefail -c '. "$0/tools/packages.sh"; install_packages . "$@"' \
        "$here" "$@" 2>&1 </dev/null
    echo "ended $?"
}

# trial NAME EXPECTED TOLD
trial() {
    trials=$((trials + 1))
    if [ "$3" != "$2" ]; then
        printf 'not ok: %s\n  expected: %s\n  told: %s\n' "$1" "$2" "$3"
        failures=$((failures + 1))
    fi
    a_machine
}

options="--no-install-recommends -o Dpkg::Progress-Fancy=true"
size="With what they need, 7 packages: 12.5 MB to fetch, 61 MB on the disk."
barred="You may not install them here. An administrator has to run:
    apt-get update && apt-get install --no-install-recommends qt-dev"
export DEBIAN_FRONTEND=''
a_machine

printf '%s\n' cmake qt-dev >there
trial "nothing is missing of this part" "ended 0" "$(asked run)"

trial "without any right: names, size, and the line for an administrator" "Missing packages: qt-dev
$size
$barred
ended 1" "$(asked run)"

program apt-get 'exit 100'
trial "apt knows nothing of them" "Missing packages: qt-dev
$barred
ended 1" "$(asked run)"

program sudo 'exit 1'
trial "sudo that refuses, and nobody to ask" "Missing packages: qt-dev
$size
$barred
ended 1" "$(asked run)"

root="Missing packages: qt-dev gtest-dev
$size
apt-get update, as nobody, 
apt-get install -y $options qt-dev gtest-dev, as nobody, noninteractive
ended 0"
trial "root, of two parts" "$root" "$(ORV_USER=0 asked run test)"

program sudo '[ "$1" = -n ] && exit; RIGHT=root exec "$@"'
trial "sudo without a password" "Missing packages: qt-dev
$size
apt-get update, as root, 
apt-get install -y $options qt-dev, as root, noninteractive
ended 0" "$(asked run)"

# asked_at_terminal PART...: the same, where somebody sits.
asked_at_terminal() {
    script -qec "PATH=$folder/programs:\$PATH bash -euo pipefail -c '. \"$here/tools/packages.sh\"
        install_packages . $*'; echo \"ended \$?\"" "$folder/typescript" </dev/null 2>&1 | tr -d '\r'
}

program sudo 'case $1 in -n) exit 1 ;; -v) echo "password: given" ;; *) RIGHT=root exec "$@" ;; esac'
trial "sudo that asks for a password" "Missing packages: qt-dev
$size
sudo may ask for your password.
password: given
apt-get update, as root, 
apt-get install -y $options qt-dev, as root, noninteractive
ended 0" "$(asked_at_terminal run)"

program sudo 'exit 1'
trial "sudo that refuses somebody who was asked" "Missing packages: qt-dev
$size
sudo may ask for your password.
$barred
ended 1" "$(asked_at_terminal run)"

program apt-get 'case "$*" in
    *--assume-no*) [ -e updated ] && echo "Need to get 3 MB of archives." ;;
    update) touch updated && echo "lists fetched" ;;
    *) echo "apt-get $1" ;;
    esac'
trial "what it takes is told once apt knows" "Missing packages: qt-dev
lists fetched
3 MB to fetch,
apt-get install
ended 0" "$(ORV_USER=0 asked run)"

program apt-get '[ "$1" != update ] || exit 100
    [[ $* != *-y* ]] || { echo "E: no room" && exit 100; }'
trial "an installation that fails" "Missing packages: qt-dev
What can be had is read from the lists that are here.
E: no room
They could not be installed: the lines above tell why.
ended 1" "$(ORV_USER=0 asked run)"

trial "every package of the project belongs to a part" "" \
    "$(. "$here/tools/packages.sh" && packages_of "$here/packages.txt" run screen test ci | sort >named
        sed 's/#.*//; s/ //g; /^\[/d; /^$/d' "$here/packages.txt" | sort | comm -3 named -)"
trial "what starts the program fetches no tools of the tests" "" \
    "$(. "$here/tools/packages.sh" && packages_of "$here/packages.txt" run screen | grep -E 'clang|gramps|chromium|gtest')"

[ $failures -eq 0 ] || echo "$failures of $trials trials of tools/packages.sh failed."
[ $failures -eq 0 ]

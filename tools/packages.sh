# Sourced by ./run, ./test, ./attack, .ci/run and tools/house.sh: installs the Debian packages of packages.txt that are
# missing.

# packages_of FILE PART...: the packages of these parts, one a line.
packages_of() {
    awk -v parts=" ${*:2} " '{ sub(/#.*/, ""); gsub(/[ \t]/, "") }
        /^\[/ { part = " " substr($0, 2, length($0) - 2) " "; next }
        $0 != "" && index(parts, part)' "$1"
}

# missing_of PACKAGE...: those that aren't installed, one a line.
missing_of() {
    local package
    for package in "$@"; do
        dpkg-query -W -f='${Status}' "$package" 2>/dev/null | grep -q 'install ok installed' || echo "$package"
    done
}

# apt_would PACKAGE...: what apt would fetch for these, in its own figures; nothing where it doesn't know them yet.
apt_would() {
    { LC_ALL=C apt-get -o Debug::NoLocking=true --assume-no --no-install-recommends install "$@" 2>/dev/null </dev/null ||
        true; } | # it fails because it was told not to
        sed -nE 's/^[0-9]+ upgraded, ([0-9]+) newly installed.*/With what they need, \1 packages:/p
            s|^Need to get ([^/]*)(/.*)? of archives\.|\1 to fetch,|p
            s/^After this operation, (.*) of additional disk space will be used\./\1 on the disk./p' | tr '\n' ' ' | sed 's/ $/\n/'
}

# gain_rights: sets as_root to what has to stand before a command of root's. Fails where there is no right to be had, or
# nobody who could be asked for the password.
gain_rights() {
    as_root=()
    [ "$(id -u)" -ne 0 ] || return 0
    command -v sudo >/dev/null || return 1
    as_root=(sudo)
    sudo -n true 2>/dev/null && return
    [ -t 0 ] && [ -t 2 ] || return 1
    echo "sudo may ask for your password."
    sudo -v
}

# install_packages FOLDER PART...: what is missing of these parts of FOLDER/packages.txt. Says beforehand what it fetches,
# and shows how far it is. Without the right to install, it tells what an administrator has to run, and fails.
install_packages() {
    local listed missing would as_root
    mapfile -t listed < <(packages_of "$1/packages.txt" "${@:2}")
    if ! command -v dpkg-query >/dev/null; then
        echo "This isn't Debian: what has to be here stands in packages.txt, and in docs/outros-sistemas.md."
        return 0
    fi
    mapfile -t missing < <(missing_of "${listed[@]}")
    [ ${#missing[@]} -gt 0 ] || return 0
    echo "Missing packages: ${missing[*]}"
    would=$(apt_would "${missing[@]}")
    [ -z "$would" ] || echo "$would"
    if ! gain_rights; then
        echo "You may not install them here. An administrator has to run:"
        echo "    apt-get update && apt-get install --no-install-recommends ${missing[*]}"
        return 1
    fi
    "${as_root[@]}" apt-get update || echo "What can be had is read from the lists that are here."
    [ -n "$would" ] || apt_would "${missing[@]}"
    "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive \
        apt-get install -y --no-install-recommends -o Dpkg::Progress-Fancy=true "${missing[@]}" && return
    echo "They could not be installed: the lines above tell why."
    return 1
}

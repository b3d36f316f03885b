# Sourced by ./run, ./test and .ci/run: installs the Debian packages of packages.txt that are missing.
install_packages() {
    local listed missing=() package
    listed=$(sed 's/#.*//' "$1/packages.txt")
    for package in $listed; do
        dpkg-query -W -f='${Status}' "$package" 2>/dev/null | grep -q 'install ok installed' || missing+=("$package")
    done
    [ ${#missing[@]} -eq 0 ] && return 0
    echo "Installing: ${missing[*]}"
    local as_root=""
    [ "$(id -u)" -eq 0 ] || as_root=sudo
    $as_root apt-get update -qq
    DEBIAN_FRONTEND=noninteractive $as_root apt-get install -y -qq --no-install-recommends "${missing[@]}" >/dev/null
}

#!/usr/bin/env bash
# installed.sh PACKAGE PICTURE: makes a bare Debian of this machine's release, from this machine's source of packages, and
# installs the package there with what it depends on and nothing else. The program has to come up on the display at hand
# with the demonstration; PICTURE shows it. The command has to work; and a purge has to leave nothing. As root, in a mount
# namespace of its own.
set -uo pipefail
here=$(cd "$(dirname "$0")/../.." && pwd)
package=$1 picture=$2
folder=$(mktemp -d)
trap 'umount "$root/proc" 2>/dev/null; rm -rf --one-file-system "$folder"' EXIT
root=$folder/root

# fail LINE...: tells it, with what the last command told, and ends.
fail() {
    printf '%s\n' "$@"
    tail -n 20 "$folder/said"
    exit 1
}

make_root() {
    local release mirror
    release=$(. /etc/os-release && echo "$VERSION_CODENAME")
    mirror=$(apt-get indextargets --format '$(CODENAME) $(COMPONENT) $(REPO_URI)' 'Created-By: Packages' |
        awk -v release="$release" '$1 == release && $2 == "main" { print $3; exit }')
    debootstrap --variant=minbase "$release" "$root" "$mirror" >"$folder/said" 2>&1 || fail "No bare Debian can be made:"
    echo force-unsafe-io >"$root/etc/dpkg/dpkg.cfg.d/quick"
    mount -t proc proc "$root/proc" || fail "What runs there finds no /proc."
}

in_root() {
    chroot "$root" env LC_ALL=C.UTF-8 DEBIAN_FRONTEND=noninteractive "$@" >"$folder/said" 2>&1
}

# As a person who works there: with what her desktop tells, and no rights.
maria=(chroot --userspec=1000:1000 "$root" env -i HOME=/home/maria PATH=/usr/bin:/bin LANG=C.UTF-8 "DISPLAY=$DISPLAY"
    XAUTHORITY=/home/maria/.Xauthority XDG_RUNTIME_DIR=/run/maria)

# What a desktop has anyway: it takes note of new programs and types.
prepare_root() {
    in_root apt-get install -y --no-install-recommends shared-mime-info desktop-file-utils hicolor-icon-theme &&
        in_root useradd --uid 1000 --create-home maria || fail "The bare Debian isn't of use:"
    install -d -o 1000 -m 700 "$root/run/maria"
    install -o 1000 "$XAUTHORITY" "$root/home/maria/.Xauthority"
}

# All that speaks of the program, whoever has written it.
traces() {
    (cd "$root" && find . -xdev -path ./proc -prune -o -path ./home -prune -o -iname '*orv*' -print &&
        grep -l x-orv usr/share/mime/globs2 usr/share/applications/mimeinfo.cache) 2>/dev/null | LC_ALL=C sort
}

use_program() {
    install -o 1000 "$root/usr/share/orv/demo.orv" "$root/home/maria/paroquia.orv"
    "$here/tools/picture.sh" "$picture" "${maria[@]}" orv /home/maria/paroquia.orv >"$folder/said" 2>&1 ||
        fail "The installed program doesn't come up:"
    [ "$(identify -format %k "$picture")" -gt 100 ] || fail "Its window is blank: $picture"
    "${maria[@]}" orv-estudo relatorio /usr/share/orv/demo.orv -o /home/maria/relatorio.html >"$folder/said" 2>&1 &&
        [ -s "$root/home/maria/relatorio.html" ] || fail "The installed orv-estudo makes no report:"
}

make_root
prepare_root
traces >"$folder/before"
cp "$package" "$root/package.deb"
in_root apt-get install -y --no-install-recommends /package.deb || fail "The package can't be installed:"
grep -q 'application/x-orv:\*\.orv' "$root/usr/share/mime/globs2" || fail "The desktop doesn't know the type of its files."
grep -q '^application/x-orv=orv.desktop' "$root/usr/share/applications/mimeinfo.cache" ||
    fail "The desktop doesn't open a BDP with it."
use_program
in_root apt-get remove -y orv || fail "The package can't be removed:"
in_root dpkg --purge orv || fail "The package can't be purged:"
left=$(diff "$folder/before" <(traces)) && exit 0
echo "What is left of it, once removed:"
echo "$left"
exit 1

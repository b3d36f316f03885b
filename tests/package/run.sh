#!/usr/bin/env bash
# run.sh BUILD: makes the Debian package of what is built in the folder BUILD, and looks at it as whoever installs it does:
# it holds all that belongs to it and nothing of this machine, it is in order for lintian, it is the same bytes when it is
# made again, and it can be installed, used and removed (installed.sh), for which one has to be root. BUILD/package/orv.png
# is then the picture of the window.
set -uo pipefail
here=$(cd "$(dirname "$0")/../.." && pwd)
build=$(cd "$1" && pwd) || exit 1
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
share=$folder/files/usr/share
failed=0

# wrong LINE...: tells what was found.
wrong() {
    printf '%s\n' "$@"
    failed=1
}

make_package() {
    cmake --build "$build" --target deb >"$folder/said" 2>&1 || { cat "$folder/said" && exit 1; }
    package=$(sed -n 's/^CPack: - package: \(.*\) generated\.$/\1/p' "$folder/said")
    dpkg-deb --extract "$package" "$folder/files"
    dpkg-deb --contents "$package" >"$folder/contents"
}

# What has to be there, one path a line.
expected_files() {
    local size
    printf 'share/orv/%s\n' demo.orv $(cd "$here/data" && ls -- *.dat *.doc *.csv)
    printf 'share/man/%s.1.gz\n' man1/orv man1/orv-estudo pt/man1/orv pt/man1/orv-estudo
    for size in 16 22 24 32 48 64 128 256 512; do
        printf "share/icons/hicolor/${size}x$size/%s.png\n" apps/orv mimetypes/application-x-orv
    done
    printf '%s\n' share/icons/hicolor/scalable/{apps/orv,mimetypes/application-x-orv}.svg bin/orv bin/orv-estudo \
        share/applications/orv.desktop share/mime/packages/orv.xml share/metainfo/example.orv.orv.metainfo.xml \
        share/doc/orv/copyright share/doc/orv/changelog.gz share/orv/{mnlORV.pdf,tutORV.pdf,manual/indice.json}
}

look_into() {
    local path found
    while read -r path; do
        [ -s "$folder/files/usr/$path" ] || wrong "The package has no $path."
    done < <(expected_files)
    found=$(grep -rlF -e "$here" -e "$build" "$folder/files") && wrong "A folder of this machine stands in:" "$found"
    found=$(awk '{ mode = /\/$/ ? "drwxr-xr-x" : $6 ~ /^\.\/usr\/bin\// ? "-rwxr-xr-x" : "-rw-r--r--" }
        $1 != mode || $2 != "root/root"' "$folder/contents")
    [ -z "$found" ] || wrong "Owner or mode isn't as it should be:" "$found"
}

# As the tools read it that show it to its users.
check_files() {
    lintian --allow-root --fail-on error,warning --display-level '>=warning' "$package" || wrong "lintian isn't content."
    desktop-file-validate "$share/applications/orv.desktop" || wrong "The entry for the desktop isn't in order."
    appstreamcli validate --no-net "$share/metainfo/example.orv.orv.metainfo.xml" >"$folder/said" ||
        wrong "The metainfo isn't in order:" "$(cat "$folder/said")"
}

# Elsewhere, of files that were checked out at another time.
make_again() {
    mv "$package" "$folder/first.deb"
    touch "$here/src/shell/icons/pick.svg" "$here"/packaging/man/*.1 "$here/packaging/orv.desktop"
    TZ=Asia/Macau LC_ALL=C cmake --build "$build" --target deb >"$folder/said" 2>&1 || wrong "$(cat "$folder/said")"
    cmp "$folder/first.deb" "$package" || wrong "Made again, it isn't the same bytes."
}

"$here/tests/package/man.sh" "$build/src/orv-estudo" || failed=1
make_package
look_into
check_files
make_again
if [ "$(id -u)" -ne 0 ]; then
    echo "Only root can make a bare Debian to install it in: that was left out."
else
    mkdir -p "$build/package"
    # Mounts of its own go with it, whatever ends it.
    unshare --mount xvfb-run -a -s "-screen 0 1280x800x24" \
        "$here/tests/package/installed.sh" "$package" "$build/package/orv.png" || failed=1
fi
[ $failed -eq 0 ] && echo "$(basename "$package"): $(stat -c %s "$package") bytes, in order."
exit $failed

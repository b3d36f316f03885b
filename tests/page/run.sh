#!/usr/bin/env bash
# run.sh PROGRAM BDP: makes the page of a study with orv-estudo, and looks at it in a browser without a screen: as broad
# as a desktop, as broad as A4, and as it is set on paper. Before, pages that are broken by hand have to be found out.
set -uo pipefail
here=$(cd "$(dirname "$0")" && pwd)
program=$1 bdp=$2

for browser in chromium chromium-browser google-chrome ''; do
    command -v "$browser" >/dev/null && break
done
if [ -z "$browser" ]; then
    echo "There is no browser to look at the page with: packages.txt names one."
    exit 1
fi
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
# There is no bus in a container, and who waits for one waits for long.
export DBUS_SESSION_BUS_ADDRESS=disabled: DBUS_SYSTEM_BUS_ADDRESS=disabled: HOME=$folder

# looked_at PAGE SIZE [QUERY]: the page as the browser has it in the end.
looked_at() {
    timeout --kill-after=10 "${ORV_PAGE_LIMIT:-300}" "$browser" --headless=new --no-sandbox --disable-gpu \
        --disable-dev-shm-usage --no-first-run --disable-background-networking --disable-component-update \
        --hide-scrollbars --user-data-dir="$folder/profile" --virtual-time-budget=20000 --window-size="$2" \
        --dump-dom "file://$1${3:-}" 2>"$folder/browser.log"
}

listens="window.scriptErrors = []; addEventListener('error', e => scriptErrors.push(e.message));"

# findings PAGE SIZE [QUERY]: what the probe has found, one a line; a line of its own where it hasn't come to its end.
findings() {
    local lines
    sed "s|<head>|<head><script>$listens</script>|" "$1" | sed '/<\/body>/,$d' >"$folder/looked.html"
    { echo '<script>' && cat "$here/probe.js" && echo '</script></body></html>'; } >>"$folder/looked.html"
    lines=$(looked_at "$folder/looked.html" "$2" "${3:-}" | sed -n '/<pre id="achados">/,/<\/pre>/p' |
        sed 's/.*<pre id="achados">//; s/<\/pre>.*//')
    if [ "$(tail -n 1 <<<"$lines")" = fim ]; then
        sed '$d' <<<"$lines"
    else
        echo "the browser hasn't come to the end of the page: $(tail -n 1 "$folder/browser.log")"
    fi
}

# expect_found WHAT SED: a page changed so has to be found out.
expect_found() {
    sed "$2" "$page" >"$folder/broken.html"
    if cmp -s "$page" "$folder/broken.html"; then
        echo "The page can't be broken any more by: $2"
        failed=1
    elif ! findings "$folder/broken.html" 1280,900 "${3:-}" | grep -qF -- "$1"; then
        echo "A page broken by hand isn't found out: $1"
        failed=1
    fi
}

page=$folder/relatorio.html failed=0
"$program" relatorio "$bdp" -o "$page" || exit 1

# One page with all that doesn't hide the rest, then each of what does.
all_wrong='0,/ role="img"/s///
0,/<title>[^<]*<\/title><desc>/s//<title><\/title><desc>/
0,/<desc>[^<]*<\/desc>/s//<desc> <\/desc>/
0,/href="#c1"/s//href="#nada"/
0,/<td class="n">[0-9]*</s//<td class="n">nan</
0,/<caption>/s//<caption hidden="">/
0,/ scope="row"/s///
0,/id="c1-1"/s//id="c2-1"/
s/<main>/<main><p style="width: 2000px">largo<\/p><p style="color: #bbb">claro<\/p><script>nada();<\/script>/
0,/ tabindex="0"/s///'
sed "$all_wrong" "$page" >"$folder/broken.html"
findings "$folder/broken.html" 1280,900 >"$folder/found"
for what in 'script: ' 'sem role="img"' 'gráfico sem nome' 'gráfico sem palavras' 'o índice leva a nada: #nada' \
    'não é número: nan' 'sem alcance' 'está duas vezes' 'a página é mais larga' 'p mais largo' \
    'mal se lê' 'com o teclado'; do
    grep -qF -- "$what" "$folder/found" && continue
    echo "A page broken by hand isn't found out: $what"
    failed=1
done
expect_found 'não chega a' 's/<main>/<main onclick="event.preventDefault()">/'
expect_found 'mais largo do que A4' 's/class="larga larguissima"/class="normal"/' '?papel'

for size in 1280,900 794,1123; do
    findings "$page" "$size" | sed "s/^/$size: /" >"$folder/found"
    cat "$folder/found"
    [ ! -s "$folder/found" ] || failed=1
done
findings "$page" 1280,900 '?papel' | sed 's/^/A4: /' >"$folder/found"
cat "$folder/found"
[ ! -s "$folder/found" ] || failed=1
exit $failed

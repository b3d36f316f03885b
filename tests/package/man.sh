#!/usr/bin/env bash
# man.sh ORV-ESTUDO: compares the pages of man, in both languages, with what the program tells of its usage: the same ways
# to call it, with the same options, and each option explained. Before, pages that are broken by hand have to be found out.
set -uo pipefail
here=$(cd "$(dirname "$0")/../.." && pwd)
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
failed=0

# calls: of the lines of usage on the input, the words and options of each call, one call a line.
calls() {
    sed -E 's/^ {6,}/\f/' | tr '\n' ' ' | sed -E 's/ *\f/ /g; s/ orv-estudo /\norv-estudo /g' |
        sed -n 's/^orv-estudo //p' | sed -E 's/\[op[^]]*\]|\[OP[^]]*\]/OPCOES/; s/[][…]//g; s/ +/ /g; s/ $//' | LC_ALL=C sort
}

# plain PAGE: without the marks of the page's own language, for its lines of usage.
plain() {
    sed -E 's/\\f[A-Z]//g; s/\\-/-/g' "$1"
}

# options: each that is named on the input.
options() {
    grep -oE -- '(^|[^[:alnum:]-])--?[a-z][a-z-]*' | sed -E 's/^[^-]//' | LC_ALL=C sort -u
}

# explained PAGE: each option that a line of the page begins to explain.
explained() {
    sed -n '/^\.SH \(DESCRIPTION\|DESCRIÇÃO\)/,$p' "$1" | sed -n -E '/^\.(B|BI|BR) /p' | sed -E 's/\\-/-/g' | options
}

# findings PAGE: how it differs from $folder/usage.
findings() {
    local told=$folder/usage
    sed '/^$/,$d' "$told" | calls >"$folder/calls"
    plain "$1" | sed -n '/^\.nf/,/^\.fi/{/^\./!p}' | calls >"$folder/page"
    diff "$folder/calls" "$folder/page" | sed -n 's/^< /not on the page: /p; s/^> /not of the program: /p'
    { options <"$told" && printf '%s\n' --help -h; } | LC_ALL=C sort -u >"$folder/options"
    explained "$1" >"$folder/page"
    LC_ALL=C comm -3 "$folder/options" "$folder/page" | sed -E 's/^\t/not of the program: /; t; s/^/not explained: /'
}

# expect_found WHAT SED PAGE: the page, changed so, has to be found out.
expect_found() {
    sed -E "$2" "$3" >"$folder/broken.1"
    findings "$folder/broken.1" >"$folder/found"
    grep -qF -- "$1" "$folder/found" && return
    echo "$3: broken by hand, and not found out: $1"
    failed=1
}

# The first paragraph is the ways to call it; the rest explains.
{ "$1" --ajuda | sed '1d' && printf '%s\n' --ajuda; } >"$folder/usage"
for page in packaging/man/orv-estudo.1 packaging/man/pt/orv-estudo.1; do
    page=$here/$page
    expect_found 'not on the page: smam' '/^orv-estudo smam/d' "$page"
    expect_found 'not of the program: rede' 's/^(orv-estudo rede .*)/\1 [\\-\\-tudo]/' "$page"
    expect_found 'not explained: --vistos' '/^\.B .*vistos/d' "$page"
    expect_found 'not of the program: --muitos' 's/^\.B .*vistos/.B \\-\\-muitos/' "$page"
    findings "$page" >"$folder/found"
    [ ! -s "$folder/found" ] || failed=1
    sed "s|^|${page#"$here"/}: |" "$folder/found"
done
exit $failed

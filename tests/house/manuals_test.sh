#!/usr/bin/env bash
# Shows that tools/manuals finds what it is there to find: each trial spoils a small manual that is in order, in one way.
# Then makes that one, and looks at what has come of it.
# Prints the trials that failed, and how many there were.
set -uo pipefail
here=$(cd "$(dirname "$0")/../.." && pwd)
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
python=python3
"$python" -c 'import markdown, weasyprint' 2>/dev/null || python=/usr/bin/python3
"$python" -c 'import markdown, weasyprint' 2>/dev/null || { echo "python3-markdown or weasyprint is missing." >&2; exit 1; }
trials=0 failed=0

# A manual in order, in an empty folder: two chapters, a drawing, a scenario that takes a picture, a program of two forms.
build_book() {
    rm -rf "${folder:?}"/*
    cd "$folder" || exit 1
    mkdir -p docs/manual/imagens docs/pictures shots
    cat >docs/manual/01-um.md <<'EOF'
# Um {#um}

Ver a [ficha](#frmB) e as [datas](#um-as-datas). Carregue em <kbd>F1</kbd>, ou em Ctrl++.

![A janela](imagens/janela.png)

## As datas

`[isto](#nada)` é código, e diz "aspas".

!!! note
    Uma nota.
EOF
    cat >docs/manual/02-dois.md <<'EOF'
# Dois {#dois}

## A ficha {#frmA .janela}

Palavras da ficha.

![O desenho](imagens/desenho.svg)

## Outra ficha {#frmB .janela}

### "Não há …" {#msg-nao-ha .mensagem}

A causa.

## Abrir {#mnuAbrir .comando}
EOF
    echo '<svg xmlns="http://www.w3.org/2000/svg" width="40" height="20"/>' >docs/manual/imagens/desenho.svg
    printf 'scenario "a"\nstart\nshot frmA "janela.png"\n' >docs/pictures/a.txt
    printf 'Forms::add("frmA", make);\nForms::add("frmB", make);\n' >startup.cpp
    base64 -d >shots/janela.png <<'EOF'
iVBORw0KGgoAAAANSUhEUgAAAAQAAAACCAIAAADwyuo0AAAAEElEQVR4nGP4////fwYGBgAX+gP97FdMlAAAAABJRU5ErkJggg==
EOF
}

# trial NAME EXPECTED [ARGUMENT...]: what the checker tells of the book, and with it whether it fails.
trial() {
    local name=$1 expected=$2 told status=0 wanted=0
    shift 2
    told=$("$python" -B "$here/tools/manuals/manuals.py" check --docs docs --startup startup.cpp "$@" 2>&1) || status=1
    [ -z "$expected" ] || wanted=1
    judge "$name" "$expected" "$told" $status $wanted
    build_book
}

judge() {
    trials=$((trials + 1))
    [ "$2" = "$3" ] && [ "$4" -eq "$5" ] && return
    printf 'not ok: %s\n  expected: %s\n  told, with status %s: %s\n' "$1" "$2" "$4" "$3"
    failed=$((failed + 1))
}

build_book
trial "a book in order" ""

sed -i '/shot/d' docs/pictures/a.txt
trial "a picture that is missing" "docs/manual/01-um.md:5: there is no picture imagens/janela.png: no scenario takes it"

echo 'shot "sobra.png"' >>docs/pictures/a.txt
trial "a picture that nobody shows" "docs/pictures/a.txt:4: no page shows the picture sobra.png"

touch docs/manual/imagens/sobra.svg
trial "a drawing that nobody shows" "docs/manual/imagens/sobra.svg:1: no page shows the picture sobra.svg"

echo 'shot "janela.png"' >>docs/pictures/a.txt
trial "a picture that is taken twice" \
    "docs/pictures/a.txt:4: the picture janela.png is taken twice: docs/pictures/a.txt:3"

sed -i 's/!\[A janela\]/![]/' docs/manual/01-um.md
trial "a picture that doesn't say what it shows" \
    "docs/manual/01-um.md:5: the picture imagens/janela.png doesn't say what it shows"

sed -i 's/(#frmB)/(#frmC)/' docs/manual/01-um.md
trial "a link that leads nowhere" "docs/manual/01-um.md:3: a link leads nowhere: #frmC"

sed -i 's/(#frmB)/(02-dois.md)/' docs/manual/01-um.md
trial "a link to a file" "docs/manual/01-um.md:3: a link is written [text](#anchor): 02-dois.md"

echo '## Mais {#um}' >>docs/manual/02-dois.md
trial "an anchor of two chapters" "docs/manual/02-dois.md:16: the anchor um is doubled: docs/manual/01-um.md:1"

echo '### Mais {#frmA}' >>docs/manual/02-dois.md
trial "an anchor twice in a chapter" \
    "docs/manual/02-dois.md:16: the anchor frmA is doubled: docs/manual/02-dois.md:3"

sed -i 's/^## Outra ficha.*/## Outra ficha {#frmB}/' docs/manual/02-dois.md
trial "a form without a page" "startup.cpp:2: the manual has no page for frmB: ## Title {#frmB .janela}"

printf '    auto* window = new FrmORV;\n' >>startup.cpp
trial "the main window without a page" "startup.cpp:3: the manual has no page for frmORV: ## Title {#frmORV .janela}"

echo '## Mais {#frmC .janela}' >>docs/manual/02-dois.md
trial "a page without a form" \
    "docs/manual/02-dois.md:16: a page for a window that the program doesn't have: frmC"

echo '### "NÃO HÁ …" {#msg-outra .mensagem}' >>docs/manual/02-dois.md
trial "two entries of an index that read the same" \
    'docs/manual/02-dois.md:16: the entry of the index is doubled ("NÃO HÁ …"): docs/manual/02-dois.md:11'

echo '# Mais {#mais}' >>docs/manual/02-dois.md
trial "a chapter with two titles" "docs/manual/02-dois.md:16: a chapter begins with its one title: # Title {#anchor}"

sed -i 's/ {#dois}//' docs/manual/02-dois.md
trial "a chapter without an anchor" "docs/manual/02-dois.md:1: the title of a chapter needs an anchor: # Title {#anchor}"

echo 'Palavras {#perdidas .janela} aqui.' >>docs/manual/02-dois.md
trial "attributes that nothing takes" "docs/manual/02-dois.md:16: not understood: {#perdidas .janela}"

mkdir docs/tutorial && printf '# Um {#um}\n\n[Daqui](#frmA)\n' >docs/tutorial/01-um.md
trial "a link of the tutorial into the manual" "docs/tutorial/01-um.md:3: a link leads nowhere: #frmA"

sed -i 's/(#frmB)/(#frmC)/' docs/manual/01-um.md
echo '[Dali](#nada)' >>docs/manual/02-dois.md
trial "one chapter alone" "docs/manual/02-dois.md:16: a link leads nowhere: #nada" docs/manual/02-dois.md

make() {
    "$python" -B "$here/tools/manuals/manuals.py" make --docs docs --startup startup.cpp --version 1.2.3 --shots shots \
        --out "$1" 2>&1
}

told=$(make out) && status=0 || status=1
judge "the book is made" "" "$told" $status 0
(sleep 1.1; make again)
judge "the same bytes once more" "" "$(diff -rq out again 2>&1)" $? 0
judge "what is made of it" "imagens indice.html indice.json 01-um.html 02-dois.html" \
    "$(cd out/manual && echo imagens indice.* 0*)" 0 0
judge "its pictures" "desenho.svg janela.png" "$(cd out/manual/imagens && echo *)" 0 0
judge "its index" "um capitulo 01-um.html 3
um-as-datas seccao 01-um.html 3
dois capitulo 02-dois.html 4
frmA janela 02-dois.html 4
frmB janela 02-dois.html 4
msg-nao-ha mensagem 02-dois.html 4
mnuAbrir comando 02-dois.html 4
Palavras da ficha. | \"Não há …\"" "$("$python" - <<'EOF'
import json
entries = json.load(open("out/manual/indice.json", encoding="utf-8"))
for one in entries:
    print(one["id"], one["tipo"], one["ficheiro"], one["pagina"])
print(entries[3]["texto"], "|", entries[5]["titulo"])
EOF
)" 0 0
judge "a link from page to page" 1 "$(grep -c 'href="02-dois.html#frmB"' out/manual/01-um.html)" 0 0
judge "an anchor that the window finds" 1 "$(grep -c '<a name="frmB"></a>Outra ficha' out/manual/02-dois.html)" 0 0
judge "keys that the text names" 3 "$(grep -o 'class="tecla"' out/manual/01-um.html | wc -l)" 0 0
judge "a note in Portuguese" 1 "$(grep -c '<b>Nota</b>' out/manual/01-um.html)" 0 0

rm shots/janela.png
told=$(make none) && status=0 || status=1
judge "a picture that was not taken" "These pictures were not taken:
docs/pictures/a.txt: janela.png" "$told" $status 1
judge "nothing is made then" "" "$(ls none 2>/dev/null)" 0 0

[ $failed -eq 0 ] || echo "$failed of $trials trials of tools/manuals failed."
[ $failed -eq 0 ]

"""A book on paper: title page, contents, chapters, indexes, made into a PDF. The same sources give the same bytes."""

import os
import re
from datetime import datetime, timezone
from html import escape
from pathlib import Path

import weasyprint

from book import plain
from helppages import size_of

AUTHOR = "Equipa do projecto ORV"
SCALE = 0.158  # millimetres of paper for a point of the screen
TEXT_WIDTH = 162  # millimetres
TEXT_HEIGHT = 205  # what a picture may take of a page

INDEXES = [("janela", "Índice das janelas", "indice-janelas"), ("comando", "Índice dos comandos", "indice-comandos"),
           ("mensagem", "Índice das mensagens", "indice-mensagens")]


def smart(text):
    """Quotation marks for paper, in what isn't Markdown."""
    return re.sub(r'"([^"]*)"', "“\\1”", text)


def width_on_paper(file):
    size = size_of(file)
    if not size:
        return TEXT_WIDTH
    widest = min(TEXT_WIDTH, TEXT_HEIGHT * size[0] / size[1])
    return min(widest, size[0] * SCALE)


def with_pictures(text, book, shots):
    def shown(found):
        file = book.picture(found[2], shots)
        style = f' style="width: {width_on_paper(file):.1f}mm"'
        return f'<img{found[1]}src="{file.resolve().as_uri()}"{found[3]}{"" if "style=" in found[0] else style}>'

    text = re.sub(r'<img\b([^>]*)src="imagens/([^"]+)"([^>]*?)/?>', shown, text)
    return re.sub(r'<p>(<img [^>]*alt="([^"]*)"[^>]*>)</p>',
                  r"<figure>\1<figcaption>\2</figcaption></figure>", text)


def line_of_index(heading):
    return (f'<li><a href="#{heading.anchor}"><span class="entrada">{escape(smart(heading.title))}</span></a>'
            f'<a class="pagina" href="#{heading.anchor}"></a></li>')


def contents(book, indexes):
    rows = []
    for chapter in book.chapters:
        title, *rest = chapter.headings
        rows.append(f'<li class="de-capitulo"><a href="#{title.anchor}">{escape(smart(title.title))}</a></li>')
        rows += [f'<li><a href="#{one.anchor}">{escape(smart(one.title))}</a></li>'
                 for one in rest if one.level == 2 and one.kind != "mensagem"]
    rows += [f'<li class="de-indice"><a href="#{anchor}">{title}</a></li>' for _, title, anchor in indexes]
    return f'<nav class="conteudo"><h1 id="conteudo">Conteúdo</h1><ul>{"".join(rows)}</ul></nav>'


def index(book, kind, title, anchor):
    found = sorted(book.headings(kind), key=lambda one: plain(one.title))
    rows = "".join(line_of_index(one) for one in found)
    return f'<section class="indice {kind}"><h1 id="{anchor}">{title}</h1><ul>{rows}</ul></section>'


def title_page(book, version, picture):
    drawn = f'<img src="{picture.resolve().as_uri()}" alt="">' if picture else ""
    return (f'<section class="rosto"><div class="livro">{escape(book.title)} do ORV</div>{drawn}<p class="programa">ORV</p>'
            f'<p class="nome-do-programa">Sistema de Ordenação de Róis e Vidas</p>'
            f'<p class="titulo">{escape(book.title)}</p><p class="versao">Versão {escape(version)}</p></section>')


def made_on():
    """When the sources are from, where whoever builds says so."""
    epoch = os.environ.get("SOURCE_DATE_EPOCH")
    if not epoch:
        return ""
    moment = datetime.fromtimestamp(int(epoch), timezone.utc).strftime("%Y-%m-%dT%H:%M:%SZ")
    return f'<meta name="dcterms.created" content="{moment}"><meta name="dcterms.modified" content="{moment}">'


def whole(book, shots, version, picture):
    indexes = [one for one in INDEXES if book.headings(one[0])]
    chapters = "".join(f'<section class="capitulo">{with_pictures(chapter.printed, book, shots)}</section>'
                       for chapter in book.chapters)
    return (f'<!DOCTYPE html><html lang="pt-PT"><head><meta charset="utf-8"><title>ORV – {escape(book.title)}</title>'
            f'<meta name="author" content="{AUTHOR}">{made_on()}</head><body>'
            f"{title_page(book, version, picture)}{contents(book, indexes)}{chapters}"
            f'{"".join(index(book, *one) for one in indexes)}</body></html>')


def styles(book):
    own = sorted(book.folder.glob("*.css"))
    return [weasyprint.CSS(filename=str(path)) for path in [Path(__file__).with_name("paper.css"), *own]]


def write(book, shots, version, picture, target):
    """Writes the PDF; gives the page that each anchor stands on, the first one of the file being 1."""
    text = whole(book, shots, version, picture)
    document = weasyprint.HTML(string=text, base_url=str(book.folder)).render(stylesheets=styles(book))
    document.write_pdf(str(target))
    pages = {}
    for number, one in enumerate(document.pages, 1):
        for anchor in one.anchors:
            pages.setdefault(anchor, number)
    return pages

"""The manual as the program's help window shows it: a page for each chapter, in the subset of HTML that a QTextBrowser
draws, the pictures, and indice.json, by which the window finds what it looks for."""

import json
import re
import shutil
import struct
from html import escape

WIDEST = 720  # of a picture, in points of 1/96 inch

STYLE = """
body { margin: 12px; }
h1 { color: #20455f; }
h2 { color: #20455f; margin-top: 24px; }
h3 { margin-top: 16px; }
p, li, dd { line-height: 130%; }
td, th { padding: 4px; }
.tecla { background-color: #e6e9ec; color: #20262b; font-weight: bold; }
.legenda { color: #6a747c; font-style: italic; }
"""

NOTE = ('<table class="nota" width="100%" cellpadding="8" cellspacing="0" border="0"><tr>'
        '<td bgcolor="#eef3f7" style="color: #20262b">')


def size_of(picture):
    """Of a PNG file, in points: the pictures are taken at twice the scale. Nothing for one of another kind."""
    head = picture.read_bytes()[:24]
    if head[:8] != b"\x89PNG\r\n\x1a\n":
        return None
    width, height = struct.unpack(">II", head[16:24])
    return width // 2, height // 2


def sized(name, book, shots):
    size = size_of(book.picture(name, shots))
    if not size:
        return f' width="{WIDEST}"'
    width = min(size[0], WIDEST)
    return f' width="{width}" height="{size[1] * width // size[0]}"'


def with_pictures(text, book, shots):
    def shown(found):
        name = re.search(r'src="imagens/([^"]+)"', found[0])[1]
        caption = re.search(r'alt="([^"]*)"', found[0])
        caption = caption[1] if caption else ""
        return f'<img src="imagens/{name}" alt="{caption}"{sized(name, book, shots)} />'

    text = re.sub(r'<img\b[^>]*src="imagens/[^>]*>', shown, text)
    return re.sub(r'<p>(<img [^>]*alt="([^"]*)"[^>]*>)</p>',
                  lambda found: f'<p>{found[1]}<br/><span class="legenda">{found[2]}</span></p>', text)


def with_anchors(text):
    """An anchor before what bears it: the browser finds no other."""
    return re.sub(r'<(h[1-6])([^>]*?) id="([^"]+)"([^>]*)>', r'<\1\2\4><a name="\3"></a>', text)


def with_notes(text):
    """A note becomes a table of one cell: only a table has a ground of its own."""
    pieces = re.split(r'(<div class="admonition[^>]*>|<div\b[^>]*>|</div>)', text)
    open_notes = []
    for index, piece in enumerate(pieces):
        if piece.startswith("<div"):
            open_notes.append('class="admonition' in piece)
            if open_notes[-1]:
                pieces[index] = NOTE
        elif piece == "</div>" and open_notes.pop():
            pieces[index] = "</td></tr></table><p></p>"
    text = "".join(pieces)
    return re.sub(r'<p class="admonition-title">(.*?)</p>', r"<p><b>\1</b></p>", text)


def with_tables(text):
    return text.replace("<table>", '<table border="1" cellspacing="0" cellpadding="4" style="border-collapse: collapse; '
                                   'border-color: #b8c2ca">')


def with_keys(text):
    return re.sub(r"<kbd>(.*?)</kbd>", r'<span class="tecla">&nbsp;\1&nbsp;</span>', text)


def with_links(text, page_of):
    return re.sub(r'href="#([^"]+)"', lambda found: f'href="{page_of[found[1]]}#{found[1]}"', text)


def page(title, body):
    return (f'<!DOCTYPE html>\n<html lang="pt-PT"><head><meta charset="utf-8"/><title>{escape(title)}</title>'
            f"<style>{STYLE}</style></head>\n<body>\n{body}\n</body></html>\n")


def body_of(chapter, book, shots, page_of):
    text = with_notes(with_tables(chapter.html))
    return with_links(with_keys(with_anchors(with_pictures(text, book, shots))), page_of)


def contents(book):
    rows = []
    for chapter in book.chapters:
        for heading in chapter.headings:
            if heading.level > 2:
                continue
            tag = "b" if heading.level == 1 else "span"
            indent = "" if heading.level == 1 else "&nbsp;" * 6
            rows.append(f'<p style="margin: 2px">{indent}<{tag}><a href="{chapter.page}#{heading.anchor}">'
                        f"{escape(heading.title)}</a></{tag}></p>")
    return f"<h1>{escape(book.title)}</h1>\n" + "\n".join(rows)


def entry(chapter, heading, pages):
    return {"id": heading.anchor, "titulo": heading.title, "tipo": heading.kind, "ficheiro": chapter.page,
            "ancora": heading.anchor, "pagina": pages.get(heading.anchor, 0), "texto": heading.words}


def write(book, shots, pages, folder):
    """The whole folder anew; `pages` are the pages of the PDF that the anchors stand on."""
    shutil.rmtree(folder, ignore_errors=True)
    (folder / "imagens").mkdir(parents=True)
    page_of = {name: chapter.page for chapter in book.chapters for name, _ in chapter.anchors}
    for chapter in book.chapters:
        text = page(chapter.headings[0].title, body_of(chapter, book, shots, page_of))
        (folder / chapter.page).write_text(text, encoding="utf-8")
        for picture in chapter.pictures:
            name = picture.name.removeprefix("imagens/")
            shutil.copyfile(book.picture(name, shots), folder / "imagens" / name)
    (folder / "indice.html").write_text(page(book.title, contents(book)), encoding="utf-8")
    listed = [entry(chapter, heading, pages) for chapter in book.chapters for heading in chapter.headings]
    (folder / "indice.json").write_text(json.dumps(listed, ensure_ascii=False, indent=1) + "\n", encoding="utf-8")

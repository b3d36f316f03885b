"""A book: the chapters in a folder of Markdown, read into HTML, with everything in them that the checks and the indexes
need and the line that it stands in."""

import functools
import html.parser
import re
import unicodedata
from dataclasses import dataclass, field
from pathlib import Path

import markdown

EXTENSIONS = ["attr_list", "tables", "toc", "sane_lists", "def_list", "admonition", "md_in_html"]
QUOTES = {"left-double-quote": "“", "right-double-quote": "”", "left-single-quote": "‘", "right-single-quote": "’"}
KINDS = {"janela": "janela", "comando": "comando", "mensagem": "mensagem"}  # classes that an index is made of
TITLES = {"Note": "Nota", "Tip": "Sugestão", "Warning": "Atenção", "Danger": "Perigo", "Important": "Importante",
          "Example": "Exemplo", "Hint": "Sugestão", "Caution": "Cuidado", "Attention": "Atenção"}


@dataclass(frozen=True)
class Place:
    file: Path
    line: int


@dataclass(frozen=True)
class Heading:
    level: int
    anchor: str
    title: str
    classes: tuple
    place: Place
    words: str = ""  # what follows, up to the next heading

    @property
    def kind(self):
        if self.level == 1:
            return "capitulo"
        return next((KINDS[one] for one in self.classes if one in KINDS), "seccao")


@dataclass(frozen=True)
class Reference:
    """A link or a picture: what it names, and where."""
    name: str
    text: str
    place: Place


@dataclass
class Chapter:
    path: Path
    source: str
    html: str     # for the help window: quotation marks as they were typed
    printed: str  # for paper
    headings: list = field(default_factory=list)
    anchors: list = field(default_factory=list)  # all of them: (name, place)
    links: list = field(default_factory=list)
    pictures: list = field(default_factory=list)
    leftovers: list = field(default_factory=list)  # attributes that Markdown has not understood

    @property
    def page(self):
        return self.path.stem + ".html"


@dataclass
class Book:
    folder: Path
    title: str
    chapters: list

    def headings(self, kind=None):
        return [one for chapter in self.chapters for one in chapter.headings if kind in (None, one.kind)]

    def picture(self, name, shots):
        """The file of a picture: taken at build time, or one that was drawn and lies with the sources."""
        for folder in (shots, self.folder / "imagens"):
            if folder and (folder / name).is_file():
                return folder / name
        return None


def plain(text):
    """For comparing and sorting as the dictionary does: without quotation marks, accents and capitals."""
    bare = unicodedata.normalize("NFD", re.sub(r"[\"“”«»'‘’…]", "", text))
    return "".join(one for one in bare if not unicodedata.combining(one)).casefold().strip()


def slug(prefix, text, separator):
    words = re.sub(r"[^a-z0-9]+", separator, plain(text)).strip(separator)
    return f"{prefix}{separator}{words}" if prefix else words


def converted(source, prefix, for_paper):
    configs = {"toc": {"slugify": functools.partial(slug, prefix)}}
    extensions = list(EXTENSIONS)
    if for_paper:
        extensions.append("smarty")
        configs["smarty"] = {"smart_dashes": False, "smart_ellipses": False, "substitutions": QUOTES}
    text = markdown.markdown(source, extensions=extensions, extension_configs=configs)
    return re.sub(r'(<p class="admonition-title">)(\w+)(</p>)',
                  lambda found: found[1] + TITLES.get(found[2], found[2]) + found[3], text)


class Reader(html.parser.HTMLParser):
    """Takes from a chapter's HTML its headings with the words under them, and the names of all anchors."""

    def __init__(self):
        super().__init__()
        self.found = []  # [level, anchor, classes, title, words]
        self.anchors = []
        self.open = False

    def handle_starttag(self, tag, attrs):
        given = dict(attrs)
        anchor = given.get("id") or (given.get("name") if tag == "a" else None)
        if anchor:
            self.anchors.append(anchor)
        if re.fullmatch("h[1-6]", tag):
            self.found.append([int(tag[1]), anchor or "", tuple((given.get("class") or "").split()), "", ""])
            self.open = True

    def handle_endtag(self, tag):
        if re.fullmatch("h[1-6]", tag):
            self.open = False
        elif self.found:
            self.found[-1][4] += " "

    def handle_data(self, data):
        if self.found:
            self.found[-1][3 if self.open else 4] += data


def prose(source):
    """The numbered lines, with what stands as code blanked out."""
    fenced = False
    for number, line in enumerate(source.splitlines(), 1):
        fence = re.match(r"\s*(```|~~~)", line)
        if fence:
            fenced = not fenced
        code = fenced or fence
        yield number, "" if code else re.sub(r"`[^`]*`", "", line)


def read_chapter(path):
    source = path.read_text(encoding="utf-8")
    lines = list(prose(source))
    explicit = re.search(r"^# .*\{[^}]*#([\w-]+)", source, re.MULTILINE)
    prefix = explicit[1] if explicit else path.stem
    chapter = Chapter(path, source, converted(source, prefix, False), converted(source, prefix, True))
    reader = Reader()
    reader.feed(chapter.html)

    at = [number for number, line in lines if re.match(r"#{1,6}\s", line)]
    at += [1] * (len(reader.found) - len(at))
    for (level, anchor, classes, title, words), number in zip(reader.found, at):
        chapter.headings.append(Heading(level, anchor, " ".join(title.split()), classes, Place(path, number),
                                        " ".join(words.split())))
    of_headings = {one.anchor: one.place for one in chapter.headings}
    for anchor in reader.anchors:
        chapter.anchors.append((anchor, of_headings.get(anchor) or Place(path, line_of(lines, anchor))))
    doubled_headings_stand_in_their_own_lines(chapter)

    for number, line in lines:
        place = Place(path, number)
        for mark, text, target in re.findall(r"(!?)\[((?:[^\[\]]|\[[^\]]*\])*)\]\(([^)\s]+)[^)]*\)", line):
            (chapter.pictures if mark else chapter.links).append(Reference(target, text, place))
        for target in re.findall(r"<img\b[^>]*\bsrc=\"([^\"]+)\"", line):
            chapter.pictures.append(Reference(target, "", place))
        for target in re.findall(r"<a\b[^>]*\bhref=\"([^\"]+)\"", line):
            chapter.links.append(Reference(target, "", place))
    visible = re.sub(r"<(code|pre)\b.*?</\1>|<[^>]*>", "", chapter.html, flags=re.DOTALL)
    for left in re.findall(r"\{[#.:][^}]*\}", visible):
        chapter.leftovers.append(Reference(left, "", Place(path, line_of(lines, left))))
    return chapter


def doubled_headings_stand_in_their_own_lines(chapter):
    """Where two headings bear the same anchor, each keeps the line that it stands in."""
    waiting = {}
    for heading in chapter.headings:
        waiting.setdefault(heading.anchor, []).append(heading.place)
    chapter.anchors = [(name, waiting[name].pop(0) if waiting.get(name) else place) for name, place in chapter.anchors]


def line_of(lines, text):
    return next((number for number, line in lines if text in line), 1)


def read_book(folder, title):
    paths = sorted(folder.glob("[0-9]*.md")) if folder else []
    return Book(folder, title, [read_chapter(path) for path in paths])

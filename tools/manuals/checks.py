"""What must hold of the manual and the tutorial before they are made. Every problem has its file and line."""

import re
from collections import defaultdict
from dataclasses import dataclass

from book import Place, Reference, plain


@dataclass(frozen=True)
class Problem:
    place: Place
    text: str

    def __str__(self):
        return f"{self.place.file}:{self.place.line}: {self.text}"


def registered_forms(startup):
    """The forms that the program knows, and the line that makes each known."""
    for number, line in enumerate(startup.read_text(encoding="utf-8").splitlines(), 1):
        for name in re.findall(r'Forms::add\("(\w+)"', line):
            yield name, Place(startup, number)


def shots(folder):
    """The pictures that the scenarios of a folder take."""
    for path in sorted(folder.glob("**/*.txt")):
        for number, line in enumerate(path.read_text(encoding="utf-8").splitlines(), 1):
            taken = re.match(r'\s*shot\s+(?:\w+\s+)?"([^"]+)"', line)
            if taken:
                yield Reference(taken[1], "", Place(path, number))


def beginnings(book):
    for chapter in book.chapters:
        first = [one for one in chapter.headings if one.level == 1]
        place = first[1].place if len(first) > 1 else Place(chapter.path, 1)
        if len(first) != 1 or chapter.headings[0].level != 1:
            yield Problem(place, "a chapter begins with its one title: # Title {#anchor}")
        for heading in first[:1]:
            if not re.search(r"\{[^}]*#", chapter.source.splitlines()[heading.place.line - 1]):
                yield Problem(heading.place, "the title of a chapter needs an anchor: # Title {#anchor}")


def leftovers(book):
    for chapter in book.chapters:
        for one in chapter.leftovers:
            yield Problem(one.place, f"not understood: {one.name}")


def anchors(book):
    """Each name once."""
    seen = {}
    for chapter in book.chapters:
        for name, place in chapter.anchors:
            if name in seen:
                yield Problem(place, f"the anchor {name} is doubled: {seen[name].file}:{seen[name].line}")
            seen.setdefault(name, place)


def links(book):
    known = {name for chapter in book.chapters for name, _ in chapter.anchors}
    for chapter in book.chapters:
        for link in chapter.links:
            if link.name.startswith("#") and link.name[1:] not in known:
                yield Problem(link.place, f"a link leads nowhere: {link.name}")
            elif not re.match(r"#|https?:|mailto:", link.name):
                yield Problem(link.place, f"a link is written [text](#anchor): {link.name}")


def pictures(books, taken):
    """What is shown is there, what is there is shown, and every picture says what it shows."""
    names = {}
    for shot in taken:
        if shot.name in names:
            yield Problem(shot.place, f"the picture {shot.name} is taken twice: {names[shot.name].file}:"
                                      f"{names[shot.name].line}")
        names.setdefault(shot.name, shot.place)
    used = set()
    for book in books:
        drawn = {path.name: Place(path, 1) for path in sorted((book.folder / "imagens").glob("*.*"))}
        for chapter in book.chapters:
            for picture in chapter.pictures:
                yield from one_picture(picture, {**names, **drawn})
                used.add(picture.name.removeprefix("imagens/"))
        yield from (Problem(place, f"no page shows the picture {name}")
                    for name, place in drawn.items() if name not in used)
    yield from (Problem(place, f"no page shows the picture {name}") for name, place in names.items() if name not in used)


def one_picture(picture, known):
    if not picture.name.startswith("imagens/"):
        yield Problem(picture.place, f"a picture is named imagens/NAME.png: {picture.name}")
    elif picture.name.removeprefix("imagens/") not in known:
        yield Problem(picture.place, f"there is no picture {picture.name}: no scenario takes it")
    if not picture.text.strip():
        yield Problem(picture.place, f"the picture {picture.name} doesn't say what it shows")


def windows(manual, forms):
    """Every form has its page, and every page of a window its form."""
    described = {one.anchor for one in manual.headings("janela")}
    known = dict(forms)
    for name, place in known.items():
        if name not in described:
            yield Problem(place, f"the manual has no page for {name}: ## Title {{#{name} .janela}}")
    for heading in manual.headings("janela"):
        if heading.anchor not in known:
            yield Problem(heading.place, f"a page for a window that the program doesn't have: {heading.anchor}")


def entries(book):
    """Two entries of an index that read the same lead a reader astray."""
    seen = defaultdict(dict)
    for heading in book.headings():
        if heading.kind not in ("janela", "comando", "mensagem"):
            continue
        title = plain(heading.title)
        first = seen[heading.kind].setdefault(title, heading.place)
        if first != heading.place:
            yield Problem(heading.place, f"the entry of the index is doubled ({heading.title}): {first.file}:{first.line}")


def problems(manual, tutorial, pictures_folder, startup):
    taken = list(shots(pictures_folder)) if pictures_folder else []
    books = [book for book in (manual, tutorial) if book.chapters]
    for book in books:
        for check in (beginnings, leftovers, anchors, links, entries):
            yield from check(book)
    yield from pictures(books, taken)
    if startup:
        yield from windows(manual, registered_forms(startup))

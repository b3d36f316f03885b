#!/usr/bin/env python3
"""Makes the manual and the tutorial out of docs/, or only looks them through.

    manuals.py check [FILE...]      what doesn't hold, with file and line; of these files alone where some are named
    manuals.py make --shots DIR --out DIR --version X.Y.Z
                                    mnlORV.pdf, tutORV.pdf and manual/, of the pictures in DIR

How the sources are written: docs/manual/README.md. Exit status 1 where something doesn't hold.
"""

import argparse
import sys
from pathlib import Path

import book
import checks

ROOT = Path(__file__).resolve().parents[2]


def arguments():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("command", choices=["check", "make"])
    parser.add_argument("files", nargs="*", type=Path, metavar="FILE")
    parser.add_argument("--docs", type=Path, default=ROOT / "docs", help="the folder of manual, tutorial and pictures")
    parser.add_argument("--startup", type=Path, default=ROOT / "src/shell/startup.cpp", help="what makes the forms known")
    parser.add_argument("--shots", type=Path, help="the folder of the pictures that were taken")
    parser.add_argument("--out", type=Path, help="the folder that takes what is made")
    parser.add_argument("--version", default="", help="the version of the program")
    parser.add_argument("--icon", type=Path, default=ROOT / "src/shell/icons/orv.svg", help="for the title page")
    return parser.parse_args()


def books(docs):
    return book.read_book(docs / "manual", "Manual"), book.read_book(docs / "tutorial", "Tutorial")


def found(manual, tutorial, given):
    pictures = given.docs / "pictures"
    startup = given.startup if manual.chapters and not given.files else None
    all_found = list(checks.problems(manual, tutorial, pictures, startup))
    if not given.files:
        return all_found
    named = {path.resolve() for path in given.files}
    return [problem for problem in all_found if problem.place.file.resolve() in named]


def make(manual, tutorial, given):
    import helppages
    import printed

    missing = [str(one.place.file) + ": " + one.name for one in checks.shots(given.docs / "pictures")
               if not (given.shots / one.name).is_file()]
    if missing:
        print("These pictures were not taken:", *missing, sep="\n", file=sys.stderr)
        return 1
    given.out.mkdir(parents=True, exist_ok=True)
    icon = given.icon if given.icon.is_file() else None
    if manual.chapters:
        pages = printed.write(manual, given.shots, given.version, icon, given.out / "mnlORV.pdf")
        helppages.write(manual, given.shots, pages, given.out / "manual")
    if tutorial.chapters:
        printed.write(tutorial, given.shots, given.version, icon, given.out / "tutORV.pdf")
    return 0


def main():
    given = arguments()
    manual, tutorial = books(given.docs)
    wrong = found(manual, tutorial, given)
    for problem in wrong:
        print(problem, file=sys.stderr)
    if wrong:
        return 1
    return make(manual, tutorial, given) if given.command == "make" else 0


if __name__ == "__main__":
    sys.exit(main())

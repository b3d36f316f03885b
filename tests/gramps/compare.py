#!/usr/bin/env python3
"""compare.py BDP GEDCOM TREE: whether what Gramps has read is what the BDP has. One line for each difference."""

import collections
import gzip
import re
import sqlite3
import sys
import xml.etree.ElementTree as xml

# What Gramps calls the events of a file.
NAMES = {
    "BIRT": "Birth", "CHR": "Christening", "DEAT": "Death", "BURI": "Burial", "MARR": "Marriage",
    "OCCU": "Occupation", "RESI": "Residence", "EMIG": "Emigration", "WILL": "Will",
    "TITL": "Nobility Title",
}

# Situations of a family that aren't those of a married couple.
UNMARRIED = "f.sfamilia in ('3', '4', '5', '6', '7', '8')"

# A date as the cards mean it: a first of January that isn't exact is the year alone.
DATED = "select case when {0} = 1 then '' when {1} like '%-01-01' then '~y' else '~' end || {1} from {2} " \
        "where {1} is not null"


def of_bdp(bdp, select):
    return [row[0] for row in bdp.execute(select)]


def dates_of_bdp(bdp, column, exact, table):
    all_dates = collections.Counter()
    for told in of_bdp(bdp, DATED.format(exact, column, table)):
        all_dates[told[:6].replace("y", "") if told.startswith("~y") else told] += 1
    return all_dates


def words(text):
    return " ".join(text.split())


class Tree:
    """A family tree as Gramps writes it."""

    def __init__(self, path):
        root = xml.parse(gzip.open(path)).getroot()
        self.space = root.tag[:root.tag.index("}") + 1]
        self.events = self.records(root, "events", "event")
        self.people = self.records(root, "people", "person")
        self.families = self.records(root, "families", "family")
        self.places = self.records(root, "places", "placeobj")
        self.sources = self.records(root, "sources", "source")

    def records(self, root, group, one):
        found = root.find(self.space + group)
        return [] if found is None else found.findall(self.space + one)

    def text(self, record, tag):
        found = record.find(self.space + tag)
        return "" if found is None else found.text or ""

    def count(self, records, tag):
        return sum(len(record.findall(self.space + tag)) for record in records)

    def names(self):
        """Of each person, without the titles of the card."""
        names = collections.Counter()
        for person in self.people:
            name = person.find(self.space + "name")
            surname = name.find(self.space + "surname")
            prefix = "" if surname is None else surname.get("prefix") or ""
            names[words(" ".join([self.text(name, "first"), prefix, self.text(name, "surname")]))] += 1
        return names

    def kinds(self):
        return collections.Counter(self.text(event, "type") for event in self.events)

    def dates(self, kind):
        all_dates = collections.Counter()
        for event in self.events:
            day = event.find(self.space + "dateval")
            if self.text(event, "type") == kind and day is not None:
                all_dates[("~" if day.get("type") == "about" else "") + day.get("val")] += 1
        return all_dates


def kinds_of_gedcom(lines):
    """The events of the file: level 1 below a person or a family; an event without a name of its own by its type."""
    kinds = collections.Counter()
    record = ""
    for number, line in enumerate(lines):
        tag = line.split(" ")[1]
        if line.startswith("0 "):
            record = line.split(" ")[-1]
        if not line.startswith("1 ") or record not in ("INDI", "FAM"):
            continue
        if tag in NAMES:
            kinds[NAMES[tag]] += 1
        elif tag == "EVEN":
            kinds[lines[number + 1].removeprefix("2 TYPE ")] += 1
    return kinds


def main(path, gedcom, tree_path):
    bdp = sqlite3.connect(f"file:{path}?mode=ro", uri=True)
    lines = open(gedcom, encoding="utf-8").read().splitlines()
    tree = Tree(tree_path)
    kinds = tree.kinds()

    def one(select):
        return of_bdp(bdp, select)[0]

    expected = [
        ("people", len(tree.people), one("select count(*) from individuo")),
        ("names", tree.names(), collections.Counter(words(name) for name in of_bdp(bdp, "select nome from individuo"))),
        ("families", len(tree.families), one("select count(*) from familia")),
        ("events by kind", kinds, kinds_of_gedcom(lines)),
        ("professions", kinds["Occupation"], one("select count(*) from profissoes")),
        ("residences", kinds["Residence"], one("select count(*) from residencia")),
        ("passports", kinds["Emigration"], one("select count(*) from passaporte")),
        ("dates of baptisms", tree.dates("Christening"),
         dates_of_bdp(bdp, "datanasc", "DnascFixa", "individuo")),
        ("dates of deaths", tree.dates("Death"), dates_of_bdp(bdp, "dataobito", "dobitofixa", "individuo")),
        ("dates of marriages", tree.dates("Marriage"),
         dates_of_bdp(bdp, "datacasam", "dcasamfixa", f"(select * from familia f where not coalesce({UNMARRIED}, 0))")),
        ("dates of unions", tree.dates("União"),
         dates_of_bdp(bdp, "datacasam", "dcasamfixa", f"(select * from familia f where {UNMARRIED})")),
        ("children of families", tree.count(tree.families, "childref"), one("select count(famorig) from individuo")),
        ("spouses", tree.count(tree.families, "father") + tree.count(tree.families, "mother"),
         one("select count(*) from familias")),
        ("associations", tree.count(tree.people, "personref"),
         sum(1 for line in lines if line.startswith("1 ASSO "))),
        ("godparents and witnesses",
         sum(1 for person in tree.people for other in person.findall(tree.space + "personref")
             if other.get("rel") in ("Godparent", "Witness")), one("select count(*) from assistente")),
        ("places", len(tree.places), len({line for line in lines if line.startswith("2 PLAC ")})),
        ("registers as sources",
         sum(1 for source in tree.sources if tree.text(source, "stitle").startswith("Registos de ")), 3),
    ]
    differences = 0
    for what, there, here in expected:
        if there != here:
            differences += 1
            if isinstance(there, collections.Counter):
                there, here = dict((there - here).most_common(5)), dict((here - there).most_common(5))
            print(f"{what}: Gramps has {there}, the BDP {here}")
    return min(differences, 1)


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))

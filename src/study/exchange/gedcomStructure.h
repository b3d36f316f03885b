// A line of a GEDCOM file as level, xref, tag and value. For the reader alone.
#pragma once

#include "study/exchange/gedcomSource.h"

namespace study::exchange {

inline constexpr int deepestLevel = 99;

struct GedcomStructureLine
{
    int level = -1; // -1: the line has none, and is text
    QString xref = {}, tag = {};
    QString value = {}; // as it stands behind the first blank; the whole line where it is text
    bool tagInCapitals = true;
    int number = 0;
    QString whole = {}; // the line

    bool isBlank() const;
    bool startsRecord() const { return level == 0 && tag != "CONC" && tag != "CONT"; }
    // Text that was broken, perhaps before a number and a word: "12 de Fevereiro".
    bool isTextBelow(int lastLevel) const;
    GedcomStructureLine asText(int blankLines) const; // the blank lines before it are of the text
};

// Blanks and tabs stand before the level, and in any number behind it; one blank or tab before the value.
GedcomStructureLine structureLine(const GedcomLine& line);
GedcomNode nodeOf(const GedcomStructureLine& line, bool in70);
QString withoutFirstAt(const QString& value); // "@@a" as "@a"

} // namespace study::exchange

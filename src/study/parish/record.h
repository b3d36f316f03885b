// The short sheet of a record, and two of them side by side: what a window shows of a person or a family beside a case.
#pragma once

#include "study/parish/snapshot.h"

#include <QString>

#include <vector>

namespace study::parish {

// One line of a sheet. Of some titles a record has one value, of others several rows, each a line.
struct RecordLine
{
    QString title = {};
    QString value = {}; // never empty
    bool several = false;

    bool operator==(const RecordLine&) const = default;
};

// What the cards tell, in their order; what isn't told has no line. Of many rows with one title (a sexton assists at a
// thousand acts) the first dozen are told and the others counted: "… e mais 988".
std::vector<RecordLine> record(const Snapshot& parish, const Person& person);
std::vector<RecordLine> record(const Snapshot& parish, const Family& family);

// "nº 85 Domingos Luís"; "família 29: nº 85 Domingos Luís e nº 86 Ana Lopes".
QString label(const Person& person);
QString label(const Family& family);

struct ComparedLine
{
    enum class Mark
    {
        Same,
        OnlyOne,   // the other record doesn't tell it
        OnlyOther, // the one record doesn't
        Beside,    // rows of which a record may have several: no contradiction
        Differs
    };
    QString title = {}, one = {}, other = {};
    Mark mark = Mark::Same;

    bool operator==(const ComparedLine&) const = default;
};

using ComparedLines = std::vector<ComparedLine>;

// Each line of either sheet once, in the order of the sheets: equal rows stand beside each other, what is left of the
// rows of one title in its order. Swapping the two swaps the columns.
// Precondition: both sheets have their titles in the order of record() for one kind.
ComparedLines compared(const std::vector<RecordLine>& one, const std::vector<RecordLine>& other);

// "=", "≠", or "" where only one of the two tells it, or there may be several.
QString sign(ComparedLine::Mark mark);

} // namespace study::parish

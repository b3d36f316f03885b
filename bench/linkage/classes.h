// What is found and what is missed, by what is told of the records.
#pragma once

#include "linkage/tally.h"

#include <QString>

namespace bench {

// Of the records of one sort ("birth, origin"), and over all, those that have another one of the same truth.
struct Reached
{
    int records = 0;
    int together = 0; // a right one stands in some block with them, or in a pair of families that do
    int listed = 0;   // among their candidates
    int best = 0;     // it is the first of them
    int suggested = 0;

    bool operator==(const Reached&) const = default;
    Reached& operator+=(const Reached& other);
};

// By the sort: of whom a birth, a family of origin, a union, a death are told.
std::map<QString, Reached> reachedBySort(const Tallied& people, const study::parish::Snapshot& parish,
                                         const study::linkage::Model& model, const study::linkage::Question& question);

} // namespace bench

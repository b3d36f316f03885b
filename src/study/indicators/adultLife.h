// An adult from the first marriage on, as four estimates see the end.
//
// Whose death isn't known must not be dropped: who dies young dies more often where the wedding was. Bounds: L. Henry,
// 1967; with the union that is seen to its end: after J. Dupâquier.
//
// A limit of observation that a researcher typed holds for all four, and so does the first year that no book of burials
// covers: who died behind it has left alive.
#pragma once

#include "study/indicators/subject.h"

namespace study::indicators {

enum class Estimate : quint8
{
    Closed,  // those of closed unions, up to the end of the union
    Least,   // unknown deaths come when somebody is first told to be dead; who never is, leaves
    Most,    // unknown deaths come on the last day that somebody was seen alive
    Censored // unknown deaths: leaves on that day
};
inline constexpr std::array<Estimate, 4> estimates = {Estimate::Closed, Estimate::Least, Estimate::Most,
                                                      Estimate::Censored};

enum class NoAdult : quint8
{
    None,
    NotAsked, // never married, of another period or gender
    Sexless,
    Elsewhere,
    OutOfBooks,
    NoBirth,
    Contradiction
};

struct End
{
    parish::Date day = {}; // unknown: the estimate doesn't take this life
    bool dies = false;
};

struct AdultLife
{
    NoAdult why = NoAdult::NotAsked;
    parish::Date birth = {}, marriage = {};
    parish::Date from = {};                 // at risk: from the marriage, or from a later limit that was typed
    const parish::Family* family = nullptr; // of the first marriage
    std::array<End, 4> ends = {};           // by Estimate
};
AdultLife adultLifeOf(const parish::Person& person, const Study& study);

} // namespace study::indicators

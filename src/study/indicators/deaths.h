// How old somebody was who died, as far as the registers tell it.
#pragma once

#include "study/indicators/subject.h"

#include <optional>

namespace study::indicators {

inline constexpr int endOfInnocence = 6; // completed years: who is seven makes confession

struct AgeAtDeath
{
    enum class By : quint8
    {
        Nothing,
        Dates,
        Statement, // of the act, in completed years
        Class      // only bounds: the card's class of the parishioner, or "menor"
    };
    By by = By::Nothing;
    std::optional<int> years = {};             // completed
    std::optional<int> least = {}, below = {}; // where a class alone tells: from least on, and under below

    // Whether the age is below so many years; false where that isn't known.
    bool isYoung(int years) const;
    // Whether it is so many years or more; false where that isn't known.
    bool isGrown(int years) const;
    bool isExactlyKnown() const { return by == By::Dates || by == By::Statement; }

    bool operator==(const AgeAtDeath&) const = default;
};

AgeAtDeath ageAtDeathOf(const parish::Person& person);

// Who is buried: a child under seven, an older one or an adult, or one whose age nothing tells.
enum class Buried : quint8
{
    Adult,
    Child,
    Ageless
};
Buried buriedAs(const parish::Person& person);

// Under which counts a subject tells of deaths elsewhere, and of those that the books don't hold.
struct DeathsApart
{
    quint16 elsewhere, outOfBooks;
};
// Whether a death is among those that the study asks for, by its year, its place and its book and the sex. One that its
// place or its book alone keeps out is counted as such; the others not at all.
bool isAskedFor(const parish::Person& dead, const Study& study, Taker& taker, DeathsApart apart);

} // namespace study::indicators

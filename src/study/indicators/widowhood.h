// From the end of a union to the survivor's next marriage, or to the day the survivor is last seen without one.
#pragma once

#include "study/indicators/reasons.h"
#include "study/indicators/subject.h"

#include <array>

namespace study::indicators {

// Why a union leaves nobody who is watched.
enum class NoWidowhood : quint8
{
    None,
    NotAsked, // of the other gender
    NoUnion,
    OpenUnion,
    OutOfPeriod,
    NoSurvivor,      // both died on one day, or the sex of the survivor isn't known
    UndatedMarriage, // another union of the survivor's has no date, and may be the next one
    NotSeen          // behind the end
};

// What they tell, from NoUnion on.
inline constexpr std::array<const char*, 6> noWidowhoodTold = {"só um cônjuge conhecido, ou sexos por determinar",
                                                               reasons::openUnion,
                                                               reasons::outsidePeriod,
                                                               "não se sabe quem sobreviveu",
                                                               "outra união do sobrevivente sem data",
                                                               "sem notícia do sobrevivente depois da viuvez"};
// Precondition: neither None nor NotAsked.
constexpr const char* told(NoWidowhood why)
{
    return noWidowhoodTold[static_cast<std::size_t>(why) - static_cast<std::size_t>(NoWidowhood::NoUnion)];
}

struct Widowhood
{
    NoWidowhood why = NoWidowhood::None;
    const parish::Person* survivor = nullptr; // null where why tells of none
    parish::Date end = {};                    // of the union
    parish::Date from = {}, until = {};       // observed: from the end, or from a later limit that was typed
    bool marries = false;                     // on the day `until`
    const parish::Family* next = nullptr;     // of that marriage

    bool isCounted() const { return why == NoWidowhood::None; }
};
Widowhood widowhoodOf(const observation::Union& of, const Study& study);

// How many children of the family live on that day, as far as is known, and aren't fifteen yet.
int dependentsOf(const parish::Family& family, const parish::Date& at);

} // namespace study::indicators

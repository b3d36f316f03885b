// What the subjects of nuptiality share: which marriages count, who marries for the first time, where people come from.
#pragma once

#include "study/indicators/subject.h"
#include "study/parish/locality.h"

namespace study::indicators {

// At the marriage.
struct Spouse
{
    const parish::Person* person = nullptr;  // null: nobody
    const parish::Membership* row = nullptr; // of `familias`; null only with the person
    bool isKnown() const { return person != nullptr; }
};
Spouse husbandIn(const parish::Family& family);
Spouse wifeIn(const parish::Family& family);

// Whether the marriage of a family is one that the settings take.
enum class MarriageIs : quint8
{
    Counted,
    Undated,
    Elsewhere,   // and the parish alone is counted
    OutOfPeriod, // of the study
    OutOfBooks   // of marriages: before, behind, or in a gap
};
MarriageIs marriageIs(const parish::Family& family, const Study& study);

// Whether a marriage counts; one that doesn't is told to the taker under its reason. A subject numbers them one after
// the other, in the order of MarriageIs, from that of an undated one on: firstReason.
bool isTaken(const parish::Family& family, const Study& study, quint16 firstReason, Taker& taker);

// Of a couple, and not one that the card calls unmarried: it may be the first marriage of who marries again.
bool isMarriage(const parish::Family& family);

// Which marriage of the person: by its number, by the civil state, by what the BDP has of earlier unions.
enum class Rank : quint8
{
    Unknown, // told by nothing, and another union has no date that would tell
    First,
    Later
};
Rank rankOf(const Spouse& spouse, const parish::Family& family);

// Single or widowed at the marriage: by the civil state told, else by the number of the marriage, else by an earlier
// union that had ended.
enum class Before : quint8
{
    Unknown,
    Single,
    Widowed
};
Before stateBefore(const Spouse& spouse, const parish::Family& family, const Study& study);

// From the near to the far.
enum class Origin : quint8
{
    Parish,
    Neighbour,    // a parish of the list in the settings
    Municipality, // the same
    District,     // the same
    Country,
    Abroad,
    Unknown
};
inline constexpr int origins = 7;
QString told(Origin origin);
Origin originOf(const parish::Place& place, const Study& study);

// Where somebody comes from: the place of birth, else where the parents lived nearest to it; unknown otherwise.
parish::Place originPlaceOf(const parish::Person& person);

} // namespace study::indicators

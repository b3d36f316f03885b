// From when to when each person, and each family, is seen in the parish, and what proves it.
#pragma once

#include "study/observation/unions.h"

namespace study::observation {

// What proves a day of presence.
enum class Proof : quint8
{
    None,
    Birth,
    Marriage,
    ChildBorn,
    ChildBuried,
    Residence,
    Profession,
    Signature,
    Assistance, // proves life; presence only where the assistant is a resident
    Passport,
    Death,
    Parents, // a child that vanishes is seen as long as its parents are
    Spouse,  // the first death of a couple
    Sibling,
    Researcher // typed as a limit of the observation
};

struct Mark
{
    parish::Date day = {}; // unknown: nothing proves it
    Proof by = Proof::None;

    bool operator==(const Mark&) const = default;
};

struct Presence
{
    Mark from = {}, until = {}; // of observation; both unknown for who only passed by
    Mark aliveUntil = {};       // last proof of life, wherever; a death is one

    bool isObserved() const { return from.day.isKnown() && until.day.isKnown(); }
    bool operator==(const Presence&) const = default;
};

// One for each person of the parish, in their order. An act whose place isn't told was written in the parish's own
// books; a residence has to be told. Observation begins with a birth in the parish, a marriage where the couple then
// lived, or the first residence; it ends with a death in the parish, else on the last day that is proved. A child that
// isn't seen by itself from its 15th birthday on is seen until its family ends, or that birthday comes. A limit that a
// researcher typed restricts, and never widens.
// goesOn is asked now and then, as Snapshot::read() asks it; throws Snapshot::Interrupted where it answered false.
std::vector<Presence> presencesOf(const parish::Snapshot& parish, const std::vector<Union>& unions,
                                  const parish::Snapshot::GoesOn& goesOn = {});

// Until when the family of this child is seen by events that aren't the child's own, nor rows of the day of its death:
// of the parents, of brothers and sisters until they marry, and as far as a researcher has typed; never behind the
// death of the last parent. Unknown where nothing from the child's birth on proves it. The unions are all of the
// parish, as unionsOf() gives them.
Mark familyEndFor(const parish::Person& child, const parish::Snapshot& parish, const std::vector<Union>& unions);

// Until when both of a couple whose end isn't known are seen in the parish, by what is no birth of theirs: each by own
// rows of other days, both by burials of their children and as far as a researcher has typed for the family. Never
// behind a death of one of them, nor behind the bound of the end. Unknown where nothing behind the marriage proves it
// of both, and of unions that are closed or contradict themselves.
Mark coupleSeenUntil(const Union& of, const parish::Snapshot& parish);

QString told(Proof proof);

} // namespace study::observation

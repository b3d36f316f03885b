// From when to when a couple lived together, as far as the registers prove it, and why a family gives no such time.
//
// A person who leaves writes nothing: a couple is counted only for the time in which, had something happened, we would
// know of it, and neither end of that time may depend on what is measured. Rules: L. Henry, Manuel de démographie
// historique, 1967, with the ends of union that a death act alone can prove.
#pragma once

#include "study/parish/snapshot.h"

#include <vector>

namespace study::observation {

// What a researcher may choose.
struct UnionRules
{
    bool approximateMarriages = false; // a marriage whose date isn't exact counts as known, too
    bool marriedAtDeath = true;        // a death act that says "casado" ends the union
    // A child that is born behind an end that deaths prove is dropped, and its family stays; with this it goes, too.
    bool leaveOutContradictory = false;

    bool operator==(const UnionRules&) const = default;
};

// How the end of a union is known.
enum class EndBy : quint8
{
    Unknown,
    BothDeaths,
    SurvivorSeen,   // one death, and the other seen alive behind it: a later marriage, act, residence, passport, state
    MarriedAtDeath, // one death, whose act says "casado"
    OtherWidowed    // one death, and the other's own death act says "viúvo", without a date
};

// Why a family has no union, or one without an end.
enum class OpenBy : quint8
{
    Closed,
    OneMember,         // a mother or a father alone: no union
    SameSide,          // two, of whom not one is the wife and one the husband
    NoDeath,           // nothing tells of an end
    OneDeath,          // one death, nothing of the other behind it
    WidowedAtDeath,    // the one known death says "viúvo": an upper bound alone
    Remarried,         // a remarriage without a death: an upper bound alone
    EndBeforeMarriage, // contradiction
    ChildAfterEnd      // contradiction: baptised more than 8 days after the wife's death, or 300 after the husband's
};

enum class BirthBy : quint8
{
    Unknown,
    Register,      // the column of the birth
    AgeAtMarriage, // a statement, as are the two below: the middle of the year that it leaves
    AgeAtChild,
    AgeAtDeath
};

struct Union
{
    const parish::Family* family = nullptr;
    parish::Date marriage = {};  // unknown where the rules don't take it
    parish::Date wifeBirth = {}; // About where derived
    BirthBy wifeBirthBy = BirthBy::Unknown;
    parish::Date end = {}; // of the union; unknown where it is open
    EndBy endBy = EndBy::Unknown;
    OpenBy openBy = OpenBy::NoDeath;
    parish::Date endBound = {}; // it ended on this day at the latest; where it is open and a bound is known
    int computedType = 7;       // 1 to 7, as the table of types of families has them; beside it the stored one

    bool isUnion() const { return openBy != OpenBy::OneMember && openBy != OpenBy::SameSide; }
    bool isClosed() const { return openBy == OpenBy::Closed; }
    bool isContradictory() const { return openBy == OpenBy::EndBeforeMarriage || openBy == OpenBy::ChildAfterEnd; }

    bool operator==(const Union&) const = default;
};

// One for each family of the parish, in their order. Pure. A contradiction is one by more than the dates may be off (a
// year where one isn't exact, ten where both are years alone): an approximate end may stand before its marriage.
std::vector<Union> unionsOf(const parish::Snapshot& parish, const UnionRules& rules);

// "MF I", "MO II", "EF I′", "EO II"; "um só membro", "contradição" where there is no class.
QString className(const Union& of);

// In Portuguese, as a list of what doesn't count tells it; "" for a closed one.
QString told(OpenBy reason);
QString told(EndBy how);
QString told(BirthBy how);

} // namespace study::observation

// Whom an act tells of, as far as it helps to find them.
#pragma once

#include "study/acts/act.h"
#include "study/acts/conclusions.h"
#include "study/acts/limits.h"
#include "study/people/index.h"
#include "study/people/keys.h"
#include "study/people/span.h"

#include <QDate>
#include <QString>

#include <optional>
#include <vector>

namespace study {

// Which ages somebody with that role can have at the date of the act, in completed years, and whether a dead person
// can have it.
struct RoleLimits
{
    int youngest = 0;
    int oldest = limits::oldestOfAll;
    std::optional<int> daysDead = {}; // how long before the act they may have died at the most; none: as long as may be
    bool born = true;                 // before the act; false for the child of a baptism, who is born with it

    bool operator==(const RoleLimits&) const = default;
};

// Another person of the act who is kin of the one sought.
struct Relative
{
    enum class Kind
    {
        Spouse,
        Father,
        Mother,
        Child
    };
    Kind kind = Kind::Spouse;
    int person = -1; // of the act
    qint64 nind = 0; // who it was found to be; 0: not decided, or nobody of the BDP
    CodedName name = {};
    bool certain = true; // false for groom and bride: they may be about to marry, or have married by this act

    bool operator==(const Relative&) const = default;
};

struct Sought
{
    int person = -1; // of the act
    QString written; // the name as it stands there
    CodedName name;
    Sex sex = Sex::Unknown;
    QDate date;   // of the act; an invalid one: not told
    DaySpan days; // on which the act may have been written, by its date
    RoleLimits limits;
    bool dead = false; // before the act
    std::optional<int> age;
    QString residence = {};
    std::optional<PlaceChoice> residencePlace = {};
    QString profession = {};
    std::optional<int> professionCode = {};
    QString title = {};
    QString nickname = {};
    std::vector<Relative> relatives = {};

    BirthYears birthYears() const;      // in which somebody with that role at that date can be born, by an exact date
    BirthYears aboutBirthYears() const; // the same by a date that may be "about"
    const Relative* relative(Relative::Kind kind) const; // the first one; null for none
};

Sought soughtIn(const Act& act, int person, const Conclusions& conclusions);

} // namespace study

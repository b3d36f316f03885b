// Whether somebody can be whom an act tells of, by sex and dates.
#pragma once

#include "study/acts/limits.h"
#include "study/people/index.h"
#include "study/people/kin.h"
#include "study/people/sought.h"
#include "study/people/span.h"

#include <QString>

namespace study {

struct Dates
{
    enum Verdict
    {
        Possible,
        SameAct, // the birth or the death that the act tells of is known already
        OtherSex,
        NotYetBorn,
        TooYoung,
        TooOld,
        DeadAlready,
        DiedLater, // who is told to be dead
        HasABirth, // another one than the act tells of
        HasADeath,
        OtherTimes // by the acts of their lives, where no birth is known
    };
    Verdict verdict = Possible;
    int age = 0;     // of those who are too young or too old
    QDate seen = {}; // of those of other times

    bool operator==(const Dates&) const = default;
    bool isImpossible() const { return verdict != Possible && verdict != SameAct; }
};

// Between which days somebody was born who did that on that day.
struct BirthSpan
{
    QDate from, to; // invalid ones: whenever

    void hasDone(QDate day, limits::Ages ages); // at which it is done
};

// Whether who was born in that span can be the one sought; `seen`: a day on which they did something.
Dates judgedSpan(const Sought& sought, const BirthSpan& span, QDate seen);

// A date that isn't complete, or isn't exact, speaks against nobody whom one of the days allows that it may mean.
Dates judgedDates(const Sought& sought, const PersonRow& person, Role role, AboutDates about = {});

// "já morto em 03/02/1690"; "" for who is possible.
QString inWords(const Dates& dates, const PersonRow& person, Role role);

} // namespace study

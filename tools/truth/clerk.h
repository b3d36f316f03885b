// The priests of a parish at their books.
#pragma once

#include "acts.h"

namespace truth {

// What a priest has the habit of, for as long as he is there.
struct Habits
{
    int until = 0;         // the year
    double shortening = 1; // times the usual share of elements left out
    double spelling = 1;   // times the usual share of old spellings
    int percentOfAges = 60, percentOfGrandparents = 0, percentOfStates = 50, percentOfPlaces = 80, percentOfTrades = 0;
};

class Clerk
{
public:
    Clerk(const World& world, const Rates& rates, const Spellings& spellings, std::uint32_t seed)
        : world_(world), rates_(rates), spellings_(spellings), random_(seed)
    {
    }

    // Where something of it was lost, or isn't of this parish: nothing, and nobody is the subject.
    Act baptism(const Person& child);
    Act marriage(const Couple& couple);
    Act burial(const Person& deceased);
    void begin(int year); // another priest comes now and then

private:
    Mention mention(PersonId who, QDate day, bool isAChild = false);
    Parents parentsOf(PersonId who, QDate day);
    Parents parentsOfCouple(CoupleId couple, QDate day);
    Mention priestOn(QDate day);
    Mention neighbour(QDate day, bool male);
    void tellTheDead(Act& act, const Person& deceased);
    Name said(const Person& person, QDate day);
    QString spelled(const Name& name);
    int ageTold(int age);

    const World& world_;
    const Rates& rates_;
    const Spellings& spellings_;
    demo::Random random_;
    Habits habits_;
};

} // namespace truth

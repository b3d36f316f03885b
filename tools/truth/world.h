// A parish as it was: who lived there, with whom, from when to when.
#pragma once

#include "names.h"
#include "rates.h"

#include <QDate>

#include <vector>

namespace truth {

using PersonId = int; // from 1; 0: nobody
using CoupleId = int;

struct Person
{
    PersonId id = 0;
    bool male = false;
    CoupleId origin = 0; // 0: not told by any act, or a foundling
    Name name = {};
    Name laterName = {}; // by which a grown person goes, where it is another one
    QString nickname = {};
    QDate birth = {}, death = {};
    QDate from = {}, until = {}; // lives in the parish; `until` is the death of who never leaves
    bool bornHere = false, foundling = false, outside = false; // outside: never in the parish, only named there
    PersonId godfather = 0, godmother = 0;
    int locality = 0; // from 1
    int trade = 0;    // from 1; 0: none that is told
    std::vector<CoupleId> unions = {};

    bool livesHere(QDate day) const { return !outside && from <= day && day < until; }
};

struct Couple
{
    CoupleId id = 0;
    PersonId husband = 0, wife = 0; // no husband: the children of a mother alone
    QDate wedding = {};
    bool weddedHere = false;
    int locality = 0;
    std::vector<PersonId> children = {};
};

// The years for which somebody is the priest.
struct Ministry
{
    PersonId priest = 0;
    int from = 0, until = 0; // before this year the next one comes
};

struct World
{
    std::vector<Person> people = {Person()}; // by their numbers
    std::vector<Couple> couples = {Couple()};
    std::vector<Ministry> ministries = {}; // one after the other
    int localities = 0;

    Person& person(PersonId id) { return people[static_cast<std::size_t>(id)]; }
    const Person& person(PersonId id) const { return people[static_cast<std::size_t>(id)]; }
    Couple& couple(CoupleId id) { return couples[static_cast<std::size_t>(id)]; }
    const Couple& couple(CoupleId id) const { return couples[static_cast<std::size_t>(id)]; }
    PersonId father(PersonId id) const { return couple(person(id).origin).husband; } // 0: not known
    PersonId mother(PersonId id) const { return couple(person(id).origin).wife; }
};

inline constexpr int firstYear = 1650, lastYear = 1810;

// A parish that begins with about so many inhabitants, over the years above. The same seed gives the same one.
World lived(int inhabitants, const Rates& rates, std::uint32_t seed);

} // namespace truth

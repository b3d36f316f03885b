// What makes two records two people, whatever agrees.
#include "study/acts/limits.h"
#include "study/linkage/compare.h"

#include <algorithm>
#include <cstdlib>

namespace study::linkage {

namespace {

constexpr int sameMarriage = 31;
constexpr double fertileYears = 40; // from the first birth of a mother to the last one
constexpr double marriedLater = 5;  // years that children may come before the marriage of their parents

bool differ(const parish::Date& one, const parish::Date& other, int days)
{
    return one.isExact() && other.isExact() && std::abs(one.day - other.day) > days;
}

bool isApart(const Days& one, const Days& other)
{
    return one.from > other.to || other.from > one.to;
}

// The one was dead while the other did something.
bool isDeadBefore(const Face& dead, const Face& alive)
{
    const parish::Date& buried = alive.person->death;
    if (alive.lastAlive > dead.deadBy) return true;
    if (dead.deadBy != endless && buried.isKnown() && alive.died.from > dead.deadBy + limits::deathToBurial)
        return true;
    if (!dead.person->death.isKnown()) return false;
    if (alive.lastAlive > dead.died.to) return true;
    return buried.isKnown() && isApart(dead.died, alive.died);
}

bool areAtOneAct(const Face& one, const Face& other)
{
    auto a = one.acts.begin(), b = other.acts.begin();
    while (a != one.acts.end() && b != other.acts.end()) {
        if (*a == *b) return true;
        ++(*a < *b ? a : b);
    }
    return false;
}

bool isVetoedBySex(const parish::Person& one, const parish::Person& other)
{
    return one.gender != other.gender && one.gender != parish::Gender::Undetermined &&
           other.gender != parish::Gender::Undetermined;
}

bool isMarriedOutOfTime(const CoupleFace& one, const CoupleFace& other)
{
    const parish::Date& marriage = one.family->marriage;
    return marriage.isKnown() && !other.births.empty() &&
           double(spanOf(marriage).from - other.births.front()) > marriedLater * parish::daysOfAYear;
}

} // namespace

bool birthsCollide(const std::vector<int>& one, const std::vector<int>& other)
{
    size_t j = 0;
    for (const int day : one) {
        while (j < other.size() && other[j] <= day - limits::nextChild)
            ++j;
        for (size_t k = j; k < other.size() && other[k] < day + limits::nextChild; ++k)
            if (std::abs(other[k] - day) > limits::twins) return true;
    }
    return false;
}

bool isVetoed(const Face& one, const Face& other)
{
    const parish::Person &a = *one.person, &b = *other.person;
    if (isVetoedBySex(a, b) || isApart(one.born, other.born)) return true;
    if (isDeadBefore(one, other) || isDeadBefore(other, one)) return true;
    if (areAtOneAct(one, other)) return true;
    const bool woman = a.gender == parish::Gender::Female || b.gender == parish::Gender::Female;
    return woman && birthsCollide(one.births, other.births);
}

bool isVetoed(const CoupleFace& one, const CoupleFace& other)
{
    const auto differing = [](const Face* a, const Face* b) { return a && b && a != b && isVetoed(*a, *b); };
    if (differing(one.husband, other.husband) || differing(one.wife, other.wife)) return true;
    if (differ(one.family->marriage, other.family->marriage, sameMarriage)) return true;
    if (isMarriedOutOfTime(one, other) || isMarriedOutOfTime(other, one)) return true;
    if (birthsCollide(one.births, other.births)) return true;
    if (one.births.empty() || other.births.empty()) return false;
    const int first = std::min(one.births.front(), other.births.front());
    const int last = std::max(one.births.back(), other.births.back());
    return double(last - first) > fertileYears * parish::daysOfAYear;
}

} // namespace study::linkage

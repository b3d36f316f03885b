// What the rows of a person prove of presence in the parish: the marks of which observation is made.
#pragma once

#include "study/observation/presence.h"

#include <algorithm>
#include <span>
#include <vector>

namespace study::observation {

// Dates compare by their middles.
inline bool isBefore(const parish::Date& one, const parish::Date& other)
{
    return one.middle() < other.middle();
}

// Of two days the later, or the earlier; one that is known comes before one that isn't.
inline void takeLater(Mark& mark, const parish::Date& day, Proof by)
{
    if (day.isKnown() && (!mark.day.isKnown() || isBefore(mark.day, day))) mark = {day, by};
}
inline void takeLater(Mark& mark, const Mark& other)
{
    takeLater(mark, other.day, other.by);
}
inline void takeEarlier(Mark& mark, const Mark& other)
{
    if (other.day.isKnown() && (!mark.day.isKnown() || isBefore(other.day, mark.day))) mark = other;
}

inline parish::Date exactly(QDate day)
{
    return parish::dateOf(day, true);
}

// Days whose rows prove nothing: those on which the event itself is measured, of which the same act wrote the rows.
using DaysApart = std::span<const qint32>;

bool isBornHere(const parish::Person& person, const parish::Home& home);
bool diedHere(const parish::Person& person, const parish::Home& home);

// Where somebody is said to live, in the order of the days.
class Residences
{
public:
    Residences(const parish::Person& person, const parish::Home& home);

    bool isResident(const parish::Date& at) const; // by the last row until then
    Mark first() const;                            // here
    Mark last(DaysApart apart = {}) const;

private:
    struct Stay
    {
        qint32 day = 0;
        bool local = false;
        parish::Date date = {};
    };
    void add(std::span<const parish::Residence> rows, const parish::Home& home);

    std::vector<Stay> stays_ = {};
};

inline bool isApart(const parish::Date& date, DaysApart apart)
{
    return std::ranges::find(apart, date.day) != apart.end();
}

template <class Row>
Mark lastOf(std::span<const Row> rows, Proof by, DaysApart apart = {}) // in the order of their dates
{
    for (auto row = rows.rbegin(); row != rows.rend() && row->date.isKnown(); ++row)
        if (!isApart(row->date, apart)) return {row->date, by};
    return {};
}

// What a person's own rows prove.
struct OwnMarks
{
    Mark firstResidence = {};
    Mark lived = {};    // last row that shows the person living here; marriages and children stand apart
    Mark marriage = {}; // last one in the parish
};
OwnMarks ownMarks(const parish::Person& person, const parish::Home& home, DaysApart apart = {});

inline constexpr int endOfChildhood = 15;
bool hasMarried(const parish::Person& person); // who has, has a home of their own
bool diedAsAChild(const parish::Person& person);

// A father need not have seen a posthumous child.
bool isPosthumousOf(const parish::Person* parent, const parish::Person& child, const parish::Family& family);

// What the children of a family, or of all families of a parent, show of that parent.
Mark lastOfChildren(const parish::Person& parent, const parish::Family& family, const parish::Home& home);
Mark lastOfChildren(const parish::Person& parent, const parish::Home& home);

} // namespace study::observation

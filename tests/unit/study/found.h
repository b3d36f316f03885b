// Who may be meant by the people of an act.
#pragma once

#include "study/acts/plan.h"
#include "study/acts/register.h"
#include "study/people.h"

#include <algorithm>

namespace study {

// The people of an act, their roles and names, one behind the other.
struct Named
{
    Role role;
    const char* name;
    int of = -1;
};

class Finding : public People
{
protected:
    Act& tells(ActKind kind, QDate date, std::initializer_list<Named> people)
    {
        act = {.kind = kind, .date = partialDate(date)};
        conclusions = {};
        for (const Named& each : people) {
            act.people << ActPerson{.role = each.role, .of = each.of, .name = {QString::fromUtf8(each.name)}};
            conclusions.people << Identity{};
        }
        return act;
    }
    void isKnown(int who, qint64 nind) { conclusions.people[who] = {Identity::Kind::Known, nind}; }
    void isTold(int who, const char* type, const char* value)
    {
        act.people[who].attributes << Attribute{type, {QString::fromUtf8(value)}};
    }

    QList<Candidate> find(int who, int limit = 20) { return finder.find(act, who, conclusions, limit); }
    QList<qint64> numbers(int who)
    {
        QList<qint64> found;
        for (const Candidate& candidate : find(who))
            found << candidate.nind;
        return found;
    }
    Candidate of(int who, qint64 nind)
    {
        for (const Candidate& candidate : find(who, 1000))
            if (candidate.nind == nind) return candidate;
        ADD_FAILURE() << nind << " wasn't found";
        return {};
    }
    // A godfather of that name, in 1700.
    QList<qint64> godfathers(const char* name)
    {
        tells(ActKind::Baptism, QDate(1700, 3, 5), {{Role::Child, "Maria"}, {Role::Godfather, name}});
        return numbers(1);
    }

    Act act;
    Conclusions conclusions;
    Finder finder{bdp};
};

inline const QDate in1700(1700, 3, 5);

} // namespace study

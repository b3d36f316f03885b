// What contradicts: somebody new whom the BDP seems to have already.
#include "platform/jet/recordset.h"
#include "study/acts/agesAndSpans.h"
#include "study/acts/limits.h"
#include "study/acts/work.h"
#include "study/names/names.h"

#include <cstdlib>

namespace study {

namespace {

constexpr double sameName = 0.9; // nameLikeness(): names of one class, of which one may tell less

// The one who is to be the other half of somebody known, though the BDP has a living one of that name: the same couple
// would stand there twice.
struct Namesake
{
    qint64 half = 0, family = 0, spouse = 0; // 0: there is none
};
Namesake namesakeOf(Work& work, qint64 nind)
{
    const NameParts name = partsOf(work.nameIn(nind));
    for (const qint64 couple : work.ledger.familiesOf(nind))
        for (const qint64 half : work.ledger.members(couple)) {
            if (half == nind) continue;
            for (const qint64 family : work.ledger.familiesOf(half))
                for (const qint64 spouse : work.ledger.storedMembers(family)) {
                    const PlannedRow* row = spouse == half ? nullptr : work.ledger.person(spouse);
                    if (!row || isBefore(deathOf(*row), dayOf(work), 0)) continue;
                    if (nameLikeness(name, partsOf(work.nameIn(spouse))) < sameName) continue;
                    return {.half = half, .family = family, .spouse = spouse};
                }
        }
    return {};
}

void objectToTheNamesake(Work& work, int person)
{
    const Namesake known = namesakeOf(work, work.number(person));
    if (known.family == 0) return;
    work.object("mesmo-casal", person,
                QString("%1 (%2) seria outra pessoa: a família %3 já é de %4 e %5.")
                    .arg(work.label(work.number(person)), roleTitle(work.act, person), QString::number(known.family),
                         work.label(known.half), work.label(known.spouse)));
}

// Whether a child that the BDP has may be the new one, by the dates. Who is baptised was born with it or a few days
// apart; anybody else was born before the act and lived until then, as long as the age tells, within a quarter.
bool mayBeTheSame(Work& work, int person, const PlannedRow& child)
{
    const DayKnown birth = birthOf(child), then = dayOf(work);
    if (work.act.people[person].role == Role::Child)
        return birth.isKnown() && birth.exact && std::abs(birth.day.daysTo(then.day)) <= limits::twins;
    if (isBefore(deathOf(child), then) || isBefore(then, birth)) return false;
    const auto told = ageTold(work.act, person);
    const auto known = ageAt(birth, then);
    return !told || !known || std::abs(known->years - told->years) <= 2 + known->slack + told->years / 4;
}

void objectToTheSameChild(Work& work, int person)
{
    const auto family = qint64(work.row(person)->now("famorig").toDouble());
    if (family == 0) return;
    const NameParts name = partsOf(work.nameIn(work.number(person)));
    for (jet::Recordset each(work.bdp, jet::NativeSql("select nind from individuo where famorig = ? and nind <> ? "
                                                      "order by nind",
                                                      {family, work.number(person)}));
         !each.eof(); each.moveNext())
    {
        const auto nind = qint64(each["nind"].toDouble());
        const PlannedRow* child = work.ledger.person(nind);
        if (!child || nameLikeness(name, partsOf(work.nameIn(nind))) < sameName) continue;
        if (work.plan.people.contains(nind) || !mayBeTheSame(work, person, *child)) continue;
        const QDate birth = birthOf(*child).day;
        const QString born = birth.isValid() ? QString(" (n. %1)").arg(birth.toString("dd/MM/yyyy")) : QString();
        work.object("mesmo-filho", person,
                    QString("%1 (%2) seria outra pessoa: a família %3 já tem %4%5.")
                        .arg(work.label(work.number(person)), roleTitle(work.act, person), QString::number(family),
                             work.label(nind), born));
        return;
    }
}

} // namespace

void objectToTheNamesakes(Work& work)
{
    for (int person = 0; person < work.count(); ++person) {
        if (!work.row(person) || !work.isNew(person)) continue;
        objectToTheNamesake(work, person);
        objectToTheSameChild(work, person);
    }
}

} // namespace study

// What a marriage writes.
#include "study/acts/work.h"

#include <algorithm>

namespace study {

namespace {

constexpr auto legitimate = "1", legitimated = "9";
constexpr int youngest = 13, oldest = 120; // that the card takes

bool hasChildBefore(Work& work, qint64 family, const QDate& day)
{
    return !work.ledger
                .value(jet::NativeSql("select nind from individuo where famorig = ? and datanasc < ? limit 1",
                                      {family, day}))
                .isNull();
}

// A situation that somebody chose for other reasons stays.
void fillSituation(Work& work, qint64 family, PlannedRow& row)
{
    static const QStringList open{"", "2", "5", "6", "11"};
    const QString known = row.stored("sfamilia").toString();
    const QString after = hasChildBefore(work, family, *work.day) ? legitimated : legitimate;
    if (row.isNew() || open.contains(known)) return row.set("sfamilia", after);
    if (known != after) work.leaveOut(QString("A situação da família %1 fica como está na BDP.").arg(family));
}

void fillMarriage(Work& work, qint64 family)
{
    PlannedRow& row = *work.ledger.family(family);
    const bool known = !row.now("datacasam").isNull();
    if (!work.day) return;
    if (known) {
        work.fill(row, {{"datacasam", *work.day}}, "data do casamento");
    } else {
        row.set("datacasam", *work.day);
        row.set("dcasamfixa", work.exact);
        if (const QDate kept = row.stored("inicioobs").toDate(); kept.isValid() && kept != *work.day)
            work.say(QString("Família %1: início de observação em %2 (era %3).")
                         .arg(QString::number(family), work.day->toString("dd/MM/yyyy"), kept.toString("dd/MM/yyyy")));
        row.set("inicioobs", *work.day);
        fillSituation(work, family, row);
    }
    work.placeUsed = !placeTold(work, work.act.place.value).isEmpty();
    fillPlace(work, row, "localcasam", "tipolocalcasam", placeOrParish(work, work.act.place.value),
              "local do casamento");
}

// Whether a marriage without a date was before this one: by a child of it, or by the death of the other half.
bool wasBefore(Work& work, qint64 family, qint64 person)
{
    if (work.ledger.members(family).size() != 2) return false;
    if (hasChildBefore(work, family, *work.day)) return true;
    return std::ranges::any_of(work.ledger.members(family), [&](qint64 one) {
        const PlannedRow* half = one == person ? nullptr : work.ledger.person(one);
        const QDate death = half ? half->now("dataobito").toDate() : QDate();
        return death.isValid() && death < *work.day;
    });
}

// Marriages of the person before this one, as far as they are known.
int earlierMarriages(Work& work, int person, qint64 family)
{
    static const QStringList marriages{"1", "2", "9"};
    int known = 0;
    for (const qint64 other : work.ledger.familiesOf(work.number(person))) {
        const PlannedRow* row = work.ledger.family(other);
        if (other == family || !row || !marriages.contains(row->now("sfamilia").toString())) continue;
        const QDate date = row->now("datacasam").toDate();
        const bool before = date.isValid() ? date < *work.day : wasBefore(work, other, work.number(person));
        if (before) ++known;
    }
    int told = 0;
    for (const int earlier : peopleWith(work.act, Role::EarlierSpouse, person))
        told = std::max(told + 1, work.act.people[earlier].ordinal);
    return std::max(known, told);
}

void fillSpouse(Work& work, int person, qint64 family)
{
    PlannedRow* row =
        person < 0 || work.number(person) == 0 ? nullptr : work.ledger.member(family, work.number(person));
    if (!row || !work.day) return;
    const QString who = work.label(person);
    const Attribute* from = nullptr;
    if (const auto age = ageTold(work.act, person, &from); age && age->years >= youngest && age->years <= oldest) {
        work.takeThis(from);
        work.fill(*row, {{"idade", double(age->years)}}, "idade de " + who);
    }
    const QVariant state = work.code(person, attribute::civilState, "EstCi");
    work.fill(*row, {{"estadocivil", state}}, "estado civil de " + who);
    const auto single = work.catalogue.codeOf("EstCi", "Solteiro");
    const int earlier = earlierMarriages(work, person, family);
    if (single && sameValue(state, *single))
        work.fill(*row, {{"numcasam", 1.0}}, "número de casamento de " + who);
    else if (earlier > 0)
        work.fill(*row, {{"numcasam", double(earlier + 1)}}, "número de casamento de " + who);
}

QString marriageSentence(Work& work, qint64 family)
{
    return QString("Casamento de %1 (família %2) em %3.")
        .arg(coupleNames(work, family), QString::number(family), shown(work.act.date));
}

} // namespace

void planMarriage(Work& work)
{
    const int groom = personWith(work.act, Role::Groom), bride = personWith(work.act, Role::Bride);
    const Couple couple{.husband = work.number(groom), .wife = work.number(bride)};
    const qint64 family = couple.husband != 0 && couple.wife != 0 ? coupleFamily(work, couple, legitimate) : 0;
    work.plan.family = family;
    if (family != 0) {
        fillMarriage(work, family);
        PlannedRow& row = *work.ledger.family(family);
        fillNotes(work, -1, row, "obs");
        planPriests(work, row, {{"primpadrecasam", "funcprimpcasam"}, {"segpadrecasam", "funcsegpcasam"}});
    }
    for (const int person : {groom, bride})
        if (person >= 0) planParents(work, person);
    planFamilies(work);
    if (family == 0) return;
    fillSpouse(work, groom, family);
    fillSpouse(work, bride, family);
    planAssistants(work, "c", family);
    work.plan.sentences.prepend(marriageSentence(work, family));
}

} // namespace study

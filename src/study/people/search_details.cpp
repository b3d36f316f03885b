// What tells those found apart from each other.
#include "platform/jet/rows.h"
#include "study/acts/register.h"
#include "study/people/search.h"

#include <algorithm>

namespace study {

namespace {

// A date of the BDP and whether it is exact.
PartialDate dateIn(const jet::Rows& row, int date, int exact)
{
    PartialDate shownDate = partialDate(row.date(date));
    shownDate.about = !shownDate.isEmpty() && row.number(exact) == 0;
    return shownDate;
}

struct Happened
{
    QDate date;
    QString what;
};

// The last one that isn't behind that day; the last one of all where none is.
QString lastOf(const std::vector<Happened>& all, QDate day)
{
    const Happened* last = nullptr;
    const auto isBetter = [&](const Happened& one) {
        if (!last) return true;
        const bool before = !day.isValid() || one.date <= day, lastIsBefore = !day.isValid() || last->date <= day;
        return before != lastIsBefore ? before : one.date > last->date;
    };
    for (const Happened& one : all)
        if (one.date.isValid() && isBetter(one)) last = &one;
    return last ? last->what + " em " + shown(partialDate(last->date)) : QString();
}

} // namespace

QString Search::nameOfPerson(qint64 nind)
{
    const Person* person = nind == 0 ? nullptr : kin_.person(nind);
    return person ? person->is.name : QString();
}

QString Search::residenceOf(const Person& person)
{
    const QDate day = act_.date.standing().value_or(QDate());
    const std::vector<Residence>& all = kin_.residencesOf(person);
    if (all.empty()) return {};
    const auto before =
        std::ranges::find_if(all, [&](const Residence& one) { return !day.isValid() || one.date <= day; });
    const Residence& last = before == all.end() ? all.back() : *before;
    return judge_.placeName(last.code, last.level);
}

// Also what no card has a row for: a proxy, a grandmother who was mentioned. Of one day the card's own word stands.
QString Search::lastActOf(const Person& person)
{
    const bool woman = person.is.sex == Sex::Female;
    std::vector<Happened> all{{person.is.birth, woman ? "baptizada" : "baptizado"}};
    for (const Assistance& assistance : kin_.assistancesOf(person))
        all.push_back({assistance.date, !assistance.godparent ? "testemunha" : woman ? "madrinha" : "padrinho"});
    for (const qint64 number : kin_.familiesOf(person)) {
        const Family* family = kin_.family(number);
        if (!family) continue;
        all.push_back({family->marriage, woman ? "noiva" : "noivo"});
        for (const Child& child : kin_.childrenOf(*family))
            all.push_back({child.birth, woman ? "mãe" : "pai"});
    }
    for (const Appearance& each : appearances(bdp_, person.is.nind)) {
        Act asAct;
        asAct.people << ActPerson{.role = each.role, .toldSex = person.is.sex};
        all.push_back({each.date.standing().value_or(QDate()), roleTitle(asAct, 0)});
    }
    return lastOf(all, act_.date.standing().value_or(QDate()));
}

void Search::tellKin(const Person& person, Candidate& told)
{
    if (const Family* origin = kin_.family(person.is.family)) {
        told.father = nameOfPerson(origin->husband);
        told.mother = nameOfPerson(origin->wife);
    }
    QDate last;
    for (const qint64 number : kin_.familiesOf(person)) {
        const Family* family = kin_.family(number);
        if (!family) continue;
        const QDate begun = family->marriage.isValid()         ? family->marriage
                            : kin_.childrenOf(*family).empty() ? QDate()
                                                               : kin_.childrenOf(*family).front().birth;
        const QString spouse = nameOfPerson(otherSpouse(*family, person.is.nind));
        if (spouse.isEmpty() || (!told.spouse.isEmpty() && begun < last)) continue;
        told.spouse = spouse;
        last = begun;
    }
}

Candidate Search::candidate(const Judged& found)
{
    const Person& person = *found.person;
    Candidate one{.nind = person.is.nind,
                  .name = person.is.name,
                  .sex = person.is.sex,
                  .score = found.evidence.bits,
                  .against = found.evidence.against};
    for (const Reason& reason : found.evidence.reasons)
        one.reasons << reason.text;
    jet::Rows dates(bdp_,
                    jet::NativeSql("select datanasc, DnascFixa, dataobito, dobitofixa from individuo where rowid = ?",
                                   {person.is.row}));
    if (dates.next()) {
        one.birth = dateIn(dates, 0, 1);
        one.death = dateIn(dates, 2, 3);
    }
    one.residence = residenceOf(person);
    one.lastAct = lastActOf(person);
    tellKin(person, one);
    return one;
}

CoupleCandidate Search::couple(const CoupleFound& found, const Sought& husband, const Sought& wife, int of)
{
    CoupleCandidate shownCouple{.nfamilia = found.family, .husband = found.husband, .wife = found.wife};
    QStringList names;
    const auto judgeOne = [&](qint64 nind, const Sought& sought, const QString& who) {
        const Person* person = nind == 0 ? nullptr : kin_.person(nind);
        if (!person) return;
        names << person->is.name;
        if (sought.person < 0) return;
        Evidence evidence = judge_.ofThePerson(sought, *person);
        judge_.addWhereabouts(sought, *person, evidence);
        shownCouple.score += evidence.bits;
        for (const Reason& reason : evidence.reasons)
            shownCouple.reasons << who + ": " + reason.text;
        for (const QString& against : evidence.against)
            shownCouple.against << who + ": " + against;
    };
    judgeOne(found.husband, husband, "pai");
    judgeOne(found.wife, wife, "mãe");
    shownCouple.names = names.join(" e ");
    const Family* family = kin_.family(found.family);
    if (!family) return shownCouple;
    shownCouple.children = int(kin_.childrenOf(*family).size());
    shownCouple.marriage = partialDate(family->marriage);
    std::vector<QDate> births;
    for (const Child& child : kin_.childrenOf(*family))
        if (child.birth.isValid()) births.push_back(child.birth);
    if (!births.empty()) {
        shownCouple.firstChild = partialDate(births.front());
        shownCouple.lastChild = partialDate(births.back());
    }
    born_ = codedName(nameOf(act_.people.at(of)));
    shownCouple.open = isOpen(*family);
    return shownCouple;
}

} // namespace study

// What contradicts: parents, couples and children.
#include "platform/jet/recordset.h"
#include "study/acts/agesAndSpans.h"
#include "study/acts/limits.h"
#include "study/acts/work.h"
#include "study/parish/age.h"

#include <algorithm>
#include <cstdlib>
#include <utility>

namespace study {

namespace {

constexpr int generations = 40;

// The birth of a person of the act: a child's is that which the act tells.
DayKnown birthIn(Work& work, int person)
{
    const PlannedRow* row = work.row(person);
    if (!row) return {};
    const QDate day = row->now("datanasc").toDate();
    return {.day = day, .exact = row->now("DnascFixa").toBool()};
}

// A child's own birth is the act: who was dead or unborn then is told by other rules.
void objectToTheLifeOfAParent(Work& work, int child, int parent)
{
    const bool mother = work.act.people[parent].role == Role::Mother;
    const DayKnown death = deathOf(*work.row(parent));
    if (!isBefore(death, birthIn(work, child), mother ? 0 : limits::posthumous)) return;
    work.object("morto-antes", parent,
                QString("%1 (%2) morreu em %3, antes de nascer %4.")
                    .arg(work.label(parent), roleTitle(work.act, parent), dated(death.day), work.label(child)));
}

// By the date of birth; where that isn't known by what the act tells, if it is told of that day.
std::optional<AgeThen> ageThen(Work& work, int person, const DayKnown& then, bool ofThatDay)
{
    if (const auto age = ageAt(birthOf(*work.row(person)), then)) return age;
    const auto told = ofThatDay ? ageTold(work.act, person) : std::nullopt;
    return told ? std::optional(AgeThen{.years = told->years, .slack = 0}) : std::nullopt;
}

void objectToTheParent(Work& work, int child, int parent)
{
    if (parent < 0 || work.number(parent) == 0) return;
    const bool mother = work.act.people[parent].role == Role::Mother;
    const bool ofTheAct = work.act.people[child].role == Role::Child;
    if (!ofTheAct) objectToTheLifeOfAParent(work, child, parent);
    if (ofTheAct && isBefore(birthIn(work, child), birthOf(*work.row(parent)))) return; // told by another rule
    const auto age = ageThen(work, parent, birthIn(work, child), ofTheAct);
    if (!age) return;
    const int least = mother ? limits::mother.youngest : limits::father.youngest;
    const int most = mother ? limits::mother.oldest : limits::oldestLikelyFather;
    const QString then = age->years < 0
                             ? QString("nasceu depois de %1.").arg(work.label(child))
                             : QString("tinha %1 quando nasceu %2.").arg(yearsTold(age->years), work.label(child));
    const QString text = QString("%1 (%2) %3").arg(work.label(parent), roleTitle(work.act, parent), then);
    if (age->years + age->slack < least) work.object(mother ? "mae-nova" : "pai-novo", parent, text);
    if (age->years - age->slack > most) work.object(mother ? "mae-velha" : "pai-velho", parent, text);
}

void objectToTheFiliation(Work& work, int person)
{
    PlannedRow* row = work.row(person);
    const auto origin = qint64(row->stored("famorig").toDouble());
    if (origin == 0) return;
    const QList<qint64> members = work.ledger.members(origin);
    for (const Role role : {Role::Father, Role::Mother}) {
        const qint64 told = work.number(work.parent(person, role));
        if (told == 0 || members.contains(told)) continue;
        work.object("outra-familia", person,
                    QString("%1 já é %2 da família %3 de %4, e no acto é de %5.")
                        .arg(work.label(person), work.agreeing(person, "filho", "filha"), QString::number(origin),
                             coupleNames(work, origin), work.label(told)));
        return;
    }
}

// Whether somebody stands among those from whom a family comes.
bool isAmongAncestors(Work& work, qint64 nind, QList<qint64> people)
{
    QSet<qint64> seen;
    for (int generation = 0; generation < generations && !people.isEmpty(); ++generation) {
        QList<qint64> parents;
        for (const qint64 one : people) {
            if (one == nind) return true;
            if (seen.contains(one)) continue;
            seen << one;
            const PlannedRow* row = work.ledger.person(one);
            const auto origin = row ? qint64(row->now("famorig").toDouble()) : 0;
            if (origin != 0) parents << work.ledger.members(origin);
        }
        people = parents;
    }
    return false;
}

void objectToTheCircle(Work& work, int person)
{
    const PlannedRow& row = *work.row(person);
    if (!row.isChanged("famorig")) return;
    const QList<qint64> parents = work.ledger.members(qint64(row.now("famorig").toDouble()));
    if (!isAmongAncestors(work, work.number(person), parents)) return;
    work.object(
        "ascendente", person,
        QString("%1 seria ascendente de si %2.").arg(work.label(person), work.agreeing(person, "próprio", "própria")));
}

void objectToTheSiblings(Work& work, int child, qint64 family)
{
    const DayKnown birth = birthIn(work, child);
    const bool ofTheChild = family == qint64(work.row(child)->now("famorig").toDouble());
    for (jet::Recordset row(work.bdp, jet::NativeSql("select nind, nome, datanasc from individuo where famorig = ? and "
                                                     "DnascFixa = 1 and datanasc between ? and ? and nind <> ?",
                                                     {family, birth.day.addDays(-limits::nextChild + 1),
                                                      birth.day.addDays(limits::nextChild - 1), work.number(child)}));
         !row.eof(); row.moveNext())
    {
        const QDate other = row["datanasc"].toDate();
        if (std::abs(other.daysTo(birth.day)) <= limits::twins) continue;
        work.object(
            "irmaos-proximos", child,
            QString("%1, nº %2 %3 nasceu em %4, a %5 dias deste baptismo.")
                .arg(ofTheChild ? QString("Da mesma família") : QString("Da mesma mãe (família %1)").arg(family),
                     QString::number(qint64(row["nind"].toDouble())), row["nome"].toString(), dated(other),
                     QString::number(std::abs(other.daysTo(birth.day)))));
    }
}

// Children of one mother, by whatever father, are born on one day or two, or nine months apart.
void objectToTheSiblings(Work& work, int child)
{
    const auto origin = qint64(work.row(child)->now("famorig").toDouble());
    if (origin == 0 || !birthIn(work, child).exact) return;
    QList<qint64> families{origin};
    for (const qint64 parent : work.ledger.members(origin)) {
        const PlannedRow* row = work.ledger.person(parent);
        if (!row || row->now("sexo") != "f") continue;
        for (const qint64 family : work.ledger.familiesOf(parent))
            if (!families.contains(family)) families << family;
    }
    for (const qint64 family : std::as_const(families))
        objectToTheSiblings(work, child, family);
}

struct MarriageAges
{
    int impossible, early, late; // below the first two, above the last: in completed years
};
constexpr MarriageAges ofMen{limits::groom.youngest, 18, 75}, ofWomen{limits::bride.youngest, 16, 60};

void objectToTheAge(Work& work, int person)
{
    if (isBefore(dayOf(work), birthOf(*work.row(person)))) return; // told by another rule
    const auto age = ageThen(work, person, dayOf(work), true);
    if (!age) return;
    const MarriageAges& limits = work.act.people[person].role == Role::Groom ? ofMen : ofWomen;
    const QString text = QString("%1 (%2) %3")
                             .arg(work.label(person), roleTitle(work.act, person),
                                  age->years < 0 ? QString("ainda não tinha nascido.")
                                                 : QString("tinha %1.").arg(yearsTold(age->years)));
    if (age->years + age->slack < limits.impossible)
        work.object("idade-impossivel", person, text);
    else if (age->years + age->slack < limits.early)
        work.object("casamento-cedo", person, text);
    if (age->years - age->slack > limits.late) work.object("casamento-tarde", person, text);
}

// Another marriage, before this one, whose other half has died after it.
void objectToTheOtherSpouse(Work& work, int person, qint64 family)
{
    for (const qint64 other : work.ledger.familiesOf(work.number(person))) {
        const PlannedRow* row = work.ledger.family(other);
        if (other == family || !row || row->isNew()) continue;
        const DayKnown married{.day = row->stored("datacasam").toDate(), .exact = row->stored("dcasamfixa").toBool()};
        if (!married.isKnown() || isBefore(dayOf(work), married)) continue;
        for (const qint64 spouse : work.ledger.storedMembers(other)) {
            const PlannedRow* half = spouse == work.number(person) ? nullptr : work.ledger.person(spouse);
            if (!half || !isBefore(dayOf(work), deathOf(*half))) continue;
            work.object(
                "outro-conjuge-vivo", person,
                QString("%1 casou em %2 com %3, que só morreu em %4.")
                    .arg(work.label(person), dated(married.day), work.label(spouse), dated(deathOf(*half).day)));
        }
    }
}

qint64 originOf(Work& work, int person)
{
    return qint64(work.row(person)->now("famorig").toDouble());
}

// A couple of the act: groom and bride, parents, husband and wife. One that the BDP has already is its own matter.
void objectToTheKin(Work& work, int groom, int bride)
{
    if (groom < 0 || bride < 0 || work.number(groom) == 0 || work.number(bride) == 0) return;
    for (const qint64 family : work.ledger.familiesOf(work.number(groom)))
        if (const QList<qint64> halves = work.ledger.storedMembers(family);
            halves.contains(work.number(groom)) && halves.contains(work.number(bride)))
            return;
    const qint64 his = originOf(work, groom), hers = originOf(work, bride);
    const bool siblings = his != 0 && his == hers;
    const bool parent = (his != 0 && work.ledger.members(his).contains(work.number(bride))) ||
                        (hers != 0 && work.ledger.members(hers).contains(work.number(groom)));
    if (siblings || parent)
        work.object(
            "parentes", bride,
            QString("%1 e %2 são %3.")
                .arg(work.label(groom), work.label(bride), siblings ? "irmãos" : "pai e filha, ou mãe e filho"));
}

void objectToTheMarriage(Work& work)
{
    const int groom = personWith(work.act, Role::Groom), bride = personWith(work.act, Role::Bride);
    if (groom < 0 || bride < 0 || work.number(groom) == 0 || work.number(bride) == 0 || !work.day) return;
    const qint64 family = work.plan.family;
    if (const PlannedRow* row = family == 0 ? nullptr : work.ledger.family(family))
        if (const QDate known = row->stored("datacasam").toDate(); known.isValid())
            work.object("ja-casados", -1,
                        QString("%1 já têm data de casamento (família %2): %3.")
                            .arg(coupleNames(work, family), QString::number(family), dated(known)));
    for (const int person : {groom, bride}) {
        objectToTheAge(work, person);
        if (!work.isNew(person)) objectToTheOtherSpouse(work, person, family);
    }
}

// Husband and wife, by what the BDP knows of both.
void objectToTheSexes(Work& work, int person)
{
    const Role role = work.act.people[person].role;
    const int of = work.owner(person);
    if ((role != Role::Spouse && role != Role::EarlierSpouse) || of < 0 || !work.row(of)) return;
    const QVariant sex = work.row(person)->now("sexo");
    if ((sex != "m" && sex != "f") || sex != work.row(of)->now("sexo")) return;
    work.object("mesmo-sexo", person,
                QString("%1 e %2 são cônjuges e do mesmo sexo.").arg(work.label(of), work.label(person)));
}

// A child of a family isn't its father.
void objectToTheOwnParent(Work& work, int person)
{
    const qint64 family = originOf(work, person);
    if (family != 0 && work.ledger.members(family).contains(work.number(person)))
        work.object("filho-e-conjuge", person,
                    QString("%1 é na família %2 %3 e cônjuge.")
                        .arg(work.label(person), QString::number(family), work.agreeing(person, "filho", "filha")));
}

} // namespace

void objectToTheFamilies(Work& work)
{
    for (int person = 0; person < work.count(); ++person) {
        if (!work.row(person)) continue;
        objectToTheFiliation(work, person);
        objectToTheOwnParent(work, person);
        objectToTheSexes(work, person);
        objectToTheKin(work, work.parent(person, Role::Father), work.parent(person, Role::Mother));
        const Role role = work.act.people[person].role;
        if (role == Role::Spouse || role == Role::EarlierSpouse) objectToTheKin(work, work.owner(person), person);
        if (role == Role::Bride) objectToTheKin(work, personWith(work.act, Role::Groom), person);
        if (!work.isNew(person)) objectToTheCircle(work, person);
        objectToTheParent(work, person, work.parent(person, Role::Father));
        objectToTheParent(work, person, work.parent(person, Role::Mother));
        if (role == Role::Child) objectToTheSiblings(work, person);
    }
    if (work.act.kind == ActKind::Marriage) objectToTheMarriage(work);
}

} // namespace study

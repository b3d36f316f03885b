// The families that an act tells of: parents and couples.
#include "study/acts/work.h"

#include "common/tipoFam.h"

#include <algorithm>

namespace study {

namespace {

// Situations of a family (SitFa).
constexpr auto presumed = "2", fatherUnknown = "3", motherUnknown = "4", bothKnown = "5";

QList<qint64> presentOf(const Couple& couple)
{
    QList<qint64> found;
    if (couple.husband != 0) found << couple.husband;
    if (couple.wife != 0) found << couple.wife;
    return found;
}

bool containsAll(const QList<qint64>& members, const QList<qint64>& wanted)
{
    return std::ranges::all_of(wanted, [&](qint64 one) { return members.contains(one); });
}

bool isIllegitimate(const QString& situation)
{
    return situation == fatherUnknown || situation == motherUnknown;
}

// A parent alone stands for a family of his own; the child of an unmarried one for another than a child whose other
// parent simply isn't told.
qint64 familyOf(Work& work, const Couple& couple, const QString& situation)
{
    const QList<qint64> wanted = presentOf(couple);
    for (const qint64 family : work.ledger.familiesOf(wanted.first())) {
        const QList<qint64> members = work.ledger.members(family);
        if (!containsAll(members, wanted)) continue;
        if (wanted.size() == 2) return family;
        const QString known = work.ledger.family(family) ? work.ledger.family(family)->now("sfamilia").toString() : "";
        if (members.size() == 1 && isIllegitimate(known) == isIllegitimate(situation)) return family;
    }
    return 0;
}

QString shownSituation(const QString& situation)
{
    if (situation == presumed) return "presumida legítima, sem registo do casamento";
    if (situation == fatherUnknown) return "de pai incógnito";
    if (situation == motherUnknown) return "de mãe incógnita";
    if (situation == bothKnown) return "ilegítima, com ambos os pais conhecidos";
    return "legítima";
}

bool isSingle(Work& work, int person)
{
    const auto state = meaningOf("EstCi", toldValue(work.act.people[person].attributes, attribute::civilState));
    return state == "Solteiro";
}

// The situation of the family that the parents of a person make, where it is a new one.
QString situationOfParents(Work& work, int person, const Couple& parents)
{
    const Filiation filiation = filiationOf(work, person);
    const bool illegitimate = filiation == Filiation::Illegitimate;
    if (parents.husband != 0 && parents.wife != 0) return illegitimate ? bothKnown : presumed;
    const bool fatherMissing = parents.husband == 0;
    const int known = work.parent(person, fatherMissing ? Role::Mother : Role::Father);
    const int other = work.parent(person, fatherMissing ? Role::Father : Role::Mother);
    const bool ofTheChild = work.act.people[person].role == Role::Child;
    if (filiation == Filiation::Legitimate || filiation == Filiation::Unread) return presumed;
    if (other >= 0 || !(illegitimate || ofTheChild || isSingle(work, known))) return presumed;
    return fatherMissing ? fatherUnknown : motherUnknown;
}

// A family of origin with one parent gets the other by the act.
bool complete(Work& work, qint64 family, const Couple& parents)
{
    const QList<qint64> members = work.ledger.members(family), told = presentOf(parents);
    const PlannedRow* row = work.ledger.family(family);
    if (!row || members.size() != 1 || told.size() != 2 || !told.contains(members.first())) return false;
    if (isIllegitimate(row->now("sfamilia").toString())) return false;
    const qint64 other = told.first() == members.first() ? told.last() : told.first();
    work.ledger.addMember(family, other);
    work.say(QString("Família %1: entra %2.").arg(family).arg(work.label(other)));
    return true;
}

void note(Work& work, qint64 family)
{
    if (!work.plan.families.contains(family)) work.plan.families << family;
}

KnownDates datesOf(const PlannedRow& row, bool stored)
{
    const auto value = [&](const char* column) { return stored ? row.stored(column) : row.now(column); };
    return {.birth = !value("datanasc").isNull(), .death = !value("dataobito").isNull()};
}

// By the table of the family's types, with what is stored or what will be.
QString typeOf(Work& work, qint64 family, bool stored)
{
    const QList<qint64> members = stored ? work.ledger.storedMembers(family) : work.ledger.members(family);
    DatasDaFamilia dates;
    int deaths = 0;
    for (const qint64 nind : members) {
        const PlannedRow* row = work.ledger.person(nind);
        if (!row) continue;
        const KnownDates known = datesOf(*row, stored);
        if (known.death) ++deaths;
        if ((stored ? row->stored("sexo") : row->now("sexo")).toString() == "f") dates.nascimentoDaMae = known.birth;
    }
    const PlannedRow& row = *work.ledger.family(family);
    const Ledger::Children children = stored ? work.ledger.storedChildren(family) : work.ledger.children(family);
    dates.obitos = deaths == 2;
    dates.casamento = !(stored ? row.stored("datacasam") : row.now("datacasam")).isNull();
    dates.nascimentosDosFilhos = children.all == children.dated;
    return tipoDaFamilia(dates);
}

void settleType(Work& work, qint64 family)
{
    PlannedRow* row = work.ledger.family(family);
    if (!row) return;
    const QString after = typeOf(work, family, false);
    if (row->isNew()) {
        row->set("tipocasal", after.toDouble());
        return;
    }
    const QVariant kept = row->stored("tipocasal");
    if (!kept.isNull() && kept.toString() != typeOf(work, family, true)) return; // the user's own choice
    if (kept.toString() == after) return;
    row->set("tipocasal", after.toDouble());
    work.say(
        QString("Família %1: tipo %2 (era %3).").arg(family).arg(after, kept.isNull() ? "nenhum" : kept.toString()));
}

bool isDated(const PlannedRow& row)
{
    return row.isChanged("datanasc") || row.isChanged("dataobito");
}

} // namespace

QString coupleNames(Work& work, qint64 family)
{
    QStringList names;
    for (const qint64 nind : work.ledger.members(family))
        names << work.nameIn(nind);
    return names.join(" e ");
}

qint64 coupleFamily(Work& work, const Couple& couple, const QString& situation)
{
    const QList<qint64> people = presentOf(couple);
    if (people.isEmpty() || couple.husband == couple.wife) return 0;
    qint64 family = familyOf(work, couple, situation);
    if (family == 0) {
        family = work.ledger.newFamily();
        PlannedRow& row = *work.ledger.family(family);
        row.set("sfamilia", situation);
        row.set("dcasamfixa", false);
        for (const qint64 nind : people)
            work.ledger.addMember(family, nind);
        work.say(QString("Nova família %1: %2 (%3).")
                     .arg(QString::number(family), coupleNames(work, family), shownSituation(situation)));
    }
    note(work, family);
    return family;
}

qint64 planParents(Work& work, int person)
{
    const Couple parents{.husband = work.number(work.parent(person, Role::Father)),
                         .wife = work.number(work.parent(person, Role::Mother))};
    const QList<qint64> told = presentOf(parents);
    if (told.isEmpty()) return 0;
    PlannedRow* row = work.row(person);
    if (!row && told.size() < 2) {
        work.leaveOut(QString("%1 (%2): nada liga esta ficha, porque %3 fica só no acto.")
                          .arg(work.label(told.first()), parents.husband != 0 ? "pai" : "mãe", work.label(person)));
        return 0;
    }
    if (!row) return coupleFamily(work, parents, situationOfParents(work, person, parents));
    const auto origin = qint64(row->now("famorig").toDouble());
    if (origin != 0) {
        if (containsAll(work.ledger.members(origin), told) || complete(work, origin, parents))
            note(work, origin);
        else
            work.leaveOut(QString("%1 já é %2 da família %3 de %4: a filiação não se altera.")
                              .arg(work.label(person), work.agreeing(person, "filho", "filha"), QString::number(origin),
                                   coupleNames(work, origin)));
        return origin;
    }
    const qint64 family = coupleFamily(work, parents, situationOfParents(work, person, parents));
    if (family != 0) row->set("famorig", double(family));
    if (family != 0 && !row->isNew())
        work.say(QString("%1 passa a ser %2 da família %3.")
                     .arg(work.label(person), work.agreeing(person, "filho", "filha"), QString::number(family)));
    return family;
}

// By what is known of either.
static bool isWife(Work& work, int person, int of)
{
    const QVariant sex = work.row(person)->now("sexo"), other = work.row(of)->now("sexo");
    if (sex == "f" || sex == "m") return sex == "f";
    return other == "m";
}

// Of somebody new whose sex the act doesn't tell: the other half's tells it, where that is known.
static void settleSex(PlannedRow& row, bool woman)
{
    if (row.isNew() && row.now("sexo") == "d") row.set("sexo", woman ? "f" : "m");
}

static void planSpouse(Work& work, int person)
{
    const Role role = work.act.people[person].role;
    const int of = work.owner(person);
    if (of < 0 || (role != Role::Spouse && role != Role::EarlierSpouse)) return;
    if (work.number(person) == 0 || work.number(of) == 0) return;
    const bool woman = isWife(work, person, of);
    const auto isKnown = [&](int one) { return work.row(one)->now("sexo") != "d"; };
    if (isKnown(of)) settleSex(*work.row(person), woman);
    if (isKnown(person)) settleSex(*work.row(of), !woman);
    const Couple couple{.husband = work.number(woman ? of : person), .wife = work.number(woman ? person : of)};
    const qint64 family = coupleFamily(work, couple, presumed);
    if (work.plan.family == 0 && work.act.people[of].role == Role::Deceased) work.plan.family = family;
}

void planFamilies(Work& work)
{
    const QList<int> first = subjects(work.act);
    for (int person = 0; person < work.count(); ++person) {
        if (!first.contains(person)) planParents(work, person);
        planSpouse(work, person);
    }
}

void settleFamilyTypes(Work& work)
{
    QList<qint64> touched = work.plan.families;
    QList<qint64> dated;
    for (const auto& [nind, row] : work.ledger.people()) {
        if (isDated(row)) dated << nind;
        if (isDated(row) || row.isChanged("famorig"))
            if (const QVariant origin = row.now("famorig"); !origin.isNull()) touched << qint64(origin.toDouble());
    }
    for (const qint64 nind : dated)
        touched << work.ledger.familiesOf(nind);
    QList<qint64> done;
    for (const qint64 family : touched) {
        if (done.contains(family)) continue;
        done << family;
        settleType(work, family);
    }
}

} // namespace study

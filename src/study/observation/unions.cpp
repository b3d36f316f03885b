#include "study/observation/unions.h"

#include "common/tipoFam.h"
#include "study/parish/codes.h"

#include <algorithm>

namespace study::observation {

using parish::Date;
using parish::Family;
using parish::Membership;
using parish::Person;
using parish::Precision;

namespace {

// One of a couple, and the row that makes them one.
struct Side
{
    const Person* person = nullptr;
    const Membership* row = nullptr;
};

Side sideOf(const Person* person, const Family& family)
{
    for (const Membership& row : family.members)
        if (row.member.person == person) return {person, &row};
    return {person};
}

// The last day that a date can mean.
qint32 lastDay(const Date& date)
{
    const QDate day = date.date();
    return date.precision == Precision::Year ? static_cast<qint32>(QDate(day.year(), 12, 31).toJulianDay()) : date.day;
}

const Date& earlier(const Date& one, const Date& other)
{
    return other.middle() < one.middle() ? other : one;
}

// Whether `second` comes more than `allowed` days behind `first`, whatever the two may be off: a year where one of them
// isn't exact, ten where of both the year alone is told.
bool isSurelyBefore(const Date& first, const Date& second, int allowed = 0)
{
    static constexpr int year = 365, tenYears = 3652;
    if (!first.isKnown() || !second.isKnown()) return false;
    const bool roundYears = first.precision == Precision::Year && second.precision == Precision::Year;
    const int doubt = first.isExact() && second.isExact() ? 0 : roundYears ? tenYears : year;
    return daysBetween(first, second) > allowed + doubt;
}

// Children.

bool isBornAfterTheEnd(const Person& child, const Family& family)
{
    static constexpr int untilBaptism = 8, pregnancy = 300;
    return isSurelyBefore(family.wife->death, child.birth, untilBaptism) ||
           isSurelyBefore(family.husband->death, child.birth, pregnancy);
}

bool hasChildAfterTheEnd(const Family& family)
{
    return std::ranges::any_of(family.children, [&](const Person* child) { return isBornAfterTheEnd(*child, family); });
}

// Other marriages of one of a couple.

bool isMarriage(const Family& family)
{
    return family.marriage.isKnown() || (family.husband && family.wife && !isUnmarried(family));
}

enum class Turn
{
    Untold,
    Earlier,
    Later
};

// Where another marriage of a person stands beside this one: by the dates, else by the numbers, else by the states.
Turn turnOf(const Membership& other, const Membership& own)
{
    const auto turn = [](bool later) { return later ? Turn::Later : Turn::Earlier; };
    const Date& day = own.family->marriage;
    const Date& otherDay = other.family->marriage;
    if (day.isKnown() && otherDay.isKnown() && (otherDay.day > lastDay(day) || day.day > lastDay(otherDay)))
        return turn(otherDay.day > day.day);
    if (own.order.value_or(0) > 0 && other.order.value_or(0) > 0 && own.order != other.order)
        return turn(other.order > own.order);
    if (own.state == parish::civil::single && other.state == parish::civil::widowed) return Turn::Later;
    if (own.state == parish::civil::widowed && other.state == parish::civil::single) return Turn::Earlier;
    return Turn::Untold;
}

struct OtherMarriages
{
    bool later = false;  // one at least is known to be a later one
    bool untold = false; // of one at least nothing tells whether it is
    Date firstLater = {};
};

OtherMarriages otherMarriages(const Side& side)
{
    OtherMarriages others;
    if (!side.row) return others;
    for (const Membership* row : side.person->unions) {
        if (!row->family || row->family == side.row->family || !isMarriage(*row->family)) continue;
        const Turn turn = turnOf(*row, *side.row);
        others.untold = others.untold || turn == Turn::Untold;
        if (turn != Turn::Later) continue;
        others.later = true;
        const Date& day = row->family->marriage;
        if (day.isKnown()) others.firstLater = others.firstLater.isKnown() ? earlier(others.firstLater, day) : day;
    }
    return others;
}

// The last dated row that this person stands in alive. Rows are in the order of their dates.
qint32 lastSeen(const Person& person)
{
    qint32 day = person.assisted.empty() ? 0 : person.assisted.back()->date.day;
    const auto take = [&day](const auto& rows) {
        if (!rows.empty()) day = std::max(day, rows.back().date.day);
    };
    take(person.residences);
    take(person.professions);
    take(person.signatures);
    take(person.passports);
    return day;
}

// The end.

void leaveOpen(Union& made, OpenBy reason, const Date& bound = {})
{
    made.openBy = reason;
    made.endBound = bound;
}

void close(Union& made, EndBy how, const Date& end)
{
    made.openBy = OpenBy::Closed;
    made.endBy = how;
    made.end = end;
}

void endByNoDeath(Union& made, const OtherMarriages& ofHusband, const OtherMarriages& ofWife)
{
    if (!ofHusband.later && !ofWife.later) return leaveOpen(made, OpenBy::NoDeath);
    const Date& one = ofHusband.firstLater;
    const Date& other = ofWife.firstLater;
    leaveOpen(made, OpenBy::Remarried, !one.isKnown() ? other : !other.isKnown() ? one : earlier(one, other));
}

void endByOneDeath(Union& made, const Side& dead, const Side& other, const UnionRules& rules)
{
    const Date& death = dead.person->death;
    const OtherMarriages ofDead = otherMarriages(dead);
    const OtherMarriages ofOther = otherMarriages(other);
    const auto isBeforeDeath = [&](const Date& day) { return day.isKnown() && lastDay(day) < death.day; };
    // Who married again had been widowed before.
    if (isBeforeDeath(ofOther.firstLater)) return leaveOpen(made, OpenBy::Remarried, ofOther.firstLater);
    if (ofDead.later && (!ofDead.firstLater.isKnown() || isBeforeDeath(ofDead.firstLater)))
        return leaveOpen(made, OpenBy::Remarried, ofDead.firstLater.isKnown() ? ofDead.firstLater : death);

    const auto died = [](const Side& side, int state) { return side.person->stateAtDeath == state; };
    const bool surelyLast = !ofDead.later && !ofDead.untold;
    if (ofOther.later || lastSeen(*other.person) > lastDay(death)) return close(made, EndBy::SurvivorSeen, death);
    if (rules.marriedAtDeath && died(dead, parish::civil::married) && surelyLast)
        return close(made, EndBy::MarriedAtDeath, death);
    // Where both are said to have died widowed, one of the two isn't true: the bound alone is sure.
    if (died(dead, parish::civil::widowed)) return leaveOpen(made, OpenBy::WidowedAtDeath, death);
    if (died(other, parish::civil::widowed)) return close(made, EndBy::OtherWidowed, death);
    leaveOpen(made, OpenBy::OneDeath);
}

void end(Union& made, const UnionRules& rules)
{
    const Family& family = *made.family;
    const Side husband = sideOf(family.husband, family);
    const Side wife = sideOf(family.wife, family);
    const Date& hisDeath = family.husband->death;
    const Date& herDeath = family.wife->death;
    if (isSurelyBefore(hisDeath, family.marriage) || isSurelyBefore(herDeath, family.marriage))
        return leaveOpen(made, OpenBy::EndBeforeMarriage);

    if (hisDeath.isKnown() && herDeath.isKnown())
        close(made, EndBy::BothDeaths, earlier(hisDeath, herDeath));
    else if (hisDeath.isKnown())
        endByOneDeath(made, husband, wife, rules);
    else if (herDeath.isKnown())
        endByOneDeath(made, wife, husband, rules);
    else
        endByNoDeath(made, otherMarriages(husband), otherMarriages(wife));
    if ((!made.isClosed() || rules.leaveOutContradictory) && hasChildAfterTheEnd(family)) {
        made.end = {};
        made.endBy = EndBy::Unknown;
        leaveOpen(made, OpenBy::ChildAfterEnd);
    }
}

// The wife's birth.

// Who has completed so many years was born within a year: its middle. Nothing where no age, or 0, is told.
Date birthByAge(parish::Code age, const Date& at)
{
    static constexpr int halfYear = 183;
    if (age.value_or(0) <= 0 || !at.isKnown()) return {};
    const QDate lastBirth = at.middle().addYears(-*age);
    return {static_cast<qint32>(lastBirth.addDays(-halfYear).toJulianDay()), Precision::About};
}

Date birthByChildren(const Family& family)
{
    for (const Person* child : family.children)
        if (const Date birth = birthByAge(child->motherAge, child->birth); birth.isKnown()) return birth;
    return {};
}

void findWifeBirth(Union& made)
{
    const Family& family = *made.family;
    if (!family.wife || family.wife->gender != parish::Gender::Female) return;
    const Side wife = sideOf(family.wife, family);
    const auto take = [&made](const Date& birth, BirthBy how) {
        if (made.wifeBirth.isKnown() || !birth.isKnown()) return;
        made.wifeBirth = birth;
        made.wifeBirthBy = how;
    };
    take(wife.person->birth, BirthBy::Register);
    if (wife.row) take(birthByAge(wife.row->age, family.marriage), BirthBy::AgeAtMarriage);
    take(birthByChildren(family), BirthBy::AgeAtChild);
    take(birthByAge(wife.person->ageAtDeath, wife.person->death), BirthBy::AgeAtDeath);
}

// The type.

int typeOf(const Family& family)
{
    const auto isBorn = [](const Person* child) { return child->birth.isKnown(); };
    const auto isDead = [](const Membership& row) { return row.member.person && row.member.person->death.isKnown(); };
    const auto isMotherBorn = [](const Membership& row) {
        const Person* const member = row.member.person;
        return member && member->gender == parish::Gender::Female && member->birth.isKnown();
    };
    return tipoDaFamilia({
                             .nascimentoDaMae = std::ranges::any_of(family.members, isMotherBorn),
                             .obitos = std::ranges::count_if(family.members, isDead) == 2,
                             .casamento = family.marriage.isKnown(),
                             .nascimentosDosFilhos = std::ranges::all_of(family.children, isBorn),
                         })
        .toInt();
}

bool hasTwoPeople(const Family& family)
{
    const auto isAnother = [&](const Membership& row) {
        return row.member.person && row.member.person != (family.husband ? family.husband : family.wife);
    };
    return std::ranges::any_of(family.members, isAnother);
}

Union unionOf(const Family& family, const UnionRules& rules)
{
    Union made{.family = &family, .computedType = typeOf(family)};
    if (family.marriage.isExact() || rules.approximateMarriages) made.marriage = family.marriage;
    findWifeBirth(made);
    if (family.husband && family.wife)
        end(made, rules);
    else
        made.openBy = hasTwoPeople(family) ? OpenBy::SameSide : OpenBy::OneMember;
    return made;
}

} // namespace

std::vector<Union> unionsOf(const parish::Snapshot& parish, const UnionRules& rules)
{
    std::vector<Union> unions;
    unions.reserve(parish.families().size());
    for (const Family& family : parish.families())
        unions.push_back(unionOf(family, rules));
    return unions;
}

QString className(const Union& of)
{
    if (!of.isUnion()) return told(of.openBy);
    if (of.isContradictory()) return "contradição";
    const QString age = of.wifeBirthBy == BirthBy::Register ? "I" : of.wifeBirthBy == BirthBy::Unknown ? "II" : "I′";
    return QString(of.marriage.isKnown() ? "M" : "E") + (of.isClosed() ? "F " : "O ") + age;
}

QString told(OpenBy reason)
{
    switch (reason) {
    case OpenBy::Closed:
        return {};
    case OpenBy::OneMember:
        return "um só membro";
    case OpenBy::SameSide:
        return "marido e mulher por distinguir";
    case OpenBy::NoDeath:
        return "sem óbito dos cônjuges";
    case OpenBy::OneDeath:
        return "um só óbito, e do outro cônjuge nada depois";
    case OpenBy::WidowedAtDeath:
        return "um só óbito, já de viúvo";
    case OpenBy::Remarried:
        return "recasamento sem óbito do cônjuge anterior";
    case OpenBy::EndBeforeMarriage:
        return "contradição: óbito antes do casamento";
    case OpenBy::ChildAfterEnd:
        return "contradição: filho depois do fim da união";
    }
    return {};
}

QString told(EndBy how)
{
    switch (how) {
    case EndBy::Unknown:
        return {};
    case EndBy::BothDeaths:
        return "óbitos dos dois cônjuges";
    case EndBy::SurvivorSeen:
        return "um óbito, e o outro cônjuge visto depois";
    case EndBy::MarriedAtDeath:
        return "um óbito, ainda de casado";
    case EndBy::OtherWidowed:
        return "um óbito, e o outro cônjuge morreu viúvo";
    }
    return {};
}

QString told(BirthBy how)
{
    switch (how) {
    case BirthBy::Unknown:
        return {};
    case BirthBy::Register:
        return "registo";
    case BirthBy::AgeAtMarriage:
        return "idade ao casamento";
    case BirthBy::AgeAtChild:
        return "idade ao nascimento de um filho";
    case BirthBy::AgeAtDeath:
        return "idade ao óbito";
    }
    return {};
}

} // namespace study::observation

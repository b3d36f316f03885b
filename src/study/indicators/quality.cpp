#include "study/indicators/quality.h"

#include "study/indicators/childhood.h"
#include "study/indicators/confinements.h"
#include "study/indicators/quality_p.h"
#include "study/indicators/scope.h"

#include <algorithm>

namespace study::indicators {

namespace {

namespace registers {

using namespace quality_counts;

constexpr int monthsOfPregnancy = 8; // fewer: it began before the marriage

qint32 decadeOf(const parish::Date& date)
{
    return date.middle().year() / 10 * 10;
}

void countBirth(const parish::Person& person, const Study& study, Taker& taker)
{
    const parish::Date& birth = person.birth;
    const Who who{&person, person.origin};
    if (!birth.isKnown()) return;
    if (!isHere(person.birthPlace, study)) return taker.count({BornElsewhere}, who);
    const qint32 precision = static_cast<qint32>(parish::Precision::Exact) - static_cast<qint32>(birth.precision);
    taker.count({Births, {decadeOf(birth), numbered(person.gender), precision}}, who);
    if (birth.date().month() == 1 && birth.date().day() == 1) taker.count({NewYears, {decadeOf(birth)}}, who);
    if (!birth.isExact()) return;
    taker.count({InfantBirths}, who);
    if (!person.death.isExact() || person.death.day < birth.day) return;
    const qint32 age = ageInDays(birth, person.death);
    if (age < daysOfAnAge) taker.count({InfantDeaths, {age}}, who);
}

void countPerson(const parish::Person& person, const Study& study, Taker& taker)
{
    const Who who{&person, person.origin};
    const bool isUnlinked = person.originNumber == parish::FamilyNumber() && person.unions.empty();
    taker.count({People, {isUnlinked ? 1 : 0, numbered(person.gender)}}, who);
    countBirth(person, study, taker);
    if (person.ageAtDeath && *person.ageAtDeath >= 0) taker.count({AgesAtDeath, {*person.ageAtDeath}}, who);
    for (const parish::Membership* own : person.unions)
        if (own->age && *own->age >= 0) taker.count({AgesAtMarriage, {*own->age}}, {&person, own->family});
    if (!person.death.isKnown()) return;
    if (!isHere(person.deathPlace, study)) return taker.count({DiedElsewhere}, who);
    taker.count({Deaths, {decadeOf(person.death), person.birth.isKnown() ? 1 : 0}}, who);
}

void countSpouses(const parish::Family& family, const Study& study, Taker& taker)
{
    if (!family.marriage.isKnown()) return taker.count({Undated}, {nullptr, &family});
    if (!isHere(family.place, study)) return taker.count({MarriedElsewhere}, {nullptr, &family});
    for (const parish::Membership& row : family.members)
        if (row.member.person)
            taker.count({Spouses, {decadeOf(family.marriage), row.member.person->birth.isKnown() ? 1 : 0}},
                        {row.member.person, &family});
}

void countConfinements(const parish::Family& family, Taker& taker)
{
    for (const Confinement& confinement : confinementsOf(family)) {
        if (!confinement.day.isExact()) continue;
        const Who who{confinement.children.front(), &family};
        taker.count({Confinements, {decadeOf(confinement.day)}}, who);
        if (confinement.isOfTwins()) taker.count({Twins, {decadeOf(confinement.day)}}, who);
    }
}

void countFirstBirth(const parish::Family& family, Taker& taker)
{
    if (!family.marriage.isExact()) return;
    for (const parish::Person* child : family.children) {
        if (child->birth.isKnown() && child->birth.day < family.marriage.day) continue;
        if (!child->birth.isExact()) return;
        const bool early = child->birth.date() < family.marriage.date().addMonths(monthsOfPregnancy);
        return taker.count({FirstBirths, {decadeOf(family.marriage), early ? 1 : 0}}, {child, &family});
    }
}

void countFamily(const parish::Family& family, const Study& study, Taker& taker)
{
    const observation::Union& of = study.unionOf(family);
    const QString name = observation::className(of);
    const auto found = std::find_if(classes.begin(), classes.end(),
                                    [&name](const char* known) { return name == QString::fromUtf8(known); });
    const bool differs = family.type && *family.type != of.computedType;
    const qint32 decade = family.marriage.isKnown() ? decadeOf(family.marriage) : 0;
    taker.count({Families, {static_cast<qint32>(found - classes.begin()), differs ? 1 : 0, decade}},
                {nullptr, &family});
    countSpouses(family, study, taker);
    countConfinements(family, taker);
    countFirstBirth(family, taker);
}

void fill(const Study& study, const Share& share, Taker& taker)
{
    for (const parish::Person& person : peopleOf(study, share))
        countPerson(person, study, taker);
    for (const parish::Family& family : familiesOf(study, share))
        countFamily(family, study, taker);
}

} // namespace registers

} // namespace

const Subject quality = {"qualidade",
                         "Qualidade",
                         "Qualidade dos dados",
                         "Contam todos os registos da base, por dez anos do acto, qualquer que seja o período do "
                         "estudo. Mostra quantas datas "
                         "são exactas, quantos actos se ligam ao nascimento da pessoa, e sinais de registos em falta. "
                         "Leia-a antes das outras "
                         "páginas: cada indicador tem a sua população, e nenhum é melhor do que os livros.",
                         quality_counts::names,
                         quality_counts::reasons,
                         registers::fill,
                         quality_counts::figures};

} // namespace study::indicators
